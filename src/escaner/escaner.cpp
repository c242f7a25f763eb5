// SPDX-License-Identifier: GPL-3.0-or-later
// The scan driver: the stages in their fixed order, the measuring pass, the
// optional timing report.
#include "escaner/escaner.h"

#include "desinstalador/desinstalador.h"
#include "escaner/medicion.h"
#include "nucleo/textos.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <limits>

namespace {

// The per-stage timings on standard error, only when VORLANO_TIEMPOS is set
// (to anything, the empty text included).
class Cronometro {
public:
    Cronometro() : activo_(std::getenv("VORLANO_TIEMPOS") != nullptr), marca_(std::chrono::steady_clock::now()) {}

    void informar(const std::string& etiqueta)
    {
        if (!activo_)
            return;
        const auto ahora = std::chrono::steady_clock::now();
        const double s = std::chrono::duration<double>(ahora - marca_).count();
        // The label is padded to 28 characters, not bytes.
        std::string campo = etiqueta;
        for (size_t n = caracteres(etiqueta); n < 28; ++n)
            campo += ' ';
        std::fprintf(stderr, "  %s %6.2f s\n", campo.c_str(), s);
        std::fflush(stderr);
        marca_ = std::chrono::steady_clock::now();
    }

private:
    bool activo_;
    std::chrono::steady_clock::time_point marca_;
};

std::vector<Elemento> unir(std::vector<Elemento> a, std::vector<Elemento> b)
{
    a.insert(a.end(), std::make_move_iterator(b.begin()), std::make_move_iterator(b.end()));
    return a;
}

bool incluirCacheDeApp(std::string_view nombre)
{
    const std::string n = minusculas(nombre);
    return !n.starts_with("com.apple.") && !Escaner::cachesExcluidas().contains(n);
}

bool incluirCacheDeLinux(std::string_view nombre)
{
    return !Escaner::cachesLinuxExcluidas().contains(minusculas(nombre));
}

bool incluirTodo(std::string_view)
{
    return true;
}

} // namespace

const std::unordered_set<std::string>& Escaner::cachesExcluidas()
{
    static const std::unordered_set<std::string> nombres{
        "cloudkit", "familycircle", "passkit", "geoservices", "metadata", "siritts",   "homebrew", "pip",
        "node-gyp", "yarn",         "cocoapods", "go-build",  "ms-playwright", "colima", "dotslash"};
    return nombres;
}

const std::unordered_set<std::string>& Escaner::cachesLinuxExcluidas()
{
    static const std::unordered_set<std::string> nombres = [] {
        // Xfce keeps its saved sessions there, and KDE the copies of remote
        // files open for editing: neither comes back by itself.
        std::unordered_set<std::string> r{"sessions", "kioexec"};
        r.insert(cachesExcluidas().begin(), cachesExcluidas().end());
        for (const auto* tabla : {&programacion(), &redescarga(), &registros()})
            for (const Regla& regla : *tabla) {
                std::string_view ruta = regla.ruta;
                if (!regla.base && ruta.starts_with(".cache/"))
                    ruta.remove_prefix(7);
                else if (regla.base != plataforma::Base::cache)
                    continue;
                r.insert(minusculas(ruta.substr(0, ruta.find('/'))));
            }
        return r;
    }();
    return nombres;
}

const std::unordered_map<std::string, std::vector<std::string>>& Escaner::duenosDeCaches()
{
    // Mozilla's programs share one folder named after the vendor, which
    // neither program's name or desktop id says.
    static const std::unordered_map<std::string, std::vector<std::string>> duenos{
        {"mozilla", {"firefox", "firefox-esr", "org.mozilla.firefox", "thunderbird", "org.mozilla.thunderbird"}}};
    return duenos;
}

int64_t Escaner::minimoGrande() const
{
    constexpr int64_t porDefecto = 250'000'000;
    if (!entorno.prueba)
        return porDefecto;
    const char* v = std::getenv("VORLANO_GRANDE_MB");
    if (v == nullptr || *v == '\0')
        return porDefecto;
    // An optional sign, then digits and nothing else; the product must fit.
    const char* p = v;
    const bool negativo = *p == '-';
    if (*p == '+' || *p == '-')
        ++p;
    if (*p == '\0')
        return porDefecto;
    constexpr int64_t limite = std::numeric_limits<int64_t>::max() / 1'000'000;
    int64_t mb = 0;
    for (; *p; ++p) {
        if (*p < '0' || *p > '9')
            return porDefecto;
        if (mb > (limite - (*p - '0')) / 10)
            return porDefecto;
        mb = mb * 10 + (*p - '0');
    }
    return (negativo ? -mb : mb) * 1'000'000;
}

std::vector<Elemento> Escaner::marcarUso(std::vector<Elemento> elementos, const AppsAbiertas& abiertas)
{
    for (Elemento& e : elementos) {
        const std::string nombre = e.nombreUso ? *e.nombreUso : e.url.filename().string();
        e.enUso = abiertas.quienUsa(nombre, e.bundles);
        if (e.enUso)
            e.seleccionado = false;
    }
    return elementos;
}

void Escaner::medir(std::vector<Categoria>& categorias, const Progreso& progreso)
{
    std::vector<std::pair<size_t, size_t>> posiciones;
    std::vector<std::vector<std::filesystem::path>> listas;
    for (size_t c = 0; c < categorias.size(); ++c)
        for (size_t i = 0; i < categorias[c].elementos.size(); ++i) {
            const Elemento& e = categorias[c].elementos[i];
            posiciones.emplace_back(c, i);
            listas.push_back(e.tamano <= 0 ? e.urls() : std::vector<std::filesystem::path>{});
        }
    const std::string plantilla = tr("Midiendo tamaños… {n} %");
    const auto sumas = medirEnParalelo(listas, [&](int pct) {
        progreso(rellenar(plantilla, {{"n", std::to_string(pct)}}));
    });
    for (size_t k = 0; k < posiciones.size(); ++k)
        if (!listas[k].empty())
            categorias[posiciones[k].first].elementos[posiciones[k].second].tamano = sumas[k];
}

std::vector<Categoria> Escaner::escanear(const Progreso& progreso) const
{
    Cronometro cronometro;
    const AppsAbiertas abiertas = AppsAbiertas::actuales();
    std::vector<Categoria> categorias;

    progreso(tr("Revisando cachés de apps…"));
    std::vector<Elemento> apps =
        unir(hijos(entorno.ruta("Library/Caches"), &abiertas, incluirCacheDeApp), cachesDeElectron(abiertas));
    if (const auto cache = base(plataforma::Base::cache)) {
        std::vector<Elemento> deCache = hijos(*cache, &abiertas, incluirCacheDeLinux);
        for (Elemento& e : deCache)
            if (const auto it = duenosDeCaches().find(minusculas(e.nombre)); it != duenosDeCaches().end())
                e.bundles = it->second;
        apps = unir(std::move(apps), marcarUso(std::move(deCache), abiertas));
    }
    apps = unir(unir(std::move(apps), cachesDeFlatpak(abiertas)), cachesDeSnap(abiertas));
    categorias.push_back(categoria("apps", std::move(apps)));
    categorias.push_back(categoria("logs", unir(unir(hijos(entorno.ruta("Library/Logs"), nullptr, incluirTodo),
                                                     desdeReglas(registros(), abiertas, true)),
                                                registrosDeApps())));
    cronometro.informar("cachés de apps + logs");

    progreso(tr("Revisando cachés de programación…"));
    categorias.push_back(categoria("dev", unir(desdeReglas(programacion(), abiertas, true),
                                               marcarUso(espaciosDeTrabajo(), abiertas))));
    categorias.push_back(categoria(
        "redescarga", unir(unir(desdeReglas(redescarga(), abiertas, false), simuladores()), docker())));
    cronometro.informar("programación + simuladores");

    progreso(tr("Buscando proyectos y archivos grandes… (macOS puede pedir permiso para Escritorio, Documentos y "
                "Descargas)"));
    Hallazgos hallazgos = recorrerCarpetaPersonal();
    cronometro.informar("recorrido carpeta personal");
    categorias.push_back(categoria("compilaciones", std::move(hallazgos.compilaciones)));
    categorias.push_back(categoria("dependencias", std::move(hallazgos.dependencias)));
    categorias.push_back(categoria("instaladores", std::move(hallazgos.instaladores)));
    categorias.push_back(categoria("grandes", std::move(hallazgos.grandes)));

    progreso(tr("Buscando restos de apps desinstaladas…"));
    const Desinstalador desinstalador(entorno);
    categorias.push_back(categoria("huerfanos", desinstalador.restosHuerfanos(desinstalador.apps())));
    cronometro.informar("restos de apps");

    progreso(tr("Buscando archivos duplicados…"));
    categorias.push_back(categoria("duplicados", duplicados(std::move(hallazgos.candidatos))));
    cronometro.informar("duplicados");

    progreso(tr("Revisando Descargas…"));
    categorias.push_back(categoria("descargas", descargasAntiguas()));
    cronometro.informar("descargas");

    medir(categorias, progreso);
    size_t n = 0;
    for (const auto& c : categorias)
        n += c.elementos.size();
    cronometro.informar("medir tamaños (" + std::to_string(n) + " elementos)");

    return depurar(std::move(categorias));
}
