// SPDX-License-Identifier: GPL-3.0-or-later
// What a folder met by a walk is: a project artefact (recognised by its name
// and a marker file beside it), a package, or an ordinary folder.
#include "escaner/escaner.h"

#include "nucleo/textos.h"
#include "plataforma/archivos.h"

#include <limits.h>
#include <sys/stat.h>

#include <array>
#include <cstring>

namespace {

enum class Marcas { ninguna, alguna, todas };

struct FilaArtefacto {
    std::string_view nombre;
    Marcas marcas;
    std::array<std::string_view, 2> marcadores;
    const char* tipo;
    bool esDependencia;
};

// Rows of one name are tried in order; a name that passes none of its rows is
// an ordinary folder.
constexpr FilaArtefacto artefactos[] = {
    {"node_modules", Marcas::ninguna, {}, QT_TRANSLATE_NOOP("Vorlano", "Dependencias de Node"), true},
    {".venv", Marcas::alguna, {"pyproject.toml", "requirements.txt"}, QT_TRANSLATE_NOOP("Vorlano", "Entorno de Python"),
     true},
    {"venv", Marcas::alguna, {"pyproject.toml", "requirements.txt"}, QT_TRANSLATE_NOOP("Vorlano", "Entorno de Python"),
     true},
    {".next", Marcas::ninguna, {}, QT_TRANSLATE_NOOP("Vorlano", "Caché de Next.js"), false},
    {".turbo", Marcas::ninguna, {}, QT_TRANSLATE_NOOP("Vorlano", "Caché de Turborepo"), false},
    {".parcel-cache", Marcas::ninguna, {}, QT_TRANSLATE_NOOP("Vorlano", "Caché de Parcel"), false},
    {".svelte-kit", Marcas::ninguna, {}, QT_TRANSLATE_NOOP("Vorlano", "Caché de SvelteKit"), false},
    {".nuxt", Marcas::ninguna, {}, QT_TRANSLATE_NOOP("Vorlano", "Caché de Nuxt"), false},
    {"DerivedData", Marcas::ninguna, {}, QT_TRANSLATE_NOOP("Vorlano", "Compilación de Xcode"), false},
    {"dist", Marcas::alguna, {"package.json"}, QT_TRANSLATE_NOOP("Vorlano", "Compilación (dist)"), false},
    {"build", Marcas::alguna, {"package.json"}, QT_TRANSLATE_NOOP("Vorlano", "Compilación (build)"), false},
    {"build", Marcas::alguna, {"build.gradle", "build.gradle.kts"},
     QT_TRANSLATE_NOOP("Vorlano", "Compilación de Gradle"), false},
    {"target", Marcas::alguna, {"Cargo.toml"}, QT_TRANSLATE_NOOP("Vorlano", "Compilación de Rust"), false},
    {"Library", Marcas::todas, {"Assets", "ProjectSettings"}, QT_TRANSLATE_NOOP("Vorlano", "Caché de Unity (Library)"),
     false},
};

// Whether an entry of that name lies in the folder; a link counts as itself.
// The path is put together on the stack: walks ask this for many folders.
bool hay(std::string_view carpeta, std::string_view nombre)
{
    char ruta[PATH_MAX];
    if (carpeta.size() + 1 + nombre.size() >= sizeof ruta)
        return false;
    std::memcpy(ruta, carpeta.data(), carpeta.size());
    ruta[carpeta.size()] = '/';
    std::memcpy(ruta + carpeta.size() + 1, nombre.data(), nombre.size());
    ruta[carpeta.size() + 1 + nombre.size()] = '\0';
    struct stat st;
    return ::lstat(ruta, &st) == 0;
}

bool cumple(const FilaArtefacto& f, std::string_view padre)
{
    if (f.marcas == Marcas::ninguna)
        return true;
    bool alguna = false, todas = true;
    for (std::string_view m : f.marcadores) {
        if (m.empty())
            continue;
        const bool h = hay(padre, m);
        alguna = alguna || h;
        todas = todas && h;
    }
    return f.marcas == Marcas::alguna ? alguna : todas;
}

Fecha modificacion(const struct stat& st)
{
    return Fecha(std::chrono::seconds(st.st_mtim.tv_sec));
}

} // namespace

std::optional<Clasificacion> Escaner::clasificar(std::string_view nombre, std::string_view padre)
{
    for (const FilaArtefacto& f : artefactos)
        if (f.nombre == nombre && cumple(f, padre))
            return Clasificacion{tr(f.tipo), f.esDependencia};
    return std::nullopt;
}

bool Escaner::esPaquete(std::string_view nombre, const char* ruta)
{
    return nombre.find('.') != std::string_view::npos && plataforma::esPaquete(ruta);
}

std::string Escaner::actividad(const std::filesystem::path& padre, const std::filesystem::path& carpeta)
{
    std::optional<Fecha> ultima;
    for (const auto* p : {&padre, &carpeta}) {
        struct stat st;
        if (::lstat(p->c_str(), &st) == 0 && (!ultima || modificacion(st) > *ultima))
            ultima = modificacion(st);
    }
    return ultima ? haceCuanto(*ultima) : "—";
}
