// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/lectura.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cerrno>
#include <cstring>

namespace plataforma {

bool existe(const std::filesystem::path& ruta)
{
    struct stat st;
    return ::stat(ruta.c_str(), &st) == 0;
}

bool ausenciaProbada(const std::filesystem::path& ruta)
{
    const std::string& p = ruta.native();
    if (p.empty() || p.front() != '/' || p.size() >= PATH_MAX)
        return false;
    // Down from the root one component at a time, each looked up in the
    // folder already open, as the kernel would: no prefix is looked up twice.
    int dir = ::open("/", O_PATH | O_DIRECTORY | O_CLOEXEC);
    for (size_t i = 1; dir >= 0 && i < p.size();) {
        const size_t fin = std::min(p.find('/', i), p.size());
        if (fin == i) {
            ++i;
            continue;
        }
        const std::string parte = p.substr(i, fin - i);
        i = fin;
        const int sig = ::openat(dir, parte.c_str(), O_PATH | O_CLOEXEC);
        if (sig < 0) {
            // Missing here: proven if this folder can be read.
            bool probada = false;
            if (errno == ENOENT) {
                const int leer = ::openat(dir, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
                probada = leer >= 0;
                if (leer >= 0)
                    ::close(leer);
            }
            ::close(dir);
            return probada;
        }
        ::close(dir);
        dir = sig;
    }
    if (dir >= 0)
        ::close(dir);
    return false;
}

std::vector<std::string> nombresEn(const std::filesystem::path& carpeta)
{
    std::vector<std::string> r;
    DIR* d = ::opendir(carpeta.c_str());
    if (d == nullptr)
        return r;
    while (const dirent* e = ::readdir(d))
        if (std::strcmp(e->d_name, ".") != 0 && std::strcmp(e->d_name, "..") != 0)
            r.emplace_back(e->d_name);
    ::closedir(d);
    return r;
}

std::optional<std::string> leerArchivo(const std::filesystem::path& ruta, size_t maximo)
{
    // O_NONBLOCK: opening a FIFO without a writer would otherwise wait forever.
    const int fd = ::open(ruta.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (fd < 0)
        return std::nullopt;
    std::optional<std::string> r;
    struct stat st;
    if (::fstat(fd, &st) == 0 && S_ISREG(st.st_mode) && uintmax_t(st.st_size) <= maximo) {
        // Read to the end rather than to the size: the files of /proc say 0,
        // and a file may grow meanwhile. One byte past the limit tells it was
        // passed.
        std::string datos(std::max<size_t>(size_t(st.st_size), 4096), '\0');
        size_t leido = 0;
        for (;;) {
            if (leido == datos.size())
                datos.resize(std::min(datos.size() * 2, maximo + 1));
            const ssize_t n = ::read(fd, datos.data() + leido, datos.size() - leido);
            if (n < 0 && errno == EINTR)
                continue;
            if (n <= 0)
                break;
            leido += size_t(n);
            if (leido > maximo)
                break;
        }
        datos.resize(leido);
        if (leido <= maximo)
            r = std::move(datos);
    }
    ::close(fd);
    return r;
}

bool empiezaPor(const char* ruta, std::string_view firma)
{
    const int fd = ::open(ruta, O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (fd < 0)
        return false;
    char inicio[16];
    struct stat st;
    const bool r = firma.size() <= sizeof inicio && ::fstat(fd, &st) == 0 && S_ISREG(st.st_mode) &&
                   ::pread(fd, inicio, firma.size(), 0) == ssize_t(firma.size()) &&
                   std::string_view(inicio, firma.size()) == firma;
    ::close(fd);
    return r;
}

} // namespace plataforma
