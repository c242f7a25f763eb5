// SPDX-License-Identifier: GPL-3.0-or-later
// Leftovers in a real Library: of one application, and of gone ones.
#include "fixturas.h"

#include <gmock/gmock.h>

using Mapa = std::map<std::string, std::vector<std::string>>;

namespace {

AppInstalada pintor()
{
    return AppInstalada{.nombre = "Pintor", .bundleID = "com.Foo.App", .otrosNombres = {"Pintor", "Pintor Pro"}};
}

class Restos : public CasaApps {
protected:
    // Identifier of a gone application -> its entries below the home folder.
    Mapa huerfanos(const std::vector<AppInstalada>& instaladas = {})
    {
        Mapa r;
        for (const Elemento& e : Desinstalador(casa.entorno()).restosHuerfanos(instaladas))
            for (const fs::path& u : e.urls())
                r[e.nombre].push_back(u.lexically_relative(casa.raiz()).string());
        return r;
    }
};

} // namespace

TEST_F(Restos, CadaCarpetaConSuRegla)
{
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
         {"com.foo.apple.plist", "com.foo.app.plist.bak", "Pintor.plist", "net.otra.app.plist"}},
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
    for (const Fila& f : filas) {
        const fs::path carpeta = fs::path("Library") / f.carpeta;
        for (const char* n : f.ajenas)
            casa.archivo((carpeta / n / "datos").string(), 8192);
        for (const char* n : f.delApp) {
            casa.archivo((carpeta / n / "datos").string(), 8192);
            esperado[(carpeta / n).string()] = f.detalle;
        }
    }
    casa.archivo("Datos/pintor-real/grande", 400 * 1024);
    casa.enlace("Library/Caches/Pintor", casa.ruta("Datos/pintor-real"));
    casa.enlace("Library/Caches/Pintor Pro", casa.ruta("no/existe"));
    esperado["Library/Caches/Pintor"] = esperado["Library/Caches/Pintor Pro"] = "Cachés";
    AppInstalada app = pintor();
    const auto es = Desinstalador(casa.entorno()).restos(app);
    EXPECT_EQ(hallados(es), esperado);
    EXPECT_EQ(es.size(), esperado.size()) << "ninguna ruta dos veces";
    // Measured unfollowed; a link named by its target below the home, or by
    // its own name when dangling; a home reached through a link names the same.
    const auto porEnlace = Desinstalador(Entorno{casa.enlace("casa", casa.raiz()), true}).restos(app);
    ASSERT_EQ(porEnlace.size(), es.size());
    for (size_t i = 0; i < es.size(); ++i) {
        const std::string ruta = es[i].url.lexically_relative(casa.raiz()).string();
        EXPECT_EQ(es[i].tamano, apoyo::du(es[i].url)) << ruta;
        EXPECT_TRUE(es[i].seleccionado);
        EXPECT_EQ(es[i].nombre, ruta == "Library/Caches/Pintor" ? "~/Datos/pintor-real" : "~/" + ruta);
        EXPECT_EQ(porEnlace[i].nombre, es[i].nombre);
    }

    // Without an identifier only names count (an empty one matches everything).
    app.bundleID = "";
    EXPECT_EQ(hallados(Desinstalador(casa.entorno()).restos(app)),
              (std::map<std::string, std::string>{{"Library/Application Support/PINTOR", "Datos de la app"},
                                                  {"Library/Application Support/pintor pro", "Datos de la app"},
                                                  {"Library/Caches/Pintor", "Cachés"},
                                                  {"Library/Caches/Pintor Pro", "Cachés"},
                                                  {"Library/Logs/Pintor", "Registros"}}));

    // An unreadable folder gives nothing, the others still count; an
    // unreadable match is still offered.
    for (const char* c : {"Library/Application Support", "Library/Containers/com.foo.app"})
        casa.sinPermisos(c);
    std::erase_if(esperado, [](const auto& p) { return p.first.starts_with("Library/Application Support/"); });
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        return hallados(Desinstalador(casa.entorno()).restos(pintor())) == esperado &&
               huerfanos({pintor()}) == Mapa{{"net.otra.app", {"Library/Preferences/net.otra.app.plist"}}};
    }));
}

TEST_F(Restos, HuerfanosQuienCuentaYSuInforme)
{
    const std::pair<const char*, std::vector<const char*>> entradas[] = {
        {"Application Support",
         {"net.foo.bar", "com.foo.old",
          // Not identifiers, the system's, and ones the system knows.
          "Pintor", "com.dos", "net.con espacio.x", "xyz.foo.bar", "com.apple.x", "org.entrada.USUARIO",
          "org.entrada.sistema", "com.sub-org.ej", "org.flat.usuario", "org.flat.sistema", "org.bundle.fuera"}},
        // The endings with their case, and nothing without them in those two.
        {"Saved Application State",
         {"net.foo.bar.savedState", "net.solo.uno.savedState", "net.uno.dos.SAVEDSTATE", "net.tres.cuatro"}},
        {"HTTPStorages", {"net.foo.bar", "APP.VORLANO.Vorlano"}}, // this program's
        {"WebKit", {"net.foo.bar", "COM.Apple.Safari"}},
        {"Preferences",
         {"net.foo.bar.plist", "net.cinco.seis.PLIST", "net.siete.ocho", ".plist", "COM.FOO.viejo.plist"}},
    };
    for (const auto& [carpeta, nombres] : entradas)
        for (const char* n : nombres)
            casa.archivo(std::string("Library/") + carpeta + "/" + n, 100 * 1024);
    const fs::path datosProceso = std::getenv("XDG_DATA_HOME");
    for (const fs::path& e : {datosProceso / "applications/Org.Entrada.Usuario.desktop",
                              sistema.ruta("share/applications/org.entrada.sistema.desktop"),
                              sistema.ruta("share/applications/com.sub/org.ej.desktop")})
        entrada(e, "Name=X\nExec=x\n");
    fs::create_directories(datosProceso / "flatpak/app/org.flat.usuario/current");
    fs::create_directories(sistema.ruta("flatpak/app/org.flat.sistema/current"));
    // Outside the folders the uninstaller lists, in the user's real home.
    crearApp(fs::path(std::getenv("HOME")) / "Applications/Fuera.app", "org.bundle.fuera");
    // Installed in the scanned home: its vendor keeps every identifier of its own.
    crearApp(casa.ruta("Applications/App.app"), "com.Foo.App");

    std::vector<std::string> foo;
    for (const char* r : {"Application Support/net.foo.bar", "Saved Application State/net.foo.bar.savedState",
                          "HTTPStorages/net.foo.bar", "WebKit/net.foo.bar", "Preferences/net.foo.bar.plist"})
        foo.push_back(std::string("Library/") + r);
    Mapa esperado{{"net.foo.bar", foo}, {"net.solo.uno", {"Library/Saved Application State/net.solo.uno.savedState"}}};
    EXPECT_EQ(huerfanos(Desinstalador(casa.entorno()).apps()), esperado);
    esperado["com.foo.old"] = {"Library/Application Support/com.foo.old"};
    esperado["COM.FOO.viejo"] = {"Library/Preferences/COM.FOO.viejo.plist"};
    EXPECT_EQ(huerfanos(), esperado);

    // The report offers them unselected, counted. (The program's data home
    // is this home's, without the entries made above in the test's.)
    const auto informe = huerfanosDelInforme(casa.raiz());
    EXPECT_THAT(informe, ::testing::IsSupersetOf(
                             {"[ ] net.foo.bar — 5 carpetas o archivos de una app que ya no está instalada",
                              "[ ] net.solo.uno — 1 carpeta o archivo de una app que ya no está instalada"}));
    EXPECT_THAT(informe, ::testing::Not(::testing::Contains(::testing::HasSubstr("com.foo.old"))));
}
