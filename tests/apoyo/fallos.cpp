// SPDX-License-Identifier: GPL-3.0-or-later
// Loaded with LD_PRELOAD into a child process, this makes chosen system calls
// fail with EIO, so that tests can see what a write does when the disk says no.
//   VORLANO_FALLO        the calls, comma-separated: fsync (of a file),
//                        fsync-carpeta (of a folder), rename
//   VORLANO_FALLO_EN     only for paths that contain this text
//   VORLANO_FALLO_VECES  only the first n calls that match
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

std::atomic<int> fallados{0};

bool nombrada(std::string_view llamada)
{
    const char* lista = std::getenv("VORLANO_FALLO");
    if (lista == nullptr)
        return false;
    std::string_view resto(lista);
    while (!resto.empty()) {
        const size_t coma = resto.find(',');
        if (resto.substr(0, coma) == llamada)
            return true;
        if (coma == std::string_view::npos)
            break;
        resto.remove_prefix(coma + 1);
    }
    return false;
}

bool falla(std::string_view llamada, const std::string& ruta)
{
    if (!nombrada(llamada))
        return false;
    if (const char* en = std::getenv("VORLANO_FALLO_EN"); en != nullptr && ruta.find(en) == std::string::npos)
        return false;
    if (const char* veces = std::getenv("VORLANO_FALLO_VECES"); veces != nullptr && fallados >= std::atoi(veces))
        return false;
    ++fallados;
    return true;
}

std::string rutaDe(int fd)
{
    char enlace[64];
    char destino[4096];
    std::snprintf(enlace, sizeof enlace, "/proc/self/fd/%d", fd);
    const ssize_t n = ::readlink(enlace, destino, sizeof destino);
    return n > 0 ? std::string(destino, size_t(n)) : std::string();
}

bool fallaSincronizar(int fd)
{
    struct stat st;
    const bool carpeta = ::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode);
    return falla(carpeta ? "fsync-carpeta" : "fsync", rutaDe(fd));
}

template <typename F>
F original(const char* nombre)
{
    return reinterpret_cast<F>(::dlsym(RTLD_NEXT, nombre));
}

} // namespace

extern "C" {

int fsync(int fd)
{
    if (fallaSincronizar(fd)) {
        errno = EIO;
        return -1;
    }
    return original<int (*)(int)>("fsync")(fd);
}

int fdatasync(int fd)
{
    if (fallaSincronizar(fd)) {
        errno = EIO;
        return -1;
    }
    return original<int (*)(int)>("fdatasync")(fd);
}

int rename(const char* de, const char* a)
{
    if (falla("rename", a)) {
        errno = EIO;
        return -1;
    }
    return original<int (*)(const char*, const char*)>("rename")(de, a);
}

int renameat(int dirDe, const char* de, int dirA, const char* a)
{
    if (falla("rename", a)) {
        errno = EIO;
        return -1;
    }
    return original<int (*)(int, const char*, int, const char*)>("renameat")(dirDe, de, dirA, a);
}

int renameat2(int dirDe, const char* de, int dirA, const char* a, unsigned int opciones)
{
    if (falla("rename", a)) {
        errno = EIO;
        return -1;
    }
    return original<int (*)(int, const char*, int, const char*, unsigned int)>("renameat2")(dirDe, de, dirA, a,
                                                                                         opciones);
}

} // extern "C"
