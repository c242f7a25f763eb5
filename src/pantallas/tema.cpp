// SPDX-License-Identifier: GPL-3.0-or-later
#include "pantallas/tema.h"

#include "mapa/baldosas.h"
#include "plataforma/escritorio.h"

#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QJSEngine>
#include <QPalette>

namespace {

// Light and dark values of one role.
QColor par(bool oscuro, QRgb claro, QRgb noche)
{
    return QColor::fromRgba(oscuro ? noche : claro);
}

} // namespace

Tema::Tema() : movimientoReducido_(plataforma::movimientoReducido())
{
    leerPaleta();
    if (QCoreApplication* app = QCoreApplication::instance())
        app->installEventFilter(this);
}

Tema& Tema::shared()
{
    // Never destroyed: bindings may read it until the very end.
    static auto* t = new Tema();
    return *t;
}

Tema* Tema::create(QQmlEngine*, QJSEngine*)
{
    QJSEngine::setObjectOwnership(&shared(), QJSEngine::CppOwnership);
    return &shared();
}

bool Tema::eventFilter(QObject* objeto, QEvent* evento)
{
    if (objeto == QCoreApplication::instance() && evento->type() == QEvent::ApplicationPaletteChange)
        leerPaleta();
    return false;
}

void Tema::fijarEsquema(std::optional<bool> oscuro)
{
    esquema_ = oscuro;
    leerPaleta();
}

void Tema::leerPaleta()
{
    // Dark when the desktop's window colour is darker than its text.
    const QPalette p = QGuiApplication::palette();
    const bool oscuro =
        esquema_.value_or(p.color(QPalette::Window).lightnessF() < p.color(QPalette::WindowText).lightnessF());
    if (oscuro == oscuro_)
        return;
    oscuro_ = oscuro;
    Q_EMIT cambiado();
}

QColor Tema::qcolor(const Color& c)
{
    return QColor::fromRgbF(float(c.rojo), float(c.verde), float(c.azul), float(c.opacidad));
}

QColor Tema::fondo() const { return par(oscuro_, 0xfff4f6f9, 0xff17191d); }
QColor Tema::lateral() const { return par(oscuro_, 0xffeaeef3, 0xff1e2127); }
QColor Tema::superficie() const { return par(oscuro_, 0xffffffff, 0xff252930); }
QColor Tema::superficieAlta() const { return par(oscuro_, 0xfff7f9fb, 0xff2d323a); }
QColor Tema::borde() const { return par(oscuro_, 0x16000000, 0x1fffffff); }
QColor Tema::texto() const { return par(oscuro_, 0xff1b1f24, 0xffeceff3); }
QColor Tema::secundario() const { return par(oscuro_, 0xff667080, 0xff9aa3b0); }
QColor Tema::sutil() const { return par(oscuro_, 0x0f000000, 0x14ffffff); }
QColor Tema::seleccion() const { return par(oscuro_, 0x2e2199e0, 0x3d2199e0); }
QColor Tema::acento() const { return qcolor(Marca::principal); }
QColor Tema::turquesa() const { return qcolor(Marca::turquesa); }
QColor Tema::azul() const { return qcolor(Marca::azul); }
// The signal colours are a little brighter on dark surfaces.
QColor Tema::verde() const { return oscuro_ ? QColor(0x30, 0xd1, 0x58) : qcolor(Colores::verde); }
QColor Tema::naranja() const { return oscuro_ ? QColor(0xff, 0x9f, 0x0a) : qcolor(Colores::naranja); }
QColor Tema::rojo() const { return oscuro_ ? QColor(0xff, 0x45, 0x3a) : qcolor(Colores::rojo); }
QColor Tema::indigo() const { return oscuro_ ? QColor(0x5e, 0x5c, 0xe6) : qcolor(Colores::indigo); }

QString Tema::letraRedonda() const
{
    // Debian's fonts-quicksand; where it is missing, the usual face.
    static const QString familia =
        QFontDatabase::hasFamily(QStringLiteral("Quicksand")) ? QStringLiteral("Quicksand") : QString();
    return familia;
}

QColor Tema::colorNivel(int nivel) const
{
    switch (nivel) {
    case 0:
        return verde();
    case 1:
        return naranja();
    default:
        return rojo();
    }
}

QColor Tema::colorSeccion(const QString& seccion) const
{
    if (seccion == QLatin1String("limpieza"))
        return turquesa();
    if (seccion == QLatin1String("mapa"))
        return naranja();
    if (seccion == QLatin1String("desinstalar"))
        return indigo();
    return azul();
}

QColor Tema::colorDisco(double usado) const
{
    return qcolor(::colorDisco(usado));
}

QVariantList Tema::degradadoDisco(double usado) const
{
    const Degradado d = coloresDisco(usado);
    return {qcolor(d.inicio), qcolor(d.fin)};
}
