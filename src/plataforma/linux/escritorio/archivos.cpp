// SPDX-License-Identifier: GPL-3.0-or-later
// Revealing an entry in the file manager: org.freedesktop.FileManager1 on
// the session bus, else the default application for the parent folder.
#include "plataforma/escritorio.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QStringList>
#include <QUrl>

namespace plataforma {

namespace {

// A file URI with the path's own bytes: everything but unreserved characters
// and slashes percent-encoded, so a name that isn't UTF-8 survives.
std::string uriDe(const std::filesystem::path& ruta)
{
    static constexpr char hex[] = "0123456789ABCDEF";
    std::string r = "file://";
    for (const unsigned char c : ruta.native()) {
        if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '.' ||
            c == '_' || c == '~' || c == '/') {
            r += char(c);
        } else {
            r += '%';
            r += hex[c >> 4];
            r += hex[c & 15];
        }
    }
    return r;
}

void abrirCarpeta(const std::filesystem::path& carpeta)
{
    // The desktop's default handler for folders (xdg-open or the portal);
    // failure is silent. The URI is ASCII, so QUrl keeps the bytes.
    QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(uriDe(carpeta))));
}

} // namespace

void mostrarEnArchivos(const std::filesystem::path& ruta)
{
    const std::filesystem::path carpeta = ruta.parent_path();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        abrirCarpeta(carpeta);
        return;
    }
    QDBusMessage m = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    // The URI is ASCII by construction, so the text keeps the bytes.
    m << QStringList{QString::fromLatin1(uriDe(ruta))} << QString();
    auto* espera = new QDBusPendingCallWatcher(bus.asyncCall(m));
    QObject::connect(espera, &QDBusPendingCallWatcher::finished, [carpeta](QDBusPendingCallWatcher* w) {
        if (w->isError())
            abrirCarpeta(carpeta);
        w->deleteLater();
    });
}

} // namespace plataforma
