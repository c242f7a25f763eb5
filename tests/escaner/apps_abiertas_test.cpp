// SPDX-License-Identifier: GPL-3.0-or-later
#include "comun.h"

#include "apoyo/proceso.h"
#include "plataforma/apps.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

using Programa = apoyo::ProgramaEnMarcha;

// An app is matched by its whole identifier, by the identifier and a point,
// by owner, or by the first word of its name unless that word is too common;
// the first app that matches wins.
TEST(AppsAbiertas, QuienUsa)
{
    AppsAbiertas a;
    for (const auto& [bundle, nombre] : {std::pair{"com.ejemplo.bigger", "Bigger Editor"}, {"Com.Example.App", "Ejemplo"},
                                         {"com.ejemplo.big", "Big Editor"}, {"org.espacios", "   Espacios  raros"}})
        a.apps.push_back(AppsAbiertas::describir(bundle, nombre));
    a.apps.push_back(AppsAbiertas::describir("org.sin.nombre", std::nullopt));
    EXPECT_EQ(a.apps[2].clave, ""); // a first word under four characters is no key
    EXPECT_EQ(a.apps[3].clave, "espacios");
    EXPECT_EQ(a.apps[4].nombre, "org.sin.nombre");
    EXPECT_EQ(a.quienUsa("My.Bigger.Cache", {}), "Bigger Editor");
    EXPECT_EQ(a.quienUsa("COM.EXAMPLE.APP", {}), "Ejemplo");
    EXPECT_EQ(a.quienUsa("com.example.app.helper", {}), "Ejemplo");
    EXPECT_EQ(a.quienUsa("com.example.appx", {}), std::nullopt);
    EXPECT_EQ(a.quienUsa("Cache", {"COM.example.app"}), "Ejemplo");
    EXPECT_EQ(a.quienUsa("bigger-things", {"com.example.app"}), "Bigger Editor");
    EXPECT_EQ(a.quienUsa("", {}), std::nullopt);
    EXPECT_EQ(a.quienUsa("big.things", {}), std::nullopt);
}

// Running programs are known by the .app bundle they run from, by a visible
// desktop entry or by their control group; this program's own bundle and
// hidden entries never count. The caches they own are shown in use and
// unselected: Mozilla's folder by the owners the scan knows for it, an
// Electron app's by its name.
TEST(AppsAbiertas, ProgramasEnMarchaYSusCaches)
{
    apoyo::CasaPrueba casa;
    casa.archivoCon("Applications/Editor.app/Contents/Info.plist",
                    "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>com.Ejemplo.Editor</string>"
                    "<key>CFBundleName</key><string>Bigger Editor</string></dict></plist>");
    casa.archivoCon("Applications/Vorlano.app/Contents/Info.plist",
                    std::string("<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>") +
                        plataforma::identificadorPropio + "</string></dict></plist>");
    apoyo::Variable datos("XDG_DATA_HOME", casa.ruta("datos").string());
    const auto bin = [&](const char* nombre) { return casa.ruta(std::string("bin/") + nombre).string(); };
    const auto entrada = [&](const char* archivo, const char* nombre, const std::string& exec) {
        casa.archivoCon(std::string("datos/applications/") + archivo,
                        std::string("[Desktop Entry]\nType=Application\nName=") + nombre + "\nExec=" + exec + "\n");
    };
    entrada("org/ejemplo.Visor.desktop", "Visor de Fotos", "\"" + bin("visor") + "\" %U");
    entrada("oculto.desktop", "Oculto\nNoDisplay=true", bin("oculto"));
    entrada("firefox-esr.desktop", "Firefox ESR", bin("firefox-esr"));
    entrada("discord.desktop", "Discord", bin("discord"));
    for (const char* c : {".cache/mozilla/firefox/x.default/cache2/d", ".cache/otra/d", ".config/discord/GPUCache/d"})
        casa.archivo(c, 100000);
    Programa editor(casa.ruta("Applications/Editor.app/Contents/MacOS/editor"));
    Programa propio(casa.ruta("Applications/Vorlano.app/Contents/MacOS/vorlano"));
    Programa visor(bin("visor")), oculto(bin("oculto")), firefox(bin("firefox-esr")), discord(bin("discord"));

    std::map<std::string, std::string> vistas;
    for (const auto& app : AppsAbiertas::actuales().apps)
        vistas[app.bundle] = app.nombre;
    EXPECT_EQ(vistas["com.ejemplo.editor"], "Bigger Editor");
    EXPECT_EQ(vistas["org-ejemplo.visor"], "Visor de Fotos");
    EXPECT_FALSE(vistas.contains("app.vorlano.vorlano"));
    for (const auto& [bundle, nombre] : vistas)
        EXPECT_NE(nombre, "Oculto");

    std::map<std::string, std::pair<std::optional<std::string>, bool>> usos;
    for (const Categoria& c : prueba::escanear(casa.entorno()))
        for (const Elemento& e : c.elementos)
            usos[e.nombre] = {e.enUso, e.seleccionado};
    EXPECT_EQ(usos["mozilla"], std::pair(std::optional<std::string>("Firefox ESR"), false));
    EXPECT_EQ(usos["discord"], std::pair(std::optional<std::string>("Discord"), false));
    EXPECT_EQ(usos["otra"], std::pair(std::optional<std::string>(), true));

    // A program in a sandbox (its executable the sandbox's own) moved into the
    // control group the desktop would start it in, where this system lets a
    // test make one: the group names the app, its desktop entry the name.
    casa.archivoCon("datos/applications/org.ej.Notas.desktop",
                    "[Desktop Entry]\nType=Application\nName=Notas\nExec=/usr/bin/flatpak run org.ej.Notas\n");
    std::filesystem::path grupo;
    for (const char* jerarquia : {"/sys/fs/cgroup/unified", "/sys/fs/cgroup/systemd", "/sys/fs/cgroup"})
        if (::mkdir((grupo = std::string(jerarquia) + "/app-flatpak-org.ej.Notas-77.scope").c_str(), 0755) == 0)
            break;
        else
            grupo.clear();
    if (grupo.empty())
        GTEST_SKIP() << "este sistema no deja crear un grupo de control";
    bool visto = false;
    {
        Programa notas(casa.ruta("sandbox/bwrap"));
        if (std::ofstream(grupo / "cgroup.procs") << notas.pid() << std::flush)
            for (const auto& app : AppsAbiertas::actuales().apps)
                visto = visto || (app.bundle == "org.ej.notas" && app.nombre == "Notas");
        else
            grupo.clear();
    }
    if (!grupo.empty())
        ::rmdir(grupo.c_str());
    if (grupo.empty())
        GTEST_SKIP() << "este sistema no deja mover un proceso a otro grupo de control";
    EXPECT_TRUE(visto);
}

// The application a control group names, for Flatpak's and Snap's scopes.
TEST(AppsAbiertas, AplicacionesDeFlatpakYSnapPorSuGrupo)
{
    const std::string uuid = "2a9b1c7d-1e2f-4a5b-8c9d-0e1f2a3b4c5d";
    const std::pair<std::string, std::optional<std::string>> casos[] = {
        {"0::/user.slice/user-1000.slice/user@1000.service/app.slice/app-flatpak-org.gimp.GIMP-4321.scope\n",
         "org.gimp.GIMP"},
        {"12:pids:/user.slice\n0::/app.slice/snap.firefox.firefox-" + uuid + ".scope\n", "firefox_firefox"},
        {"0::/app.slice/snap.code-insiders.code-insiders-" + uuid + ".scope", "code-insiders_code-insiders"},
        {"0::/app.slice/snap.lxd.hook.configure-" + uuid + ".scope", std::nullopt},
        {"0::/app.slice/snap.firefox.firefox-1234.scope", std::nullopt},
        {"0::/app.slice/app-gnome-org.gnome.Nautilus-1234.scope", std::nullopt},
        {"0::/app.slice/app-flatpak-org.x.Y-.scope", std::nullopt},
        {"0::/app.slice/app-flatpak-org.x.Y-12a.scope", std::nullopt},
        {"0::/app.slice/app-flatpak-org.x.Y-12.scope/hijo", std::nullopt},
        {"0::/user.slice/user-1000.slice/session-2.scope", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [grupos, app] : casos)
        EXPECT_EQ(plataforma::appDeGrupo(grupos), app) << grupos;
}
