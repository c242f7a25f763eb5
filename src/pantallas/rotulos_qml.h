// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The computed texts of the main window for QML. Each takes the values it
// depends on as arguments, so a binding that calls it follows them.

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

class QQmlEngine;
class QJSEngine;

class Rotulos : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    // The sections of the window in order, each {valor, titulo, icono}.
    Q_PROPERTY(QVariantList secciones READ secciones CONSTANT)

public:
    static Rotulos* create(QQmlEngine*, QJSEngine*);

    QVariantList secciones() const;

    Q_INVOKABLE QString bytes(qint64 n) const;
    Q_INVOKABLE QString gigasCortos(qint64 n) const;
    // A translated text with its "{bytes}" filled in.
    Q_INVOKABLE QString conBytes(const QString& texto, qint64 n) const;
    Q_INVOKABLE QString tituloConfirmacion(qint64 seleccionado) const;
    Q_INVOKABLE QString mensajeConfirmacion(qint64 aBorrar, qint64 aPapelera, const QStringList& apps) const;
    Q_INVOKABLE QString lineaResultado(qint64 borrado, qint64 enPapelera) const;
    Q_INVOKABLE QString lineaEspacio(qint64 libreAntes, qint64 libreAhora) const;
    Q_INVOKABLE QString avisos(int n) const;
    Q_INVOKABLE QString lineaPapelera(qint64 enPapelera) const;
    Q_INVOKABLE QString elementos(int n) const;
    Q_INVOKABLE QString libresDe(qint64 libre, qint64 total) const;
    Q_INVOKABLE QString estadoTarjeta(qint64 tamanoSeleccionado, bool todoEnUso) const;
    // resultado as Estado gives it (a map, or null).
    Q_INVOKABLE int casoListo(const QVariant& resultado, qint64 seleccionado) const;
    // Historial.porSemana as {enGigas, barras, tope, marcas: [{valor, texto}], fechas}.
    Q_INVOKABLE QVariantMap grafico(const QVariantList& porSemana) const;
};
