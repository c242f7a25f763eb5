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
    return AppInstalada{.nombre = "Pintor", .bundleID = "com.Foo.App", .otrosNombres = {"Pintor", "Pintor Pro"}};
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
        const char* carpeta; // in Library
        const char* detalle;
        std::vector<const char*> delApp, ajenas;
    } filas[] = {
        {"Application Support", "Datos de la app", {"PINTOR", "com.foo.app", "pintor pro"},
         {"Pintor Helper", "com.foo.app.helper"}},
        {"Caches", "Cachés", {"com.foo.app"}, {}},
        {"Logs", "Registros", {"Pintor"}, {}},
        {"Preferences", "Preferencias", {"COM.FOO.APP.PLIST", "com.foo.app.helper.plist"},
         {"com.foo.apple.plist", "com.foo.app.plist.bak", "Pintor.plist"}},
        {"Preferences/ByHost", "Preferencias", {"com.foo.app.0A1B2C"}, {"com.foo.apple.0A1B2C"}},
        {"Saved Application State", "Estado de ventanas", {"com.foo.app.savedState"}, {"com.foo.app.x.savedState"}},
        {"HTTPStorages", "Datos web", {"com.foo.app", "com.foo.app.binarycookies"}, {"com.foo.apple"}},
        {"WebKit", "Datos web", {"com.foo.app"}, {"com.foo.app.x"}},
        {"Cookies", "Cookies", {"com.foo.app.binarycookies", "com.foo.apple.binarycookies"}, {"com.foo.app.cookies"}},
        {"Application Scripts", "Scripts", {"com.foo.app"}, {"Pintor"}},
        {"LaunchAgents", "Inicio automático", {"com.foo.app.updater.plist", "com.foo.apple.plist"}, {"pintor.plist"}},
        {"Containers", "Contenedor", {"com.foo.app"}, {}},
        {"Group Containers", "Contenedor compartido", {"group.com.foo.app", "ABC123.com.foo.app"},
         {"com.foo.app", "group.com.foo.app.x"}},
        {"", "", {}, {"Pintor"}},
    };
    std::map<std::string, std::string> esperado;
    std::vector<fs::path> orden;
    for (const Fila& f : filas) {
        const fs::path carpeta = fs::path("Library") / f.carpeta;
        for (const char* n : f.ajenas)
            casa.archivo((carpeta / n / "datos").string(), 8192);
        for (const char* n : f.delApp)
            esperado[casa.archivo((carpeta / n).string(), 8192).lexically_relative(casa.raiz())] = f.detalle;
        if (!f.delApp.empty())
            orden.push_back(casa.ruta(carpeta.string()));
    }
    AppInstalada app = pintor();
    const auto es = Desinstalador(casa.entorno()).restos(app);
    EXPECT_EQ(hallados(casa, es), esperado);
    EXPECT_EQ(es.size(), esperado.size()) << "ninguna ruta dos veces";
    std::vector<fs::path> carpetas;
    for (const auto& e : es) {
        EXPECT_EQ(e.nombre, "~/" + e.url.lexically_relative(casa.raiz()).string());
        EXPECT_EQ(e.tamano, apoyo::du(e.url));
        EXPECT_TRUE(e.seleccionado);
        if (carpetas.empty() || carpetas.back() != e.url.parent_path())
            carpetas.push_back(e.url.parent_path());
    }
    // The folders in their fixed order, whatever the listing order within one.
    EXPECT_EQ(carpetas, orden);

    // Without an identifier only names find anything: an empty one would
    // match every cookie and agent.
    app.bundleID = "";
    EXPECT_EQ(hallados(casa, Desinstalador(casa.entorno()).restos(app)),
              (std::map<std::string, std::string>{{"Library/Application Support/PINTOR", "Datos de la app"},
                                                  {"Library/Application Support/pintor pro", "Datos de la app"},
                                                  {"Library/Logs/Pintor", "Registros"}}));
}

TEST(Restos, EnlacesSonEntradasYSeNombranPorSuDestino)
{
    CasaPrueba casa;
    CasaPrueba fuera;
    casa.archivo("Datos/pintor-real/grande", 400 * 1024);
    casa.enlace("Library/Application Support/Pintor", casa.ruta("Datos/pintor-real"));
    casa.enlace("Library/Caches/com.foo.app", fuera.raiz());
    casa.enlace("Library/Logs/Pintor", casa.ruta("no/existe"));
    const auto es = Desinstalador(casa.entorno()).restos(pintor());
    ASSERT_EQ(es.size(), 3u);
    // The link is measured, not what it points at.
    EXPECT_EQ(es[0].tamano, apoyo::asignado(es[0].url));
    // Named by its target below the home; resolved outside it, by the path as
    // it stands; dangling, by its own name.
    EXPECT_EQ(es[0].nombre, "~/Datos/pintor-real");
    EXPECT_EQ(es[1].nombre, "~/" + es[1].url.string());
    EXPECT_EQ(es[2].nombre, "~/Library/Logs/Pintor");
    // A home folder reached through a link: names are still below it.
    const fs::path enlace = casa.enlace("casa", casa.raiz());
    EXPECT_EQ(Desinstalador(Entorno{enlace, true}).restos(pintor())[2].nombre, "~/Library/Logs/Pintor");
}

TEST(Restos, CarpetaIlegibleNoImpideLasDemas)
{
    CasaPrueba casa;
    casa.archivo("Library/Caches/Pintor/x", 4096);
    casa.archivo("Library/WebKit/com.foo.app/x", 4096);
    casa.archivo("Library/Containers/com.foo.app/x", 4096);
    casa.sinPermisos("Library/Caches");
    casa.sinPermisos("Library/WebKit/com.foo.app");
    // The unreadable folder gives nothing; an unreadable match is still offered.
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        const auto es = Desinstalador(casa.entorno()).restos(pintor());
        return es.size() == 2 && es[0].url == casa.ruta("Library/WebKit/com.foo.app") &&
               es[1].url == casa.ruta("Library/Containers/com.foo.app");
    }));
}
