// SPDX-License-Identifier: GPL-3.0-or-later
#include "comun.h"

#include "limpieza/limpiador.h"

#include <gtest/gtest.h>

#include <map>

using namespace prueba;

// Every place the scan knows, by name or by shape, made in one home beside
// every protected root: each row of each table is written plainly, claims
// no place twice and yields its item in its own category, and nothing the
// scan yields passes the path rule's protected roots, covers one, or lies in
// the Trash.
TEST(Reglas, NadaDeLoQueDanPasaUnaRaizProtegida)
{
    CasaPrueba casa;
    const std::pair<const std::vector<Regla>*, const char*> tablas[] = {
        {&Escaner::programacion(), "dev"}, {&Escaner::redescarga(), "redescarga"}, {&Escaner::registros(), "logs"}};
    std::map<std::string, std::string> esperadas; // place -> category
    for (const auto& [tabla, categoria] : tablas)
        for (const Regla& r : *tabla) {
            SCOPED_TRACE(r.ruta);
            const std::filesystem::path p(r.ruta);
            EXPECT_FALSE(r.nombre.empty() || r.ruta.empty() || p.is_absolute());
            for (const auto& parte : p)
                EXPECT_TRUE(parte != ".." && parte != "." && !parte.empty()); // no doubled or trailing slash
            EXPECT_TRUE(esperadas.emplace(lugar(r), categoria).second) << "repetida";
            casa.archivo(lugar(r) + "/datos", 100000);
        }
    // The shapes: children of the category roots, Electron apps in both
    // support folders, a Flatpak app, a snap, the X server's old logs.
    for (const char* p : {"Library/Caches/org.x/d", "Library/Logs/x.log", ".cache/x/d", ".config/App/Code Cache/d",
                          "Library/Application Support/App/GPUCache/d", ".config/App/logs/d",
                          ".var/app/org.x.App/cache/d", "snap/x/12/.cache/d", "snap/x/common/.cache/d",
                          ".local/share/xorg/Xorg.0.log.old", ".local/share/Trash/files/x/d"})
        casa.archivo(p, 100000);
    const Limpiador limpiador(casa.entorno());
    for (const std::string& raiz : limpiador.raices())
        casa.crearDir(raiz);

    const auto bajo = [](const std::string& a, const std::string& b) {
        return a == b || (a.starts_with(b) && a[b.size()] == '/');
    };
    for (const Categoria& c : escanear(casa.entorno()))
        for (const Elemento& e : c.elementos) {
            const std::string r = e.url.lexically_relative(casa.raiz()).string();
            if (auto it = esperadas.find(r); it != esperadas.end()) {
                EXPECT_EQ(c.id, it->second) << r;
                esperadas.erase(it);
            }
            for (const auto& u : e.urls()) {
                const std::string ru = u.lexically_relative(casa.raiz()).string();
                // A row directly in home is shown for its size and never removed.
                EXPECT_EQ(limpiador.permitido(u), ru.find('/') != std::string::npos) << ru;
                for (const std::string& raiz : limpiador.raices())
                    EXPECT_FALSE(bajo(raiz, ru)) << ru << " cubre " << raiz;
                for (const std::string& papelera : limpiador.papeleras())
                    EXPECT_FALSE(bajo(ru, papelera) || bajo(papelera, ru)) << ru;
            }
        }
    EXPECT_TRUE(esperadas.empty()) << esperadas.begin()->first << " no dio su elemento";
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
