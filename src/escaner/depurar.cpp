// SPDX-License-Identifier: GPL-3.0-or-later
// The last step of a scan: one place is reported once, at its safest level,
// and an item inside another is left to the outer one.
#include "escaner/escaner.h"

#include <algorithm>
#include <unordered_set>

namespace {

// The path with symbolic links resolved as far as it exists; unchanged where
// it can't be resolved.
std::string resuelta(const std::filesystem::path& p)
{
    std::error_code ec;
    auto r = std::filesystem::weakly_canonical(p, ec);
    return ec ? p.native() : r.native();
}

// Whether a container of the path, by whole components, is one of the items.
bool estaDentroDeOtro(const std::string& ruta, const std::unordered_set<std::string>& prefijos)
{
    std::string padre = ruta;
    for (;;) {
        const size_t barra = padre.rfind('/');
        if (barra == std::string::npos)
            return false;
        padre.resize(barra);
        // The root folder is never a container.
        if (padre.size() < 2)
            return false;
        padre += '/';
        if (prefijos.contains(padre))
            return true;
        padre.pop_back();
    }
}

} // namespace

std::vector<Categoria> Escaner::depurar(std::vector<Categoria> categorias)
{
    std::vector<std::vector<std::string>> rutas(categorias.size());
    std::unordered_set<std::string> prefijos;
    for (size_t c = 0; c < categorias.size(); ++c)
        for (const Elemento& e : categorias[c].elementos) {
            rutas[c].push_back(resuelta(e.url));
            prefijos.insert(rutas[c].back() + '/');
        }

    std::unordered_set<std::string> vistas;
    std::vector<Categoria> r;
    for (size_t c = 0; c < categorias.size(); ++c) {
        Categoria& cat = categorias[c];
        std::vector<Elemento> quedan;
        for (size_t i = 0; i < cat.elementos.size(); ++i) {
            const std::string& ruta = rutas[c][i];
            if (!vistas.insert(ruta).second)
                continue;
            if (estaDentroDeOtro(ruta, prefijos) || cat.elementos[i].tamano < minimoElemento)
                continue;
            quedan.push_back(std::move(cat.elementos[i]));
        }
        if (quedan.empty())
            continue;
        std::stable_sort(quedan.begin(), quedan.end(),
                         [](const Elemento& a, const Elemento& b) { return a.tamano > b.tamano; });
        cat.elementos = std::move(quedan);
        r.push_back(std::move(cat));
    }
    return r;
}
