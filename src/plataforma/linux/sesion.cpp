// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/sesion.h"

#include "plataforma/escritura.h"
#include "plataforma/lectura.h"
#include "plataforma/lugares.h"
#include "plataforma/sistema.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <syslog.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace fs = std::filesystem;

namespace plataforma {

namespace {

// How long a second start waits for the running instance to take its links.
constexpr int esperaMs = 2000;

fs::path entradaAutostart(Arranque a)
{
    return carpetaBase(Base::config, carpetaPersonalReal(), false) /
           (a == Arranque::widget ? "autostart/vorlano-widget.desktop" : "autostart/vorlano.desktop");
}

// A path as one quoted argument of a desktop entry's Exec key: quoting first,
// then the escapes of a string value, then field codes.
std::string argumentoExec(const std::string& ruta)
{
    std::string r = "\"";
    for (char c : ruta) {
        if (c == '"' || c == '`' || c == '$' || c == '\\')
            r += '\\';
        r += c;
    }
    r += '"';
    std::string s;
    for (char c : r) {
        if (c == '\\')
            s += '\\';
        if (c == '%')
            s += '%';
        s += c;
    }
    return s;
}

std::string errorDelSistema()
{
    return std::strerror(errno);
}

} // namespace

fs::path rutaInstancia(const fs::path& home, bool prueba)
{
    // The runtime folder is private to the user and emptied at logout; without
    // one, the temporary folder with the user's number in the name.
    fs::path base = "/tmp";
    std::string nombre = "vorlano";
    struct stat st;
    if (const char* r = std::getenv("XDG_RUNTIME_DIR");
        r != nullptr && *r == '/' && ::stat(r, &st) == 0 && S_ISDIR(st.st_mode))
        base = r;
    else
        nombre += "-" + std::to_string(::getuid());
    if (prueba) {
        // FNV-1a of the home's bytes: short, and the same in every process.
        uint64_t h = 1469598103934665603ull;
        for (unsigned char c : home.native())
            h = (h ^ c) * 1099511628211ull;
        char hex[17];
        std::snprintf(hex, sizeof hex, "%016llx", static_cast<unsigned long long>(h));
        nombre += std::string("-prueba-") + hex;
    }
    return base / (nombre + ".sock");
}

bool entregarAInstancia(const fs::path& ruta, std::string_view mensaje)
{
    sockaddr_un dir{};
    dir.sun_family = AF_UNIX;
    if (ruta.native().size() >= sizeof dir.sun_path)
        return false;
    std::memcpy(dir.sun_path, ruta.c_str(), ruta.native().size());
    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (fd < 0)
        return false;
    // A socket left by a crashed instance refuses at once; a busy one that
    // doesn't read within the wait counts as absent, so this never hangs.
    bool hecho = ::connect(fd, reinterpret_cast<const sockaddr*>(&dir), sizeof dir) == 0;
    if (!hecho && errno == EAGAIN) {
        pollfd p{fd, POLLOUT, 0};
        int err = 0;
        socklen_t largo = sizeof err;
        hecho = ::poll(&p, 1, esperaMs) == 1 && ::getsockopt(fd, SOL_SOCKET, SO_ERROR, &err, &largo) == 0 && err == 0;
    }
    size_t enviado = 0;
    while (hecho && enviado < mensaje.size()) {
        const ssize_t n = ::send(fd, mensaje.data() + enviado, mensaje.size() - enviado, MSG_NOSIGNAL);
        if (n > 0) {
            enviado += size_t(n);
        } else if (n < 0 && errno == EAGAIN) {
            pollfd p{fd, POLLOUT, 0};
            hecho = ::poll(&p, 1, esperaMs) == 1;
        } else if (n < 0 && errno != EINTR) {
            hecho = false;
        }
    }
    ::close(fd);
    return hecho;
}

bool inicioSesionActivo(Arranque a)
{
    const auto texto = leerArchivo(entradaAutostart(a), 65536);
    if (!texto)
        return false;
    // An entry the user's session turned off stays in place, switched off.
    for (std::string_view resto = *texto; !resto.empty();) {
        const size_t fin = resto.find('\n');
        std::string_view linea = resto.substr(0, fin);
        resto = fin == std::string_view::npos ? std::string_view() : resto.substr(fin + 1);
        while (!linea.empty() && (linea.back() == ' ' || linea.back() == '\r'))
            linea.remove_suffix(1);
        if (linea == "Hidden=true" || linea == "X-GNOME-Autostart-enabled=false")
            return false;
    }
    return true;
}

std::optional<std::string> cambiarInicioSesion(bool activo, Arranque a)
{
    const fs::path entrada = entradaAutostart(a);
    if (!activo) {
        if (::unlink(entrada.c_str()) != 0 && errno != ENOENT)
            return errorDelSistema();
        return std::nullopt;
    }
    std::error_code ec;
    const fs::path programa = fs::read_symlink("/proc/self/exe", ec);
    if (ec)
        return ec.message();
    if (programa.native().find('\n') != std::string::npos)
        return "la ruta del programa no cabe en una entrada de escritorio";
    fs::create_directories(entrada.parent_path(), ec);
    const std::string contenido = "[Desktop Entry]\n"
                                  "Type=Application\n"
                                  "Name=" +
                                  (a == Arranque::widget ? std::string("Vorlano (widget)") : std::string("Vorlano")) +
                                  "\n"
                                  "Exec=" +
                                  argumentoExec(programa.native()) + (a == Arranque::widget ? " --widget" : "") +
                                  "\n"
                                  "Icon=vorlano\n"
                                  "X-GNOME-Autostart-enabled=true\n";
    if (!escribirAtomico(entrada, contenido))
        return "no se pudo escribir " + entrada.native();
    return std::nullopt;
}

bool hayEscritorio()
{
    for (const char* v : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"})
        if (const char* x = std::getenv(v); x != nullptr && *x)
            return true;
    return false;
}

void anotarEnSistema(const std::string& linea)
{
    ::openlog("vorlano", LOG_PID, LOG_USER);
    ::syslog(LOG_WARNING, "%s", linea.c_str());
    ::closelog();
}

} // namespace plataforma
