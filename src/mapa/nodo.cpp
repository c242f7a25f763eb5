// SPDX-License-Identifier: GPL-3.0-or-later
#include "mapa/nodo.h"

NodoDisco::NodoDisco(std::string nombre, std::string ruta, bool esCarpeta)
    : id(QUuid::createUuid()), nombre(std::move(nombre)), ruta(std::move(ruta)), esCarpeta(esCarpeta)
{
}
