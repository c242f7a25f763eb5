// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the scanner's tests share: a whole scan, the names of items, and where
// a rule's place and an editor's project state lie in a scratch home.

#include "apoyo/casa.h"
#include "escaner/escaner.h"

#include <set>
#include <string>
#include <string_view>

namespace prueba {

namespace fs = std::filesystem;
using apoyo::CasaPrueba;
using Nombres = std::set<std::string>;

inline std::vector<Categoria> escanear(const Entorno& entorno)
{
    return Escaner(entorno).escanear([](const std::string&) {});
}

inline Nombres nombres(const std::vector<Elemento>& es)
{
    Nombres r;
    for (const auto& e : es)
        r.insert(e.nombre);
    return r;
}

// Relative to the home.
inline std::string lugar(const Regla& r)
{
    return r.base ? std::string(plataforma::basePorDefecto(*r.base)) + "/" + r.ruta : r.ruta;
}

// A project's state folder of an editor ("Code" or "Cursor"): workspace.json
// holding `json`, a state.vscdb of `bytes`, both and the folder dated `cuando`.
inline fs::path estadoDeEditor(CasaPrueba& casa, std::string_view editor, std::string_view id, std::string_view json,
                               Fecha cuando, int64_t bytes = 4096)
{
    const std::string carpeta =
        "Library/Application Support/" + std::string(editor) + "/User/workspaceStorage/" + std::string(id);
    casa.archivoCon(carpeta + "/workspace.json", json);
    casa.archivo(carpeta + "/state.vscdb", bytes);
    for (const std::string& p : {carpeta + "/workspace.json", carpeta + "/state.vscdb", carpeta})
        casa.fecha(p, cuando);
    return casa.ruta(carpeta);
}

// The JSON that names a folder project by its file URL.
inline std::string carpetaJson(const fs::path& proyecto)
{
    return "{\"folder\":\"file://" + proyecto.string() + "\"}";
}

} // namespace prueba
