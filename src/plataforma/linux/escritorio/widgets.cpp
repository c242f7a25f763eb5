// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/escritorio.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace plataforma {

namespace {

const QString objeto = QStringLiteral("/app/vorlano/Vorlano");
const QString interfaz = QStringLiteral("app.vorlano.Vorlano.Widgets");
const QString senal = QStringLiteral("Recargar");

} // namespace

void recargarWidgets()
{
    // A signal on the session bus: the widget host listens for it, and
    // redraws on its own timer as well, so a lost signal only delays it.
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected())
        bus.send(QDBusMessage::createSignal(objeto, interfaz, senal));
}

RecargaWidgets::RecargaWidgets(QObject* padre) : QObject(padre)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected())
        bus.connect(QString(), objeto, interfaz, senal, this, SIGNAL(recargar()));
}

} // namespace plataforma
