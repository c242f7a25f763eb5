// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUuid>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

// One entry of the pruned disk tree: a folder or a file of the home folder
// with the allocated bytes of everything under it.
//
// Ownership: a parent owns its children (shared_ptr); padre is weak. Whoever
// else holds a node (the map state, a tile) keeps it alive after it leaves the
// tree, and its padre then expires with the parent that dropped it.
class NodoDisco {
public:
    NodoDisco(std::string nombre, std::string ruta, bool esCarpeta);
    NodoDisco(const NodoDisco&) = delete;
    NodoDisco& operator=(const NodoDisco&) = delete;

    const QUuid id;
    const std::string nombre; // last path component, as bytes
    const std::string ruta;   // absolute path, as bytes
    const bool esCarpeta;     // a directory by lstat

    // Allocated bytes of this entry and all under it. For a folder, after a
    // measurement: its own bytes + the sum over hijos + resto.
    int64_t tamano = 0;
    // The children that kept a node, largest first once closed.
    std::vector<std::shared_ptr<NodoDisco>> hijos;
    // Bytes of direct children without a node: the small ones and those past the cap.
    int64_t resto = 0;
    // Never entered nor measured: its tamano stays 0.
    bool protegido = false;
    // Built by the listing of the top levels rather than by a walk.
    bool esqueleto = false;
    // On the root only: names of the places left out, sorted.
    std::vector<std::string> protegidasVistas;
    std::weak_ptr<NodoDisco> padre;
};
