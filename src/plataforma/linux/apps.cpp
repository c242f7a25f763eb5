// SPDX-License-Identifier: GPL-3.0-or-later
// Open applications on Linux: processes of this user whose executable is the
// program of an installed application, either an .app bundle's
// Contents/MacOS/ executable or the program of a visible desktop entry, and
// processes that Flatpak or Snap started in an application's control group.
#include "plataforma/apps.h"

#include "plataforma/entradas.h"
#include "plataforma/lectura.h"
#include "plataforma/plist.h"
#include "plataforma/linux/xdg.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
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

// The visible desktop entries: by program (resolved), and the names by id.
// The first directory that holds an id wins, as desktop environments resolve
// them.
struct Entradas {
    std::unordered_map<std::string, Aplicacion> porPrograma;
    std::unordered_map<std::string, std::string> nombres;
};

Entradas entradasVisibles()
{
    Entradas r;
    std::set<std::string> vistos;
    for (const fs::path& base : carpetasDeEntradas())
        for (EntradaEscritorio& e : entradasDe(base)) {
            if (!vistos.insert(e.id).second || !e.aplicacion || !e.visible)
                continue;
            r.nombres.try_emplace(e.id, e.nombre);
            if (!e.programa.empty())
                r.porPrograma.try_emplace(e.programa.native(), Aplicacion{std::move(e.id), std::move(e.nombre)});
        }
    return r;
}

// Whether the text is a UUID's: 8-4-4-4-12 hexadecimal digits.
bool esUuid(std::string_view t)
{
    if (t.size() != 36)
        return false;
    for (size_t i = 0; i < t.size(); ++i)
        if (i == 8 || i == 13 || i == 18 || i == 23 ? t[i] != '-' : !std::isxdigit(static_cast<unsigned char>(t[i])))
            return false;
    return true;
}

// The application of one scope's name, as appDeGrupo tells it.
std::optional<std::string> appDeAmbito(std::string_view ambito)
{
    constexpr std::string_view sufijo = ".scope";
    if (!ambito.ends_with(sufijo))
        return std::nullopt;
    ambito.remove_suffix(sufijo.size());
    if (constexpr std::string_view flatpak = "app-flatpak-"; ambito.starts_with(flatpak)) {
        ambito.remove_prefix(flatpak.size());
        const size_t guion = ambito.rfind('-');
        if (guion == 0 || guion == std::string_view::npos || guion + 1 == ambito.size() ||
            ambito.find_first_not_of("0123456789", guion + 1) != std::string_view::npos)
            return std::nullopt;
        return std::string(ambito.substr(0, guion));
    }
    if (constexpr std::string_view snap = "snap."; ambito.starts_with(snap) && ambito.size() > snap.size() + 37 &&
                                                   ambito[ambito.size() - 37] == '-' &&
                                                   esUuid(ambito.substr(ambito.size() - 36))) {
        ambito = ambito.substr(snap.size(), ambito.size() - snap.size() - 37);
        const size_t punto = ambito.find('.');
        // Hooks run as "<snap>.hook.<hook>": no application.
        if (punto == 0 || punto == std::string_view::npos || punto + 1 == ambito.size() ||
            ambito.find('.', punto + 1) != std::string_view::npos)
            return std::nullopt;
        return std::string(ambito.substr(0, punto)) + "_" + std::string(ambito.substr(punto + 1));
    }
    return std::nullopt;
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

std::optional<std::string> appDeGrupo(std::string_view grupos)
{
    // One line per hierarchy, "<n>:<controllers>:<path>"; the scope is the
    // last component of a path.
    while (!grupos.empty()) {
        const size_t fin = grupos.find('\n');
        std::string_view linea = grupos.substr(0, fin);
        grupos = fin == std::string_view::npos ? std::string_view() : grupos.substr(fin + 1);
        if (auto app = appDeAmbito(linea.substr(linea.rfind('/') + 1)))
            return app;
    }
    return std::nullopt;
}

std::vector<AppAbierta> appsAbiertas()
{
    std::vector<AppAbierta> r;
    std::set<std::string> vistas;
    std::optional<Entradas> entradas;
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
        // A sandbox may hide its process's executable from us; its control
        // group, below, still tells.
        const ssize_t n = ::readlink((dir + "/exe").c_str(), buf, sizeof buf - 1);
        std::string exe(buf, size_t(std::max<ssize_t>(n, 0)));
        if (const std::string borrado = " (deleted)"; exe.ends_with(borrado))
            exe.resize(exe.size() - borrado.size());

        std::optional<AppAbierta> app = appDeBundle(exe);
        if (!app) {
            if (!entradas)
                entradas = entradasVisibles();
            if (const auto it = entradas->porPrograma.find(exe); it != entradas->porPrograma.end())
                app = AppAbierta{it->second.id, it->second.nombre.empty() ? std::nullopt
                                                                          : std::optional(it->second.nombre)};
        }
        // Inside a sandbox the executable is the sandbox's own; the control
        // group says whose it is.
        if (!app)
            if (const auto grupos = leerArchivo(dir + "/cgroup", 64 * 1024))
                if (auto id = appDeGrupo(*grupos)) {
                    const auto nombre = entradas->nombres.find(*id);
                    app = AppAbierta{*id, nombre == entradas->nombres.end() || nombre->second.empty()
                                              ? std::nullopt
                                              : std::optional(nombre->second)};
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
