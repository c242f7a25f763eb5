// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <string_view>

// One folder or regular file met by recorrerArbol. The views point into the
// walk's own buffer and hold only during the call.
struct EntradaArbol {
    std::string_view nombre;
    // The whole path; ruta.data() is NUL-terminated at ruta.size().
    std::string_view ruta;
    // The path of the folder that holds it.
    std::string_view padre;
    // 1 for the root's children.
    int nivel;
    bool carpeta;
    const struct stat& st;
};

// Depth-first walk below `raiz`, relative to open folder descriptors, so that
// each entry costs the lookup of its own name rather than of its whole path.
// Entries come in the folders' listing order, a folder before what it holds.
// Links are never followed (a root that is a link yields nothing), folders on
// another device are reported but not entered, and only folders and regular
// files are reported; what can't be opened or statted is passed over. For a
// folder, `visitar` returning false keeps the walk out of it. One descriptor
// stays open per level; nothing is allocated per entry once the path buffer
// has grown to the deepest path.
void recorrerArbol(const std::filesystem::path& raiz, const std::function<bool(const EntradaArbol&)>& visitar);
