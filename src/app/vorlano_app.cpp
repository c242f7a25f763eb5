// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/vorlano_app.h"

#include "estado/avisos.h"
#include "estado/navegacion.h"
#include "estado/preferencias.h"
#include "nucleo/textos.h"
#include "plataforma/sesion.h"

#include <QApplication>
#include <QGuiApplication>

#include <clocale>
#include <cstdio>
#include <cstdlib>

namespace {

void alFrente(QQuickWindow* v)
{
    // The offscreen platform (tests, servers) has no stacking order to change.
    if (QGuiApplication::platformName() != QLatin1String("offscreen"))
        v->raise();
    v->requestActivate();
}

QStringList enlacesDe(int argc, char** argv)
{
    // Every argument that isn't a flag may be a link; the first one counts.
    QStringList r;
    for (int i = 1; i < argc; ++i)
        if (argv[i][0] != '-')
            r.append(QString::fromLocal8Bit(argv[i]));
    return r;
}

} // namespace

void VorlanoApp::main(int argc, char** argv)
{
    const Entorno entorno = Entorno::actual();
    const QStringList enlaces = enlacesDe(argc, argv);
    const auto ruta = plataforma::rutaInstancia(entorno.home, entorno.prueba);
    if (plataforma::entregarAInstancia(ruta, Instancia::mensaje(enlaces)))
        std::exit(0);

    if (!plataforma::hayEscritorio()) {
        std::fputs(::tr("vorlano: no hay escritorio gráfico al que abrir la ventana (ni DISPLAY ni WAYLAND_DISPLAY).\n"
                      "Usa vorlano --help para ver el modo de terminal.\n")
                       .c_str(),
                   stderr);
        std::exit(1);
    }
    QApplication app(argc, argv);
    // Numbers printed with printf keep the point whatever the locale.
    std::setlocale(LC_NUMERIC, "C");
    instalarTraducciones();
    QApplication::setApplicationName(QStringLiteral("Vorlano"));
    QApplication::setDesktopFileName(QStringLiteral("vorlano"));
    // Closing windows ends the program only as the tray setting says.
    QApplication::setQuitOnLastWindowClosed(false);
    Preferencias::shared().registrarDefectos();

    int estado = 0;
    {
        VorlanoApp vorlano(entorno);
        // Another start won the race for the socket: it takes the links.
        if (!vorlano.escuchar() && vorlano.instancia().entregar(enlaces))
            std::exit(0);
        connect(&vorlano, &VorlanoApp::salir, &app, &QCoreApplication::quit, Qt::QueuedConnection);
        vorlano.abrirVentanaPrincipal();
        vorlano.abrirEnlaces(enlaces);
        estado = app.exec();
    }
    // A scan still running is not waited for: the process ends here.
    std::fflush(nullptr);
    std::_Exit(estado);
}

VorlanoApp::VorlanoApp(Entorno entorno, QObject* padre)
    : QObject(padre), estado_(entorno), instancia_(plataforma::rutaInstancia(entorno.home, entorno.prueba))
{
    Avisos::shared().configurar();
    Ventana::abrir = [this] { abrirVentanaPrincipal(); };
    // Every window of the program is given the one Estado.
    motor_.setInitialProperties({{QStringLiteral("estado"), QVariant::fromValue(&estado_)}});

    bandeja_ = std::make_unique<Bandeja>(estado_);
    connect(bandeja_.get(), &Bandeja::abrirVentana, this, &VorlanoApp::abrirVentanaPrincipal);
    connect(bandeja_.get(), &Bandeja::abrirAjustes, this, &VorlanoApp::abrirAjustes);
    connect(bandeja_.get(), &Bandeja::salir, this, &VorlanoApp::salir);
    connect(&Navegacion::shared(), &Navegacion::ajustesPedidos, this, &VorlanoApp::abrirAjustes);
    // A later start without links is the user asking for the window again.
    connect(&instancia_, &Instancia::recibido, this, [this](const QStringList& enlaces) {
        if (enlaces.isEmpty())
            abrirVentanaPrincipal();
        else
            abrirEnlaces(enlaces);
    });
}

VorlanoApp::~VorlanoApp()
{
    // The engine, a member, destroys the windows after the members declared
    // below it have gone, and a window hides as it goes: it must not call
    // back into what is left of us. Nor may the notice's action.
    for (QObject* o : motor_.rootObjects())
        o->disconnect(this);
    Ventana::abrir = nullptr;
}

bool VorlanoApp::escuchar()
{
    return instancia_.escuchar();
}

QQuickWindow* VorlanoApp::cargar(const char* archivo)
{
    const auto antes = motor_.rootObjects().size();
    motor_.load(QUrl(QStringLiteral("qrc:/qt/qml/Vorlano/pantallas/") + QLatin1String(archivo)));
    if (motor_.rootObjects().size() == antes)
        return nullptr;
    auto* v = qobject_cast<QQuickWindow*>(motor_.rootObjects().constLast());
    if (v != nullptr)
        connect(v, &QWindow::visibleChanged, this, [this](bool visible) {
            if (!visible)
                alOcultarse();
        });
    return v;
}

void VorlanoApp::abrirVentanaPrincipal()
{
    mostrar(ventana_, "Principal.qml");
}

void VorlanoApp::abrirAjustes()
{
    mostrar(ajustes_, "Ajustes.qml");
}

void VorlanoApp::mostrar(QPointer<QQuickWindow>& ventana, const char* archivo)
{
    if (!ventana)
        ventana = cargar(archivo);
    if (!ventana)
        return;
    ventana->show();
    alFrente(ventana);
}

void VorlanoApp::alOcultarse()
{
    // With the tray item the program lives on without windows; without it,
    // it ends with the last one.
    const bool alguna = (ventana_ && ventana_->isVisible()) || (ajustes_ && ajustes_->isVisible());
    if (!alguna && !Preferencias::shared().conBarraMenu())
        Q_EMIT salir();
}

std::optional<Enlace> VorlanoApp::leerEnlace(const QString& url)
{
    const QString esquema = QStringLiteral("vorlano:");
    if (!url.startsWith(esquema))
        return std::nullopt;
    QStringView resto = QStringView(url).mid(esquema.size());
    if (!resto.startsWith(QLatin1String("//")))
        return std::nullopt;
    resto = resto.mid(2);
    // The authority ends at the path, the query or the fragment; the host is
    // what stands after any user part and before any port.
    qsizetype fin = 0;
    while (fin < resto.size() && resto[fin] != u'/' && resto[fin] != u'?' && resto[fin] != u'#')
        ++fin;
    QStringView autoridad = resto.left(fin);
    if (const qsizetype arroba = autoridad.lastIndexOf(QLatin1Char('@')); arroba >= 0)
        autoridad = autoridad.mid(arroba + 1);
    if (const qsizetype puerto = autoridad.indexOf(QLatin1Char(':')); puerto >= 0)
        autoridad = autoridad.left(puerto);
    return enlaceDesde(autoridad.toString().toStdString());
}

void VorlanoApp::abrirEnlaces(const QStringList& urls)
{
    if (urls.isEmpty())
        return;
    const auto enlace = leerEnlace(urls.first());
    if (!enlace)
        return;
    if (!(ventana_ && ventana_->isVisible()) && Ventana::abrir)
        Ventana::abrir();
    if (ventana_)
        alFrente(ventana_);
    // The main window serves it, now or when it next appears.
    Navegacion::shared().ir(*enlace);
}
