// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The weekly chart of the history card, as numbers and labels: one unit for
// the whole chart (gigabytes from 1,000,000,000 bytes in the fullest week,
// megabytes below), bar heights in that unit, the marks of the value axis
// and a date under every second week.

#include "limpieza/historial.h"

#include <string>
#include <vector>

struct MarcaEje {
    double valor = 0;
    std::string texto;
};

struct Grafico {
    bool enGigas = false;
    // Height of each bar in the chart's unit, oldest week first.
    std::vector<double> barras;
    // The top of the value axis, at least the tallest bar and above 0.
    double tope = 1;
    // From 0 up to tope.
    std::vector<MarcaEje> marcas;
    // One per bar: the week's day and short month, or empty between marks.
    std::vector<std::string> fechas;
};

// locale: an ICU locale id for the dates.
Grafico graficoSemanas(const std::vector<BytesSemana>& semanas, const std::string& locale);
