// SPDX-License-Identifier: GPL-3.0-or-later
// Removal through directory descriptors: what a path is, trees deep and wide,
// entries that aren't files or folders, and paths it must refuse to read.
#include "plataforma/borrado.h"

#include "apoyo/casa.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using apoyo::CasaPrueba;
using plataforma::Clase;
namespace fs = std::filesystem;

TEST(Borrado, ExaminarSinSeguirEnlaces)
{
    CasaPrueba casa;
    casa.archivo("a/b/archivo", 10);
    casa.enlace("a/enlace", casa.ruta("a/b"));
    casa.enlace("a/roto", "/no/existe");
    const fs::path base = casa.raiz();
    EXPECT_EQ(plataforma::examinar(base, "a/b"), Clase::carpeta);
    EXPECT_EQ(plataforma::examinar(base, "a/b/archivo"), Clase::archivo);
    EXPECT_EQ(plataforma::examinar(base, "a/enlace"), Clase::enlace);
    EXPECT_EQ(plataforma::examinar(base, "a/roto"), Clase::enlace);
    EXPECT_EQ(plataforma::examinar(base, "a/enlace/archivo"), Clase::enlaceEnRuta);
    EXPECT_EQ(plataforma::examinar(base, "a/b/archivo/x"), Clase::ausente);
    EXPECT_EQ(plataforma::examinar(base, "a/no"), Clase::ausente);
    // Only plain relative paths: nothing may climb out of the base.
    EXPECT_EQ(plataforma::examinar(base / "a/b", "../b/archivo"), Clase::ausente);
    EXPECT_EQ(plataforma::examinar(base, "a/./b"), Clase::ausente);
    EXPECT_EQ(plataforma::examinar(base, base / "a/b"), Clase::ausente);
    EXPECT_EQ(plataforma::examinar(base, ""), Clase::ausente);
    // The base itself may be reached through a link.
    casa.enlace("atajo", casa.ruta("a"));
    EXPECT_EQ(plataforma::examinar(casa.ruta("atajo"), "b/archivo"), Clase::archivo);
}

TEST(Borrado, ArbolHondoYAnchoSeVaciaEntero)
{
    CasaPrueba casa;
    std::string hondo = "item/hondo";
    for (int i = 0; i < 300; ++i)
        hondo += "/d";
    casa.archivo(hondo + "/fondo", 10);
    casa.muchos("item/ancho", 5000, 1);
    casa.archivo("item/.oculto", 10);
    casa.crearDir("item/vacia");
    ::mkfifo(casa.ruta("item/fifo").c_str(), 0600);
    const int s = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un dir{};
    dir.sun_family = AF_UNIX;
    const std::string enchufe = casa.ruta("item/enchufe").string();
    ASSERT_LT(enchufe.size(), sizeof dir.sun_path);
    enchufe.copy(dir.sun_path, enchufe.size());
    ASSERT_EQ(::bind(s, reinterpret_cast<sockaddr*>(&dir), sizeof dir), 0);
    ::close(s);

    const auto v = plataforma::vaciar(casa.raiz(), "item");
    EXPECT_EQ(v.clase, Clase::carpeta);
    EXPECT_EQ(v.error, "");
    EXPECT_EQ(v.total, 6u);
    EXPECT_EQ(v.fallidos, 0u);
    EXPECT_TRUE(fs::is_empty(casa.ruta("item")));
}
