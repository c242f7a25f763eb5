// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/archivos.h"

#include "apoyo/casa.h"

#include <gtest/gtest.h>

TEST(Archivos, PaquetePorExtensionSoloSiEsCarpeta)
{
    apoyo::CasaPrueba casa;
    casa.crearDir("Foo.app/Contents");
    casa.crearDir("Fotos.PhotosLibrary");
    casa.crearDir("proyecto.d");
    casa.archivo("suelto.app", 10);
    casa.enlace("enlace.app", casa.ruta("Foo.app"));
    EXPECT_TRUE(plataforma::esPaquete(casa.ruta("Foo.app")));
    EXPECT_TRUE(plataforma::esPaquete(casa.ruta("Fotos.PhotosLibrary")));
    EXPECT_FALSE(plataforma::esPaquete(casa.ruta("proyecto.d")));
    EXPECT_FALSE(plataforma::esPaquete(casa.ruta("suelto.app")));
    EXPECT_FALSE(plataforma::esPaquete(casa.ruta("enlace.app")));
    EXPECT_FALSE(plataforma::esPaquete(casa.ruta("no-existe.app")));
}

TEST(Archivos, FechaDeCreacionCercanaAAhora)
{
    apoyo::CasaPrueba casa;
    const auto antes = std::chrono::system_clock::now() - std::chrono::seconds(2);
    const auto f = casa.archivo("a", 10);
    casa.fecha("a", antes - std::chrono::hours(1000)); // modification time plays no part
    const auto creado = plataforma::fechaCreacion(f);
    if (!creado)
        GTEST_SKIP() << "este sistema de archivos no guarda la fecha de creación";
    EXPECT_GE(*creado, antes);
    EXPECT_LE(*creado, std::chrono::system_clock::now());
    EXPECT_FALSE(plataforma::fechaCreacion(casa.ruta("no-existe")));
}
