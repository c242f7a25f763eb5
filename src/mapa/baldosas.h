// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the map draws of one folder: a short list of tiles, one rectangle for
// each, and the colours of disk usage. Pure computation on the tree.

#include "mapa/nodo.h"
#include "nucleo/color.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct Baldosa {
    std::string id;                   // the child's ruta, or "otros"
    std::shared_ptr<NodoDisco> nodo;  // none on the remainder tile
    std::string nombre;               // the child's nombre, or "Otros"
    int64_t tamano = 0;
    Color color;
};

// Origin at the top left, y growing downwards.
struct Rectangulo {
    double x = 0;
    double y = 0;
    double ancho = 0;
    double alto = 0;

    bool operator==(const Rectangulo&) const = default;
};

// The children of at least 0.2 % of the folder (and at least one byte), at
// most 40 in their order, then an "Otros" tile with the rest of the folder
// when that too reaches 0.2 %.
std::vector<Baldosa> baldosas(const NodoDisco& n);

// Squarified layout that keeps the order given: one rectangle per value, in
// the same order. Degenerate input (no positive total, an empty area) gives
// zero rectangles.
std::vector<Rectangulo> cuadricular(const std::vector<double>& valores, const Rectangulo& en);

// Colours by the used fraction of the disk, stepping at 0.9 and 0.95: the two
// ends of a gradient, and a single colour.
Degradado coloresDisco(double usado);
Color colorDisco(double usado);
