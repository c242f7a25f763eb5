// SPDX-License-Identifier: GPL-3.0-or-later
#include "comun.h"

#include "apoyo/proceso.h"
#include "nucleo/textos.h"
#include "plataforma/archivos.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTranslator>

using namespace prueba;
using namespace std::chrono_literals;

TEST(Escaner, MinimoGrandeSoloEnModoPrueba)
{
    const Escaner prueba(Entorno{"/h", true}), real(Entorno{"/h", false});
    EXPECT_EQ(prueba.minimoGrande(), 250'000'000);
    const std::pair<const char*, int64_t> casos[] = {
        {"10", 10'000'000}, {"-3", -3'000'000}, {"", 250'000'000}, {"10MB", 250'000'000}, {" 10", 250'000'000},
        {"9223372036854", 9'223'372'036'854'000'000}, {"9223372036855", 250'000'000}};
    for (const auto& [valor, esperado] : casos) {
        apoyo::Variable v("VORLANO_GRANDE_MB", valor);
        EXPECT_EQ(prueba.minimoGrande(), esperado) << '"' << valor << '"';
        EXPECT_EQ(real.minimoGrande(), 250'000'000);
    }
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

// A missing home gives no category; nor does a category root that is a link
// (into the user's documents here), a base folder or a root of Flatpak and
// Snap that is one.
TEST(Escaner, CasaAusenteORaicesEnlazadasNoDanCategorias)
{
    CasaPrueba casa;
    EXPECT_TRUE(escanear(Entorno{casa.ruta("no/existe"), true}).empty());
    casa.archivo("Documents/tesis/capitulo1.pdf", 300000);
    for (const char* raiz : {"Library/Caches", "Library/Logs", "Library/Application Support", ".cache", ".config",
                             ".var/app", "snap"})
        casa.enlace(raiz, casa.ruta("Documents"));
    casa.enlace(".local/share/xorg", casa.ruta("Documents"));
    const auto cats = escanear(casa.entorno());
    EXPECT_TRUE(cats.empty()) << cats.front().elementos.front().url;
}

// The Spanish catalogue a Linux build embeds rewords the texts that name the
// Mac; without it, the source texts stand.
TEST(Escaner, CatalogoDeLinuxNoNombraElMac)
{
    const Escaner esc(Entorno{"/h", true});
    const char* ids[] = {"apps",   "logs",     "dev",        "redescarga", "compilaciones", "dependencias",
                         "instaladores", "grandes", "huerfanos", "duplicados", "descargas"};
    auto nombraMac = [&] {
        for (const char* id : ids)
            for (const std::string& t : {esc.categoria(id, {}).titulo, esc.categoria(id, {}).descripcion})
                if (t.find("Mac") != std::string::npos || t.find(".dmg") != std::string::npos)
                    return true;
        return false;
    };
    EXPECT_TRUE(nombraMac());
    QTranslator catalogo;
    ASSERT_TRUE(catalogo.load(QStringLiteral("vorlano_es"), QStringLiteral(":/i18n")));
    QCoreApplication::installTranslator(&catalogo);
    EXPECT_FALSE(nombraMac());
    QCoreApplication::removeTranslator(&catalogo);
    EXPECT_EQ(idiomasDisponibles(), (std::vector<std::string>{"es", "en"}));
}

// One place (a link on the way included) stays in the earliest, safest
// category; what lies inside another item goes whatever its category; paths
// nest by whole components; items under 64 KiB and emptied categories go;
// larger first, equal sizes in their order.
TEST(Depurar, UnSitioUnaVezEnSuCategoriaMasSegura)
{
    CasaPrueba casa;
    casa.crearDir("real/cache");
    casa.enlace("atajo", casa.ruta("real"));
    const Escaner esc(casa.entorno());
    const auto el = [](const fs::path& p, int64_t t) { return Elemento{.url = p, .nombre = p.filename(), .tamano = t}; };
    const auto r = Escaner::depurar({
        esc.categoria("apps", {el("/h/a", 70000), el("/h/b", 90000), el("/h/foo", 70000), el("/h/foo-bar", 70000),
                               el("/h/chico", 65535), el("/h/justo", 65536), el("/h/d", 90000),
                               el(casa.ruta("real/cache"), 100000)}),
        esc.categoria("dev", {el("/h/a", 100000), el("/h/e", 70000), el(casa.ruta("atajo/cache"), 100000)}),
        esc.categoria("compilaciones", {el("/h/app/dist", 900000)}),
        esc.categoria("grandes", {el("/h/app/dist/x.bin", 800000)}),
        esc.categoria("logs", {el("/h/l", 65535)}),
        esc.categoria("huerfanos", {el("/h/app", 2000000)}),
    });
    std::vector<std::pair<std::string, std::vector<std::string>>> vistas;
    for (const auto& c : r) {
        vistas.push_back({c.id, {}});
        for (const auto& e : c.elementos)
            vistas.back().second.push_back(e.nombre);
    }
    EXPECT_EQ(vistas, (decltype(vistas){{"apps", {"cache", "b", "d", "a", "foo", "foo-bar", "justo"}},
                                        {"dev", {"e"}},
                                        {"huerfanos", {"app"}}}));
    EXPECT_TRUE(Escaner::depurar({}).empty());
}

// A birth time can't be set, so "now" moves instead: the entries are made
// now and looked at from the future.
TEST(DescargasAntiguas, SesentaDiasExactosPorFechaDeCreacion)
{
    CasaPrueba casa;
    const auto zip = casa.archivo("Downloads/a.zip", 4096);
    const auto creado = plataforma::fechaCreacion(zip);
    if (!creado)
        GTEST_SKIP() << "el sistema de archivos no guarda la fecha de creación";
    // Made a moment later than a.zip.
    casa.archivo("Downloads/proyecto/src/main.c", 10); // judged as one thing
    casa.archivo("Downloads/.DS_Store", 10);
    casa.fecha("Downloads/a.zip", *creado - 24h * 365); // the modification date plays no part

    const Escaner esc(casa.entorno());
    const auto limite = *creado + 24h * 60;
    EXPECT_TRUE(esc.descargasAntiguas(limite - 1s).empty());
    EXPECT_TRUE(esc.descargasAntiguas(limite).empty()); // strictly earlier only
    const auto r = esc.descargasAntiguas(limite + 1s);
    ASSERT_EQ(r.size(), 2u);
    const Elemento& a = r[0].nombre == "a.zip" ? r[0] : r[1];
    EXPECT_EQ((r[0].nombre == "a.zip" ? r[1] : r[0]).nombre, "proyecto");
    EXPECT_EQ(a.url, zip);
    // Aged from the creation date as seen from the given "now".
    EXPECT_EQ(a.detalle, "descargado " + haceCuanto(*creado, limite + 1s, localeApp()));
    EXPECT_FALSE(a.seleccionado);
    EXPECT_EQ(a.tamano, 0);

    EXPECT_TRUE(Escaner(Entorno{casa.ruta("sin-casa"), true}).descargasAntiguas(limite + 1s).empty());
}
