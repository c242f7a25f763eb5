// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The icons of every screen: one table from the symbol names the program
// speaks of ("sparkles", "xmark.app") to glyphs of the Material Icons font,
// which the program depends on, so every desktop and every test shows the
// same pictures whatever the user's icon theme.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <span>
#include <string_view>

class QQmlEngine;
class QJSEngine;

struct Simbolo {
    std::string_view nombre;
    char16_t glifo;
};

// Every symbol with a glyph, in no particular order.
std::span<const Simbolo> tablaDeSimbolos();
// The glyph of a symbol; a neutral one for a name the table lacks, so a row
// never loses its picture.
char16_t glifoDe(std::string_view simbolo);

class Iconos : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    // The font family to draw the glyphs with.
    Q_PROPERTY(QString familia READ familia CONSTANT)

public:
    static Iconos& shared();
    static Iconos* create(QQmlEngine*, QJSEngine*);

    QString familia() const { return familia_; }
    // The glyph of a symbol as a one-character text.
    Q_INVOKABLE QString glifo(const QString& simbolo) const;

private:
    Iconos();
    QString familia_;
};
