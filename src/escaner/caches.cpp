// SPDX-License-Identifier: GPL-3.0-or-later
// Caches of applications found by their shape rather than by name: the cache
// folders of Electron-style apps, Flatpak's per-application caches and Snap's
// per-revision ones, and the logs Electron apps keep beside their caches.
#include "escaner/escaner.h"

#include "nucleo/textos.h"
#include "plataforma/lectura.h"
#include "plataforma/paquetes.h"

#include <sys/stat.h>

#include <map>

namespace fs = std::filesystem;

namespace {

// Cache folders of an Electron-style app, in the order they are offered.
// A Chromium-family browser keeps its shader caches beside its profiles in
// the config home (GrShaderCache, ShaderCache, GraphiteDawnCache); the
// profiles themselves are never offered.
constexpr const char* carpetasElectron[] = {"Cache",          "Code Cache",      "GPUCache",          "DawnGraphiteCache",
                                            "DawnWebGPUCache", "CachedData",     "GrShaderCache",     "ShaderCache",
                                            "GraphiteDawnCache"};

// A real folder: a link to one doesn't count.
bool esCarpeta(const fs::path& p)
{
    struct stat st;
    return ::lstat(p.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

// The row of one app's caches, checked for use by the app's name and owners:
// pre-selected unless the app is open.
Elemento filaDeApp(std::vector<fs::path> caches, const std::string& nombre, std::string detalle,
                   std::vector<std::string> bundles, const AppsAbiertas& abiertas)
{
    Elemento e;
    e.url = caches.front();
    e.nombre = nombre;
    e.detalle = std::move(detalle);
    e.enUso = abiertas.quienUsa(nombre, bundles);
    e.seleccionado = !e.enUso;
    e.bundles = std::move(bundles);
    e.revisarUso = true;
    e.nombreUso = nombre;
    e.extra.assign(caches.begin() + 1, caches.end());
    return e;
}

} // namespace

std::vector<fs::path> Escaner::appsElectron() const
{
    std::vector<fs::path> r;
    const std::optional<fs::path> raices[] = {carpetaReal(entorno.ruta("Library/Application Support")),
                                              base(plataforma::Base::config)};
    for (const auto& raiz : raices) {
        if (!raiz)
            continue;
        for (const std::string& nombre : plataforma::nombresEn(*raiz)) {
            const std::string clave = minusculas(nombre);
            if (clave.starts_with("com.apple.") || appSupportExcluidas().contains(clave))
                continue;
            const fs::path app = *raiz / nombre;
            // An app folder that is a link leads elsewhere: never looked into.
            if (esCarpeta(app) && (plataforma::existe(app / "Code Cache") || plataforma::existe(app / "GPUCache") ||
                                   plataforma::existe(app / "GrShaderCache")))
                r.push_back(app);
        }
    }
    return r;
}

std::vector<Elemento> Escaner::cachesDeElectron(const AppsAbiertas& abiertas) const
{
    std::vector<Elemento> r;
    for (const fs::path& app : appsElectron()) {
        std::vector<fs::path> caches;
        for (const char* c : carpetasElectron)
            if (esCarpeta(app / c))
                caches.push_back(app / c);
        if (!caches.empty())
            r.push_back(filaDeApp(std::move(caches), app.filename().string(), tr("Caché interna de la app"), {},
                                  abiertas));
    }
    return r;
}

std::vector<Elemento> Escaner::cachesDeFlatpak(const AppsAbiertas& abiertas) const
{
    std::vector<Elemento> r;
    const auto raiz = carpetaReal(entorno.ruta(".var/app"));
    if (!raiz)
        return r;
    // Each row by the name the application shows where it is installed: the
    // user's installation, and outside test mode the system's.
    std::map<std::string, std::string> nombres;
    std::vector<plataforma::InstalacionFlatpak> instalaciones;
    if (const auto datos = base(plataforma::Base::datos))
        instalaciones.push_back({*datos / "flatpak", "--user"});
    if (!entorno.prueba)
        for (plataforma::InstalacionFlatpak& i : plataforma::flatpaksDeSistema())
            instalaciones.push_back(std::move(i));
    for (const plataforma::InstalacionFlatpak& i : instalaciones)
        for (plataforma::AppPaquete& app : plataforma::appsFlatpak(i.carpeta))
            nombres.try_emplace(app.id, std::move(app.nombre));
    for (const std::string& id : plataforma::nombresEn(*raiz)) {
        const fs::path cache = *raiz / id / "cache";
        const auto nombre = nombres.find(id);
        if (esCarpeta(*raiz / id) && esCarpeta(cache))
            r.push_back(filaDeApp({cache}, nombre != nombres.end() && !nombre->second.empty() ? nombre->second : id,
                                  mostrar(cache), {id}, abiertas));
    }
    return r;
}

std::vector<Elemento> Escaner::cachesDeSnap(const AppsAbiertas& abiertas) const
{
    std::vector<Elemento> r;
    const auto raiz = carpetaReal(entorno.ruta("snap"));
    if (!raiz)
        return r;
    for (const std::string& snap : plataforma::nombresEn(*raiz)) {
        if (!esCarpeta(*raiz / snap))
            continue;
        // One folder per revision and "common"; "current" is a link to a
        // revision and is left out with every other link.
        std::vector<fs::path> caches;
        for (const std::string& version : plataforma::nombresEn(*raiz / snap))
            if (esCarpeta(*raiz / snap / version) && esCarpeta(*raiz / snap / version / ".cache"))
                caches.push_back(*raiz / snap / version / ".cache");
        // The desktop entry of a snap is <snap>_<app>; the main app shares its name.
        if (!caches.empty())
            r.push_back(filaDeApp(std::move(caches), snap, mostrar(*raiz / snap), {snap + "_" + snap}, abiertas));
    }
    return r;
}

std::vector<Elemento> Escaner::registrosDeApps() const
{
    // The X server run by the user keeps its logs in the data home; the
    // ".old" ones are of sessions that ended.
    std::vector<Elemento> r;
    if (const auto datos = base(plataforma::Base::datos))
        r = hijos(*datos / "xorg", nullptr, [](std::string_view n) { return n.ends_with(".old"); });
    // Electron writes an app's logs into its folder in the config home.
    const auto config = base(plataforma::Base::config);
    for (const fs::path& app : appsElectron()) {
        if (!config || app.parent_path() != *config || !esCarpeta(app / "logs"))
            continue;
        Elemento e;
        e.url = app / "logs";
        e.nombre = app.filename().string();
        e.detalle = mostrar(e.url);
        e.seleccionado = true;
        r.push_back(std::move(e));
    }
    return r;
}
