// SPDX-License-Identifier: GPL-3.0-or-later
// Loaded with LD_PRELOAD into a child process, this makes chosen system calls
// fail with EIO, so that tests can see what a write does when the disk says no.
//   VORLANO_FALLO        the calls, comma-separated: fsync (of a file),
//                        fsync-carpeta (of a folder), rename
//   VORLANO_FALLO_EN     only for paths that contain this text
//   VORLANO_FALLO_VECES  only the first n calls that match
#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <string>

namespace {

std::atomic<int> fallados{0};

bool falla(const std::string& llamada, const std::string& ruta)
{
    const char* lista = std::getenv("VORLANO_FALLO");
    if (lista == nullptr || ("," + std::string(lista) + ",").find("," + llamada + ",") == std::string::npos)
        return false;
    if (const char* en = std::getenv("VORLANO_FALLO_EN"); en != nullptr && ruta.find(en) == std::string::npos)
        return false;
    if (const char* veces = std::getenv("VORLANO_FALLO_VECES"); veces != nullptr && fallados >= std::atoi(veces))
        return false;
    ++fallados;
    errno = EIO;
    return true;
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
    char ruta[4096] = {};
    struct stat st;
    const bool carpeta = ::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode);
    ::readlink(("/proc/self/fd/" + std::to_string(fd)).c_str(), ruta, sizeof ruta - 1);
    return falla(carpeta ? "fsync-carpeta" : "fsync", ruta) ? -1 : original<int (*)(int)>("fsync")(fd);
}

int rename(const char* de, const char* a)
{
    return falla("rename", a) ? -1 : original<int (*)(const char*, const char*)>("rename")(de, a);
}

} // extern "C"
