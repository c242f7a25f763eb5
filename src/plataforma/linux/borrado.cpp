// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/borrado.h"

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

constexpr int abrirCarpeta = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

// A removal pass over a folder that removed something is followed by another,
// because a directory stream may skip entries while its folder changes. The
// bound keeps a writer that never stops from holding us forever.
constexpr int maximoPasadas = 16;

class Descriptor {
public:
    explicit Descriptor(int fd = -1) : fd_(fd) {}
    ~Descriptor()
    {
        if (fd_ >= 0)
            ::close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&& o) noexcept : fd_(o.soltar()) {}
    Descriptor& operator=(Descriptor&& o) noexcept
    {
        std::swap(fd_, o.fd_);
        return *this;
    }
    int get() const { return fd_; }
    int soltar() { return std::exchange(fd_, -1); }

private:
    int fd_;
};

// The mount a folder lies on: the device, and the mount id where the kernel
// gives it, which also tells a bind mount of the same file system apart.
struct Montaje {
    dev_t dispositivo = 0;
    uint64_t id = 0;
    bool operator==(const Montaje&) const = default;
};

bool montajeDe(int fd, Montaje& m)
{
    struct statx sx;
    if (::statx(fd, "", AT_EMPTY_PATH | AT_NO_AUTOMOUNT, STATX_TYPE | STATX_MNT_ID, &sx) != 0)
        return false;
    m.dispositivo = makedev(sx.stx_dev_major, sx.stx_dev_minor);
    m.id = (sx.stx_mask & STATX_MNT_ID) ? sx.stx_mnt_id : 0;
    return true;
}

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

Cuenta vaciarFlujo(DIR* d, const Montaje& m);

// Removes one entry of the open folder `dir`, a whole subtree for a folder.
// True when it is gone, whoever removed it.
bool borrarEntrada(int dir, const char* nombre, unsigned char tipo, const Montaje& m)
{
    if (tipo != DT_DIR) {
        if (::unlinkat(dir, nombre, 0) == 0 || errno == ENOENT)
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
    Descriptor fd(::openat(dir, nombre, abrirCarpeta));
    if (fd.get() < 0) {
        if (errno == ENOENT)
            return true;
        // Swapped for a link or a file since it was listed: remove that, unfollowed.
        if (errno == ELOOP || errno == ENOTDIR)
            return ::unlinkat(dir, nombre, 0) == 0 || errno == ENOENT;
        // Not readable: an empty folder still goes.
        return ::unlinkat(dir, nombre, AT_REMOVEDIR) == 0 || errno == ENOENT;
    }
    Montaje propio;
    if (!montajeDe(fd.get(), propio) || !(propio == m))
        return false; // another mount: not entered, and it can't be removed
    DIR* d = ::fdopendir(fd.get());
    if (d == nullptr)
        return false;
    fd.soltar();
    vaciarFlujo(d, m);
    ::closedir(d);
    return ::unlinkat(dir, nombre, AT_REMOVEDIR) == 0 || errno == ENOENT;
}

// Removes every entry of the open folder; allocates nothing per entry.
// `quedan` is what the last pass still saw.
Cuenta vaciarFlujo(DIR* d, const Montaje& m)
{
    Cuenta c;
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
            if (borrarEntrada(dir, e->d_name, e->d_type, m))
                ++quitados;
            errno = 0;
        }
        if (errno != 0 && pasada == 0 && vistos == 0)
            c.error = errno;
        c.quitados += quitados;
        c.quedan = vistos - quitados;
        if (quitados == 0)
            break;
        ::rewinddir(d);
    }
    return c;
}

// Opens the folder that holds the last component of `relativa`, reached from
// `base` without following links; -1 with `clase` saying why.
Descriptor abrirPadre(const fs::path& base, const fs::path& relativa, std::string& ultimo, Clase& clase)
{
    clase = Clase::ausente;
    if (relativa.empty() || relativa.is_absolute())
        return Descriptor();
    Descriptor dir(::open(base.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir.get() < 0)
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
            dir = std::move(sig);
        }
        pendiente = p;
    }
    if (pendiente.empty())
        return Descriptor();
    ultimo = std::move(pendiente);
    return dir;
}

Clase claseDe(const struct stat& st)
{
    if (S_ISLNK(st.st_mode))
        return Clase::enlace;
    return S_ISDIR(st.st_mode) ? Clase::carpeta : Clase::archivo;
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
    const Descriptor dir = abrirPadre(base, relativa, ultimo, clase);
    if (dir.get() < 0)
        return clase;
    struct stat st;
    if (::fstatat(dir.get(), ultimo.c_str(), &st, AT_SYMLINK_NOFOLLOW) != 0)
        return Clase::ausente;
    return claseDe(st);
}

Vaciado vaciar(const fs::path& base, const fs::path& relativa)
{
    Vaciado v;
    std::string ultimo;
    const Descriptor dir = abrirPadre(base, relativa, ultimo, v.clase);
    if (dir.get() < 0)
        return v;
    struct stat st;
    if (::fstatat(dir.get(), ultimo.c_str(), &st, AT_SYMLINK_NOFOLLOW) != 0)
        return v;
    v.clase = claseDe(st);
    if (v.clase == Clase::enlace)
        return v;
    if (v.clase == Clase::archivo) {
        if (::unlinkat(dir.get(), ultimo.c_str(), 0) != 0 && errno != ENOENT)
            v.error = descripcionError(errno);
        return v;
    }
    Descriptor fd(::openat(dir.get(), ultimo.c_str(), abrirCarpeta));
    Montaje m;
    DIR* d = nullptr;
    if (fd.get() < 0 || !montajeDe(fd.get(), m) || (d = ::fdopendir(fd.get())) == nullptr) {
        if (errno == ENOENT)
            v.clase = Clase::ausente;
        else if (errno == ELOOP)
            v.clase = Clase::enlace; // swapped for a link since it was examined
        else
            v.error = descripcionError(errno);
        return v;
    }
    fd.soltar();
    const Cuenta c = vaciarFlujo(d, m);
    ::closedir(d);
    if (c.error != 0) {
        v.error = descripcionError(c.error);
        return v;
    }
    v.total = c.quitados + c.quedan;
    v.fallidos = c.quedan;
    return v;
}

} // namespace plataforma
