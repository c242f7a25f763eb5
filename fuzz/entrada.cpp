// SPDX-License-Identifier: GPL-3.0-or-later
// A desktop entry of any content: an entry or none, never a crash, and a
// name that is text.
#include "comun.h"

#include "plataforma/entradas.h"
#include "plataforma/idioma.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t n)
{
    static const std::filesystem::path archivo = fuzz::carpeta() / "applications/app.desktop";
    fuzz::escribir(archivo, datos, n);
    if (const auto e = plataforma::leerEntrada(archivo, "app.desktop")) {
        fuzz::exigir(plataforma::esUtf8(e->nombre), "nombre en UTF-8");
        fuzz::exigir(e->programa.empty() || e->programa.is_absolute(), "programa absoluto");
    }
    return 0;
}
