// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The freedesktop.org base directories, read from the environment at each call.

#include <filesystem>
#include <string>
#include <vector>

namespace plataforma {

// $XDG_DATA_HOME, else ~/.local/share.
std::filesystem::path datosDeUsuario();

// The applications folders of the desktop entries, most important first:
// the user's, then one per $XDG_DATA_DIRS entry.
std::vector<std::filesystem::path> carpetasDeEntradas();

// The desktop file id of an entry below one of those folders: the relative
// path without ".desktop", with "/" as "-".
std::string idDeEntrada(const std::filesystem::path& base, const std::filesystem::path& entrada);

} // namespace plataforma
