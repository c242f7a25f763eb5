// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/escaner.h"

#include "apoyo/casa.h"
#include "nucleo/textos.h"

#include <gtest/gtest.h>

#include <set>

using apoyo::CasaPrueba;

// Every row of both tables names one place inside home, written plainly,
// and no place is claimed twice. One directly in Library/Caches must be a
// name "apps" leaves alone, or it would be offered as an app cache too.
TEST(Reglas, CadaFilaBajoCasaYSinRepetir)
{
    const Entorno entorno{"/casa/u", true};
    std::set<std::string> vistas;
    for (const auto* tabla : {&Escaner::programacion(), &Escaner::redescarga()})
        for (const Regla& r : *tabla) {
            SCOPED_TRACE(r.ruta);
            const std::filesystem::path p(r.ruta);
            EXPECT_FALSE(r.nombre.empty() || r.ruta.empty() || p.is_absolute());
            for (const auto& parte : p)
                EXPECT_TRUE(parte != ".." && parte != "." && !parte.empty()); // no doubled or trailing slash
            EXPECT_TRUE(vistas.insert(entorno.ruta(r.ruta).lexically_normal().native()).second) << "repetida";
            if (p.parent_path() == "Library/Caches") {
                EXPECT_TRUE(Escaner::cachesExcluidas().contains(minusculas(p.filename().native())));
            }
        }
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
