// SPDX-License-Identifier: GPL-3.0-or-later
// Folders swapped for symbolic links to a canary folder outside the home while
// they are emptied or moved to the Trash, thousands of times, never lead the
// cleaner or the uninstaller into the canary.
#include "limpieza/comun.h"

#include "apoyo/proceso.h"
#include "desinstalador/desinstalador.h"
#include "plataforma/borrado.h"
#include "plataforma/papelera.h"

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <thread>

using namespace prueba;

namespace {

// Holds the thread a few microseconds without giving up the processor, so
// that the other thread can act in the window.
void esperar(int microsegundos)
{
    const auto hasta = std::chrono::steady_clock::now() + std::chrono::microseconds(microsegundos);
    while (std::chrono::steady_clock::now() < hasta) {
    }
}

struct Carrera {
    // Makes the round's tree; the rival is stopped and has put everything back.
    std::function<void(CasaPrueba&)> preparar;
    // Folders (relative to the home) the rival swaps for links to the canary.
    std::vector<std::string> cambiadas;
    // The removal under test.
    std::function<void(CasaPrueba&)> actuar;
    int vueltas;
};

void correr(const Carrera& c)
{
    // The canary shares the home's mount, so that only the refusal to follow
    // links keeps the removal out of it.
    Fuera canario(true);
    CasaPrueba casa(true);
    // The Trash of this home, emptied after each round.
    apoyo::Variable datos("XDG_DATA_HOME", casa.ruta(".local/share").string());
    // Each round: corre, then pausa until the rival answers pausado, having
    // put everything back.
    enum { corre, pausa, pausado, fin };
    std::atomic<int> estado{pausa};
    std::atomic<size_t> cambios{0};
    std::thread rival([&] {
        for (size_t i = 0;; ++i, ++cambios) {
            const int e = estado.load();
            if (e == fin)
                return;
            if (e == pausa)
                estado = pausado;
            if (e != corre) {
                std::this_thread::yield();
                continue;
            }
            const fs::path quien = casa.ruta(c.cambiadas[i % c.cambiadas.size()]);
            const fs::path real = quien.parent_path() / ("." + quien.filename().string() + "-real");
            if (::rename(quien.c_str(), real.c_str()) == 0) {
                ::symlink(canario.raiz.c_str(), quien.c_str());
                // Links that last from 1 to 40 microseconds, so that the
                // rival doesn't keep step with the removal.
                esperar(1 + int(i * 7919 % 40));
                ::unlink(quien.c_str());
                ::rename(real.c_str(), quien.c_str());
            }
        }
    });
    for (int vuelta = 0; vuelta < c.vueltas && !::testing::Test::HasFailure(); ++vuelta) {
        c.preparar(casa);
        // Under way before the removal starts.
        const size_t antes = cambios;
        estado = corre;
        while (cambios < antes + 2)
            std::this_thread::yield();
        c.actuar(casa);
        estado = pausa;
        while (estado != pausado)
            std::this_thread::yield();
        EXPECT_TRUE(canario.intacto()) << "vuelta " << vuelta;
        for (const std::string& r : c.cambiadas)
            EXPECT_FALSE(fs::is_symlink(casa.ruta(r))) << "vuelta " << vuelta;
        plataforma::vaciarPapelera();
    }
    estado = fin;
    rival.join();
}

} // namespace

TEST(Carrera, VaciarEnSitio)
{
    // Widens the window between listing an entry and removing it.
    plataforma::pruebas::pausaTrasListar = [](const char*) { esperar(20); };
    correr({.preparar =
                [](CasaPrueba& casa) {
                    for (int i = 0; i < 20; ++i)
                        casa.archivoCon("Library/Caches/app/sub/f" + std::to_string(i), "f");
                    casa.archivoCon("Library/Caches/app/sub/hondo/c", "c");
                    casa.archivoCon("Library/Caches/app/e", "e");
                },
            .cambiadas = {"Library/Caches/app", "Library/Caches/app/sub"},
            .actuar =
                [](CasaPrueba& casa) {
                    std::vector<std::string> errores;
                    Limpiador(casa.entorno()).vaciar(casa.ruta("Library/Caches/app"), "app", errores);
                },
            .vueltas = 1000});
    plataforma::pruebas::pausaTrasListar = nullptr;
}

// The item is named as a folder of the canary, so that a move that follows a
// link on the way takes the canary's own.
TEST(Carrera, MoverALaPapelera)
{
    correr({.preparar = [](CasaPrueba& casa) { casa.archivoCon("Projects/web/sub/hondo", "h"); },
            .cambiadas = {"Projects/web", "Projects/web/sub"},
            .actuar =
                [](CasaPrueba& casa) {
                    limpiar(casa.entorno(),
                            {categoria(Modo::papelera, {elemento(casa.ruta("Projects/web/sub"), "sub")})});
                },
            .vueltas = 1000});
}

TEST(Carrera, RestosDeUnaAppDesinstalada)
{
    correr({.preparar =
                [](CasaPrueba& casa) {
                    casa.crearDir("Applications/Editor.app/Contents");
                    casa.archivoCon("Library/Application Support/Editor/sub/hondo", "h");
                },
            .cambiadas = {"Library/Application Support/Editor", "Library/Application Support/Editor/sub"},
            .actuar =
                [](CasaPrueba& casa) {
                    const AppInstalada app{.url = casa.ruta("Applications/Editor.app"), .nombre = "Editor"};
                    const Elemento resto{.url = casa.ruta("Library/Application Support/Editor/sub"),
                                         .nombre = "sub",
                                         .seleccionado = true};
                    Desinstalador(casa.entorno()).desinstalar(app, {resto});
                },
            .vueltas = 1000});
}
