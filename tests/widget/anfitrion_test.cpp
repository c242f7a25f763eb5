// SPDX-License-Identifier: GPL-3.0-or-later
// The widget's host on the offscreen platform, over the test's own session
// bus.
#include "widget/anfitrion.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "app/instancia.h"
#include "estado/comun.h"
#include "widget/comun.h"
#include "plataforma/escritorio.h"
#include "plataforma/sesion.h"

#include <gtest/gtest.h>

#include <QQuickItem>
#include <QSignalSpy>
#include <QTest>

namespace {

QAction* accion(AnfitrionWidget& a, const char* nombre)
{
    for (QAction* x : a.menu().actions())
        if (x->objectName() == QLatin1String(nombre))
            return x;
    return nullptr;
}

} // namespace

// From a fresh store: the small family, its size, place and login entry kept
// for the next start. Then one asked for on the command line: it redraws at
// each reload of the program and its controls hand their links over.
TEST(AnfitrionWidget, RecuerdaRedibujaYAbreEnlaces)
{
    apoyo::CasaPrueba casa;
    apoyo::Variable home("VORLANO_HOME", casa.raiz().string());
    {
        AnfitrionWidget anfitrion(VORLANO_BIN, std::nullopt);
        EXPECT_EQ(anfitrion.familia(), Familia::chico);
        anfitrion.mostrar();
        EXPECT_EQ(anfitrion.ventana().size(), QSize(170, 170));
        accion(anfitrion, "grande")->trigger();
        EXPECT_EQ(anfitrion.ventana().size(), QSize(364, 382));
        anfitrion.ventana().setPosition(100, 120);

        // The login entry, turned on and off from the menu.
        QAction* inicio = accion(anfitrion, "inicioSesion");
        ASSERT_NE(inicio, nullptr);
        inicio->trigger();
        EXPECT_TRUE(plataforma::inicioSesionActivo(plataforma::Arranque::widget));
        EXPECT_FALSE(plataforma::inicioSesionActivo(plataforma::Arranque::programa));
        const std::string entrada =
            apoyo::leer(std::filesystem::path(std::getenv("XDG_CONFIG_HOME")) / "autostart/vorlano-widget.desktop");
        EXPECT_NE(entrada.find(" --widget\n"), std::string::npos) << entrada;
        inicio->trigger();
        EXPECT_FALSE(plataforma::inicioSesionActivo(plataforma::Arranque::widget));
    }
    {
        AnfitrionWidget otra(VORLANO_BIN, std::nullopt);
        EXPECT_EQ(otra.familia(), Familia::grande);
        otra.mostrar();
        EXPECT_EQ(otra.ventana().size(), QSize(364, 382));
        EXPECT_EQ(otra.ventana().position(), QPoint(100, 120));
    }

    // The program, listening as a running one does.
    Instancia programa(plataforma::rutaInstancia(casa.raiz(), true));
    ASSERT_TRUE(programa.escuchar());
    QSignalSpy recibidos(&programa, &Instancia::recibido);

    // A family asked for on the command line wins, and is kept.
    AnfitrionWidget anfitrion(VORLANO_BIN, Familia::mediano);
    anfitrion.mostrar();
    QQuickView& v = anfitrion.ventana();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&v));
    EXPECT_EQ(v.size(), QSize(364, 170));
    for (const auto bandera : {Qt::FramelessWindowHint, Qt::WindowStaysOnBottomHint, Qt::Tool})
        EXPECT_TRUE(v.flags().testFlag(bandera)) << bandera;

    // Each reload of the program, a cleaning say, is one redraw.
    QSignalSpy refrescos(&anfitrion, &AnfitrionWidget::refrescado);
    for (int i = 1; i <= 3; ++i) {
        plataforma::recargarWidgets();
        EXPECT_TRUE(esperar(refrescos, i)) << i;
    }

    // A click on the map button hands vorlano://mapa to the program, and one
    // on the ring the summary.
    const std::pair<const char*, const char*> controles[] = {{"vorlano://mapa", "vorlano://mapa"},
                                                             {"anilloResumen", "vorlano://resumen"}};
    int clics = 0;
    for (const auto& [nombre, enlace] : controles) {
        QQuickItem* control = buscar(v.rootObject(), QLatin1String(nombre));
        ASSERT_NE(control, nullptr) << nombre;
        QTest::mouseClick(&v, Qt::LeftButton, {}, control->mapToScene(QPointF(control->width() / 2, control->height() / 2)).toPoint());
        ASSERT_TRUE(esperar(recibidos, ++clics));
        EXPECT_EQ(recibidos.last().at(0).toStringList(), QStringList{QLatin1String(enlace)});
    }
    EXPECT_EQ(refrescos.count(), 3);
    EXPECT_EQ(AnfitrionWidget(VORLANO_BIN, std::nullopt).familia(), Familia::mediano);
}
