// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The freedesktop.org home Trash as its readers expect it (trash-list, file
// managers): files/<name> holds the entry and info/<name>.trashinfo its
// original path and the date. Creating the .trashinfo exclusively reserves
// the name, so two programs moving at once never take the same one.

#include "plataforma/linux/descriptores.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace plataforma {

struct PapeleraAbierta {
    Descriptor archivos; // files/
    Descriptor info;     // info/
};

// Opens files/ and info/ of the home Trash, none of them a link, making what
// is missing private to the user. False when it can't.
bool abrirPapelera(PapeleraAbierta& p);

// Writes info/<n>.trashinfo for `original` (an absolute path) and flushes it,
// for the first n of "x", "x.2", "x.3"… (x: `nombre`, shortened where the
// name would be too long) that neither folder holds. Absent when no name
// could be reserved, with errno telling why.
std::optional<std::string> reservarNombre(const PapeleraAbierta& p, std::string_view nombre,
                                          const std::filesystem::path& original);

// The path without trailing "/": the entry it names.
std::filesystem::path sinBarraFinal(std::filesystem::path ruta);

// Why an entry on another file system than the Trash isn't moved: the Trash
// only renames.
std::string enOtroSistema();

// Gives a reserved name back.
void anularReserva(const PapeleraAbierta& p, const std::string& nombre);

} // namespace plataforma
