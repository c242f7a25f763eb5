// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/medicion.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <mutex>
#include <set>

using apoyo::CasaPrueba;

TEST(Medicion, BloquesAsignadosNoLongitud)
{
    CasaPrueba casa;
    const auto f = casa.archivo("a.bin", 10000);
    const auto d = casa.disperso("disperso.img", 5'000'000'000);
    EXPECT_EQ(tamanoEnDisco(f), apoyo::asignado(f));
    EXPECT_EQ(tamanoPropio(f), apoyo::asignado(f));
    EXPECT_EQ(tamanoEnDisco(d), apoyo::asignado(d));
    EXPECT_LT(tamanoEnDisco(d), 1'000'000);
    EXPECT_EQ(tamanoEnDisco(casa.ruta("no-existe")), 0);
    EXPECT_EQ(tamanoPropio(casa.ruta("no-existe")), 0);
}

TEST(Medicion, EnlaceSimbolicoCuentaSoloElEnlace)
{
    CasaPrueba casa;
    casa.archivo("grande/x", 4'000'000);
    const auto l = casa.enlace("enlace", casa.ruta("grande"));
    EXPECT_EQ(tamanoEnDisco(l), apoyo::asignado(l));
    EXPECT_EQ(tamanoPropio(l), apoyo::asignado(l));
    EXPECT_EQ(medirEnParalelo({{l}})[0], apoyo::asignado(l));
}

TEST(Medicion, ArbolIgualADuYDividirNoCambiaLaSuma)
{
    CasaPrueba casa;
    casa.archivo("d/uno", 8192);
    casa.archivo("d/sub/dos", 70000);
    casa.muchos("d/sub/muchos", 50, 100);
    casa.crearDir("d/vacia");
    casa.crearDir("vacia");
    const auto d = casa.ruta("d");
    EXPECT_EQ(tamanoEnDisco(d), apoyo::du(d));
    const auto sumas = medirEnParalelo({{d}, {}, {casa.ruta("vacia")}, {d, casa.ruta("d/uno")}});
    ASSERT_EQ(sumas.size(), 4u);
    EXPECT_EQ(sumas[0], apoyo::du(d));
    EXPECT_EQ(sumas[1], 0);
    EXPECT_EQ(sumas[2], apoyo::asignado(casa.ruta("vacia")));
    EXPECT_EQ(sumas[3], apoyo::du(d) + apoyo::asignado(casa.ruta("d/uno")));
    EXPECT_TRUE(medirEnParalelo({}).empty());
}

TEST(Medicion, EnlacesDurosCuentanDosVeces)
{
    CasaPrueba casa;
    casa.archivo("d/a", 40960);
    casa.enlaceDuro("d/b", "d/a");
    EXPECT_EQ(tamanoEnDisco(casa.ruta("d")), apoyo::asignado(casa.ruta("d")) + 2 * 40960);
}

// An unreadable folder counts its own blocks, as du (which fails there but
// still prints its sum) counts them for the same user.
TEST(Medicion, CarpetaIlegibleCuentaSusBloquesComoDu)
{
    CasaPrueba casa;
    casa.archivo("d/visible", 8192);
    casa.archivo("d/cerrada/oculto", 8192);
    casa.sinPermisos("d/cerrada");
    const int64_t esperado =
        apoyo::asignado(casa.ruta("d")) + 8192 + apoyo::asignado(casa.ruta("d/cerrada"));
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        const auto du = apoyo::ejecutarPrograma("/usr/bin/du", {"-B1", "-s", casa.ruta("d").string()});
        return du.estado != 0 && std::stoll(du.salida) == esperado && tamanoEnDisco(casa.ruta("d")) == esperado &&
               tamanoEnDisco(casa.ruta("d/cerrada")) == apoyo::asignado(casa.ruta("d/cerrada"));
    }));
}

// Progress comes every 200 finished jobs, never a final 100 of its own.
TEST(Medicion, ProgresoCadaDoscientosTrabajos)
{
    CasaPrueba casa;
    casa.muchos("f", 401, 1);
    std::vector<std::filesystem::path> archivos;
    for (int i = 0; i < 401; ++i)
        archivos.push_back(casa.ruta("f/f" + std::to_string(i)));

    auto medirCon = [&](size_t n) {
        std::vector<std::vector<std::filesystem::path>> listas;
        for (size_t i = 0; i < n; ++i)
            listas.push_back({archivos[i]});
        std::mutex m;
        std::multiset<int> vistos;
        medirEnParalelo(listas, [&](int pct) {
            std::lock_guard g(m);
            vistos.insert(pct);
        });
        return vistos;
    };
    EXPECT_EQ(medirCon(199), std::multiset<int>{});
    EXPECT_EQ(medirCon(200), std::multiset<int>{100});
    EXPECT_EQ(medirCon(401), (std::multiset<int>{49, 99}));
}
