// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The terminal runs: the analysis report and, in test mode, the cleaning.

#include "mapa/nodo.h"
#include "nucleo/entorno.h"
#include "nucleo/modelo.h"

#include <string>
#include <vector>

namespace Consola {

// Analyses, prints the report and, if limpiar, cleans (all items if todo).
// Cleaning only happens in test mode; elsewhere the refusal is printed.
void ejecutar(bool limpiar, bool todo);

// The report of a finished analysis, every line ending in a newline.
std::string informe(const std::vector<Categoria>& categorias, const Entorno& entorno, double segundos);

// Measures the home folder and prints its largest folders.
void mapa();

// The report of a finished measurement: the top 8 children of the root with
// up to 3 of theirs, then the protected places left out.
std::string informeMapa(const NodoDisco& raiz, double segundos);

// The text brought to exactly 10 characters: blanks added on the right, or cut.
std::string columna(const std::string& texto);

} // namespace Consola
