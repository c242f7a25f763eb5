// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The operating system, seen from the logic: every call that differs between
// systems sits behind this folder's headers. CMake picks the implementation.

#include <cstdint>
#include <filesystem>

namespace plataforma {

// The home folder of the user running the program, whatever VORLANO_HOME says.
std::filesystem::path carpetaPersonalReal();

// Test mode is hermetic: point HOME and the places where the program writes
// (data, config, cache and state homes: Trash, settings, history, autostart)
// into the scratch home. carpetaPersonalReal still answers the real home.
// Called once at start-up, before any thread exists.
void aislarEnCarpeta(const std::filesystem::path& home);

struct EspacioDisco {
    int64_t libre = 0;
    int64_t total = 0;
};

// Free bytes available to the user and total bytes of the volume holding the
// path; 0 for what can't be read. Never fails.
EspacioDisco espacioDisco(const std::filesystem::path& ruta);

// Whether the process holds the system's full disk access permission, judged
// by its effect: a protected file of the real home can be opened.
bool tieneAccesoTotal();

} // namespace plataforma
