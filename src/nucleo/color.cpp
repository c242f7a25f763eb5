// SPDX-License-Identifier: GPL-3.0-or-later
#include "nucleo/color.h"

#include <cmath>

Color desdeHsb(double tono, double saturacion, double brillo)
{
    // The hue circle in six sectors; within one, one component rises or falls.
    const double h = (tono - std::floor(tono)) * 6;
    const int sector = int(h) % 6;
    const double f = h - std::floor(h);
    const double p = brillo * (1 - saturacion);
    const double q = brillo * (1 - saturacion * f);
    const double t = brillo * (1 - saturacion * (1 - f));
    switch (sector) {
    case 0: return {brillo, t, p};
    case 1: return {q, brillo, p};
    case 2: return {p, brillo, t};
    case 3: return {p, q, brillo};
    case 4: return {t, p, brillo};
    default: return {brillo, p, q};
    }
}
