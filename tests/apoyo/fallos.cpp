// SPDX-License-Identifier: GPL-3.0-or-later
// Loaded with LD_PRELOAD into a child process, this makes chosen system calls
// fail with EIO, so that tests can see what a write does when the disk says no.
//   VORLANO_FALLO  the calls, comma-separated: fsync (of a file),
//                  fsync-carpeta (of a folder), rename
#include <dlfcn.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <string>

namespace {

bool falla(const std::string& llamada)
{
    const char* lista = std::getenv("VORLANO_FALLO");
    if (lista == nullptr || ("," + std::string(lista) + ",").find("," + llamada + ",") == std::string::npos)
        return false;
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
    struct stat st;
    const bool carpeta = ::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode);
    return falla(carpeta ? "fsync-carpeta" : "fsync") ? -1 : original<int (*)(int)>("fsync")(fd);
}

int rename(const char* de, const char* a)
{
    return falla("rename") ? -1 : original<int (*)(const char*, const char*)>("rename")(de, a);
}

} // extern "C"
