// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/sistema.h"

#include "apoyo/casa.h"

#include <gtest/gtest.h>

// Outside a sandbox the user's rights are the program's; inside Flatpak only
// the whole home or host, writable, counts, and the way to grant it is named.
TEST(AccesoTotal, SegunLaDescripcionDelEntorno)
{
    apoyo::CasaPrueba casa;
    EXPECT_TRUE(plataforma::accesoTotalSegun(casa.ruta("no-existe")));
    EXPECT_EQ(plataforma::comoDarAccesoTotalSegun(casa.ruta("no-existe")).orden, "");

    const struct {
        const char* sistemas;
        bool acceso;
    } casos[] = {
        {"home;", true},
        {"xdg-download;host:rw;", true},
        {"xdg-download;xdg-documents:ro;", false},
        {"home:ro;", false},
        {"home;!home;", false},
        {"", false},
    };
    for (const auto& c : casos) {
        const auto f = casa.archivoCon("flatpak-info", std::string("[Application]\nname=org.prueba.Vorlano\n\n"
                                                                   "[Context]\nshared=network;\nfilesystems=") +
                                                           c.sistemas + "\n");
        EXPECT_EQ(plataforma::accesoTotalSegun(f), c.acceso) << c.sistemas;
    }
    EXPECT_EQ(plataforma::comoDarAccesoTotalSegun(casa.ruta("flatpak-info")).orden,
              "flatpak override --user --filesystem=home org.prueba.Vorlano");
    // A description that can't be read grants nothing.
    EXPECT_FALSE(plataforma::accesoTotalSegun(casa.archivoCon("roto", "\x01\x02 no es un archivo de claves")));
    EXPECT_FALSE(plataforma::accesoTotalSegun(casa.crearDir("carpeta")));
}
