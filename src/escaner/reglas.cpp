// SPDX-License-Identifier: GPL-3.0-or-later
// Places the scan asks about by name: the two rule tables and the cache
// folders of Electron-style applications.
#include "escaner/escaner.h"

#include "plataforma/lectura.h"
#include "nucleo/textos.h"

#include <dirent.h>
#include <sys/stat.h>

namespace {

// Cache folders of an Electron-style app, in the order they are offered.
constexpr const char* carpetasElectron[] = {"Cache",           "Code Cache",      "GPUCache",
                                            "DawnGraphiteCache", "DawnWebGPUCache", "CachedData"};

// A real folder: a link to one doesn't count.
bool esCarpeta(const std::filesystem::path& p)
{
    struct stat st;
    return ::lstat(p.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

} // namespace

const std::vector<Regla>& Escaner::programacion()
{
    static const std::vector<Regla> reglas{
        {".npm/_cacache", "npm", {}},
        {".npm/_npx", "npx", {}},
        {".npm/_logs", "npm · logs", {}},
        {".cache/uv", "uv (Python)", {}},
        {"Library/Caches/pip", "pip", {}},
        {".cache/pip", "pip", {}},
        {"Library/Caches/Homebrew", "Homebrew", {}},
        {"Library/Caches/node-gyp", "node-gyp", {}},
        {"Library/Caches/Yarn", "Yarn", {}},
        {"Library/pnpm/store", "pnpm", {}},
        {".bun/install/cache", "Bun", {}},
        {".gradle/caches", "Gradle", {}},
        {".cargo/registry/cache", "Cargo (Rust)", {}},
        {"Library/Caches/CocoaPods", "CocoaPods", {}},
        {"Library/Caches/go-build", "Go", {}},
        {"Library/Developer/Xcode/DerivedData", "Xcode DerivedData", {"com.apple.dt.Xcode"}},
        {"Library/Developer/CoreSimulator/Caches", "iOS Simulator (cache)", {"com.apple.iphonesimulator"}},
        {"Library/Application Support/Code/CachedExtensionVSIXs", tr("VS Code · extensiones descargadas"),
         {"com.microsoft.VSCode"}},
        {"Library/Application Support/Cursor/CachedExtensionVSIXs", tr("Cursor · extensiones descargadas"),
         {"com.todesktop.230313mzl4w4u92"}},
    };
    return reglas;
}

const std::vector<Regla>& Escaner::redescarga()
{
    static const std::vector<Regla> reglas{
        {"Library/Caches/ms-playwright", "Playwright", {}},
        {".cache/puppeteer", "Puppeteer", {}},
        {".cache/codex-runtimes", "Codex runtimes", {}},
        {"Library/Caches/colima", "Colima", {}},
        {"Library/Caches/dotslash", "dotslash", {}},
        {".cache/huggingface", "Hugging Face", {}},
        {".ollama/models", "Ollama", {"com.electron.ollama"}},
        {".cache/hyperframes", "HyperFrames", {}},
        {".m2/repository", "Maven", {}},
        {".pub-cache", "Flutter / Dart", {}},
        {"Library/Developer/Xcode/iOS DeviceSupport", "Xcode · iOS DeviceSupport", {"com.apple.dt.Xcode"}},
        {"Library/Developer/Xcode/watchOS DeviceSupport", "Xcode · watchOS DeviceSupport", {"com.apple.dt.Xcode"}},
        {"Library/Unity/cache", "Unity", {}},
    };
    return reglas;
}

const std::unordered_set<std::string>& Escaner::appSupportExcluidas()
{
    static const std::unordered_set<std::string> nombres{"docker desktop", "unity", "unityhub", "adobe", "caches"};
    return nombres;
}

std::vector<Elemento> Escaner::desdeReglas(const std::vector<Regla>& reglas, const AppsAbiertas& abiertas,
                                           bool seleccionar) const
{
    std::vector<Elemento> r;
    for (const Regla& regla : reglas) {
        Elemento e;
        e.url = entorno.ruta(regla.ruta);
        if (!plataforma::existe(e.url))
            continue;
        e.nombre = regla.nombre;
        e.detalle = "~/" + regla.ruta;
        e.enUso = abiertas.quienUsa(e.url.filename().native(), regla.bundles);
        e.seleccionado = seleccionar && !e.enUso;
        e.bundles = regla.bundles;
        e.revisarUso = true;
        r.push_back(std::move(e));
    }
    return r;
}

std::vector<Elemento> Escaner::cachesDeElectron(const AppsAbiertas& abiertas) const
{
    std::vector<Elemento> r;
    const std::filesystem::path soporte = entorno.ruta("Library/Application Support");
    DIR* d = ::opendir(soporte.c_str());
    if (d == nullptr)
        return r;
    while (const dirent* entrada = ::readdir(d)) {
        const std::string nombre = entrada->d_name;
        if (nombre == "." || nombre == "..")
            continue;
        const std::string clave = minusculas(nombre);
        if (clave.starts_with("com.apple.") || appSupportExcluidas().contains(clave))
            continue;
        const std::filesystem::path app = soporte / nombre;
        // An app folder that is a link leads elsewhere: never looked into.
        if (!esCarpeta(app) || !(plataforma::existe(app / "Code Cache") || plataforma::existe(app / "GPUCache")))
            continue;
        std::vector<std::filesystem::path> caches;
        for (const char* c : carpetasElectron)
            if (esCarpeta(app / c))
                caches.push_back(app / c);
        if (caches.empty())
            continue;
        Elemento e;
        e.url = caches.front();
        e.nombre = nombre;
        e.detalle = tr("Caché interna de la app");
        e.enUso = abiertas.quienUsa(nombre, {});
        e.seleccionado = !e.enUso;
        e.revisarUso = true;
        e.nombreUso = nombre;
        e.extra.assign(caches.begin() + 1, caches.end());
        r.push_back(std::move(e));
    }
    ::closedir(d);
    return r;
}
