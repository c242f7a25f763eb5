// SPDX-License-Identifier: GPL-3.0-or-later
// Test main of the desktop application's tests: the same scratch homes as the
// logic's tests, plus a session bus of this process (so no test reaches the
// desktop of the machine), a runtime folder of its own, and a QApplication on
// the offscreen platform with the software renderer.
#include "apoyo/bus.h"
#include "apoyo/casa.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QtQml/qqmlextensionplugin.h>

#include <clocale>
#include <cstdlib>

Q_IMPORT_QML_PLUGIN(VorlanoPlugin)

int main(int argc, char** argv)
{
    const auto casa = apoyo::aislarProceso();
    ::setenv("XDG_RUNTIME_DIR", casa.c_str(), 1);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("QT_QUICK_BACKEND", "software", 1);
    // Screenshots are taken at twice the scale, as on a high-density screen.
    if (const char* capturas = std::getenv("VORLANO_CAPTURAS"); capturas != nullptr && *capturas != '\0')
        ::setenv("QT_SCALE_FACTOR", "2", 1);

    int r = 1;
    {
        apoyo::BusPrueba bus(casa / "bus");
        ::setenv("DBUS_SESSION_BUS_ADDRESS", bus.direccion().c_str(), 1);
        QApplication app(argc, argv);
        QApplication::setQuitOnLastWindowClosed(false);
        std::setlocale(LC_NUMERIC, "C");
        ::testing::InitGoogleTest(&argc, argv);
        r = RUN_ALL_TESTS();
    }
    apoyo::borrarArbol(casa);
    return r;
}
