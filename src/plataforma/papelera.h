// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace plataforma {

// Moves the entry to the user's Trash, where the desktop's own tools list it
// with its original path. A link is moved as a link. Only the Trash of the
// home folder is used, and an entry on another file system than that Trash is
// refused, never copied. Absent on success, else the text of the failure.
std::optional<std::string> moverAPapelera(const std::filesystem::path& ruta);

// Empties the user's Trash. Absent on success, else the message to show.
std::optional<std::string> vaciarPapelera();

// The folder of the user's Trash (which need not exist yet).
std::filesystem::path carpetaPapelera();

} // namespace plataforma
