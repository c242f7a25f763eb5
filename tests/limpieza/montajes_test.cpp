// SPDX-License-Identifier: GPL-3.0-or-later
// A folder outside the home bound onto an item, onto a folder above it or
// inside it: no emptying, move to the Trash or uninstall reaches it, also
// while the mount comes and goes thousands of times.
#include "limpieza/comun.h"

#include "desinstalador/desinstalador.h"

using namespace prueba;
using Montajes = EnMemoria;

namespace {

const std::string enRuta = ": hay un punto de montaje en su ruta, se omitió";

enum class Retirada { borrar, papelera, desinstalar };

// The errores of one removal of `item`.
Lineas retirar(Retirada como, CasaPrueba& casa, const fs::path& item)
{
    switch (como) {
    case Retirada::borrar:
        return limpiar(casa.entorno(), {categoria(Modo::borrar, {elemento(item, "e")})}).errores;
    case Retirada::papelera:
        return limpiar(casa.entorno(), {categoria(Modo::papelera, {elemento(item, "e")})}).errores;
    case Retirada::desinstalar: {
        const AppInstalada app{.url = casa.crearDir("Applications/E.app"), .nombre = "E"};
        return Desinstalador(casa.entorno()).desinstalar(app, {elemento(item, "e")}).errores;
    }
    }
    return {};
}

void desmontar(const fs::path& p)
{
    while (::umount2(p.c_str(), MNT_DETACH) == 0) {
    }
}

} // namespace

TEST_F(Montajes, NingunaRetiradaCruzaUnPuntoDeMontaje)
{
    struct Caso {
        const char* montado; // where the folder outside is bound, below the home
        const char* item;
        Lineas borrar, papelera; // the desinstalar lines are the papelera ones
    };
    const Caso casos[] = {
        {"Library/Caches/x", "Library/Caches/x", {"e" + enRuta}, {"e" + enRuta}},
        {"Library/Caches", "Library/Caches/victima", {"e" + enRuta}, {"e" + enRuta}},
        // Emptied in place, the mount stays and the rest goes; moved, it
        // would go along, so the folder stays whole.
        {"Projects/web/node_modules/m",
         "Projects/web/node_modules",
         {"e: 1 de 2 elementos no se pudieron borrar (en uso o protegidos)"},
         {"e: contiene un punto de montaje, se omitió"}},
    };
    conMontajes([&] {
        for (const Caso& c : casos)
            for (const Retirada como : {Retirada::borrar, Retirada::papelera, Retirada::desinstalar}) {
                casa.archivoCon(std::string(c.item) + "/propio", "p");
                montar(casa.ruta(c.montado), nullptr, fuera.raiz);
                EXPECT_EQ(retirar(como, casa, casa.ruta(c.item)), como == Retirada::borrar ? c.borrar : c.papelera)
                    << c.montado << " " << int(como);
                EXPECT_TRUE(fuera.intacto()) << c.montado << " " << int(como);
                desmontar(casa.ruta(c.montado));
                plataforma::vaciarPapelera();
            }
    });
}

// A process of the same namespace binds the folder outside onto the item and
// onto the folder above it and takes it away again, as fast as it can, while
// the item is emptied, moved to the Trash, or goes as an uninstalled
// application's leftover.
TEST_F(Montajes, MontajesQueVanYVienen)
{
    const fs::path sitios[] = {casa.ruta("Library/Caches/app"), casa.ruta("Library/Caches/app/sub")};
    conMontajes([&] {
        Rival rival([&](long i) {
            if (::mount(fuera.raiz.c_str(), sitios[i % 2].c_str(), nullptr, MS_BIND, nullptr) == 0)
                ::umount2(sitios[i % 2].c_str(), MNT_DETACH);
        });
        for (const Retirada como : {Retirada::borrar, Retirada::papelera, Retirada::desinstalar})
            for (int vuelta = 0; vuelta < 1000 && !::testing::Test::HasFailure(); ++vuelta) {
                casa.archivoCon("Library/Caches/app/sub/victima/dato", "propio");
                rival.durante([&] { retirar(como, casa, casa.ruta("Library/Caches/app/sub")); });
                EXPECT_TRUE(fuera.intacto()) << int(como) << " vuelta " << vuelta;
                plataforma::vaciarPapelera();
            }
    });
}
