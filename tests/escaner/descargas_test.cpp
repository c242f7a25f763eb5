// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/escaner.h"

#include "apoyo/casa.h"
#include "nucleo/textos.h"
#include "plataforma/archivos.h"

#include <gtest/gtest.h>

#include <set>

using apoyo::CasaPrueba;
using namespace std::chrono_literals;

// A birth time can't be set, so "now" moves instead: the entries are made
// now and looked at from the future.
TEST(DescargasAntiguas, SesentaDiasExactosPorFechaDeCreacion)
{
    CasaPrueba casa;
    const auto zip = casa.archivo("Downloads/a.zip", 4096);
    const auto creado = plataforma::fechaCreacion(zip);
    if (!creado)
        GTEST_SKIP() << "el sistema de archivos no guarda la fecha de creación";
    casa.fecha("Downloads/a.zip", *creado - 24h * 365); // the modification date plays no part

    const Escaner esc(casa.entorno());
    const auto sesenta = 24h * 60;
    EXPECT_TRUE(esc.descargasAntiguas(*creado + sesenta - 1s).empty());
    EXPECT_TRUE(esc.descargasAntiguas(*creado + sesenta).empty()); // strictly earlier only
    const auto r = esc.descargasAntiguas(*creado + sesenta + 1s);
    ASSERT_EQ(r.size(), 1u);
    EXPECT_EQ(r[0].url, zip);
    EXPECT_EQ(r[0].nombre, "a.zip");
    // Aged from the creation date as seen from the given "now".
    EXPECT_EQ(r[0].detalle, "descargado " + haceCuanto(*creado, *creado + sesenta + 1s, localeApp()));
    EXPECT_FALSE(r[0].seleccionado);
    EXPECT_FALSE(r[0].revisarUso);
    EXPECT_EQ(r[0].tamano, 0);
}

TEST(DescargasAntiguas, PrimerNivelSinOcultos)
{
    CasaPrueba casa;
    casa.archivo("Downloads/.DS_Store", 10);
    casa.archivo("Downloads/.oculta/dentro", 10);
    casa.archivo("Downloads/proyecto/src/main.c", 10);
    casa.archivo("Downloads/informe.pdf", 10);
    casa.enlace("Downloads/enlace", "/no-existe");
    const auto creado = plataforma::fechaCreacion(casa.ruta("Downloads/informe.pdf"));
    if (!creado)
        GTEST_SKIP() << "el sistema de archivos no guarda la fecha de creación";

    const auto r = Escaner(casa.entorno()).descargasAntiguas(*creado + 24h * 800);
    std::set<std::string> nombres;
    for (const auto& e : r) {
        nombres.insert(e.nombre);
        EXPECT_EQ(e.detalle, "descargado hace 2 años");
    }
    // A link is judged by its own date, like any entry.
    EXPECT_EQ(nombres, (std::set<std::string>{"proyecto", "informe.pdf", "enlace"}));

    EXPECT_TRUE(Escaner(Entorno{casa.ruta("sin-casa"), true}).descargasAntiguas(*creado + 24h * 800).empty());
}
