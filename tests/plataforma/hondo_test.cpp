// SPDX-License-Identifier: GPL-3.0-or-later
// A chain of 10,000 nested folders, walked and emptied on a thread with a
// small stack, as worker threads have, and with few descriptors left: a
// smaller result, never a crash.
#include "plataforma/arbol.h"
#include "plataforma/borrado.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <functional>

namespace fs = std::filesystem;
using plataforma::TipoEntrada;

namespace {

// n folders named d, one in the other, below `raiz`; paths this long can't
// be made by name.
void cadena(const fs::path& raiz, int n)
{
    int dir = ::open(raiz.c_str(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < n && dir >= 0; ++i) {
        ::mkdirat(dir, "d", 0700);
        const int sig = ::openat(dir, "d", O_RDONLY | O_DIRECTORY);
        ::close(dir);
        dir = sig;
    }
    ASSERT_GE(dir, 0);
    ::close(dir);
}

struct Recorrido {
    int hondo = 0;
    int ilegibles = 0;
    int ilegibleEn = -1;
};

Recorrido recorrer(const fs::path& raiz)
{
    Recorrido r;
    plataforma::recorrerArbol(raiz, [&](const plataforma::EntradaArbol& e) {
        r.hondo = std::max(r.hondo, e.nivel);
        if (e.tipo == TipoEntrada::ilegible) {
            ++r.ilegibles;
            r.ilegibleEn = e.nivel;
        }
        return plataforma::Paso::seguir;
    });
    return r;
}

} // namespace

TEST(Hondo, DiezMilCarpetasUnaDentroDeOtra)
{
    apoyo::CasaPrueba casa(true);
    const fs::path cache = casa.crearDir("Library/Caches/hondo");
    cadena(cache, 10000);
    Recorrido r;
    plataforma::Vaciado v;
    apoyo::conPilaPequena([&] {
        r = recorrer(cache);
        v = plataforma::vaciar(casa.raiz(), "Library/Caches/hondo");
    });
    // The folder at the limit is reported and not opened.
    EXPECT_EQ(r.hondo, plataforma::profundidadMaxima);
    EXPECT_EQ(r.ilegibles, 1);
    EXPECT_EQ(r.ilegibleEn, plataforma::profundidadMaxima);
    EXPECT_EQ(v.clase, plataforma::Clase::carpeta);
    EXPECT_EQ(v.fallidos, 1u);

    // With at most 64 descriptors, the walk ends where they run out.
    struct rlimit antes;
    ::getrlimit(RLIMIT_NOFILE, &antes);
    struct rlimit pocos = antes;
    pocos.rlim_cur = 64;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &pocos), 0);
    apoyo::conPilaPequena([&] {
        r = recorrer(cache);
        v = plataforma::vaciar(casa.raiz(), "Library/Caches/hondo");
    });
    ::setrlimit(RLIMIT_NOFILE, &antes);
    EXPECT_EQ(r.ilegibles, 1);
    EXPECT_LT(r.hondo, 64);
    EXPECT_EQ(v.fallidos, 1u);

    // rm walks any depth.
    EXPECT_EQ(apoyo::ejecutarPrograma("/bin/rm", {"-rf", cache.string()}).estado, 0);
}
