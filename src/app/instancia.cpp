// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/instancia.h"

#include "plataforma/sesion.h"

#include <QFile>
#include <QLocalSocket>
#include <QTimer>

namespace {

constexpr char cabecera[] = "vorlano\n";
// No start sends this much; a peer that does is cut off.
constexpr qsizetype maximo = 1 << 20;

} // namespace

Instancia::Instancia(std::filesystem::path ruta, QObject* padre) : QObject(padre), ruta_(std::move(ruta))
{
    connect(&servidor_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* c = servidor_.nextPendingConnection())
            atender(c);
    });
}

std::string Instancia::mensaje(const QStringList& enlaces)
{
    std::string m = cabecera;
    for (const QString& e : enlaces)
        m += e.toStdString() + "\n";
    return m;
}

bool Instancia::entregar(const QStringList& enlaces) const
{
    return plataforma::entregarAInstancia(ruta_, mensaje(enlaces));
}

bool Instancia::escuchar()
{
    const QString nombre = QFile::decodeName(QByteArray::fromStdString(ruta_.native()));
    if (servidor_.listen(nombre))
        return true;
    if (servidor_.serverError() != QAbstractSocket::AddressInUseError)
        return false;
    // Someone answers: a live instance. An empty connection tells it nothing.
    if (plataforma::entregarAInstancia(ruta_, {}))
        return false;
    QLocalServer::removeServer(nombre);
    return servidor_.listen(nombre);
}

void Instancia::atender(QLocalSocket* conexion)
{
    auto* datos = new QByteArray;
    connect(conexion, &QObject::destroyed, [datos] { delete datos; });
    connect(conexion, &QLocalSocket::readyRead, this, [conexion, datos] {
        datos->append(conexion->readAll());
        if (datos->size() > maximo)
            conexion->abort();
    });
    connect(conexion, &QLocalSocket::disconnected, this, [this, conexion, datos] {
        datos->append(conexion->readAll());
        conexion->deleteLater();
        if (datos->size() > maximo || !datos->startsWith(cabecera))
            return;
        QStringList enlaces;
        for (const QByteArray& l : datos->mid(qsizetype(sizeof cabecera - 1)).split('\n'))
            if (!l.isEmpty())
                enlaces.append(QString::fromUtf8(l));
        Q_EMIT recibido(enlaces);
    });
    // A peer that never finishes is not waited for.
    QTimer::singleShot(5000, conexion, [conexion, datos] {
        datos->clear();
        conexion->abort();
    });
}
