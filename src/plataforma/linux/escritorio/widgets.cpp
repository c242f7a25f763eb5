// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/escritorio.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace plataforma {

void recargarWidgets()
{
    // A signal on the session bus: the widget host listens for it, and
    // redraws on its own timer as well, so a lost signal only delays it.
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected())
        bus.send(QDBusMessage::createSignal(QStringLiteral("/app/vorlano/Vorlano"),
                                            QStringLiteral("app.vorlano.Vorlano.Widgets"),
                                            QStringLiteral("Recargar")));
}

} // namespace plataforma
