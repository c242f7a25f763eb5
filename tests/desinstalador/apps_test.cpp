// SPDX-License-Identifier: GPL-3.0-or-later
// Installed applications, read from real bundles in a scratch home.
#include "fixturas.h"
#include "nucleo/textos.h"
#include "plataforma/apps.h"

#include <gmock/gmock.h>
#include <unistd.h>

using apoyo::CasaPrueba;

TEST(Apps, LeeInfoPlistBinarioXmlOCortadoYSuDueno)
{
    CasaPrueba casa;
    const Claves claves{{"CFBundleIdentifier", "org.golang.go"},
                        {"CFBundleName", "Gö"},                  // two characters (three bytes): too short
                        {"CFBundleDisplayName", "Gopher Tools"}, // kept once
                        {"CFBundleExecutable", "Gopher Tools"},
                        {"CFBundleShortVersionString", "1.22"}};
    const fs::path xml = crearBundle(casa.ruta("Applications/Go.app"), claves);
    const fs::path bin = crearBundle(casa.ruta("Applications/Mi.app.Go.app"), claves, true);
    const Desinstalador d(casa.entorno());
    // The XML one with a trailing "/", as a dropped bundle may come.
    for (const auto& [bundle, nombre] : {std::pair{fs::path(xml.string() + "/"), "Go"}, std::pair{bin, "Mi.Go"}}) {
        const auto app = d.leer(bundle);
        ASSERT_TRUE(app);
        EXPECT_EQ(app->bundleID, "org.golang.go");
        EXPECT_EQ(app->version, "1.22");
        EXPECT_EQ(app->nombre, nombre);
        EXPECT_FALSE(app->deRoot);
        EXPECT_THAT(app->otrosNombres, ::testing::UnorderedElementsAre(nombre, "Gopher Tools"));
    }

    // A binary plist cut anywhere: never an application with a made-up identifier.
    const std::string bytes = apoyo::leer(bin / "Contents/Info.plist");
    for (size_t n = 1; n < bytes.size(); ++n) {
        casa.archivoCon("Cortado.app/Contents/Info.plist", bytes.substr(0, n));
        const auto app = d.leer(casa.ruta("Cortado.app"));
        EXPECT_TRUE(!app || app->bundleID == "org.golang.go") << n;
    }

    if (::getuid() != 0)
        return;
    // Another user's bundle is not the user's; to an ordinary user, neither is root's.
    ASSERT_EQ(::lchown(bin.c_str(), 65534, 65534), 0);
    EXPECT_TRUE(d.leer(bin)->deRoot);
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] { return d.leer(xml)->deRoot; }));
}

TEST(Apps, RecorridoFiltroYOrden)
{
    CasaPrueba casa;
    int n = 0;
    for (const char* b : {"Uno.app", "Empresa/Dos.app", "Empresa/Suite/Tres.app", "Empresa/Suite/Extra/Cuatro.app",
                          "Empresa/Suite/Extra/Mas/Cinco.app", // five levels down: too deep
                          // Inside a bundle or another package, hidden, or not exactly ".app".
                          "Uno.app/Contents/Helpers/Ayudante.app", "Kit.framework/Interna.app", ".oculta/Oculta.app",
                          "Mayus.APP", "Mayus.APP/Dentro.app",
                          // Sorted as the user reads, case ignored; equal names in the order found.
                          "zeta.app", "Águila.app", "beta.app", "A/Beta.app", "B/BETA.app"})
        crearApp(casa.ruta(std::string("Applications/") + b), "com.ej.app" + std::to_string(++n));
    // The system's and this program's are not offered; an empty identifier is.
    for (const auto& [b, id] : {std::pair{"Safari", "com.apple.Safari"}, {"Vorlano", plataforma::identificadorPropio},
                                {"Pastel", "com.applepie.pastel"}, {"Vacio", ""}})
        crearApp(casa.ruta(std::string("Applications/") + b + ".app"), id);
    crearApp(casa.ruta("Otras/Enlazada.app"), "com.ej.enlazada");
    casa.enlace("Applications/Enlace", casa.ruta("Otras"));
    // No application: damaged, an array, a number or no identifier, cut, no
    // plist, not a folder.
    const std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n";
    for (const auto& [bundle, contenido] : std::vector<std::pair<const char*, std::string>>{
             {"Basura", "\x01\x02 esto no es un plist"},
             {"Lista", xml + "<array><string>com.ej.x</string></array></plist>\n"},
             {"IdNumero", xml + "<dict><key>CFBundleIdentifier</key><integer>7</integer></dict></plist>\n"},
             {"SinId", xml + "<dict><key>CFBundleName</key><string>Nada</string></dict></plist>\n"},
             {"XmlCortado", xml + "<dict><key>CFBundleIdentifier</key><string>com.ej.cortado"}})
        casa.archivoCon(std::string("Applications/") + bundle + ".app/Contents/Info.plist", contenido);
    casa.crearDir("Applications/SinPlist.app/Contents");
    casa.archivoCon("Applications/Archivo.app", "no soy una carpeta");

    std::vector<std::string> esperado{"Águila"};
    for (const fs::path& b : plataforma::bundlesDeApps(casa.ruta("Applications")))
        if (minusculas(b.stem().string()) == "beta")
            esperado.push_back(b.stem());
    esperado.insert(esperado.end(), {"Cuatro", "Dos", "Pastel", "Tres", "Uno", "Vacio", "zeta"});
    std::vector<std::string> nombres;
    for (const AppInstalada& a : Desinstalador(casa.entorno()).apps())
        nombres.push_back(a.nombre);
    EXPECT_EQ(nombres, esperado);
}
