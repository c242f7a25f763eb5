// SPDX-License-Identifier: GPL-3.0-or-later
// Content fingerprints for the duplicate search: SHA-256 of a file's two ends,
// or of all of it, in lower-case hexadecimal.
#include "escaner/escaner.h"

#include <fcntl.h>
#include <openssl/evp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <memory>

namespace {

constexpr size_t tramo = 65536;
constexpr size_t bloque = 1 << 20;

// An open regular file, read-only, closed on the way out. A link is never
// followed, and a file swapped for something else (a FIFO, a folder) since
// the walk isn't one.
class Lectura {
public:
    explicit Lectura(const std::string& ruta)
        : fd_(::open(ruta.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK))
    {
        struct stat st;
        if (fd_ >= 0 && (::fstat(fd_, &st) != 0 || !S_ISREG(st.st_mode))) {
            ::close(fd_);
            fd_ = -1;
        }
    }
    ~Lectura()
    {
        if (fd_ >= 0)
            ::close(fd_);
    }
    Lectura(const Lectura&) = delete;
    Lectura& operator=(const Lectura&) = delete;

    int fd() const { return fd_; }

    // Up to n bytes from the offset (or from the current position when it is
    // negative); stops early only at the end or on a failure.
    size_t leer(unsigned char* destino, size_t n, off_t desde = -1)
    {
        size_t hecho = 0;
        while (hecho < n) {
            const ssize_t r = desde < 0 ? ::read(fd_, destino + hecho, n - hecho)
                                        : ::pread(fd_, destino + hecho, n - hecho, desde + off_t(hecho));
            if (r < 0 && errno == EINTR)
                continue;
            if (r <= 0)
                break;
            hecho += size_t(r);
        }
        return hecho;
    }

private:
    int fd_;
};

class Sha256 {
public:
    Sha256() : ctx_(EVP_MD_CTX_new(), EVP_MD_CTX_free) { EVP_DigestInit_ex(ctx_.get(), algoritmo(), nullptr); }

    void anadir(const unsigned char* datos, size_t n) { EVP_DigestUpdate(ctx_.get(), datos, n); }

    std::string hexadecimal()
    {
        unsigned char resumen[EVP_MAX_MD_SIZE];
        unsigned int n = 0;
        EVP_DigestFinal_ex(ctx_.get(), resumen, &n);
        static constexpr char cifras[] = "0123456789abcdef";
        std::string r(size_t(n) * 2, '0');
        for (unsigned int i = 0; i < n; ++i) {
            r[2 * i] = cifras[resumen[i] >> 4];
            r[2 * i + 1] = cifras[resumen[i] & 0xf];
        }
        return r;
    }

private:
    // Fetched once: the implicit lookup on every init costs more than hashing
    // a small file.
    static const EVP_MD* algoritmo()
    {
        static EVP_MD* md = EVP_MD_fetch(nullptr, "SHA256", nullptr);
        return md;
    }

    std::unique_ptr<EVP_MD_CTX, void (*)(EVP_MD_CTX*)> ctx_;
};

} // namespace

std::optional<std::string> Escaner::huellaParcial(const std::string& ruta)
{
    Lectura f(ruta);
    if (f.fd() < 0)
        return std::nullopt;
    unsigned char buf[tramo];
    Sha256 sha;
    sha.anadir(buf, f.leer(buf, tramo, 0));
    // The length is not hashed; a file between one and two stretches long
    // has its middle hashed twice.
    const off_t largo = ::lseek(f.fd(), 0, SEEK_END);
    if (largo > off_t(tramo))
        sha.anadir(buf, f.leer(buf, tramo, largo - off_t(tramo)));
    return sha.hexadecimal();
}

namespace {

// A file with holes: its data stretch by stretch, each stretch and each hole
// preceded by its kind and length, and the holes never read (a terabyte of
// them is a moment's work). The tag keeps every such fingerprint apart from
// those of files without holes.
std::string huellaConHuecos(Lectura& f, off_t largo, unsigned char* buf)
{
    Sha256 sha;
    auto tramoDe = [&](unsigned char tipo, off_t n) {
        unsigned char m[9] = {tipo};
        for (int i = 0; i < 8; ++i)
            m[1 + i] = static_cast<unsigned char>(uint64_t(n) >> (56 - 8 * i));
        sha.anadir(m, sizeof m);
    };
    for (off_t pos = 0; pos < largo;) {
        off_t datos = ::lseek(f.fd(), pos, SEEK_DATA);
        if (datos < 0 || datos > largo)
            datos = largo; // holes to the end (ENXIO), or a failure: the rest reads as one hole
        if (datos > pos) {
            tramoDe('H', datos - pos);
            pos = datos;
            continue;
        }
        off_t hueco = ::lseek(f.fd(), pos, SEEK_HOLE);
        if (hueco <= pos || hueco > largo)
            hueco = largo;
        tramoDe('D', hueco - pos);
        while (pos < hueco) {
            const size_t n = f.leer(buf, size_t(std::min<off_t>(off_t(bloque), hueco - pos)), pos);
            if (n == 0)
                return "h" + sha.hexadecimal();
            sha.anadir(buf, n);
            pos += off_t(n);
        }
    }
    return "h" + sha.hexadecimal();
}

} // namespace

std::optional<std::string> Escaner::huellaCompleta(const std::string& ruta)
{
    Lectura f(ruta);
    if (f.fd() < 0)
        return std::nullopt;
    // One fixed buffer whatever the length. A failed read ends the reading and
    // what was read stands: a file that changed simply won't match.
    const std::unique_ptr<unsigned char[]> buf(new unsigned char[bloque]);
    // Where the file system reports no hole this is the end of the file.
    const off_t largo = ::lseek(f.fd(), 0, SEEK_END);
    const off_t hueco = ::lseek(f.fd(), 0, SEEK_HOLE);
    if (largo > 0 && hueco >= 0 && hueco < largo)
        return huellaConHuecos(f, largo, buf.get());
    ::lseek(f.fd(), 0, SEEK_SET);
    ::posix_fadvise(f.fd(), 0, 0, POSIX_FADV_SEQUENTIAL);
    Sha256 sha;
    for (size_t n; (n = f.leer(buf.get(), bloque)) > 0;) {
        sha.anadir(buf.get(), n);
        if (n < bloque)
            break;
    }
    return sha.hexadecimal();
}
