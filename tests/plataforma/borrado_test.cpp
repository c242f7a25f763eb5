// SPDX-License-Identifier: GPL-3.0-or-later
// Removal through directory descriptors, and the Trash of this test
// process's scratch data home emptied with it.
#include "plataforma/arbol.h"
#include "plataforma/borrado.h"
#include "plataforma/papelera.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

namespace fs = std::filesystem;
using apoyo::CasaPrueba;
using plataforma::Clase;

TEST(Borrado, ArbolHondoYAnchoSeVaciaEnteroDesdeUnaBaseEnlazada)
{
    CasaPrueba casa;
    // The deepest folder still entered, and one level more, which is not.
    std::string hondo = "real/item/hondo";
    for (int i = 1; i < plataforma::profundidadMaxima; ++i)
        hondo += "/d";
    casa.archivo(hondo + "/fondo", 10);
    casa.crearDir("real/item/demasiado" + hondo.substr(15) + "/d");
    casa.muchos("real/item/ancho", 5000, 1);
    casa.crearDir("real/item/vacia");
    ::mkfifo(casa.ruta("real/item/fifo").c_str(), 0600); // never opened
    // The base itself may be a link, as a home folder may be.
    const auto base = casa.enlace("base", casa.ruta("real"));

    const auto v = plataforma::vaciar(base, "item");
    EXPECT_EQ(v.clase, Clase::carpeta);
    EXPECT_EQ(v.error, "");
    EXPECT_EQ(v.total, 5u);
    EXPECT_EQ(v.fallidos, 1u);
    EXPECT_EQ(fs::directory_iterator(casa.ruta("real/item"))->path().filename(), "demasiado");
    // Only plain relative paths below the base are looked at.
    EXPECT_EQ(plataforma::examinar(base, "item"), Clase::carpeta);
    for (const std::string& otra : std::vector<std::string>{"../real/item", "./item", "", casa.ruta("real/item")})
        EXPECT_EQ(plataforma::examinar(base, otra), Clase::ausente) << otra;
}

// 10,000 nested folders (too long a path to make by name), walked and
// emptied on a small stack, as worker threads have, and with few descriptors
// left: a smaller result, never a crash.
TEST(Borrado, DiezMilCarpetasUnaDentroDeOtra)
{
    CasaPrueba casa(true);
    const fs::path cache = casa.crearDir("Library/Caches/hondo");
    int dir = ::open(cache.c_str(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < 10000 && dir >= 0; ++i) {
        ::mkdirat(dir, "d", 0700);
        const int sig = ::openat(dir, "d", O_RDONLY | O_DIRECTORY);
        ::close(dir);
        dir = sig;
    }
    ASSERT_GE(dir, 0);
    ::close(dir);
    // The deepest level reached, and the levels reported unreadable.
    const auto hondoEIlegibles = [&] {
        std::pair<int, std::vector<int>> r;
        plataforma::recorrerArbol(cache, [&](const plataforma::EntradaArbol& e) {
            r.first = std::max(r.first, e.nivel);
            if (e.tipo == plataforma::TipoEntrada::ilegible)
                r.second.push_back(e.nivel);
            return plataforma::Paso::seguir;
        });
        return r;
    };
    std::pair<int, std::vector<int>> r;
    plataforma::Vaciado v;
    const auto ambos = [&] {
        r = hondoEIlegibles();
        v = plataforma::vaciar(casa.raiz(), "Library/Caches/hondo");
    };
    apoyo::conPilaPequena(ambos);
    EXPECT_EQ(r, std::pair(plataforma::profundidadMaxima, std::vector{plataforma::profundidadMaxima}));
    EXPECT_EQ(v.clase, plataforma::Clase::carpeta);
    EXPECT_EQ(v.fallidos, 1u);

    // With at most 64 descriptors, the walk ends where they run out.
    struct rlimit antes;
    ::getrlimit(RLIMIT_NOFILE, &antes);
    struct rlimit pocos = antes;
    pocos.rlim_cur = 64;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &pocos), 0);
    apoyo::conPilaPequena(ambos);
    ::setrlimit(RLIMIT_NOFILE, &antes);
    EXPECT_EQ(r.second.size(), 1u);
    EXPECT_LT(r.first, 64);
    EXPECT_EQ(v.fallidos, 1u);
    // rm walks any depth.
    EXPECT_EQ(apoyo::ejecutarPrograma("/bin/rm", {"-rf", cache.string()}).estado, 0);
}

TEST(Papelera, VaciarQuitaTodoSinSalirDeLaPapelera)
{
    CasaPrueba casa;
    const fs::path fuera = apoyo::carpetaTemporal("vorlano-fuera");
    std::ofstream(fuera / "vecino") << "no se toca";
    const fs::path papelera = plataforma::carpetaPapelera();
    EXPECT_EQ(plataforma::vaciarPapelera(), std::nullopt); // nothing to empty is no failure
    for (const fs::path& p : {casa.archivo("arbol/a/b/c", 4096).parent_path(), casa.enlace("enlace", fuera)})
        ASSERT_TRUE(plataforma::moverAPapelera(p).movido) << p;
    // What other programs leave there goes too.
    fs::create_directories(papelera / "expunged/x");
    std::ofstream(papelera / "directorysizes") << "4096 1 b\n";
    EXPECT_EQ(plataforma::vaciarPapelera(), std::nullopt);
    for (const char* parte : {"files", "info", "expunged"})
        EXPECT_TRUE(fs::is_empty(papelera / parte)) << parte;
    EXPECT_FALSE(fs::exists(papelera / "directorysizes"));
    EXPECT_EQ(apoyo::leer(fuera / "vecino"), "no se toca");

    // files/ swapped for a link: nothing behind it is touched.
    fs::remove(papelera / "files");
    fs::create_directory_symlink(fuera, papelera / "files");
    EXPECT_EQ(plataforma::vaciarPapelera(), "No se pudo vaciar la Papelera");
    EXPECT_EQ(apoyo::leer(fuera / "vecino"), "no se toca");
    fs::remove(papelera / "files");
    apoyo::borrarArbol(fuera);

    // An entry that can't be removed.
    ASSERT_TRUE(plataforma::moverAPapelera(casa.archivoCon("fijo", "x")).movido);
    const auto chattr = [&](const char* modo) {
        return apoyo::ejecutarPrograma("/usr/bin/chattr", {modo, (papelera / "files/fijo").string()}).estado == 0;
    };
    if (!chattr("+i"))
        GTEST_SKIP() << "este sistema de archivos no admite chattr +i";
    EXPECT_EQ(plataforma::vaciarPapelera(), "No se pudo vaciar la Papelera");
    chattr("-i");
}

TEST(Papelera, LoDeOtroUsuarioQuedaConSuTrashinfoYSeNombra)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "una carpeta de otro usuario se hace con chown, que necesita root";
    CasaPrueba casa;
    const fs::path papelera = plataforma::carpetaPapelera();
    ASSERT_TRUE(plataforma::moverAPapelera(casa.archivo("Ajena.app/Contents/x", 10).parent_path().parent_path()).movido);
    ASSERT_TRUE(plataforma::moverAPapelera(casa.archivoCon("propio", "x")).movido);
    // The user is nobody; a folder moved with the administrator's password is root's.
    const fs::path home = std::getenv("HOME");
    const auto chown = [](const std::string& dueno, const fs::path& p) {
        return apoyo::ejecutarPrograma("/bin/chown", {"-R", dueno, p.string()}).estado == 0;
    };
    ASSERT_TRUE(chown("65534:65534", home) && chown("0:0", papelera / "files/Ajena.app"));
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(home, [] {
        return plataforma::vaciarPapelera() ==
               "No se pudo vaciar la Papelera: Ajena.app es de otro usuario y solo un administrador puede borrarlo";
    }));
    EXPECT_TRUE(fs::exists(papelera / "files/Ajena.app/Contents/x"));
    EXPECT_EQ(apoyo::papelera(home / ".local/share"),
              (std::map<std::string, std::string>{{casa.ruta("Ajena.app").string(), "Ajena.app"}}));
    ASSERT_TRUE(chown("0:0", home));
    EXPECT_EQ(plataforma::vaciarPapelera(), std::nullopt);
}
