// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/medicion.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <mutex>
#include <set>

using apoyo::CasaPrueba;

// Allocated blocks, not lengths; a link counts only itself; hard links count
// once per name, as du -l counts them; splitting a job keeps its sum. An
// unreadable folder counts its own blocks, as du (which fails there but still
// prints its sum) counts them for the same user.
TEST(Medicion, BloquesAsignadosComoDu)
{
    CasaPrueba casa;
    const auto f = casa.archivo("d/uno", 8192);
    casa.archivo("d/sub/dos", 70000);
    casa.muchos("d/sub/muchos", 50, 100);
    casa.crearDir("d/vacia");
    casa.archivo("d/sub/a/b/c/hondo", 5000);
    const auto disperso = casa.disperso("disperso.img", 5'000'000'000);
    const auto enlace = casa.enlace("d/enlace", casa.ruta("d/sub"));
    const auto d = casa.ruta("d");
    EXPECT_EQ(tamanoEnDisco(d), apoyo::du(d));
    EXPECT_EQ(tamanoEnDisco(disperso), apoyo::asignado(disperso));
    EXPECT_LT(tamanoEnDisco(disperso), 1'000'000);
    EXPECT_EQ(tamanoEnDisco(enlace), apoyo::asignado(enlace));
    EXPECT_EQ(tamanoEnDisco(casa.ruta("no-existe")), 0);
    const auto sumas = medirEnParalelo({{d}, {}, {enlace}, {d, f}});
    EXPECT_EQ(sumas, (std::vector<int64_t>{apoyo::du(d), 0, apoyo::asignado(enlace), apoyo::du(d) + 8192}));
    casa.enlaceDuro("d/otro-uno", "d/uno");
    EXPECT_EQ(tamanoEnDisco(d), apoyo::du(d) + 8192);

    casa.archivo("d/cerrada/oculto", 8192);
    casa.sinPermisos("d/cerrada");
    const int64_t esperado = apoyo::du(d) - 8192;
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        const auto du = apoyo::ejecutarPrograma("/usr/bin/du", {"-B1", "-s", d.string()});
        return du.estado != 0 && std::stoll(du.salida) == esperado && tamanoEnDisco(d) == esperado + 8192 &&
               tamanoEnDisco(casa.ruta("d/cerrada")) == apoyo::asignado(casa.ruta("d/cerrada"));
    }));
}

// A notice each time the finished lists cross a whole percentage, the last one
// at 100.
TEST(Medicion, ProgresoPorPorcentajeDeListas)
{
    const auto avisos = [](size_t n) {
        std::mutex m;
        std::multiset<int> r;
        medirEnParalelo(std::vector<std::vector<std::filesystem::path>>(n, {"/no-existe"}), [&](int pct) {
            std::lock_guard g(m);
            r.insert(pct);
        });
        return r;
    };
    EXPECT_EQ(avisos(0), std::multiset<int>{});
    EXPECT_EQ(avisos(3), (std::multiset<int>{33, 66, 100}));
    std::multiset<int> cien;
    for (int i = 1; i <= 100; ++i)
        cien.insert(i);
    EXPECT_EQ(avisos(250), cien);
}
