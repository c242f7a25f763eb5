// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "escaner/apps_abiertas.h"
#include "nucleo/entorno.h"
#include "nucleo/modelo.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

// Progress texts of a long operation. During the measuring pass it is called
// from worker threads, so it must be safe for that.
using Progreso = std::function<void(const std::string&)>;

// One analysis of the home folder: runs the stages in a fixed order, measures
// what no stage measured, removes overlaps, and returns the categories.
struct Escaner {
    Entorno entorno;

    explicit Escaner(Entorno e) : entorno(std::move(e)) {}

    static constexpr int diasDescargas = 60;
    static constexpr int maxGrandes = 40;
    static constexpr int64_t minimoDuplicado = 100000;

    // Bytes from which a file counts as large: 250 MB, or VORLANO_GRANDE_MB
    // in test mode.
    int64_t minimoGrande() const;

    // Lower-case names of children of Library/Caches that "apps" leaves alone.
    static const std::unordered_set<std::string>& cachesExcluidas();

    // Blocking; progreso is called on this thread except while measuring.
    std::vector<Categoria> escanear(const Progreso& progreso) const;

    // A category of the fixed table, with its localized texts, holding elementos.
    Categoria categoria(std::string_view id, std::vector<Elemento> elementos) const;

    // Marks each item with the open app that uses it; in use means unselected.
    static std::vector<Elemento> marcarUso(std::vector<Elemento> elementos, const AppsAbiertas& abiertas);

    // One item per direct child of a folder under home (listing order), .DS_Store
    // and names incluir refuses left out. With abiertas, in-use items come unselected.
    std::vector<Elemento> hijos(std::string_view de, const AppsAbiertas* abiertas,
                                const std::function<bool(std::string_view)>& incluir) const;

    // Removes repeated, nested and negligible items, sorts each category by
    // size and drops empty categories.
    static std::vector<Categoria> depurar(std::vector<Categoria> categorias);
    static constexpr int64_t minimoElemento = 65536;

private:
    // Fills every item still at size 0 in one parallel pass.
    static void medir(std::vector<Categoria>& categorias, const Progreso& progreso);
};
