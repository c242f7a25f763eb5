// SPDX-License-Identifier: GPL-3.0-or-later
// Snaps, read from where they are mounted: <raiz>/<name>/current leads to the
// current revision, whose meta/snap.yaml describes it; snapd keeps the
// revision's package as <name>_<revision>.snap.
#include "plataforma/paquetes.h"

#include "plataforma/idioma.h"
#include "plataforma/entradas.h"
#include "plataforma/lectura.h"

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <map>
#include <string_view>

namespace fs = std::filesystem;

namespace plataforma {
namespace {

constexpr size_t maximoYaml = 256 * 1024;

// The top-level "clave: valor" lines of snap.yaml, quotes taken off. Nested
// keys (apps, plugs…) are indented and left out.
std::map<std::string, std::string> clavesDeYaml(std::string_view texto)
{
    std::map<std::string, std::string> r;
    while (!texto.empty()) {
        const size_t fin = texto.find('\n');
        std::string_view linea = texto.substr(0, fin);
        texto = fin == std::string_view::npos ? std::string_view() : texto.substr(fin + 1);
        const size_t dos = linea.find(": ");
        if (linea.empty() || linea.front() == ' ' || linea.front() == '#' || dos == std::string_view::npos)
            continue;
        std::string_view valor = linea.substr(dos + 2);
        while (!valor.empty() && (valor.back() == ' ' || valor.back() == '\r'))
            valor.remove_suffix(1);
        while (!valor.empty() && valor.front() == ' ')
            valor.remove_prefix(1);
        if (valor.size() >= 2 && (valor.front() == '"' || valor.front() == '\'') && valor.back() == valor.front())
            valor = valor.substr(1, valor.size() - 2);
        r.try_emplace(std::string(linea.substr(0, dos)), valor);
    }
    return r;
}

bool esArchivo(const fs::path& p)
{
    struct stat st;
    return ::lstat(p.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

} // namespace

fs::path raizSnaps()
{
    struct stat st;
    return ::stat("/snap", &st) == 0 && S_ISDIR(st.st_mode) ? fs::path("/snap") : fs::path("/var/lib/snapd/snap");
}

fs::path paquetesSnap()
{
    return "/var/lib/snapd/snaps";
}

std::vector<AppPaquete> appsSnap(const fs::path& raiz, const fs::path& paquetes)
{
    std::vector<AppPaquete> r;
    if (raiz.empty())
        return r;
    for (std::string& nombre : nombresEn(raiz)) {
        if (nombre.starts_with('.') || nombre == "bin")
            continue;
        const fs::path base = raiz / nombre;
        char rev[NAME_MAX + 1];
        const ssize_t n = ::readlink((base / "current").c_str(), rev, sizeof rev - 1);
        if (n <= 0 || std::string_view(rev, size_t(n)).find('/') != std::string_view::npos)
            continue;
        const std::string revision(rev, size_t(n));
        const auto yaml = leerArchivo(base / revision / "meta/snap.yaml", maximoYaml);
        if (!yaml)
            continue;
        const auto claves = clavesDeYaml(*yaml);
        const auto tipo = claves.find("type");
        // Bases, cores, kernels, gadgets and snapd itself are the system's.
        if (claves.count("name") == 0 || claves.at("name") != nombre || (tipo != claves.end() && tipo->second != "app"))
            continue;
        AppPaquete app;
        app.carpeta = paquetes / (nombre + "_" + revision + ".snap");
        if (!esArchivo(app.carpeta))
            continue;
        const auto titulo = claves.find("title");
        app.nombre = titulo != claves.end() && !titulo->second.empty() && esUtf8(titulo->second) ? titulo->second : nombre;
        if (const auto v = claves.find("version"); v != claves.end() && esUtf8(v->second))
            app.version = v->second;
        for (const char* icono : {"meta/gui/icon.svg", "meta/gui/icon.png"})
            if (const fs::path p = base / revision / icono; esIcono(p)) {
                app.icono = p;
                break;
            }
        app.id = std::move(nombre);
        r.push_back(std::move(app));
    }
    return r;
}

} // namespace plataforma
