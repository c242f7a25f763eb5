// SPDX-License-Identifier: GPL-3.0-or-later
// The home Trash of this test process (its data home is a scratch folder):
// moving into it, and emptying it with the safe removal.
#include "plataforma/papelera.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

using apoyo::CasaPrueba;
namespace fs = std::filesystem;

namespace {

bool vaciaOAusente(const fs::path& p)
{
    return !fs::exists(fs::symlink_status(p)) || fs::is_empty(p);
}

} // namespace

TEST(Papelera, MoverYVaciar)
{
    CasaPrueba casa;
    const fs::path fuera = apoyo::carpetaTemporal("vorlano-fuera");
    std::ofstream(fuera / "vecino") << "no se toca";
    const fs::path arbol = casa.archivo("arbol/a/b/c", 4096).parent_path().parent_path().parent_path();
    const fs::path enlace = casa.enlace("enlace", fuera);
    const fs::path raro = casa.archivoCon("caf\xe9", "x");
    for (const fs::path& p : {arbol, enlace, raro})
        EXPECT_EQ(plataforma::moverAPapelera(p), std::nullopt) << p;
    const fs::path papelera = plataforma::carpetaPapelera();
    EXPECT_FALSE(fs::is_empty(papelera / "files"));
    // What other programs leave there goes too.
    fs::create_directories(papelera / "expunged/x");
    std::ofstream(papelera / "directorysizes") << "4096 1 arbol\n";

    EXPECT_EQ(plataforma::vaciarPapelera(), std::nullopt);
    for (const char* parte : {"files", "info", "expunged"})
        EXPECT_TRUE(vaciaOAusente(papelera / parte)) << parte;
    EXPECT_FALSE(fs::exists(papelera / "directorysizes"));
    EXPECT_TRUE(fs::is_directory(papelera / "files"));
    // The trashed link went as a link.
    std::ifstream f(fuera / "vecino");
    std::string vecino;
    std::getline(f, vecino);
    EXPECT_EQ(vecino, "no se toca");
    apoyo::borrarArbol(fuera);

    // Nothing to empty is no failure; a path that is gone can't be moved.
    EXPECT_EQ(plataforma::vaciarPapelera(), std::nullopt);
    const auto fallo = plataforma::moverAPapelera(casa.ruta("no-existe"));
    ASSERT_TRUE(fallo);
    EXPECT_FALSE(fallo->empty());
}

TEST(Papelera, VaciarQueFallaLoDice)
{
    CasaPrueba casa;
    const fs::path papelera = plataforma::carpetaPapelera();
    const fs::path fijo = casa.archivoCon("fijo", "x");
    ASSERT_EQ(plataforma::moverAPapelera(fijo), std::nullopt);
    const fs::path enPapelera = papelera / "files/fijo";
    ASSERT_TRUE(fs::exists(enPapelera));
    if (apoyo::ejecutarPrograma("/usr/bin/chattr", {"+i", enPapelera.string()}).estado != 0)
        GTEST_SKIP() << "este sistema de archivos no admite chattr +i";
    EXPECT_EQ(plataforma::vaciarPapelera(), "No se pudo vaciar la Papelera");
    apoyo::ejecutarPrograma("/usr/bin/chattr", {"-i", enPapelera.string()});
    EXPECT_EQ(plataforma::vaciarPapelera(), std::nullopt);

    // files/ swapped for a link: nothing behind it is touched.
    const fs::path fuera = apoyo::carpetaTemporal("vorlano-fuera");
    std::ofstream(fuera / "vecino") << "no se toca";
    fs::remove(papelera / "files");
    fs::create_directory_symlink(fuera, papelera / "files");
    EXPECT_EQ(plataforma::vaciarPapelera(), "No se pudo vaciar la Papelera");
    EXPECT_TRUE(fs::exists(fuera / "vecino"));
    fs::remove(papelera / "files");
    apoyo::borrarArbol(fuera);
}
