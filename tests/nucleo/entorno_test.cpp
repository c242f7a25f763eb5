// SPDX-License-Identifier: GPL-3.0-or-later
#include "nucleo/entorno.h"
#include "nucleo/modelo.h"
#include "nucleo/textos.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

struct VariableTemporal {
    explicit VariableTemporal(const char* valor)
    {
        if (valor)
            ::setenv("VORLANO_HOME", valor, 1);
        else
            ::unsetenv("VORLANO_HOME");
    }
    ~VariableTemporal() { ::unsetenv("VORLANO_HOME"); }
};

} // namespace

TEST(Entorno, ModoPruebaSoloConVariableNoVacia)
{
    {
        VariableTemporal v("/tmp/x/../y/");
        const Entorno e = Entorno::actual();
        EXPECT_TRUE(e.prueba);
        EXPECT_EQ(e.home, "/tmp/y");
        EXPECT_EQ(e.ruta("Library/Caches"), "/tmp/y/Library/Caches");
    }
    {
        VariableTemporal v("");
        EXPECT_FALSE(Entorno::actual().prueba);
    }
    {
        VariableTemporal v(nullptr);
        const Entorno e = Entorno::actual();
        EXPECT_FALSE(e.prueba);
        EXPECT_TRUE(e.home.is_absolute());
    }
}

TEST(Modelo, SumasDeCategoriaYRutasDeElemento)
{
    Categoria c;
    EXPECT_EQ(c.tamano(), 0);
    c.elementos.push_back(Elemento{.url = "/a", .tamano = 100, .seleccionado = false});
    c.elementos.push_back(Elemento{.url = "/b", .tamano = 50, .seleccionado = true, .extra = {"/c", "/d"}});
    EXPECT_EQ(c.tamano(), 150);
    EXPECT_EQ(c.tamanoSeleccionado(), 50);
    EXPECT_EQ(c.elementos[0].urls().size(), 1u);
    EXPECT_EQ(c.elementos[1].urls(), (std::vector<std::filesystem::path>{"/b", "/c", "/d"}));
    EXPECT_EQ(c.elementos[1].id(), "/b");
}

TEST(Modelo, EnlacesYSecciones)
{
    EXPECT_EQ(url(Enlace::analizar), "vorlano://analizar");
    EXPECT_EQ(enlaceDesde("mapa"), Enlace::mapa);
    EXPECT_EQ(enlaceDesde("otro"), std::nullopt);
    EXPECT_EQ(titulo(Seccion::mapa), "Mapa del disco");
    EXPECT_LT(Nivel::seguro, Nivel::revisar);
    EXPECT_EQ(etiqueta(Nivel::redescarga), "Se vuelve a descargar");
}

TEST(Textos, RellenarMinusculasYTextoVisible)
{
    EXPECT_EQ(rellenar("{a} y {b} y {a}", {{"a", "1"}, {"b", "{a}"}}), "1 y {a} y 1");
    // A value holding a later marker (a file named "{b}") stays as it is.
    EXPECT_EQ(rellenar("{a}: {b}", {{"a", "{b}"}, {"b", "2"}}), "{b}: 2");
    EXPECT_EQ(minusculas("Com.Apple.ÉCRIRE"), "com.apple.écrire");
    // Bytes that aren't UTF-8 are lowered as ASCII and otherwise kept.
    EXPECT_EQ(minusculas(std::string("AB\xff")), std::string("ab\xff"));
    EXPECT_EQ(textoVisible(std::string("a\xffz")), "a\uFFFDz");
    EXPECT_EQ(caracteres("año"), 3u);
    // With no translation for the C locale the program speaks Spanish.
    EXPECT_EQ(localeApp(), "es");
}

TEST(Textos, TrozosSinVacios)
{
    using V = std::vector<std::string_view>;
    EXPECT_EQ(trozos("com.apple.SimRuntime.iOS-17-2", '.'), (V{"com", "apple", "SimRuntime", "iOS-17-2"}));
    EXPECT_EQ(trozos("..a..b.", '.'), (V{"a", "b"}));
    EXPECT_EQ(trozos("a", '.'), V{"a"});
    EXPECT_EQ(trozos("", '.'), V{});
    EXPECT_EQ(trozos("...", '.'), V{});
}
