// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/archivos.h"

#include "apoyo/casa.h"

#include <gtest/gtest.h>

using apoyo::CasaPrueba;
using std::filesystem::path;

TEST(Archivos, PaqueteSoloUnaCarpetaConExtensionConocida)
{
    CasaPrueba casa;
    casa.crearDir("Foo.app/Contents");
    casa.crearDir("proyecto.d");
    casa.archivo("suelto.app", 10);
    casa.enlace("enlace.app", casa.ruta("Foo.app"));
    for (const auto& [nombre, paquete] :
         {std::pair{"Foo.app", true}, {"proyecto.d", false}, {"suelto.app", false}, {"enlace.app", false}})
        EXPECT_EQ(plataforma::esPaquete(casa.ruta(nombre)), paquete) << nombre;
}

TEST(Archivos, DescripcionDeTipoPorElNombre)
{
    const auto pdf = plataforma::descripcionTipo("informe.PDF");
    ASSERT_TRUE(pdf);
    EXPECT_EQ(plataforma::descripcionTipo("\xff\xfe.pdf"), pdf); // a name that isn't UTF-8
    EXPECT_NE(plataforma::descripcionTipo("disco.dmg"), pdf);
    EXPECT_FALSE(plataforma::descripcionTipo("raro.zzqx"));
}

TEST(Archivos, VolumenExtraiblePorSuLugar)
{
    using plataforma::volumenExtraible;
    EXPECT_EQ(volumenExtraible("/media/ana/USB/proyectos/web"), path("/media/ana/USB"));
    EXPECT_EQ(volumenExtraible("//media//ana/USB/"), path("/media/ana/USB"));
    EXPECT_EQ(volumenExtraible("/run/media/ana/Disco 2/x"), path("/run/media/ana/Disco 2"));
    for (const char* otro : {"/media/ana", "/run/media/ana", "/run/x/ana/USB", "/home/ana/media/a/b", "media/a/b/x"})
        EXPECT_EQ(volumenExtraible(otro), std::nullopt) << otro;
}
