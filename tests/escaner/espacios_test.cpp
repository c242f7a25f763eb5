// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/escaner.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "estado_editor.h"

#include <gtest/gtest.h>

using apoyo::CasaPrueba;
using namespace std::chrono_literals;

// The path in the URL is bytes once decoded: a name that isn't UTF-8 must
// still be found, or its project would count as gone.
TEST(EspaciosDeTrabajo, RutaDecodificadaComoBytes)
{
    CasaPrueba casa;
    casa.crearDir("Mi Proyecto\xe9");
    casa.crearDir("año");
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
        apoyo::estadoDeEditor(casa, "Code", std::to_string(json.size()), json, ahora);
    const auto borrado =
        apoyo::estadoDeEditor(casa, "Code", "borrado", "{\"folder\":\"" + base + "/Mi%20Proyecto\"}", ahora);

    const auto filas = Escaner(casa.entorno()).espaciosDeTrabajo(ahora);
    ASSERT_EQ(filas.size(), 1u);
    EXPECT_EQ(filas[0].urls(), std::vector<std::filesystem::path>{borrado});
}

TEST(EspaciosDeTrabajo, SeguroQueNoExisteSoloConPrueba)
{
    CasaPrueba casa;
    casa.crearDir("hay/carpeta");
    casa.archivo("hay/archivo", 10);
    EXPECT_FALSE(Escaner::seguroQueNoExiste(casa.ruta("hay/carpeta")));
    // Each component is looked up in the folder before it, links and ".."
    // as the system takes them.
    std::string hondo = casa.ruta("hay").string();
    for (int i = 0; i < 250; ++i)
        hondo += "/./carpeta/..";
    EXPECT_TRUE(Escaner::seguroQueNoExiste(hondo + "/falta"));
    EXPECT_FALSE(Escaner::seguroQueNoExiste(hondo + "/carpeta"));
    EXPECT_TRUE(Escaner::seguroQueNoExiste(casa.ruta("hay/falta/mas/hondo/")));
    // The nearest thing that exists is a file: it can't be listed, so no proof.
    EXPECT_FALSE(Escaner::seguroQueNoExiste(casa.ruta("hay/archivo/dentro")));
    EXPECT_FALSE(Escaner::seguroQueNoExiste("/media/vorlano-sin-montar/USB/proyecto"));
    EXPECT_FALSE(Escaner::seguroQueNoExiste("/run/media/vorlano-sin-montar/USB"));
    EXPECT_FALSE(Escaner::seguroQueNoExiste("relativa/falta"));
    EXPECT_FALSE(Escaner::seguroQueNoExiste(""));

    // A folder that can't be read proves nothing about what it holds.
    casa.crearDir("cerrada/dentro");
    casa.sinPermisos("cerrada");
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        return !Escaner::seguroQueNoExiste(casa.ruta("cerrada/dentro/proyecto")) &&
               !Escaner::seguroQueNoExiste(casa.ruta("cerrada/proyecto")) &&
               Escaner::seguroQueNoExiste(casa.ruta("hay/falta"));
    }));
}
