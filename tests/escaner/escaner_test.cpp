// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/escaner.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <cstdlib>

using apoyo::CasaPrueba;

namespace {

struct GrandeMB {
    explicit GrandeMB(const char* v) { ::setenv("VORLANO_GRANDE_MB", v, 1); }
    ~GrandeMB() { ::unsetenv("VORLANO_GRANDE_MB"); }
};

const Categoria* buscar(const std::vector<Categoria>& cs, std::string_view id)
{
    for (const auto& c : cs)
        if (c.id == id)
            return &c;
    return nullptr;
}

} // namespace

TEST(Escaner, MinimoGrandeSoloEnModoPrueba)
{
    const Escaner prueba(Entorno{"/h", true}), real(Entorno{"/h", false});
    EXPECT_EQ(prueba.minimoGrande(), 250'000'000);
    struct Caso {
        const char* valor;
        int64_t esperado;
    } casos[] = {{"10", 10'000'000},     {"+7", 7'000'000},          {"-3", -3'000'000},
                 {"", 250'000'000},      {"abc", 250'000'000},       {"10MB", 250'000'000},
                 {" 10", 250'000'000},   {"-", 250'000'000},         {"9223372036854", 9'223'372'036'854'000'000},
                 {"9223372036855", 250'000'000}, {"99999999999999", 250'000'000}};
    for (const auto& c : casos) {
        GrandeMB v(c.valor);
        EXPECT_EQ(prueba.minimoGrande(), c.esperado) << '"' << c.valor << '"';
        EXPECT_EQ(real.minimoGrande(), 250'000'000);
    }
    GrandeMB v("10");
    EXPECT_NE(prueba.categoria("grandes", {}).descripcion.find("(más de 10 MB)"), std::string::npos);
}

TEST(Escaner, HijosDeCachesFiltraNombres)
{
    CasaPrueba casa;
    for (const char* n : {"org.bueno", "COM.APPLE.Safari", "com.apple.x", "Homebrew", "CloudKit", "pip", ".DS_Store",
                          "com.applepie.y"})
        casa.archivo(std::string("Library/Caches/") + n + "/f", 100000);
    casa.archivo("Library/Logs/.DS_Store", 100000);
    casa.archivo("Library/Logs/crash.log", 100000);

    const auto cats = Escaner(casa.entorno()).escanear([](const std::string&) {});
    const Categoria* apps = buscar(cats, "apps");
    ASSERT_NE(apps, nullptr);
    std::set<std::string> vistos;
    for (const auto& e : apps->elementos) {
        vistos.insert(e.nombre);
        EXPECT_TRUE(e.seleccionado);
        EXPECT_TRUE(e.revisarUso);
        EXPECT_EQ(e.tamano, apoyo::du(e.url));
    }
    EXPECT_EQ(vistos, (std::set<std::string>{"org.bueno", "com.applepie.y"}));
    const Categoria* logs = buscar(cats, "logs");
    ASSERT_NE(logs, nullptr);
    ASSERT_EQ(logs->elementos.size(), 1u);
    EXPECT_EQ(logs->elementos[0].nombre, "crash.log");
    EXPECT_FALSE(logs->elementos[0].revisarUso);
}

TEST(Escaner, CasaVaciaOInexistenteDaListaVacia)
{
    CasaPrueba casa;
    EXPECT_TRUE(Escaner(casa.entorno()).escanear([](const std::string&) {}).empty());
    EXPECT_TRUE(Escaner(Entorno{casa.ruta("no/existe"), true}).escanear([](const std::string&) {}).empty());
}

TEST(Escaner, MarcarUsoQuitaSeleccionPeroNoLaPone)
{
    AppsAbiertas a;
    a.apps.push_back(AppsAbiertas::describir("com.microsoft.vscode", "VS Code"));
    std::vector<Elemento> es{
        Elemento{.url = "/h/Code/ws1", .seleccionado = true, .bundles = {"com.microsoft.VSCode"}, .nombreUso = "Code"},
        Elemento{.url = "/h/otra", .enUso = "Vieja", .seleccionado = false},
        Elemento{.url = "/h/com.microsoft.vscode", .seleccionado = true},
    };
    const auto r = Escaner::marcarUso(es, a);
    EXPECT_EQ(r[0].enUso, "VS Code");
    EXPECT_FALSE(r[0].seleccionado);
    EXPECT_EQ(r[1].enUso, std::nullopt); // the old mark goes, the selection stays off
    EXPECT_FALSE(r[1].seleccionado);
    EXPECT_EQ(r[2].enUso, "VS Code"); // by the last path component
}

TEST(Escaner, NombresQueNoSonUtf8SeMidenYListan)
{
    CasaPrueba casa;
    const std::string raro = std::string("cach\xe9-latin1");
    casa.archivo("Library/Caches/" + raro + "/datos", 200000);
    const auto cats = Escaner(casa.entorno()).escanear([](const std::string&) {});
    ASSERT_EQ(cats.size(), 1u);
    ASSERT_EQ(cats[0].elementos.size(), 1u);
    EXPECT_EQ(cats[0].elementos[0].nombre, raro);
    EXPECT_EQ(cats[0].elementos[0].tamano, apoyo::du(casa.ruta("Library/Caches/" + raro)));
}

TEST(Escaner, CachesIlegiblesDanInformeMasPequeno)
{
    CasaPrueba casa;
    casa.archivo("Library/Caches/org.x/f", 100000);
    casa.archivo("Library/Logs/a.log", 100000);
    casa.sinPermisos("Library/Caches");
    // The driver measures on the parallel loop, which a forked child must not
    // use; so the child looks at the listing stage alone.
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        const Escaner esc(casa.entorno());
        return esc.hijos("Library/Caches", nullptr, [](std::string_view) { return true; }).empty() &&
               esc.hijos("Library/Logs", nullptr, [](std::string_view) { return true; }).size() == 1;
    }));
}
