// SPDX-License-Identifier: GPL-3.0-or-later
#include "widget/imagenes.h"

#include "nucleo/entorno.h"
#include "nucleo/textos.h"
#include "pantallas/tema.h"
#include "plataforma/escritura.h"
#include "widget/entrada_disco.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

// Transparent room around the widget in the picture, in points.
constexpr int margen = 20;
// Of the widget's corners, as its background draws them.
constexpr qreal radio = 22;

// The widget alone, with its rounded corners and the margin around it
// transparent: an offscreen window has no alpha channel of its own.
QImage recortar(QImage ventana, qreal escala)
{
    if (ventana.isNull())
        return {};
    ventana.setDevicePixelRatio(1);
    QImage r(ventana.size(), QImage::Format_ARGB32_Premultiplied);
    r.fill(Qt::transparent);
    QPainter p(&r);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(ventana);
    const qreal m = margen * escala;
    p.drawRoundedRect(QRectF(r.rect()).adjusted(m, m, -m, -m), radio * escala, radio * escala);
    p.end();
    return r;
}

// The widget drawn in a window of its own; a null image when it can't be.
QImage dibujar(QQmlComponent& componente, const EntradaDisco& entrada, Familia familia)
{
    const Puntos p = tamano(familia);
    QQuickWindow ventana;
    ventana.resize(p.ancho + 2 * margen, p.alto + 2 * margen);
    std::unique_ptr<QObject> objeto(componente.createWithInitialProperties(
        {{QStringLiteral("entrada"), QVariant::fromValue(entrada)},
         {QStringLiteral("familia"), QString::fromUtf8(nombre(familia))},
         {QStringLiteral("vistaPrevia"), true},
         {QStringLiteral("margen"), margen}}));
    auto* item = qobject_cast<QQuickItem*>(objeto.get());
    if (item == nullptr)
        return {};
    item->setParentItem(ventana.contentItem());
    item->setSize(ventana.size());
    ventana.show();
    // Layouts and canvases settle in the first polish; a second pass lets
    // what they resized paint at its final size.
    QCoreApplication::processEvents();
    ventana.grabWindow();
    QCoreApplication::processEvents();
    return recortar(ventana.grabWindow(), ventana.devicePixelRatio());
}

QByteArray png(const QImage& imagen)
{
    QByteArray datos;
    QBuffer buffer(&datos);
    if (!buffer.open(QIODevice::WriteOnly) || !imagen.save(&buffer, "PNG"))
        return {};
    return datos;
}

} // namespace

void imagenesWidget(const std::filesystem::path& carpeta, bool ejemplo)
{
    const std::filesystem::path destino = estandarizar(carpeta);
    std::error_code ec;
    std::filesystem::create_directories(destino, ec);

    const EntradaDisco entrada = ejemplo ? EntradaDisco::ejemplo() : EntradaDisco::actual();
    QQmlEngine motor;
    // The module's QML files by name across its folders (Icono, IconoCuadrado).
    motor.addImportPath(QStringLiteral("qrc:/qt/qml"));
    QQmlComponent componente(&motor, QUrl(QStringLiteral("qrc:/qt/qml/Vorlano/widget/MarcoWidget.qml")));
    // Nothing to draw with: no pictures and, as with any failure here, no word.
    if (!componente.isReady())
        return;
    for (const Familia familia : todasLasFamilias) {
        for (const bool oscuro : {false, true}) {
            Tema::shared().fijarEsquema(oscuro);
            const QByteArray datos = png(dibujar(componente, entrada, familia));
            if (datos.isEmpty())
                continue;
            const auto archivo = destino / ("widget-" + std::string(nombre(familia)) + (oscuro ? "-oscuro" : "-claro") + ".png");
            plataforma::escribirAtomico(archivo, std::string_view(datos.constData(), size_t(datos.size())));
            std::fwrite(archivo.c_str(), 1, archivo.native().size(), stdout);
            std::fputc('\n', stdout);
        }
    }
    Tema::shared().fijarEsquema(std::nullopt);
    std::fflush(stdout);
}

int ejecutarImagenesWidget(int argc, char** argv, const std::filesystem::path& carpeta, bool ejemplo)
{
    // No display needed: the offscreen platform and the software renderer,
    // at twice the scale, as a high-density screen draws.
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("QT_QUICK_BACKEND", "software", 1);
    ::setenv("QT_SCALE_FACTOR", "2", 1);
    ::unsetenv("QT_SCREEN_SCALE_FACTORS");
    ::unsetenv("QT_ENABLE_HIGHDPI_SCALING");
    // The run reports nothing but the paths: not even Qt's own complaints
    // (a missing runtime folder, say) reach the terminal.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QGuiApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    instalarTraducciones();
    imagenesWidget(carpeta, ejemplo);
    return 0;
}
