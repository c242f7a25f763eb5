// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Removal that can't be redirected. Below a base folder every step goes
// through directory descriptors opened without following links, so a folder
// swapped for a symbolic link while we work is removed as a link and never
// entered, and nothing outside the tree is reached. A failure doesn't stop the
// removal, and a folder on another mount (bind mounts included) is not entered.

#include <atomic>
#include <cstddef>
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
};
Clase examinar(const std::filesystem::path& base, const std::filesystem::path& relativa);

struct Vaciado {
    // ausente, enlace and enlaceEnRuta touched nothing.
    Clase clase = Clase::ausente;
    // archivo: why its removal failed. carpeta: why it couldn't be listed.
    // Empty when all went well.
    std::string error;
    // carpeta: direct children found, and those still there at the end.
    size_t total = 0;
    size_t fallidos = 0;
};

// Empties base/relativa: a folder stays and loses every child, whole subtrees
// at a time, hidden ones included; anything else is removed. Links are
// removed as links. `relativa` is relative, with no "." or ".." component.
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
