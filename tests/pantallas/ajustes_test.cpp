// SPDX-License-Identifier: GPL-3.0-or-later
// The settings window beside the main one: the notice's choices, the
// switches, and the welcome brought back into the main window.
#include "pantallas/comun.h"

#include "estado/comun.h"
#include "estado/preferencias.h"

#include <QTest>

#include <cstdlib>
#include <filesystem>
#include <fstream>

using pantallas::VentanaPrueba;

namespace {

QObject* enAjustes(VentanaPrueba& v, const char* nombre)
{
    // Both trees: what a scroll view holds hangs from its visual parent only.
    QObject* o = nullptr;
    std::vector<QObject*> pendientes{v.app().ajustes()->contentItem()};
    while (!pendientes.empty() && o == nullptr) {
        QObject* p = pendientes.back();
        pendientes.pop_back();
        if (p->objectName() == QString::fromUtf8(nombre))
            o = p;
        for (QObject* h : p->children())
            pendientes.push_back(h);
        if (auto* item = qobject_cast<QQuickItem*>(p))
            for (QQuickItem* h : item->childItems())
                pendientes.push_back(h);
    }
    EXPECT_NE(o, nullptr) << nombre;
    return o;
}

void pulsarEnAjustes(VentanaPrueba& v, const char* nombre)
{
    auto* item = qobject_cast<QQuickItem*>(enAjustes(v, nombre));
    ASSERT_NE(item, nullptr);
    const QPoint centro = item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
    QTest::mouseClick(v.app().ajustes(), Qt::LeftButton, {}, centro);
    v.asentar(50);
}

} // namespace

TEST(PantallaAjustes, AvisosInterruptoresYBienvenida)
{
    VentanaPrueba v;
    Preferencias::shared().ponerAvisoGB(20);
    Preferencias::shared().ponerBarraMenu(true);
    v.app().abrirAjustes();
    ASSERT_NE(v.app().ajustes(), nullptr);
    v.asentar();
    pantallas::capturar(v.app().ajustes(), "ajustes");

    QObject* aviso = enAjustes(v, "aviso");
    EXPECT_EQ(aviso->property("displayText").toString().toStdString(), "20 GB");
    // "Nunca" stores 0; another choice stores its gigabytes.
    QMetaObject::invokeMethod(aviso, "activated", Q_ARG(int, 0));
    EXPECT_EQ(Preferencias::shared().avisoGB(), 0);
    EXPECT_EQ(aviso->property("displayText").toString().toStdString(), "Nunca");
    QMetaObject::invokeMethod(aviso, "activated", Q_ARG(int, 3));
    EXPECT_EQ(Preferencias::shared().avisoGB(), 50);
    // A stored value that isn't a choice still shows as it is.
    Preferencias::shared().ponerAvisoGB(37);
    v.asentar(50);
    EXPECT_EQ(aviso->property("displayText").toString().toStdString(), "37 GB");

    EXPECT_TRUE(Preferencias::shared().conBarraMenu());
    pulsarEnAjustes(v, "barraMenu");
    EXPECT_FALSE(Preferencias::shared().conBarraMenu());
    EXPECT_FALSE(enAjustes(v, "barraMenu")->property("checked").toBool());

    // Outside a sandbox the home is fully ours.
    EXPECT_TRUE(enAjustes(v, "activado")->property("visible").toBool());
    EXPECT_FALSE(enAjustes(v, "version")->property("text").toString().isEmpty());

    ASSERT_FALSE(v.visible("bienvenida"));
    pulsarEnAjustes(v, "verBienvenida");
    EXPECT_FALSE(Preferencias::shared().bienvenidaVista());
    EXPECT_TRUE(pantallas::hasta([&] { return v.visible("bienvenida"); }));
    v.asentar(300);
    pantallas::capturar(v.ventana(), "bienvenida-completa");
    v.pulsar("empezar");
    EXPECT_TRUE(Preferencias::shared().bienvenidaVista());
}

// A settings file nobody sane wrote: a value that means nothing counts as
// its default (the welcome not seen, 20 GB), while the one sensible value
// in it (the tray item off) shows that the file was read; the window and
// the settings open as usual.
TEST(PantallaAjustes, ValoresSinSentido)
{
    VentanaPrueba v(std::nullopt, [](apoyo::CasaPrueba&) {
        const std::filesystem::path conf = std::filesystem::path(std::getenv("XDG_CONFIG_HOME")) / "Vorlano/Vorlano.conf";
        std::filesystem::create_directories(conf.parent_path());
        std::ofstream(conf) << "[General]\nbarraMenu=false\navisoGB=muchos\nbienvenidaVista=7\n\x01\xff=\x02\n[[roto\n=\n";
    });
    EXPECT_TRUE(v.visible("bienvenida"));
    EXPECT_FALSE(Preferencias::shared().conBarraMenu());
    v.app().abrirAjustes();
    v.asentar();
    EXPECT_EQ(enAjustes(v, "aviso")->property("displayText").toString().toStdString(), "20 GB");
    EXPECT_FALSE(enAjustes(v, "barraMenu")->property("checked").toBool());
}
