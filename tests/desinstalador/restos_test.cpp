// SPDX-License-Identifier: GPL-3.0-or-later
// Leftovers of one application, found in a real Library of a scratch home.
#include "desinstalador/desinstalador.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <map>

using apoyo::CasaPrueba;
namespace fs = std::filesystem;

namespace {

AppInstalada pintor()
{
    AppInstalada a;
    a.nombre = "Pintor";
    a.bundleID = "com.Foo.App";
    a.otrosNombres = {"Pintor", "Pintor Pro"};
    return a;
}

// Path below the home folder -> detalle, of every leftover found.
std::map<std::string, std::string> hallados(const CasaPrueba& casa, const std::vector<Elemento>& es)
{
    std::map<std::string, std::string> r;
    for (const auto& e : es)
        r[e.url.lexically_relative(casa.raiz()).string()] = e.detalle.value_or("");
    return r;
}

} // namespace

TEST(Restos, CadaCarpetaConSuRegla)
{
    CasaPrueba casa;
    struct Fila {
        const char* ruta;
        const char* detalle; // nullptr: not the app's
    } filas[] = {
        {"Library/Application Support/PINTOR", "Datos de la app"},
        {"Library/Application Support/com.foo.app", "Datos de la app"},
        {"Library/Application Support/pintor pro", "Datos de la app"},
        {"Library/Application Support/Pintor Helper", nullptr},
        {"Library/Application Support/com.foo.app.helper", nullptr},
        {"Library/Caches/com.foo.app", "Cachés"},
        {"Library/Caches/Pintor", "Cachés"},
        {"Library/Logs/Pintor", "Registros"},
        {"Library/Logs/com.foo.app.log", nullptr},
        {"Library/Preferences/com.foo.app.plist", "Preferencias"},
        {"Library/Preferences/com.foo.app.helper.plist", "Preferencias"},
        {"Library/Preferences/COM.FOO.APP.PLIST", "Preferencias"},
        {"Library/Preferences/com.foo.apple.plist", nullptr},
        {"Library/Preferences/com.foo.app.plist.bak", nullptr},
        {"Library/Preferences/Pintor.plist", nullptr},
        {"Library/Preferences/ByHost/com.foo.app.0A1B2C", "Preferencias"},
        {"Library/Preferences/ByHost/com.foo.apple.0A1B2C", nullptr},
        {"Library/Saved Application State/com.foo.app.savedState", "Estado de ventanas"},
        {"Library/Saved Application State/com.foo.app.helper.savedState", nullptr},
        {"Library/HTTPStorages/com.foo.app", "Datos web"},
        {"Library/HTTPStorages/com.foo.app.binarycookies", "Datos web"},
        {"Library/HTTPStorages/com.foo.apple", nullptr},
        {"Library/WebKit/com.foo.app", "Datos web"},
        {"Library/WebKit/com.foo.app.x", nullptr},
        {"Library/Cookies/com.foo.app.binarycookies", "Cookies"},
        {"Library/Cookies/com.foo.apple.binarycookies", "Cookies"},
        {"Library/Cookies/com.foo.app.cookies", nullptr},
        {"Library/Application Scripts/com.foo.app", "Scripts"},
        {"Library/Application Scripts/Pintor", nullptr},
        {"Library/LaunchAgents/com.foo.app.updater.plist", "Inicio automático"},
        {"Library/LaunchAgents/com.foo.apple.plist", "Inicio automático"},
        {"Library/LaunchAgents/pintor.plist", nullptr},
        {"Library/Containers/com.foo.app", "Contenedor"},
        {"Library/Containers/Pintor", nullptr},
        {"Library/Group Containers/group.com.foo.app", "Contenedor compartido"},
        {"Library/Group Containers/ABC123.com.foo.app", "Contenedor compartido"},
        {"Library/Group Containers/com.foo.app", nullptr},
        {"Library/Group Containers/group.com.foo.app.x", nullptr},
        {"Library/Pintor", nullptr},
        {"Pintor", nullptr},
    };
    std::map<std::string, std::string> esperado;
    for (const auto& f : filas) {
        casa.archivo(std::string(f.ruta) + "/datos", 8192);
        if (f.detalle)
            esperado[f.ruta] = f.detalle;
    }
    const auto es = Desinstalador(casa.entorno()).restos(pintor());
    EXPECT_EQ(hallados(casa, es), esperado);
    EXPECT_EQ(es.size(), esperado.size()) << "ninguna ruta dos veces";

    for (const auto& e : es) {
        EXPECT_EQ(e.nombre, "~/" + e.url.lexically_relative(casa.raiz()).string());
        EXPECT_EQ(e.tamano, apoyo::du(e.url));
        EXPECT_TRUE(e.seleccionado);
        EXPECT_FALSE(e.enUso || e.nombreUso || e.accion || e.revisarUso);
        EXPECT_TRUE(e.extra.empty() && e.bundles.empty());
    }
    // Folders in the fixed order, whatever the listing order within one.
    std::vector<std::string> carpetas;
    for (const auto& e : es)
        if (carpetas.empty() || carpetas.back() != e.url.parent_path().string())
            carpetas.push_back(e.url.parent_path().string());
    const std::vector<std::string> orden{"Application Support", "Caches", "Logs", "Preferences", "ByHost",
                                         "Saved Application State", "HTTPStorages", "WebKit", "Cookies",
                                         "Application Scripts", "LaunchAgents", "Containers", "Group Containers"};
    ASSERT_EQ(carpetas.size(), orden.size());
    for (size_t i = 0; i < orden.size(); ++i)
        EXPECT_EQ(fs::path(carpetas[i]).filename(), orden[i]);
}

TEST(Restos, SinIdentificadorSoloPorNombre)
{
    CasaPrueba casa;
    AppInstalada a = pintor();
    EXPECT_TRUE(Desinstalador(casa.entorno()).restos(a).empty());
    for (const char* r : {"Library/Application Support/Pintor", "Library/Cookies/x.binarycookies",
                          "Library/LaunchAgents/agente.plist", "Library/Preferences/ByHost/.plist",
                          "Library/Group Containers/group.", "Library/HTTPStorages/.x", "Library/Caches/app"})
        casa.archivo(r, 4096);
    a.bundleID = "";
    const auto es = Desinstalador(casa.entorno()).restos(a);
    EXPECT_EQ(hallados(casa, es), (std::map<std::string, std::string>{
                                      {"Library/Application Support/Pintor", "Datos de la app"}}));
}

TEST(Restos, EnlacesSonEntradasYSeNombranPorSuDestino)
{
    CasaPrueba casa;
    casa.archivo("Datos/pintor-real/grande", 400 * 1024);
    casa.enlace("Library/Application Support/Pintor", casa.ruta("Datos/pintor-real"));
    const fs::path fuera = apoyo::carpetaTemporal("vorlano-fuera");
    casa.enlace("Library/Caches/com.foo.app", fuera);
    casa.enlace("Library/Logs/Pintor", casa.ruta("no/existe"));

    const auto es = Desinstalador(casa.entorno()).restos(pintor());
    apoyo::borrarArbol(fuera);
    ASSERT_EQ(es.size(), 3u);
    EXPECT_EQ(es[0].url, casa.ruta("Library/Application Support/Pintor"));
    EXPECT_EQ(es[0].nombre, "~/Datos/pintor-real");
    // The link is measured, not what it points at.
    EXPECT_EQ(es[0].tamano, apoyo::asignado(es[0].url));
    EXPECT_LT(es[0].tamano, 400 * 1024);
    // Resolved outside the home folder: the path as it stands, absolute.
    EXPECT_EQ(es[1].nombre, "~/" + casa.ruta("Library/Caches/com.foo.app").string());
    // A dangling link keeps its own name.
    EXPECT_EQ(es[2].nombre, "~/Library/Logs/Pintor");
    // A home folder reached through a link: names are still below it.
    const fs::path enlace = casa.enlace("casa", casa.raiz());
    EXPECT_EQ(Desinstalador(Entorno{enlace, true}).restos(pintor())[2].nombre, "~/Library/Logs/Pintor");
}

TEST(Restos, CarpetaIlegibleNoImpideLasDemas)
{
    CasaPrueba casa;
    casa.archivo("Library/Caches/Pintor/x", 4096);
    casa.archivo("Library/Containers/com.foo.app/x", 4096);
    casa.archivo("Library/WebKit/com.foo.app/x", 4096);
    casa.sinPermisos("Library/Caches");
    casa.sinPermisos("Library/WebKit/com.foo.app");
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        const auto es = Desinstalador(casa.entorno()).restos(pintor());
        // The unreadable folder gives nothing; an unreadable match is still
        // offered, at the size of its own entry.
        return es.size() == 2 && es[0].url.filename() == "com.foo.app" &&
               es[0].url.parent_path().filename() == "WebKit" && es[1].url.parent_path().filename() == "Containers";
    }));
}
