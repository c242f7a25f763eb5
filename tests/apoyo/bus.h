// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A D-Bus session bus of the test's own, and a notification service on it
// that records what it is asked to show.

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <filesystem>
#include <string>
#include <vector>

namespace apoyo {

// A dbus-daemon of this process, with nothing to start on demand, so that a
// test meets exactly the services it puts there. Stopped with the object.
class BusPrueba {
public:
    explicit BusPrueba(const std::filesystem::path& carpeta);
    ~BusPrueba();
    BusPrueba(const BusPrueba&) = delete;
    BusPrueba& operator=(const BusPrueba&) = delete;

    // For DBUS_SESSION_BUS_ADDRESS; empty when the daemon didn't start.
    const std::string& direccion() const { return direccion_; }

private:
    int pid_ = -1;
    std::string direccion_;
};

// org.freedesktop.Notifications on the session bus, on a connection of its
// own: keeps every Notify call and answers with growing numbers.
class ServidorNotificaciones : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    struct Aviso {
        uint numero = 0;
        uint reemplaza = 0;
        QString titulo;
        QString cuerpo;
        QStringList acciones;
    };

    ServidorNotificaciones();
    ~ServidorNotificaciones() override;
    // Whether the name could be taken.
    bool activo() const { return activo_; }
    const std::vector<Aviso>& avisos() const { return avisos_; }
    // As if the user clicked the notice of that number.
    void pulsar(uint numero);

public Q_SLOTS:
    uint Notify(const QString& app, uint reemplaza, const QString& icono, const QString& titulo, const QString& cuerpo,
                const QStringList& acciones, const QVariantMap& pistas, int caduca);
    QStringList GetCapabilities();

Q_SIGNALS:
    void ActionInvoked(uint id, const QString& accion);
    void recibido();

private:
    QDBusConnection conexion_;
    bool activo_ = false;
    std::vector<Aviso> avisos_;
};

} // namespace apoyo
