// SPDX-License-Identifier: GPL-3.0-or-later
// What the map lets the user move or enter, and what it warns of, by where
// a node lies.
#include "estado/estado_mapa.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <unistd.h>

TEST(EstadoMapa, ImpedimentoYAdvertencia)
{
    apoyo::CasaPrueba casa;
    const std::string app = "Visor" + std::to_string(::getpid());
    casa.archivoCon("Applications/" + app + ".app/Contents/Info.plist",
                    "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>org.prueba." + app +
                        "</string></dict></plist>");
    apoyo::ProgramaEnMarcha visor(casa.ruta("Applications/" + app + ".app/Contents/MacOS/visor"));
    EstadoMapa m(casa.entorno());
    const std::string sistema = "Carpeta del sistema o de tu cuenta: no se puede mover desde aquí";
    const std::string datos = "Son datos de una app: puede perder ajustes o archivos guardados.";
    const std::string abierta = "Son datos de " + app + ", que está abierta. Ciérrala antes.";
    struct Caso {
        std::string relativa;
        std::optional<std::string> impedimento;
        std::optional<std::string> advertencia;
    };
    const Caso casos[] = {
        {"", sistema, std::nullopt},
        {"Library", sistema, datos},
        {"Library/Caches", sistema, datos},
        {"Library/Caches/otra", std::nullopt, datos},
        {"Library/Application Support/" + app, std::nullopt, abierta},
        {"Library/Application Support/" + app + "/x", std::nullopt, abierta},
        {"Documents", sistema, std::nullopt},
        {"Documents/x", std::nullopt, std::nullopt},
        {".config", sistema, datos},
        {".config/" + app, sistema, abierta},
        {".config/" + app + "/perfil", std::nullopt, abierta},
        {".config/otra/perfil", std::nullopt, datos},
        {".local/share", sistema, datos},
        {".local/share/otra", sistema, datos},
        {".local/share/" + app + "/x", std::nullopt, abierta},
        {".local/otra", std::nullopt, std::nullopt},
    };
    for (const Caso& c : casos) {
        NodoDisco n(std::string(std::filesystem::path(c.relativa).filename()), casa.ruta(c.relativa).string(), true);
        EXPECT_EQ(m.impedimento(n), c.impedimento) << c.relativa;
        EXPECT_EQ(m.advertencia(n), c.advertencia) << c.relativa;
    }
    // Protected places are never moved, whatever the path rule says.
    auto protegido = std::make_shared<NodoDisco>("x", casa.archivo("Documents/x", 10).string(), false);
    protegido->protegido = true;
    EXPECT_EQ(m.impedimento(*protegido), "Protegida por macOS");
    m.moverAPapelera(Nodo(protegido));
    EXPECT_TRUE(std::filesystem::exists(protegido->ruta));
    EXPECT_EQ(m.relativa(NodoDisco("y", "/otro/sitio/y", false)), "/otro/sitio/y");
    // Only a folder with something in it is entered.
    for (const bool carpeta : {false, true}) {
        m.entrar(Nodo(std::make_shared<NodoDisco>("z", casa.ruta("z").string(), carpeta)));
        EXPECT_EQ(m.actual(), nullptr) << carpeta;
    }
}
