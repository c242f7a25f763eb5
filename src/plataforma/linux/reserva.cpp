// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/linux/reserva.h"

#include "plataforma/idioma.h"
#include "plataforma/papelera.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>

namespace fs = std::filesystem;

namespace plataforma {

namespace {

// Room for ".trashinfo" and a numeric suffix within a file name's 255 bytes.
constexpr size_t nombreMaximo = 200;

// The path as the Path= line holds it: every byte but the unreserved ones and
// "/" as %XX, so a name that isn't UTF-8 survives the trip.
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
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        hecho += size_t(n);
    }
    return true;
}

// A long name is cut at a character's start, not inside a UTF-8 sequence.
std::string acortar(std::string_view nombre)
{
    if (nombre.size() <= nombreMaximo)
        return std::string(nombre);
    size_t corte = nombreMaximo;
    while (corte > 0 && (static_cast<unsigned char>(nombre[corte]) & 0xC0) == 0x80)
        --corte;
    return std::string(nombre.substr(0, corte));
}

bool abrirSub(int papelera, const char* nombre, Descriptor& d)
{
    if (::mkdirat(papelera, nombre, 0700) != 0 && errno != EEXIST)
        return false;
    d = Descriptor(::openat(papelera, nombre, abrirCarpeta));
    return d.get() >= 0;
}

} // namespace

bool abrirPapelera(PapeleraAbierta& p)
{
    const fs::path papelera = carpetaPapelera();
    std::error_code ec;
    fs::create_directories(papelera.parent_path(), ec);
    if (::mkdir(papelera.c_str(), 0700) != 0 && errno != EEXIST)
        return false;
    // The Trash itself may be a link, as GIO allows; what is inside may not.
    const Descriptor dir(::open(papelera.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return dir.get() >= 0 && abrirSub(dir.get(), "files", p.archivos) && abrirSub(dir.get(), "info", p.info);
}

std::optional<std::string> reservarNombre(const PapeleraAbierta& p, std::string_view nombre, const fs::path& original)
{
    const std::time_t ahora = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&ahora, &local);
    char fecha[32];
    std::strftime(fecha, sizeof fecha, "%Y-%m-%dT%H:%M:%S", &local);
    const std::string info =
        "[Trash Info]\nPath=" + escaparRuta(original.string()) + "\nDeletionDate=" + fecha + "\n";

    const std::string base = acortar(nombre);
    for (int i = 1; i < 1000; ++i) {
        const std::string n = i == 1 ? base : base + "." + std::to_string(i);
        struct stat st;
        if (::fstatat(p.archivos.get(), n.c_str(), &st, AT_SYMLINK_NOFOLLOW) == 0)
            continue;
        const std::string archivo = n + ".trashinfo";
        const int fd = ::openat(p.info.get(), archivo.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600);
        if (fd < 0) {
            if (errno == EEXIST)
                continue;
            return std::nullopt;
        }
        const bool ok = escribirTodo(fd, info) && ::fsync(fd) == 0;
        const int error = errno;
        ::close(fd);
        if (!ok) {
            ::unlinkat(p.info.get(), archivo.c_str(), 0);
            errno = error;
            return std::nullopt;
        }
        return n;
    }
    errno = EEXIST;
    return std::nullopt;
}

void anularReserva(const PapeleraAbierta& p, const std::string& nombre)
{
    ::unlinkat(p.info.get(), (nombre + ".trashinfo").c_str(), 0);
}

std::string enOtroSistema()
{
    return tr("No se puede mover a la Papelera porque está en otro sistema de archivos");
}

fs::path sinBarraFinal(fs::path ruta)
{
    while (ruta.has_relative_path() && !ruta.has_filename())
        ruta = ruta.parent_path();
    return ruta;
}

} // namespace plataforma
