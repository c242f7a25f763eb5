// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/borrado.h"

#include "plataforma/linux/descriptores.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

namespace plataforma {

namespace {

// A removal pass over a folder that removed something is followed by another,
// because a directory stream may skip entries while its folder changes. The
// bound keeps a writer that never stops from holding us forever.
constexpr int maximoPasadas = 16;

bool esPunto(const char* n)
{
    return n[0] == '.' && (n[1] == '\0' || (n[1] == '.' && n[2] == '\0'));
}

void pausar(const char* nombre)
{
    if (auto f = pruebas::pausaTrasListar.load(std::memory_order_relaxed))
        f(nombre);
}

struct Cuenta {
    size_t quitados = 0;
    size_t quedan = 0;
    int error = 0; // of the listing, when it failed before any entry
};

// What one removal shares down the tree: the mount it stays on, and the bytes
// of entries removed while another hard link kept their data.
struct Contexto {
    IdMontaje montaje;
    int64_t retenido = 0;
};

Cuenta vaciarFlujo(DIR* d, Contexto& c, int nivel);

// Unlinks an entry that isn't a folder; true when it is gone, whoever removed
// it. A file with other names frees nothing: its blocks count as retained.
bool quitarNoCarpeta(int dir, const char* nombre, Contexto& c)
{
    struct stat st;
    const bool visto = ::fstatat(dir, nombre, &st, AT_SYMLINK_NOFOLLOW) == 0;
    if (::unlinkat(dir, nombre, 0) == 0) {
        if (visto && !S_ISDIR(st.st_mode) && st.st_nlink > 1)
            c.retenido += int64_t(st.st_blocks) * 512;
        return true;
    }
    return errno == ENOENT;
}

// A folder of the user's that is going away whole may have been made
// read-only (Go's module cache and Bazel's output make theirs so, so that
// nothing edits them); its owner can always make it writable again, as
// their own tools do before they remove it. The system lets only the owner
// change the mode, so others' folders stay as they are; root needs no
// permission and changes nothing.
void abrirParaVaciar(int fd)
{
    struct stat st;
    if (::geteuid() != 0 && ::fstat(fd, &st) == 0 && (st.st_mode & S_IRWXU) != S_IRWXU)
        ::fchmod(fd, (st.st_mode & 07777) | S_IRWXU);
}

// Removes one entry of the open folder `dir`, a whole subtree for a folder,
// which lies `nivel` levels below the item. True when it is gone, whoever
// removed it.
bool borrarEntrada(int dir, const char* nombre, unsigned char tipo, Contexto& c, int nivel)
{
    if (tipo != DT_DIR) {
        if (quitarNoCarpeta(dir, nombre, c))
            return true;
        // A folder after all (listed without a type, or swapped in since)?
        // Linux answers EISDIR, other systems EPERM, which an immutable file
        // also gives.
        if (errno != EISDIR && errno != EPERM)
            return false;
        struct stat st;
        if (::fstatat(dir, nombre, &st, AT_SYMLINK_NOFOLLOW) != 0)
            return errno == ENOENT;
        if (!S_ISDIR(st.st_mode))
            return false;
    }
    // Too deep to hold a descriptor per level: left as it is.
    if (nivel > profundidadMaxima)
        return false;
    Descriptor fd(::openat(dir, nombre, abrirCarpeta));
    if (fd.get() < 0) {
        if (errno == ENOENT)
            return true;
        // Swapped for a link or a file since it was listed: remove that, unfollowed.
        if (errno == ELOOP || errno == ENOTDIR)
            return quitarNoCarpeta(dir, nombre, c);
        // Not readable: an empty folder still goes.
        return ::unlinkat(dir, nombre, AT_REMOVEDIR) == 0 || errno == ENOENT;
    }
    IdMontaje propio;
    if (!montajeDe(fd.get(), propio) || !(propio == c.montaje))
        return false; // a mount point: not entered, and it can't be removed
    abrirParaVaciar(fd.get());
    DIR* d = ::fdopendir(fd.get());
    if (d == nullptr)
        return false;
    fd.soltar();
    vaciarFlujo(d, c, nivel);
    ::closedir(d);
    return ::unlinkat(dir, nombre, AT_REMOVEDIR) == 0 || errno == ENOENT;
}

// Removes every entry of the open folder, which lies `nivel` levels below the
// item; allocates nothing per entry. `quedan` is what the last pass still saw.
Cuenta vaciarFlujo(DIR* d, Contexto& c, int nivel)
{
    Cuenta cuenta;
    const int dir = ::dirfd(d);
    for (int pasada = 0; pasada < maximoPasadas; ++pasada) {
        size_t vistos = 0;
        size_t quitados = 0;
        errno = 0;
        while (const dirent* e = ::readdir(d)) {
            if (esPunto(e->d_name))
                continue;
            ++vistos;
            pausar(e->d_name);
            if (borrarEntrada(dir, e->d_name, e->d_type, c, nivel + 1))
                ++quitados;
            errno = 0;
        }
        if (errno != 0 && pasada == 0 && vistos == 0)
            cuenta.error = errno;
        cuenta.quitados += quitados;
        cuenta.quedan = vistos - quitados;
        if (quitados == 0)
            break;
        ::rewinddir(d);
    }
    return cuenta;
}

} // namespace

std::string descripcionError(int numero)
{
    return std::system_category().message(numero);
}

Clase examinar(const fs::path& base, const fs::path& relativa)
{
    std::string ultimo;
    Clase clase;
    IdMontaje m;
    const Descriptor dir = abrirPadre(base, relativa, ultimo, clase, m);
    if (dir.get() < 0)
        return clase;
    return claseEn(dir.get(), ultimo.c_str(), m);
}

Vaciado vaciar(const fs::path& base, const fs::path& relativa)
{
    Vaciado v;
    std::string ultimo;
    Contexto c;
    const Descriptor dir = abrirPadre(base, relativa, ultimo, v.clase, c.montaje);
    if (dir.get() < 0)
        return v;
    v.clase = claseEn(dir.get(), ultimo.c_str(), c.montaje);
    switch (v.clase) {
    case Clase::archivo:
        if (!quitarNoCarpeta(dir.get(), ultimo.c_str(), c))
            v.error = descripcionError(errno);
        v.retenido = c.retenido;
        return v;
    case Clase::carpeta:
        break;
    default:
        return v;
    }
    Descriptor fd(::openat(dir.get(), ultimo.c_str(), abrirCarpeta));
    IdMontaje propio;
    DIR* d = nullptr;
    if (fd.get() < 0 || !montajeDe(fd.get(), propio) || (d = ::fdopendir(fd.get())) == nullptr) {
        if (errno == ENOENT)
            v.clase = Clase::ausente;
        else if (errno == ELOOP)
            v.clase = Clase::enlace; // swapped for a link since it was examined
        else
            v.error = descripcionError(errno);
        return v;
    }
    fd.soltar();
    if (!(propio == c.montaje)) {
        // Mounted on since it was examined: not entered.
        ::closedir(d);
        v.clase = Clase::montaje;
        return v;
    }
    const Cuenta cuenta = vaciarFlujo(d, c, 0);
    ::closedir(d);
    v.retenido = c.retenido;
    if (cuenta.error != 0) {
        v.error = descripcionError(cuenta.error);
        return v;
    }
    v.total = cuenta.quitados + cuenta.quedan;
    v.fallidos = cuenta.quedan;
    return v;
}

} // namespace plataforma
