// SPDX-License-Identifier: GPL-3.0-or-later
// user-dirs.dirs of any content: each of the user's folders lies strictly
// inside home, whatever the file says.
#include "comun.h"

#include "nucleo/entorno.h"
#include "plataforma/lugares.h"

#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t n)
{
    const std::filesystem::path casa = "/home/ana";
    const auto r =
        plataforma::leerCarpetasPersonales(std::string_view(reinterpret_cast<const char*>(datos), n), casa);
    for (const auto& p : r.rutas)
        fuzz::exigir(dentroDe(p, casa) && p == estandarizar(p), "dentro de la casa");
    return 0;
}
