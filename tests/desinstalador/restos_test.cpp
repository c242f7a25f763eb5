// SPDX-License-Identifier: GPL-3.0-or-later
// Leftovers in a real Library of a scratch home: those of one application,
// and those of applications that are gone.
#include "desinstalador/desinstalador.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "bundles.h"
#include "consola.h"
#include "nucleo/formato.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>

using apoyo::CasaPrueba;
using Mapa = std::map<std::string, std::vector<std::string>>;

namespace {

AppInstalada pintor()
{
    return AppInstalada{.nombre = "Pintor", .bundleID = "com.Foo.App", .otrosNombres = {"Pintor", "Pintor Pro"}};
}

// Nothing the machine has installed leaks in: the system's desktop entries
// and Flatpak installation are scratch folders too.
class Restos : public ::testing::Test {
protected:
    CasaPrueba casa;
    CasaPrueba sistema;
    apoyo::Variable dirs{"XDG_DATA_DIRS", sistema.ruta("share").string()};
    apoyo::Variable flatpak{"FLATPAK_SYSTEM_DIR", sistema.ruta("flatpak").string()};

    // Path below the home folder -> detalle, of every leftover found.
    std::map<std::string, std::string> hallados(const std::vector<Elemento>& es)
    {
        std::map<std::string, std::string> r;
        for (const auto& e : es)
            r[e.url.lexically_relative(casa.raiz()).string()] = e.detalle.value_or("");
        return r;
    }

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
    EXPECT_EQ(hallados(es), esperado);
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
    EXPECT_EQ(hallados(Desinstalador(casa.entorno()).restos(app)),
              (std::map<std::string, std::string>{{"Library/Application Support/PINTOR", "Datos de la app"},
                                                  {"Library/Application Support/pintor pro", "Datos de la app"},
                                                  {"Library/Logs/Pintor", "Registros"}}));
}

TEST_F(Restos, EnlacesSonEntradasYSeNombranPorSuDestino)
{
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

TEST_F(Restos, CarpetasIlegiblesNoImpidenLasDemas)
{
    casa.archivo("Library/Caches/Pintor/x", 4096);
    casa.archivo("Library/WebKit/com.foo.app/x", 4096);
    casa.archivo("Library/Containers/com.foo.app/x", 4096);
    casa.archivo("Library/Application Support/com.uno.dos/x", 4096);
    casa.enlace("Library/WebKit/com.uno.dos", casa.ruta("no/existe"));
    casa.archivo("Library/Preferences/com.tres.cuatro.plist", 4096);
    for (const char* c : {"Library/Caches", "Library/WebKit/com.foo.app", "Library/Preferences"})
        casa.sinPermisos(c);
    // An unreadable folder gives nothing; an unreadable match is still offered.
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        const auto es = Desinstalador(casa.entorno()).restos(pintor());
        return es.size() == 2 && es[0].url == casa.ruta("Library/WebKit/com.foo.app") &&
               es[1].url == casa.ruta("Library/Containers/com.foo.app") &&
               huerfanos({pintor()}) == Mapa{{"com.uno.dos", {"Library/Application Support/com.uno.dos",
                                                              "Library/WebKit/com.uno.dos"}}};
    }));
}

TEST(Identificadores, FabricanteYForma)
{
    EXPECT_EQ(Desinstalador::fabricante("..Com..Foo.bar."), "com.foo");
    EXPECT_EQ(Desinstalador::fabricante("foo"), "foo");
    const std::pair<const char*, bool> casos[] = {
        {"com.foo.bar", true}, {"COM.foo.bar", true},  {".com..foo.bar", true},  {"io.a.b.c.d", true},
        {"jp.co.app", true},   {"com.foo", false},     {"com.foo.", false},      {"xyz.foo.bar", false},
        {"Pintor", false},     {"comx.foo.bar", false}, {"com.foo bar.baz", false},
    };
    for (const auto& [texto, es] : casos)
        EXPECT_EQ(Desinstalador::pareceID(texto), es) << texto;
}

TEST_F(Restos, HuerfanosQuienCuenta)
{
    const std::pair<const char*, std::vector<const char*>> entradas[] = {
        // The endings with their case, and nothing without them in those two.
        {"Saved Application State", {"net.foo.bar.savedState", "net.uno.dos.SAVEDSTATE", "net.tres.cuatro"}},
        {"Preferences", {"net.foo.bar.plist", "net.cinco.seis.PLIST", "net.siete.ocho", ".plist", "COM.FOO.viejo.plist"}},
        // Not an identifier, the system's, this program's, and ones the system knows.
        {"Application Support",
         {"com.foo.old", "Pintor", "xyz.foo.bar", "com.apple.x", "org.entrada.USUARIO", "org.entrada.sistema",
          "com.sub-org.ej", "org.flat.usuario", "org.flat.sistema", "org.bundle.fuera"}},
        {"WebKit", {"COM.Apple.Safari"}},
        {"HTTPStorages", {"APP.VORLANO.Vorlano"}},
    };
    for (const auto& [carpeta, nombres] : entradas)
        for (const char* n : nombres)
            casa.archivo(std::string("Library/") + carpeta + "/" + n, 4096);
    const fs::path datos = std::getenv("XDG_DATA_HOME");
    for (const fs::path& entrada : {datos / "applications/Org.Entrada.Usuario.desktop",
                                    sistema.ruta("share/applications/org.entrada.sistema.desktop"),
                                    sistema.ruta("share/applications/com.sub/org.ej.desktop")}) {
        fs::create_directories(entrada.parent_path());
        std::ofstream(entrada) << "[Desktop Entry]\nType=Application\nName=X\nExec=x\n";
    }
    fs::create_directories(datos / "flatpak/app/org.flat.usuario/current");
    fs::create_directories(sistema.ruta("flatpak/app/org.flat.sistema/current"));
    // Outside the folders the uninstaller lists, in the user's real home.
    crearApp(fs::path(std::getenv("HOME")) / "Applications/Fuera.app", "org.bundle.fuera");

    Mapa esperado{{"net.foo.bar",
                   {"Library/Saved Application State/net.foo.bar.savedState", "Library/Preferences/net.foo.bar.plist"}}};
    // An installed application's vendor keeps every identifier of its own.
    EXPECT_EQ(huerfanos({AppInstalada{.bundleID = "com.foo.app"}}), esperado);
    esperado["com.foo.old"] = {"Library/Application Support/com.foo.old"};
    esperado["COM.FOO.viejo"] = {"Library/Preferences/COM.FOO.viejo.plist"};
    EXPECT_EQ(huerfanos(), esperado);

    for (const Elemento& e : Desinstalador(casa.entorno()).restosHuerfanos({})) {
        EXPECT_FALSE(e.seleccionado);
        EXPECT_EQ(e.detalle, e.nombre == "net.foo.bar"
                                 ? "2 carpetas o archivos de una app que ya no está instalada"
                                 : "1 carpeta o archivo de una app que ya no está instalada");
    }
}

TEST_F(Restos, HuerfanosEnElInformeDeTerminal)
{
    int64_t total = 0;
    for (const char* r : {"Application Support/org.ido.editor", "Saved Application State/org.ido.editor.savedState",
                          "HTTPStorages/org.ido.editor", "WebKit/org.ido.editor", "Preferences/org.ido.editor.plist"})
        total += apoyo::du(casa.archivo(std::string("Library/") + r, 100 * 1024));
    // Installed in the scanned home: its vendor keeps its own.
    crearApp(casa.ruta("Applications/Vivo.app"), "org.vivo.app");
    casa.archivo("Library/Application Support/org.vivo.ayudante", 200 * 1024);

    const auto s = apoyo::ejecutarVorlano(casa.raiz(), {"--scan"});
    const size_t titulo = s.salida.find("■ Restos de apps desinstaladas — ");
    ASSERT_NE(titulo, std::string::npos) << s.salida;
    EXPECT_NE(s.salida.find("   [ ] " + Consola::columna(formatoBytes(total)) + " " +
                                "org.ido.editor — 5 carpetas o archivos de una app que ya no está instalada\n",
                            titulo),
              std::string::npos)
        << s.salida;
    EXPECT_EQ(s.salida.find("org.vivo"), std::string::npos);
}
