// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/apps_abiertas.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "plataforma/apps.h"

#include <gtest/gtest.h>

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

// Running programs are known by the .app bundle they run from or by a
// visible desktop entry; this program's own bundle and hidden entries never
// count.
TEST(AppsAbiertas, ProgramasEnMarcha)
{
    apoyo::CasaPrueba casa;
    casa.archivoCon("Applications/Editor.app/Contents/Info.plist",
                    "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>com.Ejemplo.Editor</string>"
                    "<key>CFBundleName</key><string>Bigger Editor</string></dict></plist>");
    casa.archivoCon("Applications/Vorlano.app/Contents/Info.plist",
                    std::string("<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>") +
                        plataforma::identificadorPropio + "</string></dict></plist>");
    apoyo::Variable datos("XDG_DATA_HOME", casa.ruta("datos").string());
    casa.archivoCon("datos/applications/org/ejemplo.Visor.desktop",
                    "[Desktop Entry]\nType=Application\nName=Visor de Fotos\nExec=\"" + casa.ruta("bin/visor").string() +
                        "\" %U\n");
    casa.archivoCon("datos/applications/oculto.desktop", "[Desktop Entry]\nType=Application\nName=Oculto\n"
                                                         "NoDisplay=true\nExec=" + casa.ruta("bin/oculto").string() + "\n");
    Programa editor(casa.ruta("Applications/Editor.app/Contents/MacOS/editor"));
    Programa propio(casa.ruta("Applications/Vorlano.app/Contents/MacOS/vorlano"));
    Programa visor(casa.ruta("bin/visor")), oculto(casa.ruta("bin/oculto"));

    std::map<std::string, std::string> vistas;
    for (const auto& app : AppsAbiertas::actuales().apps)
        vistas[app.bundle] = app.nombre;
    EXPECT_EQ(vistas["com.ejemplo.editor"], "Bigger Editor");
    EXPECT_EQ(vistas["org-ejemplo.visor"], "Visor de Fotos");
    EXPECT_FALSE(vistas.contains("app.vorlano.vorlano"));
    for (const auto& [bundle, nombre] : vistas)
        EXPECT_NE(nombre, "Oculto");
}
