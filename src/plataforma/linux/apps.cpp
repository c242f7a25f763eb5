// SPDX-License-Identifier: GPL-3.0-or-later
// Open applications on Linux: processes of this user whose executable is the
// program of an installed application, either an .app bundle's
// Contents/MacOS/ executable or the program of a visible desktop entry.
#include "plataforma/apps.h"

#include "plataforma/entradas.h"
#include "plataforma/plist.h"
#include "plataforma/linux/xdg.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <set>
#include <string_view>
#include <unordered_map>

namespace fs = std::filesystem;

namespace plataforma {
namespace {

struct Aplicacion {
    std::string id;
    std::string nombre;
};

// Program (resolved) -> application, from the visible desktop entries. The
// first directory that holds an id wins, as desktop environments resolve them.
std::unordered_map<std::string, Aplicacion> programasDeEntradas()
{
    std::unordered_map<std::string, Aplicacion> r;
    std::set<std::string> vistos;
    for (const fs::path& base : carpetasDeEntradas())
        for (EntradaEscritorio& e : entradasDe(base))
            if (vistos.insert(e.id).second && e.aplicacion && e.visible && !e.programa.empty())
                r.try_emplace(e.programa.native(), Aplicacion{std::move(e.id), std::move(e.nombre)});
    return r;
}

// The application of an executable inside "X.app/Contents/MacOS/".
std::optional<AppAbierta> appDeBundle(const std::string& exe)
{
    const std::string marca = ".app/Contents/MacOS/";
    const size_t pos = exe.rfind(marca);
    if (pos == std::string::npos)
        return std::nullopt;
    const fs::path bundle = exe.substr(0, pos + 4);
    AppAbierta a;
    if (const auto d = leerPlist(bundle / "Contents/Info.plist")) {
        a.bundle = textoDe(*d, "CFBundleIdentifier");
        a.nombre = textoDe(*d, "CFBundleDisplayName");
        if (!a.nombre)
            a.nombre = textoDe(*d, "CFBundleName");
    }
    if (!a.nombre)
        a.nombre = bundle.stem().string();
    return a;
}

} // namespace

std::vector<AppAbierta> appsAbiertas()
{
    std::vector<AppAbierta> r;
    std::set<std::string> vistas;
    std::optional<std::unordered_map<std::string, Aplicacion>> entradas;
    const uid_t yo = ::getuid();
    const pid_t propio = ::getpid();

    DIR* proc = ::opendir("/proc");
    if (proc == nullptr)
        return r;
    while (const dirent* d = ::readdir(proc)) {
        char* fin = nullptr;
        const long pid = std::strtol(d->d_name, &fin, 10);
        if (*fin != '\0' || pid <= 0 || pid == propio)
            continue;
        const std::string dir = std::string("/proc/") + d->d_name;
        struct stat st;
        if (::stat(dir.c_str(), &st) != 0 || st.st_uid != yo)
            continue;
        char buf[PATH_MAX];
        const ssize_t n = ::readlink((dir + "/exe").c_str(), buf, sizeof buf - 1);
        if (n <= 0)
            continue;
        std::string exe(buf, size_t(n));
        if (const std::string borrado = " (deleted)"; exe.ends_with(borrado))
            exe.resize(exe.size() - borrado.size());

        std::optional<AppAbierta> app = appDeBundle(exe);
        if (!app) {
            if (!entradas)
                entradas = programasDeEntradas();
            if (const auto it = entradas->find(exe); it != entradas->end())
                app = AppAbierta{it->second.id, it->second.nombre.empty() ? std::nullopt
                                                                          : std::optional(it->second.nombre)};
        }
        if (!app)
            continue;
        // One entry per application, however many processes it runs.
        const std::string clave = app->bundle.value_or("") + '\n' + app->nombre.value_or("");
        if (vistas.insert(clave).second)
            r.push_back(std::move(*app));
    }
    ::closedir(proc);
    return r;
}

} // namespace plataforma
