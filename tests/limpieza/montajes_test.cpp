// SPDX-License-Identifier: GPL-3.0-or-later
// A folder outside the home bound onto an item, onto a folder above it or
// inside it: neither emptying nor a move to the Trash reaches it, also while
// the mount comes and goes thousands of times. (The uninstaller moves its
// leftovers with the same call as the cleaner.)
#include "limpieza/comun.h"

using namespace prueba;
using Montajes = EnMemoria;

namespace {

const std::string enRuta = ": hay un punto de montaje en su ruta, se omitió";

// The errores of one removal of `item`.
Lineas retirar(Modo modo, CasaPrueba& casa, const fs::path& item)
{
    return limpiar(casa.entorno(), {categoria(modo, {elemento(item, "e")})}).errores;
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
        Lineas borrar, papelera;
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
            for (const Modo modo : {Modo::borrar, Modo::papelera}) {
                casa.archivoCon(std::string(c.item) + "/propio", "p");
                montar(casa.ruta(c.montado), nullptr, fuera.raiz);
                EXPECT_EQ(retirar(modo, casa, casa.ruta(c.item)), modo == Modo::borrar ? c.borrar : c.papelera)
                    << c.montado << " " << int(modo);
                EXPECT_TRUE(fuera.intacto()) << c.montado << " " << int(modo);
                desmontar(casa.ruta(c.montado));
                plataforma::vaciarPapelera();
            }
    });
}

// A process of the same namespace binds the folder outside onto the item and
// onto the folder above it and takes it away again, as fast as it can, while
// the item is emptied or moved to the Trash.
TEST_F(Montajes, MontajesQueVanYVienen)
{
    const fs::path sitios[] = {casa.ruta("Library/Caches/app"), casa.ruta("Library/Caches/app/sub")};
    conMontajes([&] {
        Rival rival([&](long i) {
            if (::mount(fuera.raiz.c_str(), sitios[i % 2].c_str(), nullptr, MS_BIND, nullptr) == 0)
                ::umount2(sitios[i % 2].c_str(), MNT_DETACH);
        });
        for (const Modo modo : {Modo::borrar, Modo::papelera})
            for (int vuelta = 0; vuelta < 1000 && !::testing::Test::HasFailure(); ++vuelta) {
                casa.archivoCon("Library/Caches/app/sub/victima/dato", "propio");
                rival.durante([&] { retirar(modo, casa, casa.ruta("Library/Caches/app/sub")); });
                EXPECT_TRUE(fuera.intacto()) << int(modo) << " vuelta " << vuelta;
                plataforma::vaciarPapelera();
            }
    });
}
