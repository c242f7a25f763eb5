// SPDX-License-Identifier: GPL-3.0-or-later
// Places the scan asks about by name: the rule tables and the folders they
// stand in. A row names the place where the tool really writes: under home
// for tools that fix their folder there, under a base folder for those that
// follow $XDG_CACHE_HOME and its kin.
#include "escaner/escaner.h"

#include "nucleo/textos.h"
#include "plataforma/borrado.h"
#include "plataforma/lectura.h"

namespace fs = std::filesystem;

namespace {

constexpr auto cache = plataforma::Base::cache;
constexpr auto config = plataforma::Base::config;
constexpr auto datos = plataforma::Base::datos;
constexpr auto estado = plataforma::Base::estado;

} // namespace

const std::vector<Regla>& Escaner::programacion()
{
    static const std::vector<Regla> reglas{
        {".npm/_cacache", "npm", {}},
        {".npm/_npx", "npx", {}},
        {".npm/_logs", "npm · logs", {}},
        {"uv", "uv (Python)", {}, cache},
        {"Library/Caches/pip", "pip", {}},
        {"pip", "pip", {}, cache},
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
        // Where the same tools and a few more keep their caches on Linux.
        {"Homebrew", "Homebrew", {}, cache},
        {"node-gyp", "node-gyp", {}, cache},
        {"yarn", "Yarn", {}, cache},
        {".yarn/berry/cache", "Yarn", {}},
        {"pnpm/store", "pnpm", {}, datos},
        {"pnpm", "pnpm", {}, cache},
        {"go-build", "Go", {}, cache},
        // Poetry's virtual environments live beside these and stay.
        {"pypoetry/cache", "Poetry", {}, cache},
        {"pypoetry/artifacts", "Poetry", {}, cache},
        {"pipenv", "pipenv", {}, cache},
        {"deno", "Deno", {}, cache},
        {"ccache", "ccache", {}, cache},
        {"composer", "Composer", {}, cache},
        {".composer/cache", "Composer", {}},
        {"pre-commit", "pre-commit", {}, cache},
        // Bazel's output bases: every workspace's build outputs and fetched
        // repositories, rebuilt by the next build.
        {"bazel", "Bazel", {}, cache},
        // Go's modules and Cargo's unpacked crates and checkouts come back
        // on the next build, from the network or from Cargo's own archives.
        {"go/pkg/mod", tr("Go (módulos)"), {}},
        {".cargo/registry/src", "Cargo (Rust)", {}},
        {".cargo/git/checkouts", "Cargo (Rust)", {}},
        // NuGet's unpacked packages and its download cache, restored by dotnet.
        {".nuget/packages", "NuGet", {}},
        {"NuGet/v3-cache", "NuGet", {}, datos},
        // Caches, indexes and logs of the IDEs; in use while one runs.
        {"JetBrains",
         "JetBrains",
         {"jetbrains-toolbox", "jetbrains-idea", "jetbrains-idea-ce", "jetbrains-pycharm", "jetbrains-pycharm-ce",
          "jetbrains-clion", "jetbrains-goland", "jetbrains-webstorm", "jetbrains-phpstorm", "jetbrains-rider",
          "jetbrains-rubymine", "jetbrains-datagrip", "jetbrains-rustrover"},
         cache},
        {"Code/CachedExtensionVSIXs", tr("VS Code · extensiones descargadas"), {"code", "com.visualstudio.code"},
         config},
        {"Cursor/CachedExtensionVSIXs", tr("Cursor · extensiones descargadas"), {"cursor"}, config},
        {"VSCodium/CachedExtensionVSIXs", tr("VSCodium · extensiones descargadas"), {"codium", "com.vscodium.codium"},
         config},
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
        {"huggingface", "Hugging Face", {}, cache},
        {".ollama/models", "Ollama", {"com.electron.ollama"}},
        {".cache/hyperframes", "HyperFrames", {}},
        {".m2/repository", "Maven", {}},
        // Shown for its size; the path rule refuses a folder directly in home, so a
        // cleaning reports it as not allowed instead of taking .pub-cache/bin's tools.
        {".pub-cache", "Flutter / Dart", {}},
        {"Library/Developer/Xcode/iOS DeviceSupport", "Xcode · iOS DeviceSupport", {"com.apple.dt.Xcode"}},
        {"Library/Developer/Xcode/watchOS DeviceSupport", "Xcode · watchOS DeviceSupport", {"com.apple.dt.Xcode"}},
        {"Library/Unity/cache", "Unity", {}},
        // Linux places: browsers for tests, runtimes and models fetched on use.
        {"ms-playwright", "Playwright", {}, cache},
        {".cache/Cypress", "Cypress", {}},
        {"electron", "Electron", {}, cache},
        {"electron-builder", "electron-builder", {}, cache},
        {"torch", "PyTorch", {}, cache},
        {"colima", "Colima", {}, cache},
        {"dotslash", "dotslash", {}, cache},
        // The Gradle and Maven wrappers download their distribution again
        // when they run, Bazelisk its Bazel, Corepack its package managers,
        // Selenium Manager its drivers and browsers.
        {".gradle/wrapper/dists", "Gradle (wrapper)", {}},
        {".m2/wrapper/dists", "Maven (wrapper)", {}},
        {"bazelisk", "Bazelisk", {}, cache},
        {"node/corepack", "Corepack", {}, cache},
        {".cache/selenium", "Selenium", {}},
        // Conda's package caches; environments keep working without them.
        {"miniconda3/pkgs", "Conda", {}},
        {"anaconda3/pkgs", "Conda", {}},
        {"miniforge3/pkgs", "Conda", {}},
        {".conda/pkgs", "Conda", {}},
    };
    return reglas;
}

const std::vector<Regla>& Escaner::registros()
{
    static const std::vector<Regla> reglas{
        {"nvim/lsp.log", "Neovim · LSP", {"nvim"}, estado},
        {"nvim/log", "Neovim", {"nvim"}, estado},
        {"pipx/log", "pipx", {}, estado},
        {"zed/logs", "Zed", {"dev.zed.zed"}, datos},
        {"Steam/logs", "Steam", {"steam"}, datos},
    };
    return reglas;
}

const std::unordered_set<std::string>& Escaner::appSupportExcluidas()
{
    static const std::unordered_set<std::string> nombres{"docker desktop", "unity", "unityhub", "adobe", "caches"};
    return nombres;
}

std::optional<fs::path> Escaner::carpetaReal(const fs::path& carpeta) const
{
    if (!dentroDe(carpeta, entorno.home))
        return std::nullopt;
    if (plataforma::examinar(entorno.home, carpeta.lexically_relative(entorno.home)) != plataforma::Clase::carpeta)
        return std::nullopt;
    return carpeta;
}

std::optional<fs::path> Escaner::base(plataforma::Base b) const
{
    const fs::path carpeta = entorno.base(b);
    // One of the user's own folders named as a base would make their files
    // look like a program's.
    for (const fs::path& p : personales.rutas)
        if (carpeta == p)
            return std::nullopt;
    return carpetaReal(carpeta);
}

std::string Escaner::mostrar(const fs::path& ruta) const
{
    return dentroDe(ruta, entorno.home) ? "~/" + ruta.lexically_relative(entorno.home).string() : ruta.string();
}

std::vector<Elemento> Escaner::desdeReglas(const std::vector<Regla>& reglas, const AppsAbiertas& abiertas,
                                           bool seleccionar) const
{
    // Each base is looked at once: one outside home, a link, or missing
    // gives its rows nothing.
    std::optional<fs::path> bases[std::size(plataforma::todasLasBases)];
    for (plataforma::Base b : plataforma::todasLasBases)
        bases[size_t(b)] = base(b);
    std::vector<Elemento> r;
    for (const Regla& regla : reglas) {
        const std::optional<fs::path>& desde = regla.base ? bases[size_t(*regla.base)] : entorno.home;
        if (!desde)
            continue;
        Elemento e;
        e.url = *desde / regla.ruta;
        if (!plataforma::existe(e.url))
            continue;
        e.nombre = regla.nombre;
        e.detalle = mostrar(e.url);
        e.enUso = abiertas.quienUsa(e.url.filename().native(), regla.bundles);
        e.seleccionado = seleccionar && !e.enUso;
        e.bundles = regla.bundles;
        e.revisarUso = true;
        r.push_back(std::move(e));
    }
    return r;
}
