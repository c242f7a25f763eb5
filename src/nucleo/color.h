// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Colours as plain values: sRGB components from 0 to 1. The screens turn them
// into toolkit colours; the logic never sees one.

struct Color {
    double rojo = 0;
    double verde = 0;
    double azul = 0;
    double opacidad = 1;

    bool operator==(const Color&) const = default;
};

// From hue, saturation and brightness (HSB, also called HSV), each 0 to 1; the
// hue wraps around, so 1.25 is 0.25.
Color desdeHsb(double tono, double saturacion, double brillo);

// A linear gradient from inicio at the top left to fin at the bottom right.
struct Degradado {
    Color inicio;
    Color fin;

    bool operator==(const Degradado&) const = default;
};

namespace Marca {
inline constexpr Color turquesa{0.16, 0.76, 0.74};
inline constexpr Color azul{0.16, 0.46, 0.96};
inline constexpr Color principal{0.13, 0.6, 0.88};
inline constexpr Degradado degradado{turquesa, azul};
} // namespace Marca

// The desktop's standard signal colours (the sRGB values of the light theme
// the design was drawn against).
namespace Colores {
inline constexpr Color rojo{1.0, 0.231, 0.188};
inline constexpr Color naranja{1.0, 0.584, 0.0};
inline constexpr Color amarillo{1.0, 0.8, 0.0};
inline constexpr Color gris{0.557, 0.557, 0.576};
inline constexpr Color verde{0.204, 0.78, 0.349};
inline constexpr Color indigo{0.345, 0.337, 0.839};
} // namespace Colores
