// SPDX-License-Identifier: GPL-3.0-or-later
// Removal through directory descriptors: trees deep and wide, entries that
// aren't files or folders, and paths that would climb out of the base.
#include "plataforma/borrado.h"

#include "apoyo/casa.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using apoyo::CasaPrueba;
using plataforma::Clase;

TEST(Borrado, ArbolHondoYAnchoSeVaciaEnteroDesdeUnaBaseEnlazada)
{
    CasaPrueba casa;
    std::string hondo = "real/item/hondo";
    for (int i = 0; i < 300; ++i)
        hondo += "/d";
    casa.archivo(hondo + "/fondo", 10);
    casa.muchos("real/item/ancho", 5000, 1);
    casa.crearDir("real/item/vacia");
    ::mkfifo(casa.ruta("real/item/fifo").c_str(), 0600); // never opened
    // The base itself may be a link, as a home folder may be.
    const auto base = casa.enlace("base", casa.ruta("real"));

    const auto v = plataforma::vaciar(base, "item");
    EXPECT_EQ(v.clase, Clase::carpeta);
    EXPECT_EQ(v.error, "");
    EXPECT_EQ(v.total, 4u);
    EXPECT_EQ(v.fallidos, 0u);
    EXPECT_TRUE(std::filesystem::is_empty(casa.ruta("real/item")));
    // Only plain relative paths below the base are looked at.
    EXPECT_EQ(plataforma::examinar(base, "item"), Clase::carpeta);
    for (const std::string& otra : std::vector<std::string>{"../real/item", "./item", "", casa.ruta("real/item")})
        EXPECT_EQ(plataforma::examinar(base, otra), Clase::ausente) << otra;
}
