// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apoyo/casa.h"

#include <string>
#include <string_view>

namespace apoyo {

// A project's state folder of an editor ("Code" or "Cursor"): workspace.json
// holding `json`, a state.vscdb of `bytes`, both and the folder dated `cuando`.
inline fs::path estadoDeEditor(CasaPrueba& casa, std::string_view editor, std::string_view id, std::string_view json,
                               Fecha cuando, int64_t bytes = 4096)
{
    const std::string carpeta =
        "Library/Application Support/" + std::string(editor) + "/User/workspaceStorage/" + std::string(id);
    casa.archivoCon(carpeta + "/workspace.json", json);
    casa.archivo(carpeta + "/state.vscdb", bytes);
    casa.fecha(carpeta + "/workspace.json", cuando);
    casa.fecha(carpeta + "/state.vscdb", cuando);
    casa.fecha(carpeta, cuando);
    return casa.ruta(carpeta);
}

// The JSON that names a folder project by its file URL.
inline std::string carpetaJson(const fs::path& proyecto)
{
    return "{\"folder\":\"file://" + proyecto.string() + "\"}";
}

} // namespace apoyo
