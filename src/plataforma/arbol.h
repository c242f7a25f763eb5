// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <string_view>

namespace plataforma {

// What recorrerArbol reports. A folder comes as `carpeta` before what it holds
// and, unless pruned, once more after it, as `finCarpeta` or `ilegible`.
enum class TipoEntrada {
    carpeta,
    finCarpeta,
    // The folder couldn't be opened: nothing of what it holds was reported.
    ilegible,
    archivo,
    // Reported as itself, never followed.
    enlace,
    // Devices, pipes, sockets.
    otro,
};

// What the visitor wants after an entry.
enum class Paso {
    seguir,
    // For `carpeta`: don't open it, and report no end for it. Elsewhere as seguir.
    podar,
    // The walk ends at once: nothing more is reported, no folder's end either.
    parar,
};

// The views point into the walk's own buffer and hold only during the call.
struct EntradaArbol {
    TipoEntrada tipo;
    // 0 for the root, 1 for its children.
    int nivel;
    // What follows the path's last "/".
    std::string_view nombre;
    // The root's path as given less trailing "/" ("/" stays); below it, the
    // folder's path, "/" and the name ("/name" below "/"). ruta.data() is
    // NUL-terminated at ruta.size().
    std::string_view ruta;
    // What precedes the path's last "/": the path of the folder that holds it.
    std::string_view padre;
    // lstat of the entry; a folder's end repeats the one taken on the way in.
    const struct stat& st;
};

using VisitaArbol = std::function<Paso(const EntradaArbol&)>;

// How many levels below its root a walk or a removal goes. No real tree is
// this deep; a hostile one can't exhaust the stack or the descriptors.
inline constexpr int profundidadMaxima = 256;

// Depth-first walk of `raiz` and everything below it, relative to open folder
// descriptors, so that each entry costs the lookup of its own name rather
// than of its whole path. The root is reported first, at level 0, whatever
// its kind; entries follow their folders' listing order. Links are never
// followed (a root that is a link is reported as a link). A folder on another
// device than the root is reported and, unless pruned, ends at once, unopened.
// An entry that can't be statted, the root included, is passed over; a
// listing that fails midway ends its folder there. One descriptor stays open
// per level: a folder at level profundidadMaxima, or one that finds the
// descriptors used up, comes as `ilegible`. Nothing is allocated per entry or
// per folder once the path buffer and a listing buffer per level exist.
void recorrerArbol(const std::filesystem::path& raiz, const VisitaArbol& visitar);

} // namespace plataforma
