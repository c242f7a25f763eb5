// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/archivos.h"
#include "plataforma/lectura.h"

#include "apoyo/casa.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

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

// Where volumes come and go, a missing path proves nothing until a volume
// is mounted to hold it; an automount's trap holds nothing.
TEST(Archivos, VolumenDesmontado)
{
    using M = std::vector<plataforma::Montaje>;
    const M raiz{{"/"}, {"/home"}};
    const M usb{{"/"}, {"/media/ana/USB"}};
    const M trampa{{"/"}, {"/srv/nas", true}};
    const M nas{{"/"}, {"/srv/nas", true}, {"/srv/nas/fotos"}};
    const std::vector<std::string> fstab{"/", "/home", "/datos"};
    const struct {
        const char* ruta;
        const M& montados;
        bool desmontado;
    } casos[] = {
        {"/media/ana/USB/proyectos/web", raiz, true},
        {"//media//ana/USB/", raiz, true},
        {"/media/ana/USB/proyectos/web", usb, false},
        {"/media/ana/OTRO/x", usb, true},
        {"/run/media/ana/Disco 2/x", raiz, true},
        {"/mnt/copia/x", raiz, true},
        {"/mnt", raiz, false},             // the place itself is no volume
        {"/datos/proyecto", raiz, true},   // named in fstab, not mounted
        {"/datos/proyecto", M{{"/"}, {"/datos"}}, false},
        {"/home/ana/proyecto", raiz, false}, // mounted
        {"/srv/nas/fotos/x", trampa, true},
        {"/srv/nas/fotos/x", nas, false},
        {"/home/ana/media/a/b", raiz, false},
        {"/run/x/ana/USB", raiz, false},
        {"media/a/b/x", raiz, false},      // relative
    };
    for (const auto& c : casos)
        EXPECT_EQ(plataforma::enVolumenDesmontado(c.ruta, c.montados, fstab), c.desmontado) << c.ruta;
    // On this machine's own tables: no volume ever sits under this name.
    EXPECT_TRUE(plataforma::enVolumenDesmontado("/mnt/vorlano-sin-montar/proyecto"));
    EXPECT_FALSE(plataforma::enVolumenDesmontado(std::filesystem::temp_directory_path() / "vorlano-x"));
}

TEST(Archivos, LeerSoloArchivosNormalesYPequenos)
{
    CasaPrueba casa;
    const auto f = casa.archivoCon("a.json", "{\"x\":1}");
    EXPECT_EQ(plataforma::leerArchivo(f, 7), "{\"x\":1}");
    EXPECT_EQ(plataforma::leerArchivo(f, 6), std::nullopt);
    EXPECT_EQ(plataforma::leerArchivo(casa.archivoCon("vacio", ""), 10), "");
    // A FIFO with no writer would block an ordinary open for ever.
    ASSERT_EQ(::mkfifo(casa.ruta("fifo").c_str(), 0644), 0);
    for (const auto& p : {casa.enlace("enlace", f), casa.crearDir("carpeta"), casa.ruta("falta"), casa.ruta("fifo")})
        EXPECT_EQ(plataforma::leerArchivo(p, 100), std::nullopt) << p;
}
