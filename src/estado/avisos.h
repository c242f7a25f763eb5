// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The low-space notice: warns once when free space falls under the limit of
// the settings, again only after free space has risen clearly above it, and
// never twice within 24 hours. Its two facts live in the settings store.

#include "estado/preferencias.h"
#include "nucleo/formato.h"
#include "plataforma/escritorio.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <cstdint>
#include <functional>

class QQmlEngine;
class QJSEngine;

class Avisos : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(qint64 limiteGB READ limiteGB NOTIFY limiteGBChanged)

public:
    // How far above the limit free space must rise to arm the notice again.
    static constexpr int64_t margen = 2'000'000'000;
    static constexpr const char* claveArmado = "avisoArmado";
    static constexpr const char* claveUltimo = "ultimoAviso";

    // ahora stands for the clock (the system's when empty).
    Avisos(Preferencias& preferencias, std::function<Fecha()> ahora = {}, QObject* padre = nullptr);

    // On the settings of the program and the system's clock.
    static Avisos& shared();
    static Avisos* create(QQmlEngine*, QJSEngine*);

    // Listens for the user's click on a notice, which brings up the window.
    void configurar();

    // The limit in decimal gigabytes: VORLANO_AVISO_GB in test mode when it
    // reads as a whole number, else the setting; 0 or less is off.
    int64_t limiteGB() const;

    // The decision, for each new figure of free bytes.
    void revisar(int64_t libre);

    // Notices need no permission on this desktop; the settings screen calls
    // this when a limit is chosen all the same.
    Q_INVOKABLE void pedirPermiso() {}

Q_SIGNALS:
    void limiteGBChanged();

private:
    void enviar(int64_t libre);

    Preferencias& preferencias_;
    std::function<Fecha()> ahora_;
    plataforma::Notificaciones notificaciones_;
};
