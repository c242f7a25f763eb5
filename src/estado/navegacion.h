// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The link received and not yet served, and the action that brings up the
// main window from outside the views. Main thread only.

#include "nucleo/modelo.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

class QQmlEngine;
class QJSEngine;

class Navegacion : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    // The raw value of the pending link ("mapa"), empty when none waits.
    Q_PROPERTY(QString pendiente READ pendienteTexto NOTIFY pendienteChanged)

public:
    static Navegacion& shared();
    static Navegacion* create(QQmlEngine*, QJSEngine*);

    void ir(Enlace enlace);
    // The pending link, which is then gone: a link is served once.
    std::optional<Enlace> tomarEnlace();
    // The same for the screens: the raw value, or empty.
    Q_INVOKABLE QString tomar();
    // A screen asks for the settings window; the shell opens it.
    Q_INVOKABLE void pedirAjustes() { Q_EMIT ajustesPedidos(); }

    std::optional<Enlace> pendiente() const { return pendiente_; }
    QString pendienteTexto() const;

Q_SIGNALS:
    void pendienteChanged();
    void ajustesPedidos();

private:
    Navegacion() = default;
    std::optional<Enlace> pendiente_;
};

// What brings up the main window; empty until the shell provides it.
namespace Ventana {
inline std::function<void()> abrir;
}
