// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "plataforma/borrado.h"

#include <atomic>
#include <filesystem>
#include <optional>
#include <string>

namespace plataforma {

struct Traslado {
    bool movido = false;
    // What was at the path. enlaceEnRuta, montaje and conMontaje were refused
    // before anything was touched.
    Clase clase = Clase::ausente;
    // Why an entry couldn't be moved, in the user's language; empty for the
    // refusals above, whose reason the class tells.
    std::string error;
};

// Moves base/relativa to the user's Trash, where the desktop's own tools list
// it with its original path; a link goes as a link. Every folder below the
// base is opened without following links and must lie on the base's mount,
// so that a folder swapped for a link meanwhile can't bring in anything from
// elsewhere; the entry itself must not be a mount point, nor hold one. The
// .trashinfo is written first, then the entry is renamed into the Trash
// without replacing anything there. Only the home folder's Trash is used: an
// entry on another file system is refused, never copied. `relativa` is
// relative, with no "." or ".." component.
Traslado moverAPapelera(const std::filesystem::path& base, const std::filesystem::path& relativa);

// The same for a whole path, below the folder that holds it.
Traslado moverAPapelera(const std::filesystem::path& ruta);

// Empties the user's Trash. Absent on success, else the message to show.
std::optional<std::string> vaciarPapelera();

// The folder of the user's Trash (which need not exist yet).
std::filesystem::path carpetaPapelera();

namespace pruebas {
// Called, when set, once the entry and the folders on its way have been
// checked and just before it is renamed into the Trash, so that a test can
// widen the window of a race. Never set by the program.
inline std::atomic<void (*)()> pausaAntesDeMover{nullptr};
} // namespace pruebas

} // namespace plataforma
