// SPDX-License-Identifier: GPL-3.0-or-later
#include "apoyo/casa.h"

#include "apoyo/proceso.h"
#include "escaner/escaner.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace apoyo {

namespace {

bool escribirTodo(int fd, std::string_view datos)
{
    for (ssize_t w; !datos.empty(); datos.remove_prefix(size_t(w)))
        if ((w = ::write(fd, datos.data(), datos.size())) <= 0)
            return false;
    return true;
}

// A new file (parents created), filled by f through its descriptor.
fs::path conArchivo(const fs::path& p, const std::function<bool(int)>& f)
{
    fs::create_directories(p.parent_path());
    const int fd = ::open(p.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    const bool ok = fd >= 0 && f(fd);
    ::close(fd);
    if (!ok)
        throw std::runtime_error("no se pudo crear " + p.string());
    return p;
}

} // namespace

fs::path carpetaTemporal(std::string_view prefijo, bool enMemoria)
{
    const char* tmp = std::getenv("TMPDIR");
    std::string base = tmp && *tmp ? tmp : "/tmp";
    if (enMemoria && ::access("/dev/shm", W_OK) == 0)
        base = "/dev/shm";
    std::string plantilla = base + "/" + std::string(prefijo) + "-XXXXXX";
    if (::mkdtemp(plantilla.data()) == nullptr)
        throw std::runtime_error("mkdtemp falló");
    return plantilla;
}

void borrarArbol(const fs::path& p)
{
    // Put back rights that a test took away, then remove; links aren't followed.
    std::error_code ec;
    if (fs::is_directory(fs::symlink_status(p, ec))) {
        ::chmod(p.c_str(), 0700);
        for (fs::directory_iterator it(p, ec), fin; !ec && it != fin; it.increment(ec))
            borrarArbol(it->path());
    }
    fs::remove(p, ec);
}

CasaPrueba::CasaPrueba(bool enMemoria) : raiz_(carpetaTemporal("vorlano-casa", enMemoria)) {}

CasaPrueba::~CasaPrueba()
{
    borrarArbol(raiz_);
}

fs::path CasaPrueba::crearDir(std::string_view relativa)
{
    fs::create_directories(ruta(relativa));
    return ruta(relativa);
}

fs::path CasaPrueba::archivo(std::string_view relativa, int64_t bytes, char relleno)
{
    return conArchivo(ruta(relativa), [&](int fd) {
        const std::string bloque(1 << 20, relleno);
        for (int64_t quedan = bytes; quedan > 0; quedan -= int64_t(bloque.size()))
            if (!escribirTodo(fd, std::string_view(bloque).substr(0, size_t(std::min<int64_t>(quedan, 1 << 20)))))
                return false;
        // ext4 settles the allocation late; fsync makes st_blocks final.
        return ::fsync(fd) == 0;
    });
}

fs::path CasaPrueba::archivoCon(std::string_view relativa, std::string_view contenido)
{
    return conArchivo(ruta(relativa), [&](int fd) { return escribirTodo(fd, contenido); });
}

fs::path CasaPrueba::reservado(std::string_view relativa, int64_t bytes)
{
    return conArchivo(ruta(relativa), [&](int fd) { return ::fallocate(fd, 0, 0, bytes) == 0; });
}

fs::path CasaPrueba::disperso(std::string_view relativa, int64_t longitud)
{
    return conArchivo(ruta(relativa), [&](int fd) { return ::ftruncate(fd, longitud) == 0; });
}

fs::path CasaPrueba::enlace(std::string_view relativa, const fs::path& destino)
{
    fs::create_directories(ruta(relativa).parent_path());
    fs::create_symlink(destino, ruta(relativa));
    return ruta(relativa);
}

fs::path CasaPrueba::enlaceDuro(std::string_view relativa, std::string_view existente)
{
    fs::create_directories(ruta(relativa).parent_path());
    fs::create_hard_link(ruta(existente), ruta(relativa));
    return ruta(relativa);
}

void CasaPrueba::muchos(std::string_view carpeta, int n, int64_t bytes)
{
    crearDir(carpeta);
    const std::string contenido(size_t(bytes), 'm');
    for (int i = 0; i < n; ++i)
        archivoCon(std::string(carpeta) + "/f" + std::to_string(i), contenido);
}

void CasaPrueba::sinPermisos(std::string_view relativa)
{
    ::chmod(ruta(relativa).c_str(), 0);
}

void CasaPrueba::fecha(std::string_view relativa, Fecha cuando)
{
    const auto ns = std::chrono::duration_cast<std::chrono::nanoseconds>(cuando.time_since_epoch()).count();
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
        std::string& h = r[p == raiz ? "" : fs::relative(p, raiz).string()];
        if (S_ISLNK(st.st_mode))
            h = "enlace -> " + fs::read_symlink(p).string();
        else if (S_ISDIR(st.st_mode))
            h = std::string("carpeta ") + modo;
        else if (S_ISREG(st.st_mode))
            h = std::string("archivo ") + modo + " " + Escaner::huellaCompleta(p.string()).value_or("ilegible");
        else
            h = std::string("otro ") + modo;
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

std::map<std::string, std::string> papelera(const fs::path& datos)
{
    const std::regex forma("\\[Trash Info\\]\nPath=((?:[-A-Za-z0-9/._~]|%[0-9A-F]{2})+)\n"
                           "DeletionDate=[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}\n");
    std::map<std::string, std::string> r;
    std::error_code ec;
    for (fs::directory_iterator it(datos / "Trash/info", ec), fin; !ec && it != fin; it.increment(ec)) {
        const std::string texto = leer(it->path());
        std::smatch m;
        if (it->path().extension() != ".trashinfo" || !std::regex_match(texto, m, forma)) {
            ADD_FAILURE() << it->path() << ":\n" << texto;
            continue;
        }
        const std::string cifrada = m[1];
        std::string ruta;
        for (size_t i = 0; i < cifrada.size(); ++i)
            if (cifrada[i] == '%') {
                ruta += char(std::stoi(cifrada.substr(i + 1, 2), nullptr, 16));
                i += 2;
            } else {
                ruta += cifrada[i];
            }
        r[ruta] = it->path().stem().string();
    }
    return r;
}

fs::path aislarProceso()
{
    const auto casa = carpetaTemporal("vorlano-home");
    ::setenv("HOME", casa.c_str(), 1);
    ::setenv("XDG_DATA_HOME", (casa / ".local/share").c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (casa / ".config").c_str(), 1);
    ::setenv("XDG_CACHE_HOME", (casa / ".cache").c_str(), 1);
    ::setenv("XDG_STATE_HOME", (casa / ".local/state").c_str(), 1);
    for (const char* v : {"VORLANO_HOME", "VORLANO_TIEMPOS", "VORLANO_GRANDE_MB", "VORLANO_AVISO_GB"})
        ::unsetenv(v);
    // Texts are compared as the source texts: no language of the machine's
    // user picks a catalogue, here or in the programs the tests start.
    for (const char* v : {"LANGUAGE", "LC_ALL", "LC_MESSAGES"})
        ::unsetenv(v);
    ::setenv("LANG", "C.UTF-8", 1);
    return casa;
}

} // namespace apoyo
