// SPDX-License-Identifier: GPL-3.0-or-later
// A property list of any content, binary or XML: a dictionary or nothing,
// never a crash. Runs on a thread with a worker's small stack, where the
// lists are read in the program.
#include "comun.h"

#include "plataforma/plist.h"

#include <pthread.h>

namespace {

void* leer(void* archivo)
{
    plataforma::leerPlist(*static_cast<const std::filesystem::path*>(archivo));
    return nullptr;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t n)
{
    static const std::filesystem::path archivo = fuzz::carpeta() / "Info.plist";
    fuzz::escribir(archivo, datos, n);
    // 512 KiB, as a secondary thread gets on macOS; the sanitizers' larger
    // frames make it tighter still.
    pthread_attr_t atributos;
    pthread_attr_init(&atributos);
    pthread_attr_setstacksize(&atributos, 512 * 1024);
    pthread_t hilo;
    if (pthread_create(&hilo, &atributos, leer, const_cast<std::filesystem::path*>(&archivo)) != 0)
        std::abort();
    pthread_join(hilo, nullptr);
    pthread_attr_destroy(&atributos);
    return 0;
}
