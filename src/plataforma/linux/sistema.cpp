// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/sistema.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cstdlib>

namespace plataforma {

std::filesystem::path carpetaPersonalReal()
{
    // HOME first, as every Linux desktop library reads it; the password
    // database where it is unset.
    if (const char* h = std::getenv("HOME"); h != nullptr && *h)
        return h;
    if (const passwd* pw = ::getpwuid(::getuid()); pw != nullptr && pw->pw_dir != nullptr && *pw->pw_dir)
        return pw->pw_dir;
    return "/";
}

void aislarEnCarpeta(const std::filesystem::path& home)
{
    ::setenv("XDG_DATA_HOME", (home / ".local/share").c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (home / ".config").c_str(), 1);
    ::setenv("XDG_CACHE_HOME", (home / ".cache").c_str(), 1);
}

EspacioDisco espacioDisco(const std::filesystem::path& ruta)
{
    struct statvfs s;
    if (::statvfs(ruta.c_str(), &s) != 0)
        return {};
    // f_bavail, not f_bfree: what an unprivileged user can really use.
    return {int64_t(s.f_bavail) * int64_t(s.f_frsize), int64_t(s.f_blocks) * int64_t(s.f_frsize)};
}

bool tieneAccesoTotal()
{
    // The same probe as on the system it was designed for; here the file
    // doesn't exist, so the answer is false.
    const auto tcc = carpetaPersonalReal() / "Library/Application Support/com.apple.TCC/TCC.db";
    const int fd = ::open(tcc.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return false;
    ::close(fd);
    return true;
}

} // namespace plataforma
