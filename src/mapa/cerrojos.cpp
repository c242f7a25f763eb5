// SPDX-License-Identifier: GPL-3.0-or-later
#include "mapa/cerrojos.h"

void ListaSegura::agregar(std::string texto)
{
    std::lock_guard g(cerrojo);
    datos.insert(std::move(texto));
}

std::vector<std::string> ListaSegura::todos() const
{
    std::lock_guard g(cerrojo);
    return {datos.begin(), datos.end()};
}

void Bandera::poner(bool v)
{
    std::lock_guard g(cerrojo);
    valor = v;
}

bool Bandera::activa() const
{
    std::lock_guard g(cerrojo);
    return valor;
}
