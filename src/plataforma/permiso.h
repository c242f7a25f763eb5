// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Moving to the Trash what the user can't move alone: an application bundle of
// root's or of another user's, with an administrator's consent.

#include "plataforma/papelera.h"

#include <filesystem>
#include <optional>
#include <string>

namespace plataforma {

// Moves the entry into the user's Trash once an administrator agrees through
// the system's password prompt; waits up to 300 seconds for the answer. A
// trailing "/" is no part of the entry's name. Not movido when the user
// cancels, the system has no such prompt, or the move fails; then nothing has
// changed, and `error` says why where that was known before anyone was asked
// (an entry on another file system than the Trash). `elevador` names the
// program that asks instead of the system's own (empty: none, the move runs
// with the user's rights).
Traslado moverAPapeleraComoAdministrador(const std::filesystem::path& ruta,
                                         const std::optional<std::string>& elevador = std::nullopt);

} // namespace plataforma
