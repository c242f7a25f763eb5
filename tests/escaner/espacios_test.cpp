// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/escaner.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "estado_editor.h"

#include <gtest/gtest.h>

#include <set>

using apoyo::CasaPrueba;
using apoyo::carpetaJson;
using apoyo::estadoDeEditor;
using namespace std::chrono_literals;

namespace {

const Fecha ahora = std::chrono::system_clock::now();
const Fecha viejo = ahora - 24h * 100;
const Fecha nuevo = ahora - 24h;

// A path on a removable volume that isn't mounted here.
const std::string sinMontar = "/media/vorlano-sin-montar/USB/proyecto";

std::set<std::filesystem::path> carpetasDe(const Elemento& e)
{
    const auto v = e.urls();
    return {v.begin(), v.end()};
}

} // namespace

TEST(EspaciosDeTrabajo, FilasDeDesaparecidosYDeViejosPorEditor)
{
    CasaPrueba casa;
    const auto proyectos = casa.crearDir("proyectos");
    casa.crearDir("proyectos/vivo-viejo");
    casa.crearDir("proyectos/vivo-nuevo");
    auto code = [&](const char* id, const std::string& json, Fecha f) {
        return estadoDeEditor(casa, "Code", id, json, f);
    };
    const auto b1 = code("b1", carpetaJson(proyectos / "borrado"), nuevo);
    const auto b2 = code("b2", carpetaJson(proyectos / "otro/sub/hondo"), viejo); // gone wins over old
    const auto b3 = code("b3", "{\"workspace\":\"file://" + (proyectos / "w.code-workspace").string() + "\"}", nuevo);
    const auto v1 = code("v1", carpetaJson(proyectos / "vivo-viejo"), viejo);
    code("n1", carpetaJson(proyectos / "vivo-nuevo"), nuevo);
    code("u1", carpetaJson(sinMontar), nuevo);
    const auto u2 = code("u2", carpetaJson(sinMontar), viejo);
    const auto r1 = code("r1", "{\"folder\":\"vscode-remote://ssh-remote%2Bservidor/home/x\"}", viejo);
    code("r2", "{\"folder\":\"vscode-remote://ssh-remote%2Bservidor/home/y\"}", nuevo);
    // Damaged or unintelligible state, however old, joins neither row.
    int n = 0;
    for (const char* json : {"", "no es json", "[\"file:///no-existe\"]", "42", "{\"otra\":1}",
                             "{\"folder\":3,\"workspace\":\"file:///no-existe\"}", "{\"folder\":\"file:///%zz\"}",
                             "{\"folder\":\"file:///con espacio\"}", "{\"folder\":\"\"}"})
        code(("dañado-" + std::to_string(n++)).c_str(), json, viejo);
    casa.crearDir("Library/Application Support/Code/User/workspaceStorage/sin-json");
    casa.fecha("Library/Application Support/Code/User/workspaceStorage/sin-json", viejo);
    casa.archivo("Library/Application Support/Code/User/workspaceStorage/suelto", 10);

    const auto c1 = estadoDeEditor(casa, "Cursor", "c1", carpetaJson(proyectos / "borrado-cursor"), nuevo);
    const auto c2 = estadoDeEditor(casa, "Cursor", "c2", carpetaJson(proyectos / "vivo-viejo"), viejo);

    const auto filas = Escaner(casa.entorno()).espaciosDeTrabajo(ahora);
    ASSERT_EQ(filas.size(), 4u);

    EXPECT_EQ(filas[0].nombre, "VS Code · proyectos que ya no existen");
    EXPECT_EQ(filas[0].detalle, "Datos de 3 proyectos borrados o movidos");
    EXPECT_EQ(carpetasDe(filas[0]), (std::set<std::filesystem::path>{b1, b2, b3}));
    EXPECT_EQ(filas[0].extra.size(), 2u);
    EXPECT_TRUE(filas[0].seleccionado);

    EXPECT_EQ(filas[1].nombre, "VS Code · proyectos sin abrir hace más de 3 meses");
    EXPECT_EQ(filas[1].detalle, "Se pierden las pestañas abiertas y ajustes de esos 3 proyectos");
    EXPECT_EQ(carpetasDe(filas[1]), (std::set<std::filesystem::path>{v1, u2, r1}));
    EXPECT_FALSE(filas[1].seleccionado);

    EXPECT_EQ(filas[2].nombre, "Cursor · proyectos que ya no existen");
    EXPECT_EQ(filas[2].detalle, "Datos de 1 proyecto borrado o movido");
    EXPECT_EQ(filas[2].url, c1);
    EXPECT_TRUE(filas[2].extra.empty());
    EXPECT_EQ(filas[3].detalle, "Se pierden las pestañas abiertas y ajustes de ese proyecto");
    EXPECT_EQ(filas[3].url, c2);

    for (size_t i = 0; i < filas.size(); ++i) {
        const bool esCode = i < 2;
        EXPECT_EQ(filas[i].bundles,
                  std::vector<std::string>{esCode ? "com.microsoft.VSCode" : "com.todesktop.230313mzl4w4u92"});
        EXPECT_EQ(filas[i].nombreUso, esCode ? "Code" : "Cursor");
        EXPECT_TRUE(filas[i].revisarUso);
        EXPECT_EQ(filas[i].tamano, 0);
        EXPECT_EQ(filas[i].enUso, std::nullopt);
    }

    // The limit is strict: state exactly 90 days old is not yet stale.
    const auto filasAlLimite = Escaner(casa.entorno()).espaciosDeTrabajo(viejo + 24h * 90);
    for (const auto& f : filasAlLimite)
        EXPECT_EQ(f.nombre.find("sin abrir"), std::string::npos);
}

// The path in the URL is bytes once decoded: a name that isn't UTF-8 must
// still be found, or its project would count as gone.
TEST(EspaciosDeTrabajo, RutaDecodificadaComoBytes)
{
    CasaPrueba casa;
    casa.crearDir("Mi Proyecto\xe9");
    casa.crearDir("año");
    const std::string base = "file://" + casa.raiz().string();
    estadoDeEditor(casa, "Code", "latin1", "{\"folder\":\"" + base + "/Mi%20Proyecto%E9\"}", nuevo);
    estadoDeEditor(casa, "Code", "utf8", "{\"folder\":\"" + base + "/a%C3%B1o\"}", nuevo);
    estadoDeEditor(casa, "Code", "utf8-crudo", "{\"folder\":\"" + base + "/año\"}", nuevo);
    // "folder" is read before "workspace".
    estadoDeEditor(casa, "Code", "ambas",
                   "{\"folder\":\"" + base + "/a%C3%B1o\",\"workspace\":\"" + base + "/falta.code-workspace\"}",
                   nuevo);
    const auto borrado = estadoDeEditor(casa, "Code", "borrado", "{\"folder\":\"" + base + "/Mi%20Proyecto\"}", nuevo);

    const auto filas = Escaner(casa.entorno()).espaciosDeTrabajo(ahora);
    ASSERT_EQ(filas.size(), 1u);
    EXPECT_EQ(carpetasDe(filas[0]), std::set<std::filesystem::path>{borrado});
}

TEST(EspaciosDeTrabajo, SinEditoresNada)
{
    CasaPrueba casa;
    EXPECT_TRUE(Escaner(casa.entorno()).espaciosDeTrabajo(ahora).empty());
    casa.crearDir("Library/Application Support/Code/User/workspaceStorage");
    casa.crearDir("Library/Application Support/Cursor/User");
    EXPECT_TRUE(Escaner(casa.entorno()).espaciosDeTrabajo(ahora).empty());
}

TEST(EspaciosDeTrabajo, SeguroQueNoExisteSoloConPrueba)
{
    CasaPrueba casa;
    casa.crearDir("hay/carpeta");
    casa.archivo("hay/archivo", 10);
    EXPECT_FALSE(Escaner::seguroQueNoExiste(casa.ruta("hay/carpeta")));
    EXPECT_FALSE(Escaner::seguroQueNoExiste(casa.ruta("hay/archivo")));
    EXPECT_TRUE(Escaner::seguroQueNoExiste(casa.ruta("hay/falta")));
    EXPECT_TRUE(Escaner::seguroQueNoExiste(casa.ruta("hay/falta/mas/hondo/")));
    EXPECT_TRUE(Escaner::seguroQueNoExiste(casa.ruta("no-hay/nada")));
    // The nearest thing that exists is a file: it can't be listed, so no proof.
    EXPECT_FALSE(Escaner::seguroQueNoExiste(casa.ruta("hay/archivo/dentro")));
    EXPECT_FALSE(Escaner::seguroQueNoExiste(sinMontar));
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

TEST(EspaciosDeTrabajo, UltimaModificacionLaMasReciente)
{
    CasaPrueba casa;
    casa.archivo("a/state.vscdb", 10);
    casa.fecha("a/state.vscdb", nuevo);
    casa.fecha("a", viejo);
    casa.archivo("b/state.vscdb", 10);
    casa.fecha("b/state.vscdb", viejo);
    casa.fecha("b", nuevo);
    casa.crearDir("c");
    casa.fecha("c", viejo);
    const auto segundos = [](std::optional<Fecha> f) {
        return f ? std::chrono::duration_cast<std::chrono::seconds>(f->time_since_epoch()).count() : -1;
    };
    const auto s = [&](Fecha f) { return segundos(f); };
    EXPECT_EQ(segundos(Escaner::ultimaModificacion(casa.ruta("a"))), s(nuevo));
    EXPECT_EQ(segundos(Escaner::ultimaModificacion(casa.ruta("b"))), s(nuevo));
    EXPECT_EQ(segundos(Escaner::ultimaModificacion(casa.ruta("c"))), s(viejo));
    EXPECT_EQ(Escaner::ultimaModificacion(casa.ruta("falta")), std::nullopt);
}
