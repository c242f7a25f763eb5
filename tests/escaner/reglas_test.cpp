// SPDX-License-Identifier: GPL-3.0-or-later
#include "comun.h"

#include "apoyo/proceso.h"
#include "limpieza/limpiador.h"

#include <gtest/gtest.h>

#include <map>

using namespace prueba;
using namespace std::chrono_literals;

// The demo home (Mac and Linux places, user folders under Spanish names) plus
// a folder for every row of every table and every protected root: each row is
// written plainly, claims no place twice and yields its item in its own
// category; each item measures as du; nothing the scan yields passes the path
// rule's protected roots, covers one, lies in the Trash or is something a
// desktop keeps that is no cache.
TEST(Reglas, CadaLugarEnSuCategoriaYNadaProtegido)
{
    CasaPrueba casa;
    apoyo::crearCasaDemo(casa.raiz());
    std::map<std::string, std::string> esperadas; // place -> category
    std::map<std::string, const Regla*> filas;
    const std::pair<const std::vector<Regla>*, const char*> tablas[] = {
        {&Escaner::programacion(), "dev"}, {&Escaner::redescarga(), "redescarga"}, {&Escaner::registros(), "logs"}};
    for (const auto& [tabla, categoria] : tablas)
        for (const Regla& r : *tabla) {
            SCOPED_TRACE(r.ruta);
            const std::filesystem::path p(r.ruta);
            EXPECT_FALSE(r.nombre.empty() || r.ruta.empty() || p.is_absolute());
            for (const auto& parte : p)
                EXPECT_TRUE(parte != ".." && parte != "." && !parte.empty()); // no doubled or trailing slash
            EXPECT_TRUE(esperadas.emplace(lugar(r), categoria).second) << "repetida";
            filas[lugar(r)] = &r;
            casa.archivo(lugar(r) + "/datos", 100000);
        }
    esperadas.insert({
        {".cache/mozilla", "apps"},
        {".cache/google-chrome", "apps"},
        {".cache/thumbnails", "apps"},
        {".config/discord/Cache", "apps"},
        {".config/discord/Code Cache", "apps"},
        {".config/google-chrome/GrShaderCache", "apps"},
        {".var/app/org.gimp.GIMP/cache", "apps"},
        {"snap/spotify/84/.cache", "apps"},
        {"snap/spotify/common/.cache", "apps"},
        {".local/share/xorg/Xorg.0.log.old", "logs"},
        {".config/discord/logs", "logs"},
        {"Descargas/google-chrome-stable_current_amd64.deb", "instaladores"},
        {"Descargas/debian-12.5.0-amd64-netinst.iso", "instaladores"},
        {"Descargas/Contrato alquiler.pdf", "duplicados"},
        {"Descargas/Contrato alquiler (1).pdf", "duplicados"},
        {"Escritorio/archivo-03 copia.bin", "duplicados"},
    });
    const Limpiador limpiador(casa.entorno());
    for (const std::string& raiz : limpiador.raices())
        casa.crearDir(raiz);

    const auto bajo = [](const std::string& a, const std::string& b) {
        return a == b || (a.starts_with(b) && a[b.size()] == '/');
    };
    std::vector<Categoria> cats;
    {
        apoyo::Variable grande("VORLANO_GRANDE_MB", "20");
        cats = escanear(casa.entorno());
    }
    for (const Categoria& c : cats)
        for (const Elemento& e : c.elementos) {
            int64_t du = 0;
            for (const auto& u : e.urls()) {
                const std::string ru = u.lexically_relative(casa.raiz()).string();
                if (auto it = esperadas.find(ru); it != esperadas.end()) {
                    EXPECT_EQ(c.id, it->second) << ru;
                    esperadas.erase(it);
                }
                if (const auto f = filas.find(ru); f != filas.end()) {
                    EXPECT_EQ(e.nombre, f->second->nombre);
                    EXPECT_EQ(e.detalle, "~/" + ru);
                    EXPECT_EQ(e.seleccionado, c.id != "redescarga") << ru; // nothing is in use here
                }
                du += apoyo::du(u);
                // A row directly in home is shown for its size and never removed.
                EXPECT_EQ(limpiador.permitido(u), ru.find('/') != std::string::npos) << ru;
                for (const std::string& raiz : limpiador.raices())
                    EXPECT_FALSE(bajo(raiz, ru)) << ru << " cubre " << raiz;
                for (const std::string& papelera : limpiador.papeleras())
                    EXPECT_FALSE(bajo(ru, papelera) || bajo(papelera, ru)) << ru;
                for (const char* nunca : {".cache/sessions", ".config/discord/Local Storage",
                                          ".config/google-chrome/Default", ".var/app/org.gimp.GIMP/config",
                                          ".local/share/xorg/Xorg.0.log", ".local/share/keyrings",
                                          ".config/autostart", ".xsession-errors.old", "snap/spotify/current"})
                    EXPECT_FALSE(bajo(ru, nunca)) << ru;
            }
            EXPECT_EQ(e.tamano, du) << e.url;
            EXPECT_FALSE(e.accion); // no simulators or Docker in test mode
        }
    EXPECT_TRUE(esperadas.empty()) << esperadas.begin()->first << " no dio su elemento";

    // Downloads two months on: all that lies in Descargas, nothing of the
    // English Downloads the Spanish desktop doesn't use.
    Nombres viejas, enDescargas;
    for (const Elemento& e : Escaner(casa.entorno()).descargasAntiguas(std::chrono::system_clock::now() + 24h * 61))
        viejas.insert(e.url.lexically_relative(casa.raiz()).string());
    for (const auto& e : fs::directory_iterator(casa.ruta("Descargas")))
        enDescargas.insert("Descargas/" + e.path().filename().string());
    EXPECT_EQ(viejas, enDescargas);
    EXPECT_GE(viejas.size(), 4u);
}
// Existence is all a rule tests: a file counts, a dangling link doesn't. The
// rule's owners mark it in use though the folder's name says nothing.
TEST(Reglas, ExistenciaYDuenos)
{
    CasaPrueba casa;
    casa.archivoCon(".cache/uv", "es un archivo");
    casa.crearDir("Library/Developer/Xcode/DerivedData/App-abc");
    casa.enlace(".gradle/caches", casa.ruta("no-existe"));
    casa.crearDir("Library/Developer/Xcode/iOS DeviceSupport");

    AppsAbiertas xcode;
    xcode.apps.push_back(AppsAbiertas::describir("com.apple.dt.Xcode", "Xcode"));
    const Escaner esc(casa.entorno());
    const auto dev = esc.desdeReglas(Escaner::programacion(), xcode, true);
    ASSERT_EQ(dev.size(), 2u);
    EXPECT_EQ(dev[0].nombre, "uv (Python)");
    EXPECT_TRUE(dev[0].seleccionado);
    EXPECT_EQ(dev[1].enUso, "Xcode");
    EXPECT_FALSE(dev[1].seleccionado);
    EXPECT_EQ(dev[1].bundles, std::vector<std::string>{"com.apple.dt.Xcode"});
    const auto red = esc.desdeReglas(Escaner::redescarga(), {}, false);
    ASSERT_EQ(red.size(), 1u);
    EXPECT_FALSE(red[0].seleccionado); // never pre-selected
}
