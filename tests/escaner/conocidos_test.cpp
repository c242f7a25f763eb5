// SPDX-License-Identifier: GPL-3.0-or-later
// A whole scan of a home holding the apps', logs' and editors' places.
#include "comun.h"

#include <gtest/gtest.h>

using namespace prueba;
using namespace std::chrono_literals;

namespace {

constexpr int64_t kib = 1024;
const std::string soporte = "Library/Application Support/";

using Visto = std::tuple<std::string, std::string, bool>; // name, detail, pre-selected

std::vector<Visto> vistos(const Categoria& c)
{
    std::vector<Visto> r;
    for (const auto& e : c.elementos)
        r.emplace_back(e.nombre, e.detalle.value_or(""), e.seleccionado);
    return r;
}

} // namespace

TEST(Conocidos, CadaLugarEnSuCategoriaYOrden)
{
    CasaPrueba casa;
    // Caches and logs: Apple's own, excluded names and .DS_Store give nothing;
    // a name that isn't UTF-8 is listed and measured like any other.
    casa.archivo("Library/Caches/org.ejemplo.app/datos", 900 * kib);
    const std::string raro = "cach\xe9-latin1";
    for (const std::string n : {"COM.APPLE.Safari", "com.apple.x", "CloudKit", ".DS_Store"})
        casa.archivo("Library/Caches/" + n + "/f", 100 * kib);
    casa.archivo("Library/Caches/org.bueno/f", 130 * kib);
    casa.archivo("Library/Caches/com.applepie.y/f", 120 * kib);
    casa.archivo("Library/Caches/" + raro + "/f", 110 * kib);
    casa.archivo("Library/Logs/.DS_Store", 100 * kib);
    casa.archivo("Library/Logs/crash.log", 100 * kib);
    // Electron-style apps: with the signature folders, without them, and with
    // one of the cache folders a link that leads out of the app. Excluded
    // names, a signature that is a file and an app folder that is a link give
    // nothing.
    casa.archivo(soporte + "Slack/Cache/d", 500 * kib);
    casa.archivo(soporte + "Slack/Code Cache/d", 100 * kib);
    casa.archivo(soporte + "Slack/GPUCache/d", 60 * kib);
    casa.archivo(soporte + "Slack/Local Storage/d", 800 * kib);
    casa.archivo(soporte + "SoloCache/Cache/d", 700 * kib);
    casa.archivo(soporte + "Code/Cache/d", 200 * kib);
    casa.archivo(soporte + "Code/Code Cache/d", 100 * kib);
    casa.archivo(soporte + "Code/CachedData/d", 80 * kib);
    casa.archivo(soporte + "Enlazada/GPUCache/d", 300 * kib);
    casa.archivo("fuera/d", 2000 * kib);
    casa.enlace(soporte + "Enlazada/Code Cache", casa.ruta("fuera"));
    for (const char* excluida : {"com.apple.Music", "Docker Desktop", "ADOBE", "Caches"})
        casa.archivo(soporte + excluida + "/GPUCache/d", 700 * kib);
    casa.archivo(soporte + "FirmaDeArchivo/Code Cache", 700 * kib);
    casa.enlace(soporte + "AppEnlazada", casa.ruta(soporte + "Slack"));

    // Editor state: gone, unopened for long, fresh, on an unmounted volume,
    // of another scheme, and damaged.
    const Fecha ahora = std::chrono::system_clock::now();
    const Fecha viejo = ahora - 24h * 120, nuevo = ahora - 24h * 2;
    casa.crearDir("proyectos/vivo-viejo");
    casa.crearDir("proyectos/vivo-nuevo");
    const auto p = casa.ruta("proyectos");
    const auto estado = [&](const char* editor, const char* id, const std::string& json, Fecha f, int64_t k) {
        estadoDeEditor(casa, editor, id, json, f, k * kib);
    };
    estado("Code", "ido1", carpetaJson(p / "borrado"), nuevo, 200);
    estado("Code", "ido2", carpetaJson(p / "movido/a/otro"), viejo, 200); // gone wins over old
    estado("Code", "viejo", carpetaJson(p / "vivo-viejo"), viejo, 100);
    estado("Code", "usb", carpetaJson("/media/vorlano-sin-montar/USB/web"), viejo, 100);
    estado("Code", "usb-nuevo", carpetaJson("/media/vorlano-sin-montar/USB/app"), nuevo, 100);
    estado("Code", "remoto", "{\"folder\":\"vscode-remote://ssh-remote%2Bsrv/home/x\"}", viejo, 100);
    estado("Code", "remoto-nuevo", "{\"folder\":\"vscode-remote://ssh-remote%2Bsrv/home/y\"}", nuevo, 100);
    // Used today though its folder's date is old: the later date counts.
    estado("Code", "nuevo", carpetaJson(p / "vivo-nuevo"), nuevo, 100);
    casa.fecha(soporte + "Code/User/workspaceStorage/nuevo", viejo);
    int rotos = 0;
    for (const char* json : {"", "no es json", "[\"file:///no-existe\"]", "42", "{\"otra\":1}",
                             "{\"folder\":3,\"workspace\":\"file:///no-existe\"}", "{\"folder\":\"file:///%zz\"}",
                             "{\"folder\":\"file:///con espacio\"}"})
        estado("Code", ("roto" + std::to_string(rotos++)).c_str(), json, viejo, 100);
    estado("Cursor", "ido", carpetaJson(p / "otro-borrado"), nuevo, 100);
    estado("Cursor", "viejo", carpetaJson(p / "vivo-viejo"), viejo, 80);

    // Downloads made now are new: none is offered.
    casa.archivo("Downloads/nuevo.zip", 400 * kib, 'z');
    casa.archivo("Downloads/carpeta/dentro.bin", 400 * kib, 'd');

    const auto cats = escanear(casa.entorno());
    ASSERT_EQ(cats.size(), 3u);
    EXPECT_EQ(cats[0].id + cats[1].id + cats[2].id, "appslogsdev");

    const std::string interna = "Caché interna de la app";
    EXPECT_EQ(vistos(cats[0]), (std::vector<Visto>{{"org.ejemplo.app", "", true},
                                                   {"Slack", interna, true},
                                                   {"Code", interna, true},
                                                   {"Enlazada", interna, true},
                                                   {"org.bueno", "", true},
                                                   {"com.applepie.y", "", true},
                                                   {raro, "", true}}));
    for (const auto& e : cats[0].elementos)
        EXPECT_TRUE(e.revisarUso) << e.nombre;
    EXPECT_EQ(vistos(cats[1]), (std::vector<Visto>{{"crash.log", "", true}}));
    EXPECT_FALSE(cats[1].elementos[0].revisarUso);
    // Measured with their extra folders; the link is neither offered nor followed.
    const auto& apps = cats[0].elementos;
    EXPECT_EQ(apps[6].tamano, apoyo::du(apps[6].url));
    EXPECT_EQ(apps[1].tamano, apoyo::du(casa.ruta(soporte + "Slack/Cache")) +
                                  apoyo::du(casa.ruta(soporte + "Slack/Code Cache")) +
                                  apoyo::du(casa.ruta(soporte + "Slack/GPUCache")));
    EXPECT_EQ(apps[2].extra, (std::vector<std::filesystem::path>{casa.ruta(soporte + "Code/Code Cache"),
                                                                 casa.ruta(soporte + "Code/CachedData")}));
    EXPECT_EQ(apps[3].url, casa.ruta(soporte + "Enlazada/GPUCache"));
    EXPECT_TRUE(apps[3].extra.empty());

    EXPECT_EQ(vistos(cats[2]),
              (std::vector<Visto>{
                  {"VS Code · proyectos que ya no existen", "Datos de 2 proyectos borrados o movidos", true},
                  {"VS Code · proyectos sin abrir hace más de 3 meses",
                   "Se pierden las pestañas abiertas y ajustes de esos 3 proyectos", false},
                  {"Cursor · proyectos que ya no existen", "Datos de 1 proyecto borrado o movido", true},
                  {"Cursor · proyectos sin abrir hace más de 3 meses",
                   "Se pierden las pestañas abiertas y ajustes de ese proyecto", false}}));
}
