// SPDX-License-Identifier: GPL-3.0-or-later
// A folder swapped for a symbolic link to a canary folder outside the home
// while it is being emptied: the link goes, the canary never loses a byte.
// First the swap at the exact moment between listing and removing, then a
// thread that swaps thousands of times while emptyings run.
#include "limpieza/limpiador.h"

#include "apoyo/casa.h"
#include "plataforma/borrado.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <thread>

using apoyo::CasaPrueba;
namespace fs = std::filesystem;

namespace {

struct Canario {
    fs::path raiz = apoyo::carpetaTemporal("vorlano-canario");
    std::map<std::string, std::string> antes;
    Canario()
    {
        fs::create_directories(raiz / "sub");
        for (int i = 0; i < 5; ++i)
            std::ofstream(raiz / ("c" + std::to_string(i))) << "canario " << i;
        std::ofstream(raiz / "sub/hondo") << "hondo";
        antes = apoyo::huellas(raiz);
    }
    ~Canario() { apoyo::borrarArbol(raiz); }
    bool intacto() const { return apoyo::huellas(raiz) == antes; }
};

void arbol(CasaPrueba& casa)
{
    casa.archivoCon("Library/Caches/app/sub/a", "a");
    casa.archivoCon("Library/Caches/app/sub/b", "b");
    casa.archivoCon("Library/Caches/app/sub/hondo/c", "c");
    casa.archivoCon("Library/Caches/app/otra/hondo/d", "d");
    casa.archivoCon("Library/Caches/app/e", "e");
}

// What the hook of the deterministic test swaps, and for what.
fs::path padreDelCambio;
fs::path destinoDelCambio;
std::string nombreDelCambio;
int cambios = 0;

void cambiarAlListar(const char* nombre)
{
    if (nombre != nombreDelCambio || !fs::is_directory(fs::symlink_status(padreDelCambio / nombre)))
        return;
    fs::rename(padreDelCambio / nombre, padreDelCambio / (std::string(nombre) + "-real"));
    fs::create_directory_symlink(destinoDelCambio, padreDelCambio / nombre);
    ++cambios;
}

// Holds the thread for a few microseconds without giving up the processor, so
// that the other thread can act in the window.
void esperar()
{
    const auto hasta = std::chrono::steady_clock::now() + std::chrono::microseconds(20);
    while (std::chrono::steady_clock::now() < hasta) {
    }
}

// Scratch folders in memory where there is a tmpfs for it: thousands of small
// trees are made and emptied, and a busy disk would make that slow.
struct EnMemoria {
    std::optional<std::string> antes;
    EnMemoria()
    {
        if (const char* t = std::getenv("TMPDIR"))
            antes = t;
        if (::access("/dev/shm", W_OK) == 0)
            ::setenv("TMPDIR", "/dev/shm", 1);
    }
    ~EnMemoria()
    {
        if (antes)
            ::setenv("TMPDIR", antes->c_str(), 1);
        else
            ::unsetenv("TMPDIR");
    }
};

struct Gancho {
    explicit Gancho(void (*f)(const char*)) { plataforma::pruebas::pausaTrasListar = f; }
    ~Gancho() { plataforma::pruebas::pausaTrasListar = nullptr; }
};

} // namespace

TEST(Carrera, CarpetaCambiadaPorEnlaceEntreListarYBorrar)
{
    // A direct child of the item, and a folder two levels down.
    for (const auto& [padre, nombre] : {std::pair{"Library/Caches/app", "sub"}, std::pair{"Library/Caches/app/sub", "hondo"}}) {
        CasaPrueba casa;
        Canario canario;
        arbol(casa);
        padreDelCambio = casa.ruta(padre);
        destinoDelCambio = canario.raiz;
        nombreDelCambio = nombre;
        cambios = 0;
        std::vector<std::string> errores;
        {
            Gancho g(cambiarAlListar);
            Limpiador(casa.entorno()).vaciar(casa.ruta("Library/Caches/app"), "app", errores);
        }
        EXPECT_EQ(cambios, 1) << nombre;
        EXPECT_TRUE(canario.intacto()) << nombre;
        // The link was removed as a link, and the real folder it hid, moved
        // into the item meanwhile, went too.
        EXPECT_TRUE(fs::is_empty(casa.ruta("Library/Caches/app"))) << nombre;
        EXPECT_EQ(errores, std::vector<std::string>{}) << nombre;
    }
}

TEST(Carrera, HiloQueCambiaCarpetasPorEnlacesMilesDeVeces)
{
    EnMemoria enMemoria;
    Canario canario;
    CasaPrueba casa;
    const fs::path app = casa.ruta("Library/Caches/app");
    Gancho g([](const char*) { esperar(); });
    int enlacesVistos = 0;
    for (int vuelta = 0; vuelta < 2000; ++vuelta) {
        // The rival is stopped here and has put everything back.
        arbol(casa);
        for (int i = 0; i < 20; ++i) {
            casa.archivoCon("Library/Caches/app/f" + std::to_string(i), "f");
            casa.archivoCon("Library/Caches/app/sub/f" + std::to_string(i), "f");
        }
        std::atomic<bool> listo{false};
        std::atomic<bool> parar{false};
        // Swaps the folder sub, and the item itself, for links to the canary
        // and back, as fast as it can.
        std::thread rival([&] {
            const fs::path sub = app / "sub";
            const fs::path subReal = app / ".sub-real";
            const fs::path appReal = casa.ruta("Library/Caches/.app-real");
            for (int i = 0; !parar; ++i) {
                const fs::path& quien = i % 2 ? app : sub;
                const fs::path& real = i % 2 ? appReal : subReal;
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
        for (const auto& e : errores)
            enlacesVistos += e == "app: es un enlace a otra carpeta, se omitió";
    }
    // How often the swap of the item was caught in the act (it varies from run to run).
    std::printf("el elemento era un enlace en %d de 2000 vueltas\n", enlacesVistos);
}
