// SPDX-License-Identifier: GPL-3.0-or-later
// The application shell on the offscreen platform: links from other
// processes, closing windows, and the whole program run as a user would
// start it.
#include "app/vorlano_app.h"

#include "apoyo/bus.h"
#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "estado/avisos.h"
#include "estado/comun.h"
#include "estado/navegacion.h"
#include "estado/preferencias.h"
#include "plataforma/sesion.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

using apoyo::CasaPrueba;

TEST(VorlanoApp, LeerEnlace)
{
    const std::pair<const char*, std::optional<Enlace>> casos[] = {
        {"vorlano://mapa", Enlace::mapa},
        {"vorlano://analizar/x?y=1#z", Enlace::analizar},
        {"vorlano://yo@desinstalar:80", Enlace::desinstalar},
        {"vorlano://resumen/", Enlace::resumen},
        {"vorlano://", std::nullopt},
        {"vorlano:mapa", std::nullopt},
        {"vorlano://MAPA", std::nullopt},
        {"VORLANO://mapa", std::nullopt},
        {"http://mapa", std::nullopt},
        {"mapa", std::nullopt},
        {"vorlano://nada", std::nullopt},
    };
    for (const auto& [url, enlace] : casos)
        EXPECT_EQ(VorlanoApp::leerEnlace(QString::fromUtf8(url)), enlace) << url;
}

// A socket left behind by a crashed instance is taken over; a live one isn't.
// Later starts hand their links to the running program and end at once; only
// the first link of a start counts, unknown ones change nothing, and a start
// without links brings the window back. Then its windows are closed.
TEST(VorlanoApp, EnlacesYVentanas)
{
    CasaPrueba casa;
    apoyo::Variable home("VORLANO_HOME", casa.raiz().string());
    Preferencias& p = Preferencias::shared();
    p.registrarDefectos();
    // A fresh store: the tray item on, notices under 20 GB.
    EXPECT_TRUE(p.conBarraMenu());
    EXPECT_EQ(Avisos::shared().limiteGB(), 20);
    const auto ruta = plataforma::rutaInstancia(casa.raiz(), true);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un dir{};
    dir.sun_family = AF_UNIX;
    std::strncpy(dir.sun_path, ruta.c_str(), sizeof dir.sun_path - 1);
    ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr*>(&dir), sizeof dir), 0);
    ::close(fd);
    EXPECT_FALSE(plataforma::entregarAInstancia(ruta, "vorlano\n"));
    VorlanoApp app(casa.entorno());
    ASSERT_TRUE(app.escuchar());
    ASSERT_FALSE(Instancia(ruta).escuchar());
    // No window yet: each link waits in Navegacion, and asks for the window.
    int abrir = 0;
    Ventana::abrir = [&] { ++abrir; };
    auto enviar = [&](const std::vector<std::string>& args) {
        EXPECT_EQ(apoyo::ejecutarVorlano(casa.raiz(), args).estado, 0);
    };
    auto llega = [&] {
        EXPECT_TRUE(hasta([&] { return Navegacion::shared().pendiente().has_value(); }));
        return Navegacion::shared().tomar();
    };
    enviar({"vorlano://mapa"});
    EXPECT_EQ(llega(), QStringLiteral("mapa"));
    EXPECT_EQ(Navegacion::shared().tomar(), QString());
    EXPECT_EQ(abrir, 1);

    enviar({"vorlano://nada"});
    enviar({"vorlano://limpieza", "vorlano://mapa"});
    EXPECT_EQ(llega(), QStringLiteral("limpieza"));
    enviar({"vorlano://resumen/" + std::string(10'000, 'x')});
    EXPECT_EQ(llega(), QStringLiteral("resumen"));
    EXPECT_EQ(abrir, 3);

    // A start without links shows the window.
    enviar({});
    ASSERT_TRUE(hasta([&] { return app.ventana() != nullptr && app.ventana()->isVisible(); }));
    EXPECT_TRUE(app.ventana()->objectName().startsWith(QStringLiteral("principal")));
    Ventana::abrir = nullptr;

    // With the tray setting the program outlives its windows; without it, it
    // ends with the last one, whichever that is.
    QSignalSpy salir(&app, &VorlanoApp::salir);
    app.ventana()->close();
    QCoreApplication::processEvents();
    EXPECT_FALSE(app.ventana()->isVisible());
    EXPECT_EQ(salir.count(), 0);

    p.ponerBarraMenu(false);
    app.abrirVentanaPrincipal();
    app.abrirAjustes();
    ASSERT_NE(app.ajustes(), nullptr);
    app.ventana()->close();
    QCoreApplication::processEvents();
    EXPECT_EQ(salir.count(), 0);
    app.ajustes()->close();
    QCoreApplication::processEvents();
    EXPECT_EQ(salir.count(), 1);
}

// The program as a user starts it: it stays up, warns once about 5 seconds
// after the start when space is short, and answers a later start's link by
// analysing. Damaged settings and no session bus don't stop it.
TEST(VorlanoApp, ProgramaEnMarcha)
{
    struct Caso {
        bool conBus;
        std::string ajustes;
    };
    for (const Caso& caso : {Caso{true, ""}, Caso{false, "\x01\xff[General\navisoGB=abc\nbarraMenu=12\n"}}) {
        CasaPrueba casa;
        if (!caso.ajustes.empty())
            casa.archivoCon(".config/Vorlano/Vorlano.conf", caso.ajustes);
        apoyo::ServidorNotificaciones servidor;
        ASSERT_TRUE(servidor.activo());
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("VORLANO_HOME"), QString::fromStdString(casa.raiz().string()));
        env.insert(QStringLiteral("VORLANO_AVISO_GB"), QStringLiteral("100000000"));
        env.insert(QStringLiteral("VORLANO_TIEMPOS"), QStringLiteral("1"));
        if (!caso.conBus)
            env.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("unix:path=/nonexistent"));
        QProcess vorlano;
        vorlano.setProcessEnvironment(env);
        vorlano.start(QStringLiteral(VORLANO_BIN), {});
        ASSERT_TRUE(vorlano.waitForStarted());
        if (caso.conBus) {
            ASSERT_TRUE(hasta([&] { return !servidor.avisos().empty(); }));
            EXPECT_EQ(servidor.avisos()[0].titulo, QStringLiteral("Te queda poco espacio"));
        }
        QByteArray errores;
        // A second start hands over its link and ends at once with status 0,
        // once the first one listens.
        ASSERT_TRUE(hasta([&] {
            return std::filesystem::exists(plataforma::rutaInstancia(casa.raiz(), true));
        }));
        EXPECT_EQ(apoyo::ejecutarVorlano(casa.raiz(), {"vorlano://analizar"}).estado, 0);
        EXPECT_TRUE(hasta([&] {
            errores += vorlano.readAllStandardError();
            return errores.contains("medir tamaños");
        })) << errores.toStdString();
        EXPECT_EQ(vorlano.state(), QProcess::Running);
        EXPECT_EQ(servidor.avisos().size(), caso.conBus ? 1u : 0u);
        vorlano.kill();
        vorlano.waitForFinished();
    }
}
