// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/escaner.h"

#include "apoyo/casa.h"
#include "nucleo/textos.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

using apoyo::CasaPrueba;

namespace {

std::vector<std::string> nombres(const std::vector<Elemento>& es)
{
    std::vector<std::string> r;
    for (const auto& e : es)
        r.push_back(e.nombre);
    return r;
}

AppsAbiertas abiertasCon(std::string_view bundle, std::string_view nombre)
{
    AppsAbiertas a;
    a.apps.push_back(AppsAbiertas::describir(bundle, nombre));
    return a;
}

} // namespace

// Every row of both tables names one place inside home, written plainly, and no
// place is claimed twice.
TEST(Reglas, CadaFilaBajoCasaYSinRepetir)
{
    const Entorno entorno{"/casa/u", true};
    std::set<std::string> vistas;
    for (const auto* tabla : {&Escaner::programacion(), &Escaner::redescarga()})
        for (const Regla& r : *tabla) {
            SCOPED_TRACE(r.ruta);
            EXPECT_FALSE(r.nombre.empty());
            const std::filesystem::path p(r.ruta);
            ASSERT_FALSE(r.ruta.empty());
            EXPECT_TRUE(p.is_relative());
            for (const auto& parte : p) {
                EXPECT_NE(parte, "..");
                EXPECT_NE(parte, ".");
                EXPECT_FALSE(parte.empty()); // no doubled or trailing slash
            }
            const std::string dentro = entorno.ruta(r.ruta).lexically_normal().native();
            EXPECT_TRUE(dentro.starts_with("/casa/u/")) << dentro;
            EXPECT_TRUE(vistas.insert(dentro).second) << "repetida";
        }
}

// A rule's folder directly in Library/Caches must be one "apps" leaves alone,
// or the same folder would be offered as an app cache too.
TEST(Reglas, LasDeLibraryCachesNoSonCachesDeApps)
{
    for (const auto* tabla : {&Escaner::programacion(), &Escaner::redescarga()})
        for (const Regla& r : *tabla) {
            const std::filesystem::path p(r.ruta);
            if (p.parent_path() == "Library/Caches") {
                EXPECT_TRUE(Escaner::cachesExcluidas().contains(minusculas(p.filename().native()))) << r.ruta;
            }
        }
}

TEST(Reglas, UnaPruebaDeExistenciaPorRegla)
{
    CasaPrueba casa;
    casa.archivo(".npm/_cacache/index", 4096);
    casa.archivoCon(".cache/uv", "es un archivo"); // existence is all that counts
    casa.crearDir("Library/Developer/Xcode/DerivedData/App-abc");
    casa.enlace(".gradle/caches", casa.ruta("no-existe")); // a dangling link is nothing
    casa.crearDir(".ollama/models");
    casa.crearDir("Library/Unity/cache");

    const Escaner esc(casa.entorno());
    const auto xcode = abiertasCon("com.apple.dt.Xcode", "Xcode");
    const auto dev = esc.desdeReglas(Escaner::programacion(), xcode, true);
    EXPECT_EQ(nombres(dev), (std::vector<std::string>{"npm", "uv (Python)", "Xcode DerivedData"}));
    ASSERT_EQ(dev.size(), 3u);
    EXPECT_EQ(dev[0].url, casa.ruta(".npm/_cacache"));
    EXPECT_EQ(dev[0].detalle, "~/.npm/_cacache");
    EXPECT_TRUE(dev[0].seleccionado);
    EXPECT_TRUE(dev[0].revisarUso);
    EXPECT_EQ(dev[0].enUso, std::nullopt);
    EXPECT_EQ(dev[0].tamano, 0);
    // In use through the rule's owner, though the folder's name says nothing.
    EXPECT_EQ(dev[2].enUso, "Xcode");
    EXPECT_FALSE(dev[2].seleccionado);
    EXPECT_EQ(dev[2].bundles, std::vector<std::string>{"com.apple.dt.Xcode"});
    EXPECT_EQ(dev[2].detalle, "~/Library/Developer/Xcode/DerivedData");

    // Never pre-selected, in use or not.
    const auto red = esc.desdeReglas(Escaner::redescarga(), abiertasCon("com.electron.ollama", "Ollama"), false);
    EXPECT_EQ(nombres(red), (std::vector<std::string>{"Ollama", "Unity"}));
    ASSERT_EQ(red.size(), 2u);
    EXPECT_EQ(red[0].enUso, "Ollama");
    EXPECT_FALSE(red[0].seleccionado);
    EXPECT_EQ(red[1].enUso, std::nullopt);
    EXPECT_FALSE(red[1].seleccionado);
}

TEST(CachesDeElectron, SoloCarpetasRealesDeAppsConFirma)
{
    CasaPrueba casa;
    const std::string s = "Library/Application Support/";
    for (const char* c : {"Cache", "Code Cache", "GPUCache", "CachedData", "Local Storage"})
        casa.archivo(s + "Slack/" + c + "/f", 4096);
    casa.archivo(s + "SoloCache/Cache/f", 4096);
    casa.archivo(s + "CacheYGpu/Cache/f", 4096);
    casa.archivo(s + "CacheYGpu/GPUCache/f", 4096);
    casa.archivo(s + "Enlazada/GPUCache/f", 4096);
    casa.enlace(s + "Enlazada/Code Cache", casa.crearDir("otra/Code Cache"));
    casa.archivo(s + "FirmaDeArchivo/Code Cache", 4096); // signature present, no real folder
    casa.enlace(s + "AppEnlazada", casa.ruta(s + "Slack"));
    for (const char* excluida : {"com.apple.Music", "Docker Desktop", "ADOBE", "Caches"})
        casa.archivo(s + excluida + "/GPUCache/f", 4096);
    casa.archivo(s + "Discord/Code Cache/f", 4096);
    casa.archivo(s + "Discord/DawnWebGPUCache/f", 4096);

    const auto es = Escaner(casa.entorno()).cachesDeElectron(abiertasCon("com.hnc.discord", "Discord"));
    std::map<std::string, const Elemento*> porNombre;
    for (const auto& e : es)
        porNombre[e.nombre] = &e;
    ASSERT_EQ(porNombre.size(), es.size());
    std::set<std::string> vistos;
    for (const auto& [n, _] : porNombre)
        vistos.insert(n);
    EXPECT_EQ(vistos, (std::set<std::string>{"Slack", "CacheYGpu", "Enlazada", "Discord"}));

    const auto& slack = *porNombre["Slack"];
    EXPECT_EQ(slack.url, casa.ruta(s + "Slack/Cache"));
    EXPECT_EQ(slack.id(), casa.ruta(s + "Slack/Cache").native());
    EXPECT_EQ(slack.extra, (std::vector<std::filesystem::path>{casa.ruta(s + "Slack/Code Cache"),
                                                               casa.ruta(s + "Slack/GPUCache"),
                                                               casa.ruta(s + "Slack/CachedData")}));
    EXPECT_EQ(slack.detalle, "Caché interna de la app");
    EXPECT_EQ(slack.nombreUso, "Slack");
    EXPECT_TRUE(slack.seleccionado);
    EXPECT_TRUE(slack.revisarUso);
    EXPECT_EQ(porNombre["CacheYGpu"]->extra, std::vector<std::filesystem::path>{casa.ruta(s + "CacheYGpu/GPUCache")});
    EXPECT_EQ(porNombre["Enlazada"]->url, casa.ruta(s + "Enlazada/GPUCache"));
    EXPECT_TRUE(porNombre["Enlazada"]->extra.empty());
    EXPECT_EQ(porNombre["Discord"]->enUso, "Discord");
    EXPECT_FALSE(porNombre["Discord"]->seleccionado);
    EXPECT_EQ(porNombre["Discord"]->url, casa.ruta(s + "Discord/Code Cache"));

    EXPECT_TRUE(Escaner(Entorno{casa.ruta("sin-library"), true}).cachesDeElectron({}).empty());
}
