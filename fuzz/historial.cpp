// SPDX-License-Identifier: GPL-3.0-or-later
// The history loader on any file: an empty or a full history, never a crash,
// and what it loads is written back and read again unchanged.
#include "comun.h"

#include "limpieza/historial.h"

using namespace std::chrono;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t n)
{
    static const std::filesystem::path archivo = fuzz::carpeta() / "historial.json";
    const auto ahora = [] { return Fecha(seconds(1'700'000'000)); };
    const Calendario calendario{"es_ES", "Europe/Madrid"};
    fuzz::escribir(archivo, datos, n);
    Historial h(archivo, ahora, calendario);
    h.total();
    h.esteMes();
    fuzz::exigir(h.porSemana().size() == 8, "ocho semanas");
    if (h.registros().empty())
        return 0;
    // One more entry writes the whole list; it must read back as it stands.
    h.anotar(Resultado{.borrado = 1}, "limpieza");
    const Historial otra(archivo, ahora, calendario);
    fuzz::exigir(otra.registros() == h.registros(), "lo escrito se lee igual");
    return 0;
}
