// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/linux/descriptores.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>

namespace fs = std::filesystem;

namespace plataforma {

namespace {

bool montajeDeStatx(int dir, const char* nombre, int banderas, IdMontaje& m, mode_t* modo = nullptr)
{
    struct statx sx;
    if (::statx(dir, nombre, banderas | AT_NO_AUTOMOUNT, STATX_TYPE | STATX_MNT_ID, &sx) != 0)
        return false;
    m.dispositivo = makedev(sx.stx_dev_major, sx.stx_dev_minor);
    m.id = (sx.stx_mask & STATX_MNT_ID) ? sx.stx_mnt_id : 0;
    if (modo != nullptr)
        *modo = sx.stx_mode;
    return true;
}

} // namespace

Descriptor::~Descriptor()
{
    if (fd_ >= 0)
        ::close(fd_);
}

bool montajeDe(int fd, IdMontaje& m)
{
    return montajeDeStatx(fd, "", AT_EMPTY_PATH, m);
}

bool montajeDe(int dir, const char* nombre, IdMontaje& m)
{
    return montajeDeStatx(dir, nombre, AT_SYMLINK_NOFOLLOW, m);
}

Descriptor abrirPadre(const fs::path& base, const fs::path& relativa, std::string& ultimo, Clase& clase,
                      IdMontaje& montaje)
{
    clase = Clase::ausente;
    if (relativa.empty() || relativa.is_absolute())
        return Descriptor();
    // The base is opened as given: the home folder may itself be a link.
    Descriptor dir(::open(base.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir.get() < 0 || !montajeDe(dir.get(), montaje))
        return Descriptor();
    std::string pendiente;
    for (const fs::path& parte : relativa) {
        const std::string& p = parte.native();
        if (p.empty())
            continue; // a trailing slash
        if (p == "." || p == "..")
            return Descriptor();
        if (!pendiente.empty()) {
            Descriptor sig(::openat(dir.get(), pendiente.c_str(), abrirCarpeta));
            if (sig.get() < 0) {
                struct stat st;
                if ((errno == ELOOP || errno == ENOTDIR) &&
                    ::fstatat(dir.get(), pendiente.c_str(), &st, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(st.st_mode))
                    clase = Clase::enlaceEnRuta;
                return Descriptor();
            }
            IdMontaje m;
            if (!montajeDe(sig.get(), m))
                return Descriptor();
            if (!(m == montaje)) {
                clase = Clase::montaje;
                return Descriptor();
            }
            dir = std::move(sig);
        }
        pendiente = p;
    }
    if (pendiente.empty())
        return Descriptor();
    ultimo = std::move(pendiente);
    return dir;
}

Clase claseEn(int dir, const char* nombre, const IdMontaje& m)
{
    IdMontaje propio;
    mode_t modo = 0;
    if (!montajeDeStatx(dir, nombre, AT_SYMLINK_NOFOLLOW, propio, &modo))
        return Clase::ausente;
    if (!(propio == m))
        return Clase::montaje;
    if (S_ISLNK(modo))
        return Clase::enlace;
    return S_ISDIR(modo) ? Clase::carpeta : Clase::archivo;
}

} // namespace plataforma
