// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Measures the home folder into a pruned tree small enough to draw: only what
// holds at least a million bytes keeps a node, no folder keeps more than 60
// children, and everything else survives as a number (resto).

#include "mapa/cerrojos.h"
#include "mapa/nodo.h"
#include "nucleo/entorno.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct MedidorMapa {
    Entorno entorno;
    // Names of the protected places met; only grows, so one measurer serves
    // one measurement.
    std::shared_ptr<ListaSegura> vistas;

    explicit MedidorMapa(Entorno e) : entorno(std::move(e)), vistas(std::make_shared<ListaSegura>()) {}

    static constexpr int64_t minimoArchivo = 1'000'000;
    static constexpr int64_t minimoCarpeta = 1'000'000;
    static constexpr size_t maxHijos = 60;

    // Places under home that are never entered, nor is any path ending in
    // ".photoslibrary", nor the Trash of the data home: the system keeps them
    // to itself, and a walk there only brings access prompts; what is in the
    // Trash is already on its way out.
    static constexpr std::string_view lugaresProtegidos[] = {
        "Library/Containers",
        "Library/Group Containers",
        "Library/Mail",
        "Library/Messages",
        "Library/Safari",
        "Library/Application Support/MobileSync",
        "Library/Mobile Documents",
        "Library/CloudStorage",
        "Library/Metadata/CoreSpotlight",
        "Library/Biome",
        "Library/Suggestions",
        ".Trash",
        ".local/share/Trash",
    };

    // Blocking; returns the closed tree and never fails: what can't be read is
    // missing from it. progreso gets whole percentages and cancelado is asked
    // now and then, both from worker threads (progress possibly out of order).
    // After a cancellation the tree is smaller but still adds up.
    std::shared_ptr<NodoDisco> medir(const std::function<void(int)>& progreso = {},
                                     const std::function<bool()>& cancelado = {}) const;

    static const std::vector<std::string>& protegidasEncontradas(const NodoDisco& raiz)
    {
        return raiz.protegidasVistas;
    }
};
