// SPDX-License-Identifier: GPL-3.0-or-later
// Folders swapped for symbolic links to a canary folder outside the home while
// they are emptied or moved to the Trash never lead a removal into the canary.
// (The uninstaller moves its leftovers with the same call as the cleaner.)
#include "limpieza/comun.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>

using namespace prueba;
using Carrera = EnMemoria;

namespace {

// Holds the process a few microseconds without giving up the processor, so
// that the other one can act in the window.
void esperar(int microsegundos)
{
    const auto hasta = std::chrono::steady_clock::now() + std::chrono::microseconds(microsegundos);
    while (std::chrono::steady_clock::now() < hasta) {
    }
}

} // namespace

// Thousands of rounds: the rival swaps each of two folders in turn, for 1 to
// 40 microseconds so that it doesn't keep step with the removal, whose
// windows (between listing an entry and removing it, between the checks and
// the move) are widened by 20.
TEST_F(Carrera, CambiosAlAzar)
{
    const auto vaciar = [](CasaPrueba& casa) {
        std::vector<std::string> errores;
        Limpiador(casa.entorno()).vaciar(casa.ruta("Library/Caches/app"), "app", errores);
    };
    // Named as a folder of the canary, so that a move that follows a link on
    // the way takes the canary's own.
    const auto mover = [](CasaPrueba& casa) {
        limpiar(casa.entorno(), {categoria(Modo::papelera, {elemento(casa.ruta("Projects/web/sub"), "sub")})});
    };
    // Each round makes a tree in the second folder swapped, the item or inside it.
    const struct {
        std::array<const char*, 2> cambiadas;
        std::function<void(CasaPrueba&)> actuar;
    } casos[] = {
        {{"Library/Caches/app", "Library/Caches/app/sub"}, vaciar},
        {{"Projects/web", "Projects/web/sub"}, mover},
    };
    plataforma::pruebas::pausaTrasListar = [](const char*) { esperar(20); };
    plataforma::pruebas::pausaAntesDeMover = [] { esperar(20); };
    for (const auto& c : casos) {
        std::string cambiada[2], real[2];
        for (int i = 0; i < 2; ++i) {
            cambiada[i] = casa.ruta(c.cambiadas[i]);
            real[i] = cambiada[i] + "-real";
        }
        Rival rival([&](long i) {
            if (::rename(cambiada[i % 2].c_str(), real[i % 2].c_str()) == 0) {
                ::symlink(fuera.raiz.c_str(), cambiada[i % 2].c_str());
                esperar(1 + int(i * 7919 % 40));
                ::unlink(cambiada[i % 2].c_str());
                ::rename(real[i % 2].c_str(), cambiada[i % 2].c_str());
            }
        });
        // Until the first round that fails, which says which case it was.
        for (int vuelta = 0, bien = true; vuelta < 1000 && bien; ++vuelta) {
            for (int i = 0; i < 20; ++i)
                casa.archivoCon(std::string(c.cambiadas[1]) + "/f" + std::to_string(i), "f");
            casa.archivoCon(std::string(c.cambiadas[1]) + "/hondo/h", "h");
            rival.durante([&] { c.actuar(casa); });
            bien = fuera.intacto() && !fs::is_symlink(cambiada[0]) && !fs::is_symlink(cambiada[1]);
            EXPECT_TRUE(bien) << c.cambiadas[1] << ", vuelta " << vuelta;
            plataforma::vaciarPapelera();
        }
    }
}

// The same swap made exactly in those windows, which the rounds above may
// need hundreds of tries to hit.
TEST_F(Carrera, CambioEnCadaVentana)
{
    // Static, for the pauses, which capture nothing: the folder to swap, once.
    static fs::path cambiar, canario;
    canario = fuera.raiz;
    static const auto cambio = [] {
        if (cambiar.empty())
            return;
        const fs::path quien = std::exchange(cambiar, {});
        ::rename(quien.c_str(), (quien.parent_path() / ".real").c_str());
        ::symlink(canario.c_str(), quien.c_str());
    };
    plataforma::pruebas::pausaTrasListar = [](const char* nombre) {
        if (std::string_view(nombre) == "sub")
            cambio();
    };
    plataforma::pruebas::pausaAntesDeMover = [] { cambio(); };
    // The canary has a sub/ of its own for a removal that follows the link.
    const std::tuple<Modo, const char*, const char*> casos[] = {
        {Modo::borrar, "Library/Caches/app", "Library/Caches/app/sub"},
        {Modo::papelera, "Library/Caches/app/sub", "Library/Caches/app"},
        {Modo::papelera, "Library/Caches/app/sub", "Library/Caches/app/sub"},
    };
    for (const auto& [modo, item, cambiada] : casos) {
        casa.archivoCon("Library/Caches/app/sub/hondo", "h");
        cambiar = casa.ruta(cambiada);
        limpiar(casa.entorno(), {categoria(modo, {elemento(casa.ruta(item), "e")})});
        EXPECT_TRUE(cambiar.empty()) << cambiada << ": no hubo cambio";
        EXPECT_TRUE(fuera.intacto()) << cambiada;
        apoyo::borrarArbol(casa.ruta("Library/Caches"));
        plataforma::vaciarPapelera();
    }
}
