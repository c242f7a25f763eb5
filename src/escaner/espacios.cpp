// SPDX-License-Identifier: GPL-3.0-or-later
// The per-project state that VS Code and Cursor keep: offered when the project
// is provably gone, or unopened for three months.
#include "escaner/escaner.h"

#include "plataforma/lectura.h"
#include "nucleo/textos.h"
#include "plataforma/archivos.h"

#include <nlohmann/json.hpp>

#include <dirent.h>
#include <sys/stat.h>

#include <iterator>

namespace {

struct Editor {
    const char* carpeta;
    const char* nombre;
    const char* bundle;
};

constexpr Editor editores[] = {
    {"Code", "VS Code", "com.microsoft.VSCode"},
    {"Cursor", "Cursor", "com.todesktop.230313mzl4w4u92"},
    {"VSCodium", "VSCodium", "com.vscodium"},
};

constexpr auto tresMeses = std::chrono::seconds(90 * 86400);
// workspace.json holds one URL; anything this big is not one.
constexpr size_t maximoJson = 1024 * 1024;

struct Proyecto {
    bool esArchivo = false;
    // For a file URL, the path as bytes, percent escapes decoded.
    std::string ruta;
};

int valorHex(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

bool esLetra(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool esLetraODigito(char c)
{
    return esLetra(c) || (c >= '0' && c <= '9');
}

// A URL in the generic syntax of RFC 3986, absent when the text isn't one.
// Hosts are taken as written: the editors' remote URLs carry escapes and "+"
// there ("vscode-remote://ssh-remote%2Bservidor/..."), which stricter parsers
// refuse.
std::optional<Proyecto> leerUrl(std::string_view texto)
{
    static constexpr std::string_view signos = "-._~:/?#[]@!$&'()*+,;=";
    if (texto.empty())
        return std::nullopt;
    for (size_t i = 0; i < texto.size(); ++i) {
        const char c = texto[i];
        if (c == '%') {
            if (i + 2 >= texto.size() || valorHex(texto[i + 1]) < 0 || valorHex(texto[i + 2]) < 0)
                return std::nullopt;
        } else if (!esLetraODigito(c) && signos.find(c) == std::string_view::npos) {
            return std::nullopt;
        }
    }
    // A scheme is a letter, then letters, digits, "+", "-" or "."; without one,
    // a colon may not come before the first slash.
    std::string esquema;
    std::string_view resto = texto;
    const size_t dosPuntos = texto.find(':');
    if (dosPuntos != std::string_view::npos && dosPuntos < texto.find_first_of("/?#")) {
        if (dosPuntos == 0 || !esLetra(texto[0]))
            return std::nullopt;
        for (const char c : texto.substr(0, dosPuntos))
            if (!esLetraODigito(c) && c != '+' && c != '-' && c != '.')
                return std::nullopt;
        esquema = minusculas(texto.substr(0, dosPuntos));
        resto = texto.substr(dosPuntos + 1);
    }
    Proyecto p;
    p.esArchivo = esquema == "file";
    if (!p.esArchivo)
        return p;
    resto = resto.substr(0, resto.find_first_of("?#"));
    if (resto.starts_with("//")) {
        const size_t barra = resto.find('/', 2);
        resto = barra == std::string_view::npos ? std::string_view() : resto.substr(barra);
    }
    // Escapes decode to bytes, whatever they spell: a name needn't be UTF-8.
    for (size_t i = 0; i < resto.size(); ++i) {
        if (resto[i] == '%') {
            p.ruta += char(valorHex(resto[i + 1]) * 16 + valorHex(resto[i + 2]));
            i += 2;
        } else {
            p.ruta += resto[i];
        }
    }
    return p;
}

// The project a state folder belongs to; absent when workspace.json can't be
// read or understood.
std::optional<Proyecto> proyectoDe(const std::filesystem::path& carpeta)
{
    const auto texto = plataforma::leerArchivo(carpeta / "workspace.json", maximoJson);
    if (!texto)
        return std::nullopt;
    const auto json = nlohmann::json::parse(*texto, nullptr, false);
    if (!json.is_object())
        return std::nullopt;
    auto valor = json.find("folder");
    if (valor == json.end())
        valor = json.find("workspace");
    if (valor == json.end() || !valor->is_string())
        return std::nullopt;
    return leerUrl(valor->get_ref<const std::string&>());
}

// The row standing for one list of state folders: the name's text, then the
// detail's for one folder and for several.
Elemento fila(const Editor& ed, std::vector<std::filesystem::path> carpetas, bool seleccionar,
              const std::string& nombre, const std::string& uno, const std::string& varios)
{
    Elemento e;
    e.url = carpetas.front();
    e.nombre = rellenar(nombre, {{"editor", ed.nombre}});
    e.detalle = carpetas.size() == 1 ? uno : rellenar(varios, {{"n", std::to_string(carpetas.size())}});
    e.seleccionado = seleccionar;
    e.bundles = {ed.bundle};
    e.revisarUso = true;
    e.nombreUso = ed.carpeta;
    e.extra.assign(std::make_move_iterator(carpetas.begin() + 1), std::make_move_iterator(carpetas.end()));
    return e;
}

} // namespace

std::vector<Elemento> Escaner::espaciosDeTrabajo() const
{
    return espaciosDeTrabajo(std::chrono::system_clock::now());
}

std::vector<Elemento> Escaner::espaciosDeTrabajo(Fecha ahora) const
{
    const Fecha limite = ahora - tresMeses;
    std::vector<Elemento> r;
    // Where the editors keep their folders: a Mac's support folder, the
    // config home on Linux.
    std::vector<std::filesystem::path> soportes{entorno.ruta("Library/Application Support")};
    if (const auto config = base(plataforma::Base::config))
        soportes.push_back(*config);
    for (const Editor& ed : editores) {
        std::vector<std::filesystem::path> borrados, viejos;
        for (const std::filesystem::path& soporte : soportes) {
            const std::filesystem::path estados = soporte / ed.carpeta / "User/workspaceStorage";
            DIR* d = ::opendir(estados.c_str());
            if (d == nullptr)
                continue;
            while (const dirent* entrada = ::readdir(d)) {
                const std::string_view nombre = entrada->d_name;
                if (nombre == "." || nombre == "..")
                    continue;
                const std::filesystem::path carpeta = estados / nombre;
                const auto proyecto = proyectoDe(carpeta);
                if (!proyecto)
                    continue;
                if (proyecto->esArchivo && seguroQueNoExiste(proyecto->ruta)) {
                    borrados.push_back(carpeta);
                    continue;
                }
                const auto fecha = ultimaModificacion(carpeta);
                if (fecha && *fecha < limite)
                    viejos.push_back(carpeta);
            }
            ::closedir(d);
        }
        if (!borrados.empty())
            r.push_back(fila(ed, std::move(borrados), true, tr("{editor} · proyectos que ya no existen"),
                             tr("Datos de 1 proyecto borrado o movido"), tr("Datos de {n} proyectos borrados o movidos")));
        if (!viejos.empty())
            r.push_back(fila(ed, std::move(viejos), false, tr("{editor} · proyectos sin abrir hace más de 3 meses"),
                             tr("Se pierden las pestañas abiertas y ajustes de ese proyecto"),
                             tr("Se pierden las pestañas abiertas y ajustes de esos {n} proyectos")));
    }
    return r;
}

bool Escaner::seguroQueNoExiste(const std::filesystem::path& ruta)
{
    // A project on a volume that isn't mounted is away, not gone.
    return plataforma::ausenciaProbada(ruta) && !plataforma::enVolumenDesmontado(ruta);
}

std::optional<Fecha> Escaner::ultimaModificacion(const std::filesystem::path& carpeta)
{
    std::optional<Fecha> r;
    for (const auto& p : {carpeta / "state.vscdb", carpeta}) {
        struct stat st;
        if (::lstat(p.c_str(), &st) != 0)
            continue;
        const Fecha f{std::chrono::duration_cast<Fecha::duration>(std::chrono::seconds(st.st_mtim.tv_sec) +
                                                                  std::chrono::nanoseconds(st.st_mtim.tv_nsec))};
        if (!r || f > *r)
            r = f;
    }
    return r;
}
