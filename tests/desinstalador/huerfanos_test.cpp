// SPDX-License-Identifier: GPL-3.0-or-later
// Leftovers of applications that are gone, in a real Library of a scratch home.
#include "desinstalador/desinstalador.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "bundles.h"
#include "nucleo/formato.h"
#include "plataforma/apps.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>

using apoyo::CasaPrueba;

namespace {

// Nothing the machine has installed leaks into these tests: the system's
// desktop entries and Flatpak installation are scratch folders too.
class Huerfanos : public ::testing::Test {
protected:
    CasaPrueba casa;
    CasaPrueba sistema;
    Variable dirs{"XDG_DATA_DIRS", sistema.ruta("share").string()};
    Variable flatpak{"FLATPAK_SYSTEM_DIR", sistema.ruta("flatpak").string()};

    // Identifier -> the entries found for it, below the home folder.
    std::map<std::string, std::vector<std::string>> huerfanos(const std::vector<AppInstalada>& instaladas = {})
    {
        std::map<std::string, std::vector<std::string>> r;
        for (const Elemento& e : Desinstalador(casa.entorno()).restosHuerfanos(instaladas))
            for (const fs::path& u : e.urls())
                r[e.nombre].push_back(u.lexically_relative(casa.raiz()).string());
        return r;
    }
};

AppInstalada instalada(const std::string& id)
{
    AppInstalada a;
    a.bundleID = id;
    a.nombre = id;
    return a;
}

using Mapa = std::map<std::string, std::vector<std::string>>;

} // namespace

TEST(Identificadores, FabricanteYForma)
{
    EXPECT_EQ(Desinstalador::fabricante("Com.Foo.Bar"), "com.foo");
    EXPECT_EQ(Desinstalador::fabricante("foo"), "foo");
    EXPECT_EQ(Desinstalador::fabricante("..com..foo.bar."), "com.foo");
    EXPECT_EQ(Desinstalador::fabricante(""), "");

    struct Caso {
        const char* texto;
        bool es;
    } casos[] = {
        {"com.foo.bar", true},  {"COM.foo.bar", true},   {"jp.co.app", true},        {"com..foo.bar", true},
        {"com.foo", false},     {"com.foo.", false},     {"xyz.foo.bar", false},     {"com.foo bar.baz", false},
        {"Pintor", false},      {"", false},             {"comx.foo.bar", false},    {".com.foo.bar", true},
        {"io.a.b.c.d", true},   {"me.x.y", true},        {"co.uk.tienda", true},     {"ai.x.y", true},
    };
    for (const auto& c : casos)
        EXPECT_EQ(Desinstalador::pareceID(c.texto), c.es) << c.texto;
    EXPECT_EQ(Desinstalador::prefijos().size(), 13u);
}

TEST_F(Huerfanos, FinalesConSuMayuscula)
{
    for (const char* r : {"Library/Saved Application State/net.foo.bar.savedState",
                          "Library/Saved Application State/net.uno.dos.SAVEDSTATE",
                          "Library/Saved Application State/net.tres.cuatro", "Library/Preferences/net.foo.bar.plist",
                          "Library/Preferences/net.cinco.seis.PLIST", "Library/Preferences/net.siete.ocho",
                          "Library/Preferences/.plist"})
        casa.archivo(r, 4096);
    const auto es = Desinstalador(casa.entorno()).restosHuerfanos({});
    ASSERT_EQ(es.size(), 1u);
    const Elemento& e = es[0];
    EXPECT_EQ(e.nombre, "net.foo.bar");
    EXPECT_EQ(e.url, casa.ruta("Library/Saved Application State/net.foo.bar.savedState"));
    EXPECT_EQ(e.extra, std::vector<fs::path>{casa.ruta("Library/Preferences/net.foo.bar.plist")});
    EXPECT_EQ(e.detalle, "2 carpetas o archivos de una app que ya no está instalada");
    EXPECT_EQ(e.tamano, 0);
    EXPECT_FALSE(e.seleccionado);
}

TEST_F(Huerfanos, MismoFabricanteSistemaYPropiaNoSeJuzgan)
{
    for (const char* r : {"Library/Application Support/com.foo.old", "Library/Application Support/com.other.old",
                          "Library/Application Support/Pintor", "Library/Application Support/xyz.foo.bar",
                          "Library/Preferences/COM.FOO.viejo.plist", "Library/Application Support/com.apple.x",
                          "Library/WebKit/COM.Apple.Safari", "Library/Preferences/com.APPLE.finder.plist",
                          "Library/HTTPStorages/APP.VORLANO.Vorlano"})
        casa.archivo(r, 4096);
    EXPECT_EQ(huerfanos({instalada("com.foo.app")}),
              (Mapa{{"com.other.old", {"Library/Application Support/com.other.old"}}}));
    // With nothing installed, no vendor protects anything.
    EXPECT_EQ(huerfanos(), (Mapa{{"com.foo.old", {"Library/Application Support/com.foo.old"}},
                                 {"com.other.old", {"Library/Application Support/com.other.old"}},
                                 {"COM.FOO.viejo", {"Library/Preferences/COM.FOO.viejo.plist"}}}));
    const auto es = Desinstalador(casa.entorno()).restosHuerfanos({});
    for (const auto& e : es)
        EXPECT_EQ(e.detalle, "1 carpeta o archivo de una app que ya no está instalada");
}

TEST_F(Huerfanos, AppsQueElSistemaConoceProtegenSuIdentificador)
{
    for (const char* id : {"org.entrada.USUARIO", "org.entrada.sistema", "com.sub-org.ej", "org.flat.usuario",
                           "org.flat.sistema", "org.bundle.fuera", "org.nadie.sabe"})
        casa.archivo(std::string("Library/Application Support/") + id, 4096);
    // The user's data home and home folder of this test process (test main).
    const fs::path datos = std::getenv("XDG_DATA_HOME");
    const fs::path home = std::getenv("HOME");
    const auto crear = [](const fs::path& p) {
        fs::create_directories(p.parent_path());
        std::ofstream(p) << "[Desktop Entry]\nType=Application\nName=X\nExec=x\n";
    };
    crear(datos / "applications/Org.Entrada.Usuario.desktop");
    crear(sistema.ruta("share/applications/org.entrada.sistema.desktop"));
    crear(sistema.ruta("share/applications/com.sub/org.ej.desktop")); // id com.sub-org.ej
    fs::create_directories(datos / "flatpak/app/org.flat.usuario/current");
    fs::create_directories(sistema.ruta("flatpak/app/org.flat.sistema/current"));
    // An application outside the folders the uninstaller lists.
    crearBundle(home / "Applications/Fuera.app", clavesDeApp("org.bundle.fuera"));

    EXPECT_EQ(huerfanos(), (Mapa{{"org.nadie.sabe", {"Library/Application Support/org.nadie.sabe"}}}));
}

TEST_F(Huerfanos, CarpetasIlegiblesYEnlaces)
{
    casa.archivo("Library/Application Support/com.uno.dos/x", 4096);
    casa.enlace("Library/WebKit/com.uno.dos", casa.ruta("no/existe"));
    casa.archivo("Library/Preferences/com.tres.cuatro.plist", 4096);
    casa.sinPermisos("Library/Preferences");
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        return huerfanos() ==
               Mapa{{"com.uno.dos", {"Library/Application Support/com.uno.dos", "Library/WebKit/com.uno.dos"}}};
    }));
}

TEST_F(Huerfanos, ElInformeDeTerminalLosLista)
{
    // One identifier in all five places; an installed app's vendor keeps its own.
    casa.archivo("Library/Application Support/org.ido.editor/datos", 200 * 1024);
    casa.archivo("Library/Saved Application State/org.ido.editor.savedState/w", 4096);
    casa.archivo("Library/HTTPStorages/org.ido.editor/w", 4096);
    casa.archivo("Library/WebKit/org.ido.editor/w", 4096);
    casa.archivo("Library/Preferences/org.ido.editor.plist", 4096);
    crearBundle(casa.ruta("Applications/Vivo.app"), clavesDeApp("org.vivo.app"));
    casa.archivo("Library/Application Support/org.vivo.ayudante/datos", 200 * 1024);

    const auto s = apoyo::ejecutarVorlano(casa.raiz(), {"--scan"},
                                          {{"XDG_DATA_DIRS", sistema.ruta("share").string()},
                                           {"FLATPAK_SYSTEM_DIR", sistema.ruta("flatpak").string()}});
    EXPECT_EQ(s.estado, 0);
    const size_t titulo = s.salida.find("■ Restos de apps desinstaladas — ");
    ASSERT_NE(titulo, std::string::npos) << s.salida;
    const std::string fila = "org.ido.editor — 5 carpetas o archivos de una app que ya no está instalada\n";
    const size_t f = s.salida.find(fila, titulo);
    ASSERT_NE(f, std::string::npos) << s.salida;
    int64_t total = 0;
    for (const char* r : {"Library/Application Support/org.ido.editor",
                          "Library/Saved Application State/org.ido.editor.savedState",
                          "Library/HTTPStorages/org.ido.editor", "Library/WebKit/org.ido.editor",
                          "Library/Preferences/org.ido.editor.plist"})
        total += apoyo::du(casa.ruta(r));
    const size_t linea = s.salida.rfind('\n', f) + 1;
    EXPECT_TRUE(s.salida.substr(linea).starts_with("   [ ] " + formatoBytes(total) + " "))
        << s.salida.substr(linea, f - linea);
    EXPECT_EQ(s.salida.find("org.vivo"), std::string::npos);
}
