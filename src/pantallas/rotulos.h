// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The texts the main window computes from the state: the cleaning question,
// the result banner, the second line of a category, the status of a summary
// card. Plain functions of values, so they are tested without a window; the
// screens bind to them through Rotulos.

#include "nucleo/modelo.h"

#include <cstdint>
#include <string>
#include <vector>

namespace rotulos {

// "¿Limpiar {bytes}?"
std::string tituloConfirmacion(int64_t seleccionado);
// Up to three paragraphs, those that apply, separated by an empty line: what
// is deleted, what goes to the Trash, which open applications to close.
std::string mensajeConfirmacion(int64_t aBorrar, int64_t aPapelera, const std::vector<std::string>& appsAbiertas);

// The banner's first line: the Trash when nothing was deleted for good and
// something went there, otherwise what was deleted.
std::string lineaResultado(int64_t borrado, int64_t enPapelera);
// "Espacio libre: {antes} → {ahora}"
std::string lineaEspacio(int64_t libreAntes, int64_t libreAhora);
// "1 aviso", "{n} avisos"
std::string avisos(int64_t n);
// "{bytes} en la Papelera"
std::string lineaPapelera(int64_t enPapelera);

// "1 elemento", "{n} elementos"
std::string elementos(int64_t n);
// "{libre} libres de {total}"
std::string libresDe(int64_t libre, int64_t total);

// Names joined by the list format of the locale ("A, B y C"); ", " when the
// locale gives nothing.
std::string unirLista(const std::vector<std::string>& nombres, const std::string& locale);

// The second line of a category in the list. When every item is in use the
// whole line is the warning; otherwise the description, and after it, when
// some items are in use, the warning about those.
struct LineaCategoria {
    std::string texto;
    std::string enUso;
    bool todoEnUso = false;
};
LineaCategoria lineaCategoria(const Categoria& c, const std::string& locale);

// The status line of a summary card.
std::string estadoTarjeta(int64_t tamanoSeleccionado, bool todoEnUso);

// Which of the three texts the summary shows after an analysis: 1 what the
// last cleaning freed, 2 what can be freed now, 3 all that's safe is clean.
int casoListo(bool hayResultado, int64_t borrado, int64_t enPapelera, int64_t seleccionado);

} // namespace rotulos
