// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/lectura.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace plataforma {

bool existe(const std::filesystem::path& ruta)
{
    struct stat st;
    return ::stat(ruta.c_str(), &st) == 0;
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

} // namespace plataforma
