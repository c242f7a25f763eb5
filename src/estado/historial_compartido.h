// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The history of the running program: one instance, bound to the environment
// at first use, that every writer (cleaning, uninstall, map) goes through and
// that tells its observers when the entries change. Main thread only.

#include "limpieza/historial.h"

#include <QObject>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

class QQmlEngine;
class QJSEngine;

class HistorialCompartido : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Historial)
    QML_SINGLETON
    // Each entry as {fecha, borrado, papelera, tipo, total}, oldest first.
    Q_PROPERTY(QVariantList registros READ registrosLista NOTIFY registrosChanged)
    Q_PROPERTY(qint64 esteMes READ esteMes NOTIFY registrosChanged)
    Q_PROPERTY(qint64 total READ total NOTIFY registrosChanged)
    // The last 8 weeks as {inicio, bytes}, oldest first.
    Q_PROPERTY(QVariantList porSemana READ porSemanaLista NOTIFY registrosChanged)

public:
    // The one instance: its file lies under the home of Entorno::actual() at
    // the moment of the first call.
    static HistorialCompartido& shared();
    static HistorialCompartido* create(QQmlEngine*, QJSEngine*);

    // Records what an operation freed; an operation that freed nothing
    // changes nothing and tells nobody.
    void anotar(const Resultado& resultado, const std::string& tipo);

    const Historial& historial() const { return historial_; }
    int64_t esteMes() const { return historial_.esteMes(); }
    int64_t total() const { return historial_.total(); }
    QVariantList registrosLista() const;
    QVariantList porSemanaLista() const;

Q_SIGNALS:
    void registrosChanged();

private:
    explicit HistorialCompartido(Historial historial);
    Historial historial_;
};
