// SPDX-License-Identifier: GPL-3.0-or-later
#include "apoyo/casa.h"

#include "apoyo/proceso.h"
#include "escaner/escaner.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace apoyo {

namespace {

void escribirTodo(int fd, const char* p, size_t n)
{
    while (n > 0) {
        const ssize_t w = ::write(fd, p, n);
        if (w <= 0)
            throw std::runtime_error("no se pudo escribir un archivo de prueba");
        p += w;
        n -= size_t(w);
    }
}

void padres(const fs::path& p)
{
    fs::create_directories(p.parent_path());
}

} // namespace

fs::path carpetaTemporal(std::string_view prefijo)
{
    const char* tmp = std::getenv("TMPDIR");
    std::string plantilla = std::string(tmp && *tmp ? tmp : "/tmp") + "/" + std::string(prefijo) + "-XXXXXX";
    if (::mkdtemp(plantilla.data()) == nullptr)
        throw std::runtime_error("mkdtemp falló");
    return plantilla;
}

void borrarArbol(const fs::path& p)
{
    // Put back rights that a test took away, then remove; links aren't followed.
    std::error_code ec;
    struct stat st;
    if (::lstat(p.c_str(), &st) != 0)
        return;
    if (S_ISDIR(st.st_mode)) {
        ::chmod(p.c_str(), 0700);
        for (fs::directory_iterator it(p, ec), fin; !ec && it != fin; it.increment(ec))
            borrarArbol(it->path());
    }
    fs::remove(p, ec);
}

CasaPrueba::CasaPrueba() : raiz_(carpetaTemporal("vorlano-casa")) {}

CasaPrueba::~CasaPrueba()
{
    if (std::getenv("VORLANO_CONSERVAR") == nullptr)
        borrarArbol(raiz_);
}

fs::path CasaPrueba::crearDir(std::string_view relativa)
{
    const fs::path p = ruta(relativa);
    fs::create_directories(p);
    return p;
}

fs::path CasaPrueba::archivo(std::string_view relativa, int64_t bytes, char relleno)
{
    const fs::path p = ruta(relativa);
    padres(p);
    const int fd = ::open(p.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0)
        throw std::runtime_error("no se pudo crear " + p.string());
    const std::vector<char> bloque(1 << 20, relleno);
    for (int64_t quedan = bytes; quedan > 0;) {
        const size_t n = size_t(std::min<int64_t>(quedan, int64_t(bloque.size())));
        escribirTodo(fd, bloque.data(), n);
        quedan -= int64_t(n);
    }
    // Allocation is settled on close for ext4's delayed allocation; fsync makes
    // st_blocks final on every file system.
    ::fsync(fd);
    ::close(fd);
    return p;
}

fs::path CasaPrueba::archivoCon(std::string_view relativa, std::string_view contenido)
{
    const fs::path p = ruta(relativa);
    padres(p);
    const int fd = ::open(p.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0)
        throw std::runtime_error("no se pudo crear " + p.string());
    escribirTodo(fd, contenido.data(), contenido.size());
    ::close(fd);
    return p;
}

fs::path CasaPrueba::reservado(std::string_view relativa, int64_t bytes)
{
    const fs::path p = ruta(relativa);
    padres(p);
    const int fd = ::open(p.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0 || ::fallocate(fd, 0, 0, bytes) != 0)
        throw std::runtime_error("no se pudo reservar " + p.string());
    ::close(fd);
    return p;
}

fs::path CasaPrueba::disperso(std::string_view relativa, int64_t longitud)
{
    const fs::path p = ruta(relativa);
    padres(p);
    const int fd = ::open(p.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0 || ::ftruncate(fd, longitud) != 0)
        throw std::runtime_error("no se pudo crear " + p.string());
    ::close(fd);
    return p;
}

fs::path CasaPrueba::enlace(std::string_view relativa, const fs::path& destino)
{
    const fs::path p = ruta(relativa);
    padres(p);
    fs::create_symlink(destino, p);
    return p;
}

fs::path CasaPrueba::enlaceDuro(std::string_view relativa, std::string_view existente)
{
    const fs::path p = ruta(relativa);
    padres(p);
    fs::create_hard_link(ruta(existente), p);
    return p;
}

fs::path CasaPrueba::muchos(std::string_view carpeta, int n, int64_t bytes)
{
    const fs::path dir = crearDir(carpeta);
    const std::string contenido(size_t(bytes), 'm');
    for (int i = 0; i < n; ++i) {
        const fs::path p = dir / ("f" + std::to_string(i));
        const int fd = ::open(p.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        if (fd < 0)
            throw std::runtime_error("no se pudo crear " + p.string());
        escribirTodo(fd, contenido.data(), contenido.size());
        ::close(fd);
    }
    return dir;
}

void CasaPrueba::sinPermisos(std::string_view relativa)
{
    ::chmod(ruta(relativa).c_str(), 0);
}

void CasaPrueba::fecha(std::string_view relativa, Fecha cuando)
{
    using namespace std::chrono;
    const auto ns = duration_cast<nanoseconds>(cuando.time_since_epoch()).count();
    const timespec t{time_t(ns / 1'000'000'000), long(ns % 1'000'000'000)};
    const timespec ambas[2] = {t, t};
    ::utimensat(AT_FDCWD, ruta(relativa).c_str(), ambas, AT_SYMLINK_NOFOLLOW);
}

int64_t asignado(const fs::path& p)
{
    struct stat st;
    return ::lstat(p.c_str(), &st) == 0 ? int64_t(st.st_blocks) * 512 : -1;
}

std::string leer(const fs::path& p)
{
    std::ifstream f(p, std::ios::binary);
    std::stringstream s;
    s << f.rdbuf();
    return s.str();
}

std::map<std::string, std::string> huellas(const fs::path& raiz)
{
    std::map<std::string, std::string> r;
    auto anotar = [&](const fs::path& p) {
        struct stat st;
        if (::lstat(p.c_str(), &st) != 0)
            return;
        char modo[8];
        std::snprintf(modo, sizeof modo, "%o", unsigned(st.st_mode & 07777));
        const std::string clave = p == raiz ? "" : fs::relative(p, raiz).string();
        if (S_ISLNK(st.st_mode))
            r[clave] = "enlace -> " + fs::read_symlink(p).string();
        else if (S_ISDIR(st.st_mode))
            r[clave] = std::string("carpeta ") + modo;
        else if (S_ISREG(st.st_mode))
            r[clave] = std::string("archivo ") + modo + " " + Escaner::huellaCompleta(p.string()).value_or("ilegible");
        else
            r[clave] = std::string("otro ") + modo;
    };
    anotar(raiz);
    std::error_code ec;
    for (fs::recursive_directory_iterator it(raiz, ec), fin; !ec && it != fin; it.increment(ec))
        anotar(it->path());
    return r;
}

int64_t du(const fs::path& p)
{
    const Salida s = ejecutarPrograma("/usr/bin/du", {"-B1", "-s", p.string()});
    return s.estado == 0 ? std::stoll(s.salida) : -1;
}

} // namespace apoyo
