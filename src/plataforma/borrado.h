// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Removal that can't be redirected. Below a base folder every step goes
// through directory descriptors opened without following links, so a folder
// swapped for a symbolic link while we work is removed as a link and never
// entered, and nothing outside the tree is reached. Nothing crosses a mount
// boundary: a path whose entry or any folder on the way is a mount point
// (bind mounts included) is refused, and a folder mounted inside what is
// emptied is left in place. A failure doesn't stop the removal.

#include "plataforma/arbol.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace plataforma {

// What a path below a base folder is. The base is opened as given (it may be
// or pass through a link); each component of `relativa` is then opened
// without following links.
enum class Clase {
    ausente,      // gone, or it couldn't be examined
    enlace,       // the last component is a symbolic link
    enlaceEnRuta, // a folder on the way below the base is a symbolic link
    archivo,      // anything but a folder: file, socket, device…
    carpeta,
    montaje,      // the entry, or a folder on the way, is a mount point
    conMontaje,   // a folder with a mount point somewhere inside (the Trash refuses it)
};
Clase examinar(const std::filesystem::path& base, const std::filesystem::path& relativa);

struct Vaciado {
    // ausente, enlace, enlaceEnRuta and montaje touched nothing.
    Clase clase = Clase::ausente;
    // archivo: why its removal failed. carpeta: why it couldn't be listed.
    // Empty when all went well.
    std::string error;
    // carpeta: direct children found, and those still there at the end.
    size_t total = 0;
    size_t fallidos = 0;
    // Bytes of what was removed while another hard link, here or elsewhere,
    // kept its data: they were not given back.
    int64_t retenido = 0;
};

// Empties base/relativa: a folder stays and loses every child, whole subtrees
// at a time, hidden ones included; anything else is removed. Links are
// removed as links. `relativa` is relative, with no "." or ".." component.
// Folders deeper than profundidadMaxima below it are not entered: they stay,
// and count as failures of the child they are in.
Vaciado vaciar(const std::filesystem::path& base, const std::filesystem::path& relativa);

// The system's own text for an error number, in the user's language.
std::string descripcionError(int numero);

namespace pruebas {
// Called, when set, with the name of each entry after it is listed and before
// it is removed, so that a test can widen the window of a race or swap the
// entry. Never set by the program.
inline std::atomic<void (*)(const char* nombre)> pausaTrasListar{nullptr};
} // namespace pruebas

} // namespace plataforma
