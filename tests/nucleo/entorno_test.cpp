// SPDX-License-Identifier: GPL-3.0-or-later
#include "nucleo/entorno.h"
#include "nucleo/modelo.h"
#include "nucleo/textos.h"

#include "apoyo/proceso.h"

#include <gtest/gtest.h>

TEST(Entorno, ModoPruebaSoloConVariableNoVacia)
{
    {
        apoyo::Variable v("VORLANO_HOME", "/tmp/x/../y/");
        const Entorno e = Entorno::actual();
        EXPECT_TRUE(e.prueba);
        EXPECT_EQ(e.ruta("Library/Caches"), "/tmp/y/Library/Caches");
    }
    for (const auto& valor : {std::optional<std::string>(""), std::optional<std::string>()}) {
        apoyo::Variable v("VORLANO_HOME", valor);
        EXPECT_FALSE(Entorno::actual().prueba);
        EXPECT_EQ(Entorno::actual().home, std::getenv("HOME"));
    }
}

TEST(Textos, RellenarMinusculasTrozosYEnlaces)
{
    // A value holding a later marker (a file named "{b}") stays as it is.
    EXPECT_EQ(rellenar("{a}: {b} y {a}", {{"a", "{b}"}, {"b", "2"}}), "{b}: 2 y {b}");
    EXPECT_EQ(minusculas("Com.ÉCRIRE"), "com.écrire");
    // Bytes that aren't UTF-8 are lowered as ASCII and otherwise kept.
    EXPECT_EQ(minusculas("AÉ\xff"), "aÉ\xff");
    EXPECT_EQ(caracteres("año"), 3u);
    using V = std::vector<std::string_view>;
    EXPECT_EQ(trozos("..com..apple.", '.'), (V{"com", "apple"}));
    EXPECT_EQ(trozos("...", '.'), V{});
    // With no translation for the C locale the program speaks Spanish.
    EXPECT_EQ(localeApp(), "es");
    for (const Enlace e : todosLosEnlaces)
        EXPECT_EQ(enlaceDesde(valor(e)), e);
    EXPECT_EQ(enlaceDesde("otro"), std::nullopt);
}
