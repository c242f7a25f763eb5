// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/sistema.h"

#include <pwd.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace plataforma {

namespace {

// HOME as the process found it, kept when test mode points HOME elsewhere.
std::optional<std::string> homeOriginal;

} // namespace

std::filesystem::path carpetaPersonalReal()
{
    // HOME first, as every Linux desktop library reads it; the password
    // database where it is unset.
    const char* h = homeOriginal ? homeOriginal->c_str() : std::getenv("HOME");
    if (h != nullptr && *h)
        return h;
    if (const passwd* pw = ::getpwuid(::getuid()); pw != nullptr && pw->pw_dir != nullptr && *pw->pw_dir)
        return pw->pw_dir;
    return "/";
}

void aislarEnCarpeta(const std::filesystem::path& home)
{
    // HOME too: libraries that keep state under it must keep it here.
    if (!homeOriginal) {
        const char* h = std::getenv("HOME");
        homeOriginal = h != nullptr ? h : "";
    }
    ::setenv("HOME", home.c_str(), 1);
    ::setenv("XDG_DATA_HOME", (home / ".local/share").c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (home / ".config").c_str(), 1);
    ::setenv("XDG_CACHE_HOME", (home / ".cache").c_str(), 1);
    // Read only, for the leftovers of applications; it must not reach the real home either.
    ::setenv("XDG_STATE_HOME", (home / ".local/state").c_str(), 1);
}

EspacioDisco espacioDisco(const std::filesystem::path& ruta)
{
    struct statvfs s;
    if (::statvfs(ruta.c_str(), &s) != 0)
        return {};
    // f_bavail, not f_bfree: what an unprivileged user can really use.
    return {int64_t(s.f_bavail) * int64_t(s.f_frsize), int64_t(s.f_blocks) * int64_t(s.f_frsize)};
}

} // namespace plataforma
