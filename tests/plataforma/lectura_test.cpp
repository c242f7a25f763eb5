// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/lectura.h"

#include "apoyo/casa.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

TEST(LeerArchivo, SoloArchivosNormalesYPequenos)
{
    apoyo::CasaPrueba casa;
    const auto f = casa.archivoCon("a.json", "{\"x\":1}");
    EXPECT_EQ(plataforma::leerArchivo(f, 7), "{\"x\":1}");
    EXPECT_EQ(plataforma::leerArchivo(f, 6), std::nullopt);
    EXPECT_EQ(plataforma::leerArchivo(casa.archivoCon("vacio", ""), 10), "");
    // A FIFO with no writer would block an ordinary open for ever.
    ASSERT_EQ(::mkfifo(casa.ruta("fifo").c_str(), 0644), 0);
    for (const auto& p : {casa.enlace("enlace", f), casa.crearDir("carpeta"), casa.ruta("falta"), casa.ruta("fifo")})
        EXPECT_EQ(plataforma::leerArchivo(p, 100), std::nullopt) << p;
}
