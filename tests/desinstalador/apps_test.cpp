// SPDX-License-Identifier: GPL-3.0-or-later
// Installed applications, read from real bundles in a scratch home.
#include "desinstalador/desinstalador.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "bundles.h"
#include "plataforma/apps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <fstream>

using apoyo::CasaPrueba;
using ::testing::UnorderedElementsAre;

namespace {

std::vector<std::string> nombres(const std::vector<AppInstalada>& apps)
{
    std::vector<std::string> r;
    for (const auto& a : apps)
        r.push_back(a.nombre);
    return r;
}

} // namespace

TEST(Apps, LeeInfoPlistBinarioYXml)
{
    CasaPrueba casa;
    const Claves claves{{"CFBundleIdentifier", "org.golang.go"},
                        {"CFBundleName", "Gö"},                  // two characters (three bytes): out
                        {"CFBundleDisplayName", "Gopher Tools"}, // kept once
                        {"CFBundleExecutable", "Gopher Tools"},
                        {"CFBundleShortVersionString", "1.22"}};
    const fs::path xml = crearBundle(casa.ruta("Applications/Go.app"), claves, FormatoPlist::xml);
    const fs::path bin = crearBundle(casa.ruta("Applications/Mi.app.Go.app"), claves, FormatoPlist::binario);
    for (const auto& [b, nombre] : {std::pair{xml, "Go"}, std::pair{bin, "Mi.Go"}}) {
        const auto app = Desinstalador(casa.entorno()).leer(b);
        ASSERT_TRUE(app);
        EXPECT_EQ(app->url, b);
        EXPECT_EQ(app->bundleID, "org.golang.go");
        EXPECT_EQ(app->version, "1.22");
        EXPECT_FALSE(app->deRoot);
        EXPECT_EQ(app->nombre, nombre);
        // The display name stands whatever its length; the plist's short names don't.
        EXPECT_THAT(app->otrosNombres, UnorderedElementsAre(nombre, "Gopher Tools"));
    }
    // A path with a trailing "/", as a dropped bundle may come.
    EXPECT_EQ(Desinstalador(casa.entorno()).leer(xml.string() + "/")->nombre, "Go");
}

TEST(Apps, PlistsQueNoSirvenNoDanApp)
{
    CasaPrueba casa;
    const std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n";
    struct Caso {
        const char* bundle;
        std::string contenido;
    } casos[] = {
        {"Vacio", ""},
        {"Basura", "\x01\x02 esto no es un plist"},
        {"Lista", xml + "<array><string>com.ej.x</string></array></plist>\n"},
        {"IdNumero", xml + "<dict><key>CFBundleIdentifier</key><integer>7</integer></dict></plist>\n"},
        {"IdDatos", xml + "<dict><key>CFBundleIdentifier</key><data>AAEC</data></dict></plist>\n"},
        {"SinId", xml + "<dict><key>CFBundleName</key><string>Nada</string></dict></plist>\n"},
        {"XmlCortado", xml + "<dict><key>CFBundleIdentifier</key><string>com.ej.cortado"},
    };
    const Desinstalador d(casa.entorno());
    for (const auto& c : casos) {
        const std::string b = std::string("Applications/") + c.bundle + ".app";
        casa.archivoCon(b + "/Contents/Info.plist", c.contenido);
        EXPECT_FALSE(d.leer(casa.ruta(b))) << c.bundle;
    }

    // A binary plist cut anywhere: never an application with a made-up identifier.
    const fs::path entero = crearBundle(casa.ruta("Entero.app"), clavesDeApp("com.ej.binario", "Binario"),
                                        FormatoPlist::binario);
    std::string bytes;
    {
        std::ifstream in(entero / "Contents/Info.plist", std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(in), {});
    }
    ASSERT_GT(bytes.size(), 40u);
    for (size_t n = 1; n < bytes.size(); ++n) {
        casa.archivoCon("Cortado.app/Contents/Info.plist", bytes.substr(0, n));
        const auto app = d.leer(casa.ruta("Cortado.app"));
        if (app) {
            EXPECT_EQ(app->bundleID, "com.ej.binario") << n;
        }
    }

    casa.crearDir("Applications/SinPlist.app/Contents");
    casa.archivoCon("Applications/Archivo.app", "no soy una carpeta");
    EXPECT_FALSE(d.leer(casa.ruta("Applications/SinPlist.app")));
    EXPECT_FALSE(d.leer(casa.ruta("Applications/Archivo.app")));
    EXPECT_FALSE(d.leer(casa.ruta("Applications/NoExiste.app")));
    EXPECT_TRUE(d.apps().empty());
}

TEST(Apps, RecorridoHastaCuatroNivelesSinEntrarEnPaquetes)
{
    CasaPrueba casa;
    crearBundle(casa.ruta("Applications/Uno.app"), clavesDeApp("com.ej.uno"));
    crearBundle(casa.ruta("Applications/Empresa/Dos.app"), clavesDeApp("com.ej.dos"));
    crearBundle(casa.ruta("Applications/Empresa/Suite/Extra/Cuatro.app"), clavesDeApp("com.ej.cuatro"));
    crearBundle(casa.ruta("Applications/Empresa/Suite/Extra/Mas/Cinco.app"), clavesDeApp("com.ej.cinco"));
    // Inside a bundle or another package, in a hidden folder, behind a link,
    // or with an extension that isn't exactly "app": not offered.
    crearBundle(casa.ruta("Applications/Uno.app/Contents/Helpers/Ayudante.app"), clavesDeApp("com.ej.ayudante"));
    crearBundle(casa.ruta("Applications/Kit.framework/Interna.app"), clavesDeApp("com.ej.interna"));
    crearBundle(casa.ruta("Applications/.oculta/Oculta.app"), clavesDeApp("com.ej.oculta"));
    crearBundle(casa.ruta("Otras/Enlazada.app"), clavesDeApp("com.ej.enlazada"));
    casa.enlace("Applications/Enlace", casa.ruta("Otras"));
    crearBundle(casa.ruta("Applications/Mayus.APP"), clavesDeApp("com.ej.mayus"));
    crearBundle(casa.ruta("Applications/Mayus.APP/Dentro.app"), clavesDeApp("com.ej.dentro"));

    EXPECT_THAT(nombres(Desinstalador(casa.entorno()).apps()), ::testing::ElementsAre("Cuatro", "Dos", "Uno"));
}

TEST(Apps, FiltraSistemaYPropiaYOrdenaSinMayusculas)
{
    CasaPrueba casa;
    crearBundle(casa.ruta("Applications/Safari.app"), clavesDeApp("com.apple.Safari"));
    crearBundle(casa.ruta("Applications/Pastel.app"), clavesDeApp("com.applepie.pastel"));
    crearBundle(casa.ruta("Applications/Vorlano.app"), clavesDeApp(plataforma::identificadorPropio));
    crearBundle(casa.ruta("Applications/zeta.app"), clavesDeApp("com.ej.zeta"));
    crearBundle(casa.ruta("Applications/Águila.app"), clavesDeApp("com.ej.aguila"));
    crearBundle(casa.ruta("Applications/beta.app"), clavesDeApp("com.ej.beta"));
    crearBundle(casa.ruta("Applications/Vacio.app"), clavesDeApp(""));
    // Equal names keep the order found, also when they differ in case only.
    crearBundle(casa.ruta("Applications/A/Beta.app"), clavesDeApp("com.ej.beta1"));
    crearBundle(casa.ruta("Applications/B/BETA.app"), clavesDeApp("com.ej.beta2"));

    std::vector<std::string> esperado{"Águila"};
    for (const fs::path& b : plataforma::bundlesDeApps(casa.ruta("Applications")))
        if (b.stem() == "beta" || b.stem() == "Beta" || b.stem() == "BETA")
            esperado.push_back(b.stem().string());
    esperado.insert(esperado.end(), {"Pastel", "Vacio", "zeta"});
    EXPECT_EQ(nombres(Desinstalador(casa.entorno()).apps()), esperado);
}

TEST(Apps, DuenoAjenoEsDeRoot)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "cambiar el dueño de un archivo necesita root";
    CasaPrueba casa;
    const fs::path propia = crearBundle(casa.ruta("Applications/Propia.app"), clavesDeApp("com.ej.propia"));
    const fs::path ajena = crearBundle(casa.ruta("Applications/Ajena.app"), clavesDeApp("com.ej.ajena"));
    ASSERT_EQ(::lchown(ajena.c_str(), 65534, 65534), 0);
    const Desinstalador d(casa.entorno());
    EXPECT_FALSE(d.leer(propia)->deRoot);
    EXPECT_TRUE(d.leer(ajena)->deRoot);
    // Run by an ordinary user, a bundle of root's is as foreign as any.
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        const auto app = Desinstalador(casa.entorno()).leer(propia);
        return app && app->deRoot;
    }));
}
