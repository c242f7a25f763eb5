// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/bloques.h"

#include "plataforma/arbol.h"
#include "plataforma/carpetas.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <new>

namespace plataforma {

// The factor follows the unit of st_blocks, 512 bytes on Linux.
static constexpr int64_t unidadBloque = 512;

class DescriptorCarpeta {
public:
    explicit DescriptorCarpeta(int fd) : fd(fd) {}
    ~DescriptorCarpeta() { ::close(fd); }
    DescriptorCarpeta(const DescriptorCarpeta&) = delete;
    DescriptorCarpeta& operator=(const DescriptorCarpeta&) = delete;
    const int fd;
};

int64_t bloquesDeRaiz(const std::filesystem::path& ruta, std::optional<CarpetaPorSumar>& carpeta)
{
    carpeta.reset();
    struct stat st;
    if (::lstat(ruta.c_str(), &st) != 0)
        return 0;
    if (S_ISDIR(st.st_mode))
        carpeta = CarpetaPorSumar{nullptr, ruta.native(), st.st_dev, 0};
    return int64_t(st.st_blocks) * unidadBloque;
}

int64_t sumarCarpeta(const CarpetaPorSumar& carpeta, const std::function<void(CarpetaPorSumar&&)>& subcarpeta)
{
    if (carpeta.nivel >= profundidadMaxima)
        return 0;
    const int dir = carpeta.padre ? carpeta.padre->fd : AT_FDCWD;
    // O_NOFOLLOW: a folder swapped for a link since its parent's listing is not entered.
    const int fd = ::openat(dir, carpeta.nombre.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0)
        return 0;
    // Shared only once a sub-folder needs it: a folder of files costs no allocation.
    std::shared_ptr<const DescriptorCarpeta> propio;
    alignas(__STDCPP_DEFAULT_NEW_ALIGNMENT__) char buffer[ListadoCarpeta::tamanoBuffer];
    ListadoCarpeta listado(fd, {buffer, sizeof buffer});
    int64_t suma = 0;
    while (const char* n = listado.siguiente()) {
        if (n[0] == '.' && (n[1] == '\0' || (n[1] == '.' && n[2] == '\0')))
            continue;
        struct stat st;
        if (::fstatat(fd, n, &st, AT_SYMLINK_NOFOLLOW) != 0)
            continue;
        suma += int64_t(st.st_blocks) * unidadBloque;
        if (!S_ISDIR(st.st_mode) || st.st_dev != carpeta.dispositivo || carpeta.nivel + 1 >= profundidadMaxima)
            continue;
        if (!propio)
            propio = std::make_shared<const DescriptorCarpeta>(fd);
        subcarpeta(CarpetaPorSumar{propio, n, carpeta.dispositivo, carpeta.nivel + 1});
    }
    if (!propio)
        ::close(fd);
    return suma;
}

} // namespace plataforma
