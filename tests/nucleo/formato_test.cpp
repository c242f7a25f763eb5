// SPDX-License-Identifier: GPL-3.0-or-later
#include "nucleo/formato.h"

#include <gtest/gtest.h>

using namespace std::chrono;

TEST(FormatoBytes, UnidadesDecimalesYDecimalesPorUnidad)
{
    struct Caso {
        int64_t n;
        const char* texto;
    } casos[] = {
        {0, "0 KB"},              // zero is a digit, and never in bytes
        {499, "0 KB"},
        {500, "1 KB"},            // small counts still come in KB
        {65536, "66 KB"},
        {999'499, "999 KB"},
        {999'999, "1 MB"},        // rounding to 1000 KB moves up a unit
        {1'500'000, "1.5 MB"},
        {1'000'000, "1 MB"},      // trailing zeros of the fraction go
        {12'340'000, "12.3 MB"},
        {2'250'000'000, "2.25 GB"},
        {2'200'000'000, "2.2 GB"},
        {3'000'000'000'000, "3 TB"},
        {4'560'000'000'000'000, "4560 TB"}, // nothing above TB
        {-1'500'000, "-1.5 MB"},
    };
    for (const auto& c : casos)
        EXPECT_EQ(formatoBytes(c.n, "."), c.texto) << c.n;
}

TEST(FormatoBytes, SeparadorDelLocale)
{
    EXPECT_EQ(formatoBytes(1'500'000, ","), "1,5 MB");
    EXPECT_EQ(formatoBytes(2'000'000, ","), "2 MB");
}

TEST(GigasCortos, RedondeaMitadesHaciaArribaSinLocale)
{
    EXPECT_EQ(gigasCortos(0), "0 GB");
    EXPECT_EQ(gigasCortos(1'499'999'999), "1 GB");
    EXPECT_EQ(gigasCortos(1'500'000'000), "2 GB");
    EXPECT_EQ(gigasCortos(-1'500'000'000), "-2 GB");
    const PartesGigas p = partesGigas(250'400'000'000);
    EXPECT_EQ(p.numero, "250");
    EXPECT_EQ(p.unidad, "GB");
}

TEST(HaceCuanto, LaMayorUnidadConCuentaDeAlMenosUno)
{
    const auto ahora = sys_days{2026y / 11 / 23} + 12h;
    struct Caso {
        system_clock::duration atras;
        const char* texto;
    } casos[] = {
        {0s, "ahora"},
        {-1h, "ahora"}, // a date ahead reads as the present
        {59s, "hace 59 segundos"},
        {5min, "hace 5 minutos"},
        {3h, "hace 3 horas"},
        {24h, "ayer"},
        {72h, "hace 3 días"},
        {days(10), "la semana pasada"},
        {days(20), "hace 2 semanas"},
        {days(40), "el mes pasado"},
        {days(800), "hace 2 años"},
    };
    for (const auto& c : casos)
        EXPECT_EQ(haceCuanto(ahora - c.atras, ahora, "es"), c.texto);
    EXPECT_EQ(haceCuanto(ahora - 24h, ahora, "en"), "yesterday");
}
