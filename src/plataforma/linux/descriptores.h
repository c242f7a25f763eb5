// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Paths below a base folder reached through directory descriptors opened
// without following links, and the mounts they lie on: what the removal and
// the Trash move share.

#include "plataforma/borrado.h"

#include <fcntl.h>
#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>

namespace plataforma {

inline constexpr int abrirCarpeta = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

class Descriptor {
public:
    explicit Descriptor(int fd = -1) : fd_(fd) {}
    ~Descriptor();
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

// The mount something lies on: the device, and the mount id where the kernel
// gives it, which also tells a bind mount of the same file system apart.
struct IdMontaje {
    dev_t dispositivo = 0;
    uint64_t id = 0;
    bool operator==(const IdMontaje&) const = default;
};

// Of an open descriptor.
bool montajeDe(int fd, IdMontaje& m);
// Of the entry `nombre` of the open folder `dir`, a link itself and not what
// it points at; a folder something is mounted on gives the mounted one.
bool montajeDe(int dir, const char* nombre, IdMontaje& m);

// The folder that holds the last component of `relativa`, reached from `base`
// through folders on the base's own mount, none of them a link; its last
// component in `ultimo`, the base's mount in `montaje`. -1 with `clase`
// saying why: enlaceEnRuta, montaje, or ausente for anything else (a
// relative path that is empty, absolute, or holds "." or "..").
Descriptor abrirPadre(const std::filesystem::path& base, const std::filesystem::path& relativa, std::string& ultimo,
                      Clase& clase, IdMontaje& montaje);

// What the entry `nombre` of the folder `dir` is, on the mount `m` that its
// folder is on: ausente, enlace, archivo, carpeta, or montaje when it is on
// another one (something is mounted on it).
Clase claseEn(int dir, const char* nombre, const IdMontaje& m);

} // namespace plataforma
