// SPDX-License-Identifier: GPL-3.0-or-later
#include "apoyo/bus.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

extern char** environ;

namespace apoyo {

BusPrueba::BusPrueba(const std::filesystem::path& carpeta)
{
    std::filesystem::create_directories(carpeta);
    const auto config = carpeta / "bus.conf";
    std::ofstream(config) << "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
                             " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
                             "<busconfig><type>session</type><listen>unix:dir="
                          << carpeta.native()
                          << "</listen><auth>EXTERNAL</auth><policy context=\"default\">"
                             "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
                             "<allow own=\"*\"/></policy></busconfig>\n";
    int tubo[2];
    if (::pipe2(tubo, O_CLOEXEC) != 0)
        return;
    posix_spawn_file_actions_t acciones;
    posix_spawn_file_actions_init(&acciones);
    posix_spawn_file_actions_adddup2(&acciones, tubo[1], 1);
    // Its complaints about limits it may not raise are no business of the test.
    posix_spawn_file_actions_addopen(&acciones, 2, "/dev/null", O_WRONLY, 0);
    std::string argConfig = "--config-file=" + config.native();
    char* argv[] = {const_cast<char*>("dbus-daemon"), argConfig.data(), const_cast<char*>("--nofork"),
                    const_cast<char*>("--print-address"), nullptr};
    if (::posix_spawnp(&pid_, "dbus-daemon", &acciones, nullptr, argv, environ) != 0)
        pid_ = -1;
    posix_spawn_file_actions_destroy(&acciones);
    ::close(tubo[1]);
    // The daemon prints its address once it listens.
    char buf[512];
    size_t n = 0;
    pollfd p{tubo[0], POLLIN, 0};
    while (pid_ > 0 && n < sizeof buf && ::poll(&p, 1, 10000) == 1) {
        const ssize_t r = ::read(tubo[0], buf + n, sizeof buf - n);
        if (r <= 0)
            break;
        n += size_t(r);
        if (std::string_view(buf, n).find('\n') != std::string_view::npos)
            break;
    }
    ::close(tubo[0]);
    const std::string_view texto(buf, n);
    if (const size_t fin = texto.find('\n'); fin != std::string_view::npos)
        direccion_ = std::string(texto.substr(0, fin));
}

BusPrueba::~BusPrueba()
{
    if (pid_ > 0) {
        ::kill(pid_, SIGTERM);
        ::waitpid(pid_, nullptr, 0);
    }
}

ServidorNotificaciones::ServidorNotificaciones()
    : conexion_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("servidor-notificaciones")))
{
    activo_ = conexion_.isConnected() &&
              conexion_.registerObject(QStringLiteral("/org/freedesktop/Notifications"), this,
                                       QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals) &&
              conexion_.registerService(QStringLiteral("org.freedesktop.Notifications"));
}

ServidorNotificaciones::~ServidorNotificaciones()
{
    conexion_.unregisterService(QStringLiteral("org.freedesktop.Notifications"));
    conexion_.unregisterObject(QStringLiteral("/org/freedesktop/Notifications"));
    QDBusConnection::disconnectFromBus(QStringLiteral("servidor-notificaciones"));
}

uint ServidorNotificaciones::Notify(const QString&, uint reemplaza, const QString&, const QString& titulo,
                                    const QString& cuerpo, const QStringList& acciones, const QVariantMap&, int)
{
    const uint numero = reemplaza != 0 ? reemplaza : uint(avisos_.size() + 1);
    avisos_.push_back({numero, reemplaza, titulo, cuerpo, acciones});
    Q_EMIT recibido();
    return numero;
}

QStringList ServidorNotificaciones::GetCapabilities()
{
    return {QStringLiteral("actions"), QStringLiteral("body")};
}

void ServidorNotificaciones::pulsar(uint numero)
{
    Q_EMIT ActionInvoked(numero, QStringLiteral("default"));
}

} // namespace apoyo
