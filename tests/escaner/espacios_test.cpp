// SPDX-License-Identifier: GPL-3.0-or-later
#include "comun.h"

#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace prueba;

// A project counts as gone only on proof: each component of its path looked
// up in the folder before it, links and ".." as the system takes them, and
// the path in the URL is bytes once decoded, so that a name that isn't UTF-8
// is still found.
TEST(EspaciosDeTrabajo, SeguroQueNoExisteYRutasComoBytes)
{
    CasaPrueba casa;
    casa.crearDir("Mi Proyecto\xe9");
    casa.crearDir("año");
    casa.crearDir("hay/carpeta");
    casa.archivo("hay/archivo", 10);
    std::string hondo = casa.ruta("hay").string();
    for (int i = 0; i < 250; ++i)
        hondo += "/./carpeta/..";
    const std::pair<std::string, bool> casos[] = {
        {casa.ruta("hay/carpeta"), false}, {hondo + "/falta", true}, {hondo + "/carpeta", false},
        {casa.ruta("hay/falta/mas/hondo/"), true},
        // The nearest thing that exists is a file: it can't be listed, so no proof.
        {casa.ruta("hay/archivo/dentro"), false},
        {"/media/vorlano-sin-montar/USB/proyecto", false}, {"/run/media/vorlano-sin-montar/USB", false},
        {"relativa/falta", false}, {"", false}};
    for (const auto& [ruta, falta] : casos)
        EXPECT_EQ(Escaner::seguroQueNoExiste(ruta), falta) << ruta.substr(0, 80);

    const auto ahora = std::chrono::system_clock::now();
    const std::string base = "file://" + casa.raiz().string();
    // A path of 300,000 components is longer than the system takes: it proves
    // nothing, and costs no more than reading it.
    std::string largo = "{\"folder\":\"file://";
    for (int i = 0; i < 300000; ++i)
        largo += "/a";
    largo += "\"}";
    for (const std::string& json : {largo, "{\"folder\":\"" + base + "/Mi%20Proyecto%E9\"}",
                                    "{\"folder\":\"" + base + "/a%C3%B1o\"}",
                                    // "folder" is read before "workspace"
                                    "{\"folder\":\"" + base + "/a%C3%B1o\",\"workspace\":\"" + base + "/falta\"}",
                                    // a gone project, in a file larger than any workspace.json
                                    "{\"folder\":\"" + base + "/falta\"}" + std::string(1 << 20, ' ')})
        estadoDeEditor(casa, "Code", std::to_string(json.size()), json, ahora);
    const auto borrado = estadoDeEditor(casa, "Code", "borrado", "{\"folder\":\"" + base + "/Mi%20Proyecto\"}", ahora);
    const auto filas = Escaner(casa.entorno()).espaciosDeTrabajo(ahora);
    ASSERT_EQ(filas.size(), 1u);
    EXPECT_EQ(filas[0].urls(), std::vector<fs::path>{borrado});

    // A folder that can't be read proves nothing about what it holds, even
    // where a name can be looked up in it.
    casa.crearDir("cerrada/dentro");
    casa.sinPermisos("cerrada");
    ::chmod(casa.crearDir("opaca").c_str(), 0111);
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        return !Escaner::seguroQueNoExiste(casa.ruta("cerrada/dentro/proyecto")) &&
               !Escaner::seguroQueNoExiste(casa.ruta("cerrada/proyecto")) &&
               !Escaner::seguroQueNoExiste(casa.ruta("opaca/proyecto")) &&
               Escaner::seguroQueNoExiste(casa.ruta("hay/falta"));
    }));
}
