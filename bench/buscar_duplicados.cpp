// SPDX-License-Identifier: GPL-3.0-or-later
// The duplicate search of a scan alone, on a given home, for timing it and
// comparing its answer with other finders:
//
//   buscar-duplicados <casa>
//
// prints one line per copy found: its path, a tab, the path of the copy kept.
#include "escaner/escaner.h"

#include <cstdio>
#include <string>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "uso: buscar-duplicados <casa>\n");
        return 2;
    }
    const Escaner escaner(Entorno{estandarizar(argv[1]), true});
    const std::string prefijo = "Igual a ";
    for (const Elemento& e : escaner.duplicados()) {
        // The kept copy is named in the detail, relative to home, before any note.
        std::string conservado = e.detalle.value_or("").substr(prefijo.size());
        conservado = conservado.substr(0, conservado.find(" · "));
        std::printf("%s\t%s/%s\n", e.url.c_str(), escaner.entorno.home.c_str(), conservado.c_str());
    }
    return 0;
}
