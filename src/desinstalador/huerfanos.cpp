// SPDX-License-Identifier: GPL-3.0-or-later
// Leftovers of applications that are gone: entries of the user's Library, of
// Flatpak's data folder and of the config and data homes named after an
// application identifier that no installed application has.
#include "desinstalador/desinstalador.h"

#include "nucleo/textos.h"
#include "plataforma/lectura.h"
#include "plataforma/apps.h"

#include <map>

namespace fs = std::filesystem;

namespace {

struct Lugar {
    fs::path carpeta;
    // The entry's name ends in it, case respected, and the identifier is the
    // rest; empty: the whole name is the identifier.
    std::string_view final;
    // Flatpak names each folder here after its application: the owner is
    // known, whatever vendor or first piece its id has.
    bool flatpak = false;
};

// A Flatpak application id: three pieces or more, no blank.
bool pareceIdFlatpak(std::string_view texto)
{
    return trozos(texto, '.').size() >= 3 && texto.find(' ') == std::string_view::npos;
}

} // namespace

const std::unordered_set<std::string>& Desinstalador::prefijos()
{
    static const std::unordered_set<std::string> p{"com", "org", "net", "io", "app", "dev", "co",
                                                   "me",  "de",  "ai",  "tv", "us",  "jp"};
    return p;
}

std::string Desinstalador::fabricante(std::string_view id)
{
    const std::string bajo = minusculas(id);
    const auto p = trozos(bajo, '.');
    std::string r;
    for (size_t i = 0; i < p.size() && i < 2; ++i)
        r += (i ? "." : "") + std::string(p[i]);
    return r;
}

bool Desinstalador::pareceID(std::string_view texto)
{
    const auto p = trozos(texto, '.');
    return p.size() >= 3 && prefijos().contains(minusculas(p[0])) && texto.find(' ') == std::string_view::npos;
}

std::vector<Elemento> Desinstalador::restosHuerfanos(const std::vector<AppInstalada>& instaladas) const
{
    std::unordered_set<std::string> fabricantes, ids;
    for (const AppInstalada& a : instaladas) {
        fabricantes.insert(fabricante(a.bundleID));
        ids.insert(minusculas(a.bundleID));
    }
    const Lugar lugares[] = {
        {entorno.ruta("Library/Application Support"), ""},
        {entorno.ruta("Library/Saved Application State"), ".savedState"},
        {entorno.ruta("Library/HTTPStorages"), ""},
        {entorno.ruta("Library/WebKit"), ""},
        {entorno.ruta("Library/Preferences"), ".plist"},
        {entorno.ruta(".var/app"), "", true},
        {entorno.base(plataforma::Base::config), ""},
        {entorno.base(plataforma::Base::datos), ""},
    };
    const std::string propio = minusculas(plataforma::identificadorPropio);
    // Reading what the system has installed costs a walk; only done when an
    // entry gets that far.
    std::optional<plataforma::AppsConocidas> conocidas;

    std::vector<std::string> orden;
    std::map<std::string, std::vector<fs::path>> porId;
    for (const Lugar& lugar : lugares) {
        for (const std::string& nombre : plataforma::nombresEn(lugar.carpeta)) {
            std::string_view id = nombre;
            if (!lugar.final.empty()) {
                if (!id.ends_with(lugar.final))
                    continue;
                id.remove_suffix(lugar.final.size());
            }
            if (lugar.flatpak ? !pareceIdFlatpak(id) : !pareceID(id))
                continue;
            const std::string bajo = minusculas(id);
            if (bajo.starts_with("com.apple.") || bajo == propio || ids.contains(bajo) ||
                (!lugar.flatpak && fabricantes.contains(fabricante(id))))
                continue;
            if (!conocidas)
                conocidas.emplace();
            if (conocidas->existe(id))
                continue;
            auto& urls = porId[std::string(id)];
            if (urls.empty())
                orden.emplace_back(id);
            urls.push_back(lugar.carpeta / nombre);
        }
    }

    std::vector<Elemento> r;
    for (const std::string& id : orden) {
        std::vector<fs::path>& urls = porId[id];
        Elemento el;
        el.url = urls.front();
        el.extra.assign(urls.begin() + 1, urls.end());
        el.nombre = id;
        el.detalle = urls.size() == 1
                         ? tr("1 carpeta o archivo de una app que ya no está instalada")
                         : rellenar(tr("{n} carpetas o archivos de una app que ya no está instalada"),
                                    {{"n", std::to_string(urls.size())}});
        r.push_back(std::move(el));
    }
    return r;
}
