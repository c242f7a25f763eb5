// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Desktop entries (freedesktop.org .desktop files): how a desktop lists an
// application, names it and starts it. They are other programs' files, so
// what is read is bounded and damaged ones give less, never more.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plataforma {

struct EntradaEscritorio {
    std::filesystem::path archivo;
    std::string id;           // the desktop file id
    std::string nombre;       // Name; empty when missing or not UTF-8
    std::string icono;        // Icon: a name to look up, or an absolute path
    std::string claseVentana; // StartupWMClass
    std::string version;      // X-AppImage-Version, written by AppImage integrations
    // The program Exec starts ("env VAR=..." skipped), found on PATH, links
    // resolved; empty when it can't be found.
    std::filesystem::path programa;
    bool aplicacion = false; // Type=Application
    // Shown in menus: neither NoDisplay nor Hidden, and its TryExec program is there.
    bool visible = false;
};

// Larger files are not desktop entries anyone wrote by hand or by tool.
inline constexpr size_t maximoEntrada = 256 * 1024;

// One entry, with the id given. Absent when it can't be read, is larger than
// maximoEntrada or has no [Desktop Entry] group.
std::optional<EntradaEscritorio> leerEntrada(const std::filesystem::path& archivo, std::string id);

// The .desktop entries of an applications folder and of its subfolders (a few
// levels down), ids relative to it; links to folders aren't followed.
std::vector<EntradaEscritorio> entradasDe(const std::filesystem::path& carpeta);

// The largest icon of that name among the themed icons of a data folder
// (share/icons/hicolor/<size>/apps/), or empty.
std::filesystem::path iconoDeTema(const std::filesystem::path& share, const std::string& nombre);

// Whether the screens may load the file as an application's icon: a regular
// file (links followed) no larger than any icon is, since image readers take
// in the whole file.
bool esIcono(const std::filesystem::path& archivo);

// The words of an Exec value, its quoting undone and its field codes (%f, %U…)
// left out.
std::vector<std::string> palabrasDeExec(std::string_view exec);

} // namespace plataforma
