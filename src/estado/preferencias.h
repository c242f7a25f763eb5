// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The stored settings: their names, their registered defaults, and typed
// reading that takes a value of the wrong type for a missing one.

#include <QObject>
#include <QSettings>
#include <QString>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>

class QQmlEngine;
class QJSEngine;

class Preferencias : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool barraMenu READ conBarraMenu WRITE ponerBarraMenu NOTIFY barraMenuChanged)
    Q_PROPERTY(int avisoGB READ avisoGB WRITE ponerAvisoGB NOTIFY avisoGBChanged)
    Q_PROPERTY(bool bienvenidaVista READ bienvenidaVista WRITE ponerBienvenidaVista NOTIFY bienvenidaVistaChanged)

public:
    static constexpr const char* claveBarraMenu = "barraMenu";
    static constexpr const char* claveAvisoGB = "avisoGB";
    static constexpr const char* claveBienvenida = "bienvenidaVista";

    // A settings file of our choosing.
    explicit Preferencias(const QString& archivo, QObject* padre = nullptr);

    // The instance of the program, on the user's file, made on first use.
    static Preferencias& shared();
    static Preferencias* create(QQmlEngine*, QJSEngine*);

    // The defaults of a graphical start: the tray item on, notices under 20 GB.
    void registrarDefectos();

    // The stored value, or the registered default, or nothing; a stored value
    // that doesn't read as the type counts as missing.
    std::optional<bool> booleano(const char* clave) const;
    std::optional<int64_t> entero(const char* clave) const;
    std::optional<QString> texto(const char* clave) const;
    void poner(const char* clave, const QVariant& valor);

    bool conBarraMenu() const { return booleano(claveBarraMenu).value_or(false); }
    int avisoGB() const;
    bool bienvenidaVista() const { return booleano(claveBienvenida).value_or(false); }
    void ponerBarraMenu(bool v);
    void ponerAvisoGB(int v);
    void ponerBienvenidaVista(bool v);

Q_SIGNALS:
    void barraMenuChanged();
    void avisoGBChanged();
    void bienvenidaVistaChanged();

private:
    // The settings file of the user: Vorlano/Vorlano.conf under the config
    // home. Private, so that QML too takes the one instance from create()
    // rather than making its own.
    Preferencias();
    std::optional<QVariant> valor(const char* clave) const;

    std::unique_ptr<QSettings> almacen_;
    std::map<QString, QVariant> defectos_;
};
