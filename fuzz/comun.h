// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the fuzz targets share: a scratch folder for the files they hand to
// the readers, and a failed property that stops the run where it happened.

#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace fuzz {

// One folder per process, in memory where the system has /dev/shm, removed at
// exit; the readers get real files, as the program does.
inline const std::filesystem::path& carpeta()
{
    static const std::filesystem::path c = [] {
        std::string plantilla = (std::filesystem::exists("/dev/shm") ? std::string("/dev/shm") : "/tmp");
        plantilla += "/vorlano-fuzz-XXXXXX";
        if (::mkdtemp(plantilla.data()) == nullptr)
            std::abort();
        std::atexit([] {
            std::error_code ec;
            std::filesystem::remove_all(carpeta(), ec);
        });
        return std::filesystem::path(plantilla);
    }();
    return c;
}

// Replaces the file's content with the input, creating its folders.
inline void escribir(const std::filesystem::path& archivo, const uint8_t* datos, size_t n)
{
    std::filesystem::create_directories(archivo.parent_path());
    const int fd = ::open(archivo.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (fd < 0)
        std::abort();
    for (size_t hecho = 0; hecho < n;) {
        const ssize_t w = ::write(fd, datos + hecho, n - hecho);
        if (w <= 0)
            std::abort();
        hecho += size_t(w);
    }
    ::close(fd);
}

// A property the reader must keep; its failure is a finding like a crash.
inline void exigir(bool condicion, const char* que)
{
    if (!condicion) {
        std::fprintf(stderr, "propiedad incumplida: %s\n", que);
        std::abort();
    }
}

} // namespace fuzz
