// SPDX-License-Identifier: GPL-3.0-or-later
// An editor's workspace.json of any content: at most the one state folder it
// lies in is offered, never a crash or a hang, whatever path the file names.
#include "comun.h"

#include "escaner/escaner.h"

using namespace std::chrono;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t n)
{
    static const std::filesystem::path casa = fuzz::carpeta() / "casa";
    static const std::filesystem::path estado = casa / ".config/Code/User/workspaceStorage/0123abcd";
    static const Escaner escaner(Entorno{casa, true});
    fuzz::escribir(estado / "workspace.json", datos, n);
    for (const Elemento& e : escaner.espaciosDeTrabajo(Fecha(seconds(1'700'000'000))))
        fuzz::exigir(e.urls() == std::vector<std::filesystem::path>{estado}, "solo su carpeta de estado");
    return 0;
}
