// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The widget's fixed content for QML: the controls of the medium and large
// sizes with their links, and the pieces of a figure in gigabytes.

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

class QQmlEngine;
class QJSEngine;

class DatosWidget : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    // The link of the ring and of the whole small widget.
    Q_PROPERTY(QString urlResumen READ urlResumen CONSTANT)
    // The three buttons of the medium size and the four shortcuts of the
    // large one, each {url, simbolo, tinte, titulo, subtitulo}; tinte names a
    // colour of Tema.
    Q_PROPERTY(QVariantList botones READ botones CONSTANT)
    Q_PROPERTY(QVariantList accesos READ accesos CONSTANT)

public:
    static DatosWidget* create(QQmlEngine*, QJSEngine*);

    QString urlResumen() const;
    QVariantList botones() const;
    QVariantList accesos() const;

    // The size to draw for a family's name: "chico", "mediano" or "grande",
    // chico for any other.
    Q_INVOKABLE QString familia(const QString& nombre) const;
    // "46 GB" as its number and its unit.
    Q_INVOKABLE QString numeroGigas(qint64 bytes) const;
    Q_INVOKABLE QString unidadGigas(qint64 bytes) const;
};
