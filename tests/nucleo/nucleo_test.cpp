// SPDX-License-Identifier: GPL-3.0-or-later
#include "nucleo/entorno.h"
#include "nucleo/formato.h"
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

using namespace std::chrono;

TEST(Formato, BytesEnUnidadesDecimales)
{
    const std::pair<int64_t, const char*> casos[] = {
        {0, "0 KB"},          {499, "0 KB"},           {500, "1 KB"},
        {999'999, "1 MB"},    {1'000'000, "1 MB"},     {12'340'000, "12.3 MB"},
        {2'250'000'000, "2.25 GB"}, {2'200'000'000, "2.2 GB"}, {3'000'000'000'000, "3 TB"},
        {4'560'000'000'000'000, "4560 TB"}, {-1'500'000, "-1.5 MB"},
    };
    for (const auto& [n, texto] : casos)
        EXPECT_EQ(formatoBytes(n, "."), texto) << n;
    EXPECT_EQ(formatoBytes(1'500'000, ","), "1,5 MB");
    // Whole gigabytes, halves up, with no locale.
    EXPECT_EQ(gigasCortos(1'499'999'999), "1 GB");
    EXPECT_EQ(gigasCortos(1'500'000'000), "2 GB");
    EXPECT_EQ(gigasCortos(-1'500'000'000), "-2 GB");
}

TEST(Formato, HaceCuantoEnLaMayorUnidad)
{
    const auto ahora = sys_days{2026y / 11 / 23} + 12h;
    const std::pair<system_clock::duration, const char*> casos[] = {
        {0s, "ahora"},       {-1h, "ahora"}, // a date ahead reads as the present
        {59s, "hace 59 segundos"}, {5min, "hace 5 minutos"}, {3h, "hace 3 horas"},
        {24h, "ayer"},       {72h, "hace 3 días"}, {days(10), "la semana pasada"},
        {days(20), "hace 2 semanas"}, {days(40), "el mes pasado"}, {days(800), "hace 2 años"},
    };
    for (const auto& [atras, texto] : casos)
        EXPECT_EQ(haceCuanto(ahora - atras, ahora, "es"), texto);
    EXPECT_EQ(haceCuanto(ahora - 24h, ahora, "en"), "yesterday");
}
