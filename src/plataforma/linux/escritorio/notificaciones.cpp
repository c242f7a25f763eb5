// SPDX-License-Identifier: GPL-3.0-or-later
// Notices through org.freedesktop.Notifications on the session bus.
#include "plataforma/escritorio.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <QVariantMap>

namespace plataforma {

namespace {

const QString servicio = QStringLiteral("org.freedesktop.Notifications");
const QString objeto = QStringLiteral("/org/freedesktop/Notifications");

} // namespace

Notificaciones::Notificaciones(QObject* padre) : QObject(padre) {}

void Notificaciones::escuchar()
{
    if (escuchando_)
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    escuchando_ = bus.connect(servicio, objeto, servicio, QStringLiteral("ActionInvoked"), this,
                              SLOT(accionInvocada(uint, QString)));
}

void Notificaciones::mostrar(const std::string& clave, const std::string& titulo, const std::string& cuerpo)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    QDBusMessage m = QDBusMessage::createMethodCall(servicio, objeto, servicio, QStringLiteral("Notify"));
    const auto anterior = numeros_.find(clave);
    const QVariantMap pistas{{QStringLiteral("desktop-entry"), QStringLiteral("vorlano")},
                             {QStringLiteral("urgency"), QVariant::fromValue(uchar(1))}};
    // The default action is what a click on the notice does.
    m << QStringLiteral("Vorlano") << uint(anterior == numeros_.end() ? 0 : anterior->second) << QString()
      << QString::fromStdString(titulo) << QString::fromStdString(cuerpo)
      << QStringList{QStringLiteral("default"), QStringLiteral("Abrir Vorlano")} << pistas << int(-1);
    // Asynchronous: a missing or slow service never holds up the caller.
    auto* espera = new QDBusPendingCallWatcher(bus.asyncCall(m), this);
    connect(espera, &QDBusPendingCallWatcher::finished, this, [this, clave](QDBusPendingCallWatcher* w) {
        const QDBusPendingReply<uint> r = *w;
        if (r.isValid())
            numeros_[clave] = r.value();
        w->deleteLater();
    });
}

void Notificaciones::accionInvocada(uint id, const QString& accion)
{
    if (accion != QLatin1String("default"))
        return;
    for (const auto& [clave, numero] : numeros_)
        if (numero == id) {
            Q_EMIT activada(QString::fromStdString(clave));
            return;
        }
}

} // namespace plataforma
