// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The pieces of a measurement that the top-level listing and the walks of the
// parallel phase share. Internal to the measurer.

#include "mapa/cerrojos.h"
#include "mapa/nodo.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// The absolute paths never entered: the home itself, "/", the protected
// places under home, the Trash given, and any path ending in ".photoslibrary".
class Protegidas {
public:
    Protegidas(const std::filesystem::path& home, const std::filesystem::path& papelera);
    bool contiene(std::string_view ruta) const;

private:
    std::vector<std::string> rutas;
};

// Sorts the children largest first (equal sizes keep their order) and moves
// all past the cap into resto; tamano doesn't change.
void cerrar(NodoDisco& nodo);

// Walks the folder of one task (a level-3 node) on its own file system and
// builds its pruned subtree. Writes nothing outside that subtree but vistas.
void medirTarea(const std::shared_ptr<NodoDisco>& t, const Protegidas& protegidas, ListaSegura& vistas,
                const std::function<bool()>& cancelado);
