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
    // Widens the window between the checks and the move.
    plataforma::pruebas::pausaAntesDeMover = [] { esperar(20); };
    correr({.preparar = [](CasaPrueba& casa) { casa.archivoCon("Projects/web/sub/hondo", "h"); },
            .cambiadas = {"Projects/web", "Projects/web/sub"},
            .actuar =
                [](CasaPrueba& casa) {
                    limpiar(casa.entorno(),
                            {categoria(Modo::papelera, {elemento(casa.ruta("Projects/web/sub"), "sub")})});
                },
            .vueltas = 1000});
    plataforma::pruebas::pausaAntesDeMover = nullptr;
}

TEST(Carrera, RestosDeUnaAppDesinstalada)
{
    plataforma::pruebas::pausaAntesDeMover = [] { esperar(20); };
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
    plataforma::pruebas::pausaAntesDeMover = nullptr;
}

// The same swap made exactly in the windows the code has, between listing a
// child and removing it, and between the checks and the move into the Trash:
// where the rounds above may need hundreds of tries to hit one, these hit it
// every time.
TEST(Carrera, CambioEnCadaVentana)
{
    Fuera canario(true);
    CasaPrueba casa(true);
    apoyo::Variable datos("XDG_DATA_HOME", casa.ruta(".local/share").string());
    // Static, for the pauses, which capture nothing: the folder to swap for a
    // link to the canary, once.
    static fs::path cambiar, canarioRaiz;
    canarioRaiz = canario.raiz;
    static const auto cambio = [] {
        if (cambiar.empty())
            return;
        const fs::path quien = std::exchange(cambiar, {});
        ::rename(quien.c_str(), (quien.parent_path() / ".real").c_str());
        ::symlink(canarioRaiz.c_str(), quien.c_str());
    };
    plataforma::pruebas::pausaTrasListar = [](const char* nombre) {
        if (std::string_view(nombre) == "sub")
            cambio();
    };
    plataforma::pruebas::pausaAntesDeMover = [] { cambio(); };
    // The canary has a sub/ of its own for a removal that follows the link.
    const struct {
        Modo modo;
        const char* item;
        const char* cambiada;
    } casos[] = {
        {Modo::borrar, "Library/Caches/app", "Library/Caches/app/sub"},
        {Modo::papelera, "Library/Caches/app/sub", "Library/Caches/app"},
        {Modo::papelera, "Library/Caches/app/sub", "Library/Caches/app/sub"},
    };
    for (const auto& c : casos) {
        casa.archivoCon("Library/Caches/app/sub/hondo", "h");
        cambiar = casa.ruta(c.cambiada);
        limpiar(casa.entorno(), {categoria(c.modo, {elemento(casa.ruta(c.item), "e")})});
        EXPECT_TRUE(cambiar.empty()) << c.cambiada << ": no hubo cambio";
        EXPECT_TRUE(canario.intacto()) << c.cambiada;
        apoyo::borrarArbol(casa.ruta("Library/Caches"));
        plataforma::vaciarPapelera();
    }
    plataforma::pruebas::pausaTrasListar = nullptr;
    plataforma::pruebas::pausaAntesDeMover = nullptr;
}
