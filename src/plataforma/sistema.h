// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The operating system, seen from the logic: every call that differs between
// systems sits behind this folder's headers. CMake picks the implementation.

#include <cstdint>
#include <filesystem>
#include <string>

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

// Whether the process may read and change everything of the user's home. A
// Mac grants that as a permission of its own; elsewhere a process has all its
// user's rights unless a sandbox holds it back (Flatpak: whether the sandbox
// was given the whole home or the host, read and write).
bool tieneAccesoTotal();
// The same, judged by a Flatpak sandbox description of our choosing (a file
// that doesn't exist: no sandbox).
bool accesoTotalSegun(const std::filesystem::path& descripcion);

// How the user grants that access when the program lacks it: the system
// settings page that does it (a URL), or else a command to run outside the
// sandbox. Both empty when neither applies.
struct ComoDarAcceso {
    std::string pagina;
    std::string orden;
};
ComoDarAcceso comoDarAccesoTotal();
ComoDarAcceso comoDarAccesoTotalSegun(const std::filesystem::path& descripcion);

} // namespace plataforma
