// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/archivos.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

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

TEST(Archivos, ClonSoloConBloquesCompartidos)
{
    apoyo::CasaPrueba casa;
    const auto a = casa.archivo("a", 1 << 20, 'a');
    const auto b = casa.archivo("b", 1 << 20, 'a'); // equal bytes, blocks of its own
    casa.disperso("hueco", 1 << 20);
    casa.enlace("enlace", a);
    EXPECT_FALSE(plataforma::esClon(b));
    EXPECT_FALSE(plataforma::esClon(casa.ruta("hueco")));
    EXPECT_FALSE(plataforma::esClon(casa.ruta("no-existe")));
    EXPECT_FALSE(plataforma::esClon(casa.raiz()));
    EXPECT_FALSE(plataforma::esClon("/proc/self/status")); // the call fails there
    const auto cp = apoyo::ejecutarPrograma("/bin/cp", {"--reflink=always", a.string(), casa.ruta("clon").string()});
    if (cp.estado != 0)
        GTEST_SKIP() << "el sistema de archivos temporal no admite clones";
    EXPECT_TRUE(plataforma::esClon(casa.ruta("clon")));
    EXPECT_TRUE(plataforma::esClon(a)); // both sides share
    EXPECT_FALSE(plataforma::esClon(casa.ruta("enlace"))); // links are not followed
}

TEST(Archivos, DescripcionDeTipoPorElNombre)
{
    // The file needn't exist: only its name is looked at.
    const auto pdf = plataforma::descripcionTipo("informe.PDF");
    ASSERT_TRUE(pdf);
    EXPECT_FALSE(pdf->empty());
    EXPECT_EQ(plataforma::descripcionTipo("\xff\xfe.pdf"), pdf); // a name that isn't UTF-8
    EXPECT_NE(plataforma::descripcionTipo("disco.dmg"), pdf);
    EXPECT_FALSE(plataforma::descripcionTipo("raro.zzqx"));
    EXPECT_FALSE(plataforma::descripcionTipo("sin-extension"));
}

TEST(Archivos, VolumenExtraiblePorSuLugar)
{
    using plataforma::volumenExtraible;
    using P = std::filesystem::path;
    EXPECT_EQ(volumenExtraible("/media/ana/USB/proyectos/web"), P("/media/ana/USB"));
    EXPECT_EQ(volumenExtraible("/media/ana/USB"), P("/media/ana/USB"));
    EXPECT_EQ(volumenExtraible("/media/ana/USB/"), P("/media/ana/USB"));
    EXPECT_EQ(volumenExtraible("/run/media/ana/Disco 2/x"), P("/run/media/ana/Disco 2"));
    EXPECT_EQ(volumenExtraible("//media//ana/USB/x"), P("/media/ana/USB"));
    for (const char* otro : {"/media/ana", "/media", "/run/media/ana", "/run/x/ana/USB", "/home/ana/media/a/b",
                             "media/ana/USB/x", "/mnt/USB/x", ""})
        EXPECT_EQ(volumenExtraible(otro), std::nullopt) << otro;
}
