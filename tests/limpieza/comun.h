// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Small builders for the cleaning tests, and what the standard Trash reader
// makes of our Trash.

#include "apoyo/proceso.h"
#include "nucleo/modelo.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace prueba {

namespace fs = std::filesystem;

// A selected item.
inline Elemento elemento(const fs::path& ruta, std::string nombre, int64_t tamano = 0)
{
    Elemento e;
    e.url = ruta;
    e.nombre = std::move(nombre);
    e.tamano = tamano;
    e.seleccionado = true;
    return e;
}

inline Categoria categoria(Modo modo, std::vector<Elemento> elementos)
{
    Categoria c;
    c.id = modo == Modo::borrar ? "apps" : "compilaciones";
    c.modo = modo;
    c.elementos = std::move(elementos);
    return c;
}

// The original paths that trash-list (trash-cli) shows for the Trash under
// the data home this process uses.
inline std::vector<std::string> rutasEnPapelera()
{
    const apoyo::Salida s = apoyo::ejecutarPrograma("/usr/bin/trash-list", {});
    std::vector<std::string> rutas;
    size_t i = 0;
    while (i < s.salida.size()) {
        const size_t fin = std::min(s.salida.find('\n', i), s.salida.size());
        // "2024-06-11 10:20:30 /the/original/path"
        if (fin - i > 20)
            rutas.push_back(s.salida.substr(i + 20, fin - i - 20));
        i = fin + 1;
    }
    return rutas;
}

inline bool existe(const fs::path& p)
{
    return fs::exists(fs::symlink_status(p));
}

inline bool contiene(const std::vector<std::string>& lista, const std::string& s)
{
    return std::find(lista.begin(), lista.end(), s) != lista.end();
}

} // namespace prueba
