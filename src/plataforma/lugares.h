// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Where a desktop keeps a user's things: the base folders in which programs
// put caches, settings, data and state, and the user's own folders (Desktop,
// Documents, Downloads…) under the names the desktop gave them.

#include <array>
#include <filesystem>
#include <string_view>

namespace plataforma {

// The base folders where programs keep a user's files, by kind.
enum class Base { cache, config, datos, estado };
inline constexpr Base todasLasBases[] = {Base::cache, Base::config, Base::datos, Base::estado};

// The place of a base folder under home when nothing else is said:
// ".cache", ".config", ".local/share", ".local/state".
std::string_view basePorDefecto(Base b);

// The base folder of that kind for a home: the environment's choice
// ($XDG_CACHE_HOME, $XDG_CONFIG_HOME, $XDG_DATA_HOME, $XDG_STATE_HOME) when it
// is an absolute path, else its default place under home. In test mode
// (soloCasa) the environment isn't read: the default place always.
std::filesystem::path carpetaBase(Base b, const std::filesystem::path& home, bool soloCasa);

// The user's own folders, in this order.
enum class Personal { escritorio, documentos, descargas, imagenes, videos, musica };
inline constexpr Personal todasLasPersonales[] = {Personal::escritorio, Personal::documentos, Personal::descargas,
                                                  Personal::imagenes,   Personal::videos,     Personal::musica};

// Where each folder lies, indexed by Personal: absolute paths strictly inside
// home, never home itself. Two may be the same folder.
struct CarpetasPersonales {
    std::array<std::filesystem::path, 6> rutas;
    const std::filesystem::path& operator[](Personal p) const { return rutas[size_t(p)]; }
};

// The English name each folder has when the desktop says nothing:
// "Desktop", "Documents", "Downloads", "Pictures", "Movies", "Music".
std::string_view nombrePorDefecto(Personal p);

// The user's folders of a home whose config home is given: what the desktop
// recorded for them (on Linux, user-dirs.dirs in the config home), each one
// it doesn't name, or names outside home or as home itself, under its
// English name. Reads at most a small file; a missing or damaged one gives
// the English names.
CarpetasPersonales carpetasPersonales(const std::filesystem::path& home, const std::filesystem::path& config);

// The same from the text of that file, as the desktop's own reader takes it.
CarpetasPersonales leerCarpetasPersonales(std::string_view texto, const std::filesystem::path& home);

} // namespace plataforma
