// SPDX-License-Identifier: GPL-3.0-or-later
// Folders swapped for symbolic links to a canary folder outside the home while
// they are emptied, thousands of times, never lead the removal into the canary.
#include "limpieza/comun.h"

#include "apoyo/proceso.h"
#include "plataforma/borrado.h"

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <thread>

using namespace prueba;

namespace {

// Holds the thread a few microseconds without giving up the processor, so
// that the other thread can act in the window.
void esperar(const char* = nullptr)
{
    const auto hasta = std::chrono::steady_clock::now() + std::chrono::microseconds(20);
    while (std::chrono::steady_clock::now() < hasta) {
    }
}

} // namespace

TEST(Carrera, HiloQueCambiaCarpetasPorEnlacesMilesDeVeces)
{
    // Thousands of small trees: in memory where a tmpfs allows it. The canary
    // shares the home's mount, so that only the refusal to follow links keeps
    // the removal out of it.
    std::optional<apoyo::Variable> enMemoria;
    if (::access("/dev/shm", W_OK) == 0)
        enMemoria.emplace("TMPDIR", "/dev/shm");
    Fuera canario;
    CasaPrueba casa;
    enMemoria.reset();
    const fs::path app = casa.ruta("Library/Caches/app");
    // Widens the window between listing an entry and removing it.
    plataforma::pruebas::pausaTrasListar = esperar;
    for (int vuelta = 0; vuelta < 2000; ++vuelta) {
        // The rival is stopped here and has put everything back.
        for (int i = 0; i < 20; ++i)
            casa.archivoCon("Library/Caches/app/sub/f" + std::to_string(i), "f");
        casa.archivoCon("Library/Caches/app/sub/hondo/c", "c");
        casa.archivoCon("Library/Caches/app/e", "e");
        std::atomic<bool> listo{false};
        std::atomic<bool> parar{false};
        // Swaps the folder sub, and the item itself, for links to the canary
        // and back, as fast as it can.
        std::thread rival([&] {
            for (int i = 0; !parar; ++i) {
                const fs::path quien = i % 2 ? app : app / "sub";
                const fs::path real = casa.ruta(i % 2 ? "Library/Caches/.app-real" : "Library/Caches/app/.sub-real");
                if (::rename(quien.c_str(), real.c_str()) == 0) {
                    ::symlink(canario.raiz.c_str(), quien.c_str());
                    esperar();
                    ::unlink(quien.c_str());
                    ::rename(real.c_str(), quien.c_str());
                }
                listo = true;
            }
        });
        while (!listo)
            std::this_thread::yield();
        std::vector<std::string> errores;
        Limpiador(casa.entorno()).vaciar(app, "app", errores);
        parar = true;
        rival.join();
        ASSERT_TRUE(canario.intacto()) << "vuelta " << vuelta;
        ASSERT_TRUE(fs::is_directory(fs::symlink_status(app))) << "vuelta " << vuelta;
    }
    plataforma::pruebas::pausaTrasListar = nullptr;
}
