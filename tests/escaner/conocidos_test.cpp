// SPDX-License-Identifier: GPL-3.0-or-later
// A whole scan of a home holding every place known by name, through the
// driver and through the real binary.
#include "escaner/escaner.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "estado_editor.h"

#include <gtest/gtest.h>

using apoyo::CasaPrueba;
using namespace std::chrono_literals;

namespace {

struct Fila {
    const char* ruta;
    const char* nombre;
};

// The places as the product defines them, written out independently of the
// tables in the code.
constexpr Fila programacion[] = {
    {".npm/_cacache", "npm"},
    {".npm/_npx", "npx"},
    {".npm/_logs", "npm · logs"},
    {".cache/uv", "uv (Python)"},
    {"Library/Caches/pip", "pip"},
    {".cache/pip", "pip"},
    {"Library/Caches/Homebrew", "Homebrew"},
    {"Library/Caches/node-gyp", "node-gyp"},
    {"Library/Caches/Yarn", "Yarn"},
    {"Library/pnpm/store", "pnpm"},
    {".bun/install/cache", "Bun"},
    {".gradle/caches", "Gradle"},
    {".cargo/registry/cache", "Cargo (Rust)"},
    {"Library/Caches/CocoaPods", "CocoaPods"},
    {"Library/Caches/go-build", "Go"},
    {"Library/Developer/Xcode/DerivedData", "Xcode DerivedData"},
    {"Library/Developer/CoreSimulator/Caches", "iOS Simulator (cache)"},
    {"Library/Application Support/Code/CachedExtensionVSIXs", "VS Code · extensiones descargadas"},
    {"Library/Application Support/Cursor/CachedExtensionVSIXs", "Cursor · extensiones descargadas"},
};
constexpr Fila redescarga[] = {
    {"Library/Caches/ms-playwright", "Playwright"},
    {".cache/puppeteer", "Puppeteer"},
    {".cache/codex-runtimes", "Codex runtimes"},
    {"Library/Caches/colima", "Colima"},
    {"Library/Caches/dotslash", "dotslash"},
    {".cache/huggingface", "Hugging Face"},
    {".ollama/models", "Ollama"},
    {".cache/hyperframes", "HyperFrames"},
    {".m2/repository", "Maven"},
    {".pub-cache", "Flutter / Dart"},
    {"Library/Developer/Xcode/iOS DeviceSupport", "Xcode · iOS DeviceSupport"},
    {"Library/Developer/Xcode/watchOS DeviceSupport", "Xcode · watchOS DeviceSupport"},
    {"Library/Unity/cache", "Unity"},
};

constexpr int64_t kib = 1024;
const std::string soporte = "Library/Application Support/";

// Sizes fall along each table, so the order by size the scan ends with is
// the order in which the stages made the items.
void casaConocida(CasaPrueba& casa)
{
    int64_t n = 80;
    for (const Fila& f : programacion)
        casa.archivo(std::string(f.ruta) + "/datos", 64 * kib * n--);
    n = 40;
    for (const Fila& f : redescarga)
        casa.archivo(std::string(f.ruta) + "/datos", 64 * kib * n--);
    casa.archivo("Library/Caches/org.ejemplo.app/datos", 900 * kib);

    // Electron-style apps: with the signature folders, without them, and with
    // one of the cache folders a link that leads out of the app. Excluded
    // names, a signature that is a file and an app folder that is a link give
    // nothing.
    casa.archivo(soporte + "Slack/Cache/d", 500 * kib);
    casa.archivo(soporte + "Slack/Code Cache/d", 100 * kib);
    casa.archivo(soporte + "Slack/GPUCache/d", 60 * kib);
    casa.archivo(soporte + "Slack/Local Storage/d", 800 * kib);
    casa.archivo(soporte + "SoloCache/Cache/d", 700 * kib);
    casa.archivo(soporte + "Code/Cache/d", 200 * kib);
    casa.archivo(soporte + "Code/Code Cache/d", 100 * kib);
    casa.archivo(soporte + "Code/CachedData/d", 80 * kib);
    casa.archivo(soporte + "Enlazada/GPUCache/d", 300 * kib);
    casa.archivo("fuera/d", 2000 * kib);
    casa.enlace(soporte + "Enlazada/Code Cache", casa.ruta("fuera"));
    for (const char* excluida : {"com.apple.Music", "Docker Desktop", "ADOBE", "Caches"})
        casa.archivo(soporte + excluida + "/GPUCache/d", 700 * kib);
    casa.archivo(soporte + "FirmaDeArchivo/Code Cache", 700 * kib);
    casa.enlace(soporte + "AppEnlazada", casa.ruta(soporte + "Slack"));

    // Editor state: gone, unopened for long, fresh, on an unmounted volume,
    // of another scheme, and damaged.
    const Fecha ahora = std::chrono::system_clock::now();
    const Fecha viejo = ahora - 24h * 120, nuevo = ahora - 24h * 2;
    casa.crearDir("proyectos/vivo-viejo");
    casa.crearDir("proyectos/vivo-nuevo");
    const auto p = casa.ruta("proyectos");
    using apoyo::carpetaJson;
    const auto estado = [&](const char* editor, const char* id, const std::string& json, Fecha f, int64_t k) {
        apoyo::estadoDeEditor(casa, editor, id, json, f, k * kib);
    };
    estado("Code", "ido1", carpetaJson(p / "borrado"), nuevo, 200);
    estado("Code", "ido2", carpetaJson(p / "movido/a/otro"), viejo, 200); // gone wins over old
    estado("Code", "viejo", carpetaJson(p / "vivo-viejo"), viejo, 100);
    estado("Code", "usb", carpetaJson("/media/vorlano-sin-montar/USB/web"), viejo, 100);
    estado("Code", "usb-nuevo", carpetaJson("/media/vorlano-sin-montar/USB/app"), nuevo, 100);
    estado("Code", "remoto", "{\"folder\":\"vscode-remote://ssh-remote%2Bsrv/home/x\"}", viejo, 100);
    estado("Code", "remoto-nuevo", "{\"folder\":\"vscode-remote://ssh-remote%2Bsrv/home/y\"}", nuevo, 100);
    // Used today though its folder's date is old: the later date counts.
    estado("Code", "nuevo", carpetaJson(p / "vivo-nuevo"), nuevo, 100);
    casa.fecha(soporte + "Code/User/workspaceStorage/nuevo", viejo);
    int rotos = 0;
    for (const char* json : {"", "no es json", "[\"file:///no-existe\"]", "42", "{\"otra\":1}",
                             "{\"folder\":3,\"workspace\":\"file:///no-existe\"}", "{\"folder\":\"file:///%zz\"}",
                             "{\"folder\":\"file:///con espacio\"}"})
        estado("Code", ("roto" + std::to_string(rotos++)).c_str(), json, viejo, 100);
    estado("Cursor", "ido", carpetaJson(p / "otro-borrado"), nuevo, 100);
    estado("Cursor", "viejo", carpetaJson(p / "vivo-viejo"), viejo, 80);

    // Downloads made now are new: none is offered.
    casa.archivo("Downloads/nuevo.zip", 400 * kib, 'z');
    casa.archivo("Downloads/carpeta/dentro.bin", 400 * kib, 'd');
}

struct Visto {
    std::string nombre;
    std::string detalle;
    bool seleccionado;
    bool operator==(const Visto&) const = default;
};

std::ostream& operator<<(std::ostream& o, const Visto& v)
{
    return o << (v.seleccionado ? "[x] " : "[ ] ") << v.nombre << " — " << v.detalle;
}

std::vector<Visto> vistos(const Categoria& c)
{
    std::vector<Visto> r;
    for (const auto& e : c.elementos)
        r.push_back({e.nombre, e.detalle.value_or(""), e.seleccionado});
    return r;
}

std::vector<Visto> deReglas(const auto& tabla, bool seleccionado)
{
    std::vector<Visto> r;
    for (const Fila& f : tabla)
        r.push_back({f.nombre, std::string("~/") + f.ruta, seleccionado});
    return r;
}

} // namespace

TEST(Conocidos, CadaLugarEnSuCategoriaYOrden)
{
    CasaPrueba casa;
    casaConocida(casa);
    std::vector<std::string> avisos;
    const auto cats = Escaner(casa.entorno()).escanear([&](const std::string& t) {
        if (!t.starts_with("Midiendo"))
            avisos.push_back(t);
    });

    // Ours in their order among the other stages'; Downloads come last.
    ASSERT_GE(avisos.size(), 3u);
    EXPECT_EQ(avisos[0], "Revisando cachés de apps…");
    EXPECT_EQ(avisos[1], "Revisando cachés de programación…");
    EXPECT_EQ(avisos.back(), "Revisando Descargas…");
    ASSERT_EQ(cats.size(), 3u);
    EXPECT_EQ(cats[0].id, "apps");
    EXPECT_EQ(cats[1].id, "dev");
    EXPECT_EQ(cats[2].id, "redescarga");

    const std::string interna = "Caché interna de la app";
    EXPECT_EQ(vistos(cats[0]), (std::vector<Visto>{{"org.ejemplo.app", "", true},
                                                   {"Slack", interna, true},
                                                   {"Code", interna, true},
                                                   {"Enlazada", interna, true}}));
    // Measured with their extra folders; the link is neither offered nor followed.
    const auto& apps = cats[0].elementos;
    EXPECT_EQ(apps[1].tamano, apoyo::du(casa.ruta(soporte + "Slack/Cache")) +
                                  apoyo::du(casa.ruta(soporte + "Slack/Code Cache")) +
                                  apoyo::du(casa.ruta(soporte + "Slack/GPUCache")));
    EXPECT_EQ(apps[2].extra, (std::vector<std::filesystem::path>{casa.ruta(soporte + "Code/Code Cache"),
                                                                 casa.ruta(soporte + "Code/CachedData")}));
    EXPECT_EQ(apps[3].url, casa.ruta(soporte + "Enlazada/GPUCache"));
    EXPECT_TRUE(apps[3].extra.empty());

    auto dev = deReglas(programacion, true);
    dev.push_back({"VS Code · proyectos que ya no existen", "Datos de 2 proyectos borrados o movidos", true});
    dev.push_back({"VS Code · proyectos sin abrir hace más de 3 meses",
                   "Se pierden las pestañas abiertas y ajustes de esos 3 proyectos", false});
    dev.push_back({"Cursor · proyectos que ya no existen", "Datos de 1 proyecto borrado o movido", true});
    dev.push_back({"Cursor · proyectos sin abrir hace más de 3 meses",
                   "Se pierden las pestañas abiertas y ajustes de ese proyecto", false});
    EXPECT_EQ(vistos(cats[1]), dev);
    EXPECT_EQ(vistos(cats[2]), deReglas(redescarga, false));
    for (const auto& e : cats[2].elementos)
        EXPECT_FALSE(e.accion); // no simulators or Docker in test mode
}

TEST(Conocidos, InformeDelBinario)
{
    CasaPrueba casa;
    casaConocida(casa);
    const auto s = apoyo::ejecutarVorlano(casa.raiz(), {"--scan"}, {{"VORLANO_TIEMPOS", "1"}});
    ASSERT_EQ(s.estado, 0) << s.errores;
    const std::string& o = s.salida;
    const auto pos = [&](const std::string& t) {
        const size_t p = o.find(t);
        EXPECT_NE(p, std::string::npos) << t << "\n" << o;
        return p;
    };
    const size_t apps = pos("■ Cachés de aplicaciones");
    const size_t dev = pos("■ Cachés de programación");
    const size_t red = pos("■ Herramientas descargadas");
    EXPECT_LT(apps, dev);
    EXPECT_LT(dev, red);
    EXPECT_EQ(o.find("■ Descargas antiguas"), std::string::npos);
    EXPECT_EQ(o.find("■ Registros"), std::string::npos);
    EXPECT_LT(pos(" Slack — Caché interna de la app\n"), dev);
    const size_t npm = pos(" npm — ~/.npm/_cacache\n");
    EXPECT_GT(npm, dev);
    EXPECT_EQ(o.substr(o.rfind('\n', npm) + 1, 7), "   [x] ");
    EXPECT_GT(pos("   … y 15 más\n"), dev); // 19 rules and 4 editor rows, 8 shown
    EXPECT_GT(pos(" Playwright — ~/Library/Caches/ms-playwright\n"), red);
    EXPECT_GT(pos("   … y 5 más\n"), red);
    EXPECT_EQ(o.find("[x]", red), std::string::npos); // nothing re-downloadable is pre-selected

    // Our stages in their order, among the others.
    size_t desde = 0;
    for (const char* e : {"cachés de apps + logs", "programación + simuladores", "descargas", "medir tamaños ("}) {
        desde = s.errores.find(std::string("  ") + e, desde);
        ASSERT_NE(desde, std::string::npos) << e << "\n" << s.errores;
    }
}
