// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The look every screen shares: surfaces and text for a light and a dark
// palette, the brand and signal colours, spacing and corner radii. Light or
// dark follows the application's palette, so the desktop's choice (or a test
// that sets a dark palette) switches every screen at once.

#include "nucleo/color.h"

#include <QColor>
#include <QObject>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <optional>

class QQmlEngine;
class QJSEngine;

class Tema : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool oscuro READ oscuro NOTIFY cambiado)
    Q_PROPERTY(QColor fondo READ fondo NOTIFY cambiado)
    Q_PROPERTY(QColor lateral READ lateral NOTIFY cambiado)
    Q_PROPERTY(QColor superficie READ superficie NOTIFY cambiado)
    Q_PROPERTY(QColor superficieAlta READ superficieAlta NOTIFY cambiado)
    Q_PROPERTY(QColor borde READ borde NOTIFY cambiado)
    Q_PROPERTY(QColor texto READ texto NOTIFY cambiado)
    Q_PROPERTY(QColor secundario READ secundario NOTIFY cambiado)
    Q_PROPERTY(QColor sutil READ sutil NOTIFY cambiado)
    Q_PROPERTY(QColor seleccion READ seleccion NOTIFY cambiado)
    Q_PROPERTY(QColor acento READ acento CONSTANT)
    Q_PROPERTY(QColor turquesa READ turquesa CONSTANT)
    Q_PROPERTY(QColor azul READ azul CONSTANT)
    Q_PROPERTY(QColor verde READ verde NOTIFY cambiado)
    Q_PROPERTY(QColor naranja READ naranja NOTIFY cambiado)
    Q_PROPERTY(QColor rojo READ rojo NOTIFY cambiado)
    Q_PROPERTY(QColor indigo READ indigo NOTIFY cambiado)
    // Spacing steps and corner radii, in device-independent pixels.
    Q_PROPERTY(int espacio READ espacio CONSTANT)
    Q_PROPERTY(int margen READ margen CONSTANT)
    Q_PROPERTY(int radio READ radio CONSTANT)
    Q_PROPERTY(int radioChico READ radioChico CONSTANT)
    // Text sizes: body, small, headline, title, large figure.
    Q_PROPERTY(int letra READ letra CONSTANT)
    Q_PROPERTY(int letraChica READ letraChica CONSTANT)
    Q_PROPERTY(int letraTitular READ letraTitular CONSTANT)
    Q_PROPERTY(int letraTitulo READ letraTitulo CONSTANT)
    Q_PROPERTY(int letraCifra READ letraCifra CONSTANT)
    // The family of large figures: a rounded face where one is installed.
    Q_PROPERTY(QString letraRedonda READ letraRedonda CONSTANT)
    // The user asked the desktop for less motion: animations end at once.
    Q_PROPERTY(bool movimientoReducido READ movimientoReducido CONSTANT)

public:
    static Tema& shared();
    static Tema* create(QQmlEngine*, QJSEngine*);

    bool oscuro() const { return oscuro_; }
    QColor fondo() const;
    QColor lateral() const;
    QColor superficie() const;
    QColor superficieAlta() const;
    QColor borde() const;
    QColor texto() const;
    QColor secundario() const;
    QColor sutil() const;
    QColor seleccion() const;
    QColor acento() const;
    QColor turquesa() const;
    QColor azul() const;
    QColor verde() const;
    QColor naranja() const;
    QColor rojo() const;
    QColor indigo() const;
    int espacio() const { return 8; }
    int margen() const { return 24; }
    int radio() const { return 14; }
    int radioChico() const { return 8; }
    int letra() const { return 14; }
    int letraChica() const { return 12; }
    int letraTitular() const { return 16; }
    int letraTitulo() const { return 24; }
    int letraCifra() const { return 30; }
    QString letraRedonda() const;
    bool movimientoReducido() const { return movimientoReducido_; }

    // The colour of a safety level (0 green, 1 orange, 2 red).
    Q_INVOKABLE QColor colorNivel(int nivel) const;
    // The colour of a section of the window, by its raw value.
    Q_INVOKABLE QColor colorSeccion(const QString& seccion) const;
    // The disk's colour by the share in use: one colour, and a gradient's two ends.
    Q_INVOKABLE QColor colorDisco(double usado) const;
    Q_INVOKABLE QVariantList degradadoDisco(double usado) const;

    static QColor qcolor(const Color& c);

    // Light or dark whatever the desktop says, for pictures drawn in both;
    // nullopt follows the palette again.
    void fijarEsquema(std::optional<bool> oscuro);

Q_SIGNALS:
    void cambiado();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    Tema();
    void leerPaleta();

    bool oscuro_ = false;
    std::optional<bool> esquema_;
    bool movimientoReducido_ = false;
};
