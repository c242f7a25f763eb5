// SPDX-License-Identifier: GPL-3.0-or-later
// The analysis state between analyses; its analyses and cleanings are driven
// through the window in the screens' tests.
#include "estado/estado.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "estado/comun.h"

// The timer keeps the disk figures fresh with no analysis at all.
TEST(Estado, RelojDelDisco)
{
    apoyo::CasaPrueba casa;
    apoyo::Variable home("VORLANO_HOME", casa.raiz().string());
    Estado e(casa.entorno(), std::chrono::milliseconds(1), std::chrono::milliseconds(20));
    QSignalSpy disco(&e, &Estado::discoChanged);
    casa.archivo("relleno", 20 << 20);
    ASSERT_TRUE(esperar(disco));
    std::filesystem::remove(casa.ruta("relleno"));
    ASSERT_TRUE(esperar(disco, 2));
    EXPECT_EQ(e.etapa(), 0);
}
