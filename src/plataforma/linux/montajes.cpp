// SPDX-License-Identifier: GPL-3.0-or-later
// Volumes that come and go: where they would be mounted, from the mount table
// of this process and /etc/fstab.
#include "plataforma/archivos.h"

#include <mntent.h>

#include <string_view>

namespace fs = std::filesystem;

namespace plataforma {

namespace {

// Whether a is b or lies inside it, by whole components; "/" holds all.
bool bajo(std::string_view a, std::string_view b)
{
    if (b == "/")
        return true;
    return a.starts_with(b) && (a.size() == b.size() || a[b.size()] == '/');
}

// Each entry of a table in fstab format (octal escapes decoded by libc).
// False when the table can't be read.
template <class F>
bool leerTabla(const char* archivo, F&& f)
{
    FILE* t = ::setmntent(archivo, "re");
    if (t == nullptr)
        return false;
    mntent m;
    char linea[16384];
    while (::getmntent_r(t, &m, linea, sizeof linea) != nullptr)
        f(m);
    ::endmntent(t);
    return true;
}

} // namespace

bool enVolumenDesmontado(const fs::path& ruta, const std::vector<Montaje>& montados,
                         const std::vector<std::string>& fstab)
{
    if (!ruta.is_absolute())
        return false;
    std::string p = ruta.lexically_normal().native();
    while (p.size() > 1 && p.back() == '/')
        p.pop_back();
    // Some volume below raiz holds the path: one mounted on it or on a
    // folder between it and raiz (raiz included). Traps of automounts hold
    // nothing, and the root file system is never the volume looked for.
    auto montadoBajo = [&](std::string_view raiz) {
        for (const Montaje& m : montados)
            if (!m.automontaje && m.punto != "/" && bajo(p, m.punto) && bajo(m.punto, raiz))
                return true;
        return false;
    };
    for (std::string_view lugar : {"/mnt", "/media", "/run/media"})
        if (bajo(p, lugar) && p != lugar && !montadoBajo(lugar))
            return true;
    for (const std::string& f : fstab)
        if (f != "/" && bajo(p, f) && !montadoBajo(f))
            return true;
    for (const Montaje& m : montados)
        if (m.automontaje && m.punto != "/" && bajo(p, m.punto) && p != m.punto && !montadoBajo(m.punto))
            return true;
    return false;
}

std::optional<std::vector<Montaje>> montajesActuales()
{
    std::vector<Montaje> montados;
    if (!leerTabla("/proc/self/mounts", [&](const mntent& m) {
            montados.push_back({m.mnt_dir, std::string_view(m.mnt_type) == "autofs"});
        }))
        return std::nullopt;
    return montados;
}

bool enVolumenDesmontado(const fs::path& ruta)
{
    const std::vector<Montaje> montados = montajesActuales().value_or(std::vector<Montaje>{});
    std::vector<std::string> fstab;
    // Swap and other entries that mount nowhere have no absolute point.
    leerTabla("/etc/fstab", [&](const mntent& m) {
        if (m.mnt_dir[0] == '/')
            fstab.emplace_back(m.mnt_dir);
    });
    return enVolumenDesmontado(ruta, montados, fstab);
}

} // namespace plataforma
