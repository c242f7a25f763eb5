// SPDX-License-Identifier: GPL-3.0-or-later
#include "widget/anfitrion.h"

#include "nucleo/entorno.h"
#include "nucleo/modelo.h"
#include "nucleo/textos.h"
#include "plataforma/sesion.h"

#include <QActionGroup>
#include <QApplication>
#include <QCursor>
#include <QDesktopServices>
#include <QFile>
#include <QLockFile>
#include <QProcess>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>

#include <clocale>
#include <cstdio>

namespace {

const QString claveFamilia = QStringLiteral("familia");
const QString clavePosicion = QStringLiteral("posicion");
// Room between the widget and the corner of the screen it starts in.
constexpr int separacion = 24;

QString q(const std::string& s)
{
    return QString::fromStdString(s);
}

} // namespace

AnfitrionWidget::AnfitrionWidget(std::filesystem::path programa, std::optional<Familia> familia, QObject* padre)
    : QObject(padre),
      programa_(std::move(programa)),
      ajustes_(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Vorlano"), QStringLiteral("Widget")),
      familia_(familia.value_or(familiaDe(ajustes_.value(claveFamilia).toString().toStdString())))
{
    if (familia)
        ajustes_.setValue(claveFamilia, QLatin1String(nombre(familia_)));
    // The module's QML files by name across its folders (Icono, IconoCuadrado).
    ventana_.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    ventana_.setColor(Qt::transparent);
    ventana_.setResizeMode(QQuickView::SizeRootObjectToView);
    ventana_.setInitialProperties({{QStringLiteral("entrada"), QVariant::fromValue(EntradaDisco::actual())},
                                   {QStringLiteral("familia"), QLatin1String(nombre(familia_))}});
    ventana_.setSource(QUrl(QStringLiteral("qrc:/qt/qml/Vorlano/widget/VentanaWidget.qml")));
    if (QQuickItem* raiz = ventana_.rootObject())
        connect(raiz, SIGNAL(menuPedido()), this, SLOT(mostrarMenu()));
    plataforma::ponerEnEscritorio(&ventana_);
    const Puntos p = tamano(familia_);
    ventana_.resize(p.ancho, p.alto);
    construirMenu();

    // The controls' links come here rather than to the desktop's handler.
    QDesktopServices::setUrlHandler(QStringLiteral("vorlano"), this, "abrirEnlace");
    // Another program may change the disk at any time: a minute at most
    // passes before the widget shows it, and the program's own changes show
    // at once.
    reloj_.setInterval(60'000);
    connect(&reloj_, &QTimer::timeout, this, &AnfitrionWidget::refrescar);
    reloj_.start();
    connect(&recarga_, &plataforma::RecargaWidgets::recargar, this, &AnfitrionWidget::refrescar);
    // A drag moves the window many times; the place is kept once it rests.
    guardado_.setSingleShot(true);
    guardado_.setInterval(500);
    connect(&guardado_, &QTimer::timeout, this, &AnfitrionWidget::guardarPosicion);
    connect(&ventana_, &QWindow::xChanged, &guardado_, qOverload<>(&QTimer::start));
    connect(&ventana_, &QWindow::yChanged, &guardado_, qOverload<>(&QTimer::start));
}

AnfitrionWidget::~AnfitrionWidget()
{
    QDesktopServices::unsetUrlHandler(QStringLiteral("vorlano"));
    if (guardado_.isActive())
        guardarPosicion();
}

void AnfitrionWidget::mostrar()
{
    const QRect guardado(ajustes_.value(clavePosicion).toPoint(), ventana_.size());
    bool visible = false;
    for (const QScreen* s : QGuiApplication::screens())
        visible = visible || s->availableGeometry().contains(guardado.center());
    if (ajustes_.contains(clavePosicion) && visible) {
        ventana_.setPosition(guardado.topLeft());
    } else if (const QScreen* s = QGuiApplication::primaryScreen()) {
        const QRect a = s->availableGeometry();
        ventana_.setPosition(a.right() + 1 - ventana_.width() - separacion, a.top() + separacion);
    }
    ventana_.show();
}

void AnfitrionWidget::ponerFamilia(Familia f)
{
    familia_ = f;
    ajustes_.setValue(claveFamilia, QLatin1String(nombre(f)));
    if (QQuickItem* raiz = ventana_.rootObject())
        raiz->setProperty("familia", QLatin1String(nombre(f)));
    const Puntos p = tamano(f);
    ventana_.resize(p.ancho, p.alto);
    for (QAction* a : menu_.actions())
        if (a->objectName() == QLatin1String(nombre(f)))
            a->setChecked(true);
}

void AnfitrionWidget::refrescar()
{
    if (QQuickItem* raiz = ventana_.rootObject())
        raiz->setProperty("entrada", QVariant::fromValue(EntradaDisco::actual()));
    Q_EMIT refrescado();
}

void AnfitrionWidget::abrirEnlace(const QUrl& url)
{
    // A start of the program with the link: it hands the link to the
    // running program and ends, or opens the window itself.
    QProcess::startDetached(QFile::decodeName(QByteArray::fromStdString(programa_.native())),
                            {url.toString(QUrl::FullyEncoded)});
}

void AnfitrionWidget::mostrarMenu()
{
    for (QAction* a : menu_.actions())
        if (a->objectName() == QLatin1String("inicioSesion"))
            a->setChecked(plataforma::inicioSesionActivo(plataforma::Arranque::widget));
    menu_.popup(QCursor::pos());
}

void AnfitrionWidget::construirMenu()
{
    auto* tamanos = new QActionGroup(&menu_);
    const std::pair<Familia, const char*> opciones[] = {{Familia::chico, QT_TRANSLATE_NOOP("Vorlano", "Pequeño")},
                                                         {Familia::mediano, QT_TRANSLATE_NOOP("Vorlano", "Mediano")},
                                                         {Familia::grande, QT_TRANSLATE_NOOP("Vorlano", "Grande")}};
    for (const auto& [f, titulo] : opciones) {
        QAction* a = menu_.addAction(q(plataforma::tr(titulo)));
        a->setObjectName(QLatin1String(nombre(f)));
        a->setCheckable(true);
        a->setChecked(f == familia_);
        a->setActionGroup(tamanos);
        connect(a, &QAction::triggered, this, [this, f = f] { ponerFamilia(f); });
    }
    menu_.addSeparator();
    QAction* inicio = menu_.addAction(q(plataforma::tr("Abrir al iniciar sesión")));
    inicio->setObjectName(QStringLiteral("inicioSesion"));
    inicio->setCheckable(true);
    connect(inicio, &QAction::triggered, this, [inicio](bool activo) {
        // A failure leaves the entry as it was, and the mark shows that.
        if (plataforma::cambiarInicioSesion(activo, plataforma::Arranque::widget))
            inicio->setChecked(plataforma::inicioSesionActivo(plataforma::Arranque::widget));
    });
    menu_.addSeparator();
    QAction* abrir = menu_.addAction(q(plataforma::tr("Abrir Vorlano")));
    abrir->setObjectName(QStringLiteral("abrir"));
    connect(abrir, &QAction::triggered, this, [this] { abrirEnlace(QUrl(q(url(Enlace::resumen)))); });
    QAction* quitar = menu_.addAction(q(plataforma::tr("Quitar del escritorio")));
    quitar->setObjectName(QStringLiteral("quitar"));
    connect(quitar, &QAction::triggered, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

void AnfitrionWidget::guardarPosicion()
{
    ajustes_.setValue(clavePosicion, ventana_.position());
}

int ejecutarAnfitrionWidget(int argc, char** argv)
{
    plataforma::elegirPlataformaWidget();
    if (!plataforma::hayEscritorio()) {
        std::fputs(plataforma::tr("vorlano: no hay escritorio gráfico en el que poner el widget (ni DISPLAY ni WAYLAND_DISPLAY).\n")
                       .c_str(),
                   stderr);
        return 1;
    }
    QApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    instalarTraducciones();
    QApplication::setApplicationName(QStringLiteral("Vorlano"));
    QApplication::setDesktopFileName(QStringLiteral("vorlano-widget"));
    QApplication::setQuitOnLastWindowClosed(false);

    // One widget per user (per scratch home in test mode): a second start,
    // from the session's autostart say, leaves the first alone.
    const Entorno entorno = Entorno::actual();
    const auto ruta = plataforma::rutaInstancia(entorno.home, entorno.prueba).native() + ".widget";
    QLockFile cerrojo(QFile::decodeName(QByteArray::fromStdString(ruta)));
    if (!cerrojo.tryLock(0))
        return 0;

    std::optional<Familia> familia;
    for (int i = 1; i + 1 < argc; ++i)
        if (std::string_view(argv[i]) == "--widget")
            for (const Familia f : todasLasFamilias)
                if (nombre(f) == argv[i + 1])
                    familia = f;
    // The program's own binary, whatever its path: the kernel resolves the
    // link again in the started process.
    AnfitrionWidget anfitrion("/proc/self/exe", familia);
    anfitrion.mostrar();
    return app.exec();
}
