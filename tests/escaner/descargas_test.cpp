// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/escaner.h"

#include "apoyo/casa.h"
#include "nucleo/textos.h"
#include "plataforma/archivos.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

// A birth time can't be set, so "now" moves instead: the entries are made
// now and looked at from the future.
TEST(DescargasAntiguas, SesentaDiasExactosPorFechaDeCreacion)
{
    apoyo::CasaPrueba casa;
    const auto zip = casa.archivo("Downloads/a.zip", 4096);
    const auto creado = plataforma::fechaCreacion(zip);
    if (!creado)
        GTEST_SKIP() << "el sistema de archivos no guarda la fecha de creación";
    // Made a moment later than a.zip.
    casa.archivo("Downloads/proyecto/src/main.c", 10); // judged as one thing
    casa.archivo("Downloads/.DS_Store", 10);
    casa.fecha("Downloads/a.zip", *creado - 24h * 365); // the modification date plays no part

    const Escaner esc(casa.entorno());
    const auto limite = *creado + 24h * 60;
    EXPECT_TRUE(esc.descargasAntiguas(limite - 1s).empty());
    EXPECT_TRUE(esc.descargasAntiguas(limite).empty()); // strictly earlier only
    const auto r = esc.descargasAntiguas(limite + 1s);
    ASSERT_EQ(r.size(), 2u);
    const Elemento& a = r[0].nombre == "a.zip" ? r[0] : r[1];
    EXPECT_EQ((r[0].nombre == "a.zip" ? r[1] : r[0]).nombre, "proyecto");
    EXPECT_EQ(a.url, zip);
    // Aged from the creation date as seen from the given "now".
    EXPECT_EQ(a.detalle, "descargado " + haceCuanto(*creado, limite + 1s, localeApp()));
    EXPECT_FALSE(a.seleccionado);
    EXPECT_EQ(a.tamano, 0);

    EXPECT_TRUE(Escaner(Entorno{casa.ruta("sin-casa"), true}).descargasAntiguas(limite + 1s).empty());
}
