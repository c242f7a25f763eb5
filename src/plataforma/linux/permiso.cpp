// SPDX-License-Identifier: GPL-3.0-or-later
// The administrator's move into the Trash on Linux: the .trashinfo is written
// as the user, which reserves the name as the freedesktop.org Trash does, and
// pkexec (polkit's password prompt) runs mv for the rename alone.
#include "plataforma/permiso.h"

#include "plataforma/ejecutar.h"
#include "plataforma/papelera.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <optional>

namespace fs = std::filesystem;

namespace plataforma {
namespace {

// The path as the Path= line of a .trashinfo holds it: every byte but the
// unreserved ones and "/" as %XX.
std::string escaparRuta(const std::string& ruta)
{
    static constexpr char hex[] = "0123456789ABCDEF";
    std::string r;
    for (const unsigned char c : ruta) {
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

bool escribirTodo(int fd, const std::string& texto)
{
    size_t hecho = 0;
    while (hecho < texto.size()) {
        const ssize_t n = ::write(fd, texto.data() + hecho, texto.size() - hecho);
        if (n <= 0)
            return false;
        hecho += size_t(n);
    }
    return true;
}

// Creates info/<nombre>.trashinfo for the first free name ("x", "x.2", ...) and
// gives that name; the file's existence is the reservation.
std::optional<std::string> reservar(const fs::path& papelera, const fs::path& ruta)
{
    std::time_t ahora = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&ahora, &local);
    char fecha[32];
    std::strftime(fecha, sizeof fecha, "%Y-%m-%dT%H:%M:%S", &local);
    const std::string info = "[Trash Info]\nPath=" + escaparRuta(ruta.string()) + "\nDeletionDate=" + fecha + "\n";

    const std::string base = ruta.filename().string();
    for (int i = 1; i < 1000; ++i) {
        const std::string nombre = i == 1 ? base : base + "." + std::to_string(i);
        const fs::path archivo = papelera / "info" / (nombre + ".trashinfo");
        struct stat st;
        if (::lstat((papelera / "files" / nombre).c_str(), &st) == 0)
            continue;
        const int fd = ::open(archivo.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600);
        if (fd < 0) {
            if (errno == EEXIST)
                continue;
            return std::nullopt;
        }
        const bool ok = escribirTodo(fd, info) && ::fsync(fd) == 0;
        ::close(fd);
        if (!ok) {
            ::unlink(archivo.c_str());
            return std::nullopt;
        }
        return nombre;
    }
    return std::nullopt;
}

// The program given, or pkexec; empty when the move runs with the user's own
// rights, absent when there is no prompt to ask through.
std::optional<std::vector<std::string>> elevador(const std::optional<std::string>& dado)
{
    if (dado)
        return dado->empty() ? std::vector<std::string>{} : std::vector<std::string>{*dado};
    if (const auto pkexec = buscarPrograma({"/usr/bin/pkexec", "/bin/pkexec"}))
        return std::vector<std::string>{*pkexec};
    return std::nullopt;
}

} // namespace

bool moverAPapeleraComoAdministrador(const fs::path& ruta, const std::optional<std::string>& dado)
{
    const auto mv = buscarPrograma({"/usr/bin/mv", "/bin/mv"});
    auto orden = elevador(dado);
    struct stat origen;
    if (!mv || !orden || ::lstat(ruta.c_str(), &origen) != 0)
        return false;

    // The Trash is private to its user, as GIO makes it.
    const fs::path papelera = carpetaPapelera();
    std::error_code ec;
    fs::create_directories(papelera.parent_path(), ec);
    for (const fs::path& p : {papelera, papelera / "files", papelera / "info"})
        ::mkdir(p.c_str(), 0700);
    // mv would copy across file systems; a Trash only renames.
    struct stat destino;
    if (::stat((papelera / "files").c_str(), &destino) != 0 || destino.st_dev != origen.st_dev)
        return false;

    const auto nombre = reservar(papelera, ruta);
    if (!nombre)
        return false;
    const fs::path final = papelera / "files" / *nombre;
    orden->insert(orden->end(), {*mv, "-T", "-n", "--", ruta.string(), final.string()});
    const std::string programa = orden->front();
    orden->erase(orden->begin());
    ejecutar(programa, *orden, 300);

    // The exit status of pkexec doesn't tell a refused prompt from a failed
    // mv; what is on disk does.
    struct stat st;
    if (::lstat(ruta.c_str(), &st) != 0 && errno == ENOENT && ::lstat(final.c_str(), &st) == 0)
        return true;
    ::unlink((papelera / "info" / (*nombre + ".trashinfo")).c_str());
    return false;
}

} // namespace plataforma
