// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The only piece that removes what an analysis found, and the path rule that
// guards every removal of the program.

#include "nucleo/entorno.h"
#include "nucleo/modelo.h"
#include "nucleo/progreso.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

struct Limpiador {
    Entorno entorno;
    // Seconds an item's command may run before it counts as failed.
    double limiteAccion = 900;

    explicit Limpiador(Entorno e) : entorno(std::move(e)) {}

    // Folders of the home folder that are never removed themselves; what lies
    // below them may be.
    static constexpr std::string_view raicesIntocables[] = {
        "Library",   "Library/Caches", "Library/Logs", "Library/Developer", "Library/Application Support",
        "Downloads", "Documents",      "Desktop",      "Developer",         "Projects",
        "Pictures",  "Movies",         "Music"};

    // The path rule, on text only (nothing is opened, no link followed): after
    // resolving "." and "..", the path lies strictly inside the home folder,
    // at least two components deep, and is not one of raicesIntocables.
    bool permitido(const std::filesystem::path& ruta) const;

    // Removes every selected item: runs its command, or empties it in place
    // (borrar) or moves it to the Trash (papelera) by its category. Failures
    // become lines of errores and never stop the run. Blocking; progreso is
    // called on this thread, once before each item that is worked on.
    Resultado limpiar(std::vector<Categoria> categorias, const Progreso& progreso) const;

    // Empties one path in place: a folder stays and loses its children, a file
    // is removed, a link is left alone. A path the rule refuses is not touched.
    // Problems are added to errores under the name given.
    void vaciar(const std::filesystem::path& ruta, const std::string& nombre, std::vector<std::string>& errores) const;

private:
    // The path below the home folder, if the rule allows it.
    std::optional<std::filesystem::path> relativaPermitida(const std::filesystem::path& ruta) const;
    void ejecutarAccion(const Elemento& e, Resultado& r) const;
    void moverAPapelera(const Elemento& e, Resultado& r) const;
    void vaciarElemento(const Elemento& e, Resultado& r) const;
};
