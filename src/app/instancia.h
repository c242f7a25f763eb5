// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One running instance per user: it listens on a local socket, and a second
// start hands it its links there and ends.

#include <QLocalServer>
#include <QObject>
#include <QStringList>

#include <filesystem>
#include <string>

class Instancia : public QObject {
    Q_OBJECT
public:
    explicit Instancia(std::filesystem::path ruta, QObject* padre = nullptr);

    // What a start sends: a first line that marks it, then one link a line.
    static std::string mensaje(const QStringList& enlaces);
    // Sends the links to the running instance; false when none answers.
    bool entregar(const QStringList& enlaces) const;

    // Starts listening. A socket left by a crashed instance is replaced; false
    // when a live instance holds it or the socket can't be made.
    bool escuchar();

Q_SIGNALS:
    // A later start said this: its links, none when it had none.
    void recibido(const QStringList& enlaces);

private:
    void atender(QLocalSocket* conexion);

    std::filesystem::path ruta_;
    QLocalServer servidor_;
};
