// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/arbol.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <string>

namespace {

class Caminante {
public:
    Caminante(const std::function<bool(const EntradaArbol&)>& visitar, dev_t dispositivo, std::string raiz)
        : visitar_(visitar), dispositivo_(dispositivo), ruta_(std::move(raiz))
    {
    }

    // Takes the descriptor of an open folder and closes it.
    void entrar(int fd, int nivel)
    {
        DIR* d = ::fdopendir(fd);
        if (d == nullptr) {
            ::close(fd);
            return;
        }
        const size_t base = ruta_.size();
        while (const dirent* e = ::readdir(d)) {
            const char* n = e->d_name;
            if (n[0] == '.' && (n[1] == '\0' || (n[1] == '.' && n[2] == '\0')))
                continue;
            // Links, devices and the like are known from the listing alone.
            if (e->d_type != DT_DIR && e->d_type != DT_REG && e->d_type != DT_UNKNOWN)
                continue;
            struct stat st;
            if (::fstatat(::dirfd(d), n, &st, AT_SYMLINK_NOFOLLOW) != 0)
                continue;
            const bool carpeta = S_ISDIR(st.st_mode);
            if (!carpeta && !S_ISREG(st.st_mode))
                continue;
            const size_t largo = std::strlen(n);
            ruta_.resize(base);
            ruta_ += '/';
            ruta_.append(n, largo);
            const EntradaArbol entrada{std::string_view(ruta_).substr(base + 1), ruta_,
                                       std::string_view(ruta_).substr(0, base), nivel, carpeta, st};
            if (!visitar_(entrada) || !carpeta || st.st_dev != dispositivo_)
                continue;
            // O_NOFOLLOW: a folder swapped for a link since the stat is not entered.
            const int hijo = ::openat(::dirfd(d), n, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
            if (hijo >= 0)
                entrar(hijo, nivel + 1);
        }
        ruta_.resize(base);
        ::closedir(d);
    }

private:
    const std::function<bool(const EntradaArbol&)>& visitar_;
    const dev_t dispositivo_;
    std::string ruta_;
};

} // namespace

void recorrerArbol(const std::filesystem::path& raiz, const std::function<bool(const EntradaArbol&)>& visitar)
{
    const int fd = ::open(raiz.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0)
        return;
    struct stat st;
    if (::fstat(fd, &st) != 0) {
        ::close(fd);
        return;
    }
    // The root's own path stands as given, but a trailing "/" would double.
    std::string base = raiz.native();
    while (base.size() > 1 && base.back() == '/')
        base.pop_back();
    Caminante(visitar, st.st_dev, base == "/" ? std::string() : base).entrar(fd, 1);
}
