// SPDX-License-Identifier: GPL-3.0-or-later
// Leftovers of applications that are gone, in a real Library of a scratch home.
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

// Nothing the machine has installed leaks in: the system's desktop entries
// and Flatpak installation are scratch folders too.
class Huerfanos : public ::testing::Test {
protected:
    CasaPrueba casa;
    CasaPrueba sistema;
    apoyo::Variable dirs{"XDG_DATA_DIRS", sistema.ruta("share").string()};
    apoyo::Variable flatpak{"FLATPAK_SYSTEM_DIR", sistema.ruta("flatpak").string()};

    // Identifier -> its entries below the home folder.
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

TEST_F(Huerfanos, QuienCuentaComoHuerfano)
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
