// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/escaner.h"

#include <dirent.h>

std::vector<Elemento> Escaner::hijos(const std::filesystem::path& de, const AppsAbiertas* abiertas,
                                     const std::function<bool(std::string_view)>& incluir) const
{
    std::vector<Elemento> r;
    // A root that is a link (Library/Caches pointing into Documents) would
    // turn what it points at into cache rows.
    const auto carpeta = carpetaReal(de);
    if (!carpeta)
        return r;
    DIR* d = ::opendir(carpeta->c_str());
    if (d == nullptr)
        return r;
    while (const dirent* e = ::readdir(d)) {
        const std::string_view nombre = e->d_name;
        if (nombre == "." || nombre == ".." || nombre == ".DS_Store" || !incluir(nombre))
            continue;
        Elemento el;
        el.url = *carpeta / nombre;
        el.nombre = std::string(nombre);
        if (abiertas != nullptr)
            el.enUso = abiertas->quienUsa(nombre, {});
        el.seleccionado = !el.enUso;
        el.revisarUso = abiertas != nullptr;
        r.push_back(std::move(el));
    }
    ::closedir(d);
    return r;
}
