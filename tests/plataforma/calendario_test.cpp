// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/calendario.h"

#include <gtest/gtest.h>

#include <cstdlib>

TEST(Calendario, LocaleDeLasFechasSegunLaCategoriaDeHoras)
{
    struct Caso {
        const char* lcAll;
        const char* lcTime;
        const char* lang;
        const char* esperado;
    };
    const Caso casos[] = {
        {nullptr, "en_GB.UTF-8", "en_US.UTF-8", "en_GB"}, // times have their own locale
        {"de_DE.UTF-8@euro", "en_GB.UTF-8", "es_ES.UTF-8", "de_DE"},
        {"", "", "es_MX.UTF-8", "es_MX"}, // empty counts as unset
        {nullptr, nullptr, "C", "en_US_POSIX"}, // as when nothing is set
    };
    for (const Caso& c : casos) {
        for (auto [variable, valor] : {std::pair{"LC_ALL", c.lcAll}, {"LC_TIME", c.lcTime}, {"LANG", c.lang}})
            valor ? ::setenv(variable, valor, 1) : ::unsetenv(variable);
        EXPECT_EQ(plataforma::localeDeFechas(), c.esperado) << c.esperado;
    }
}
