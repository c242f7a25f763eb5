// SPDX-License-Identifier: GPL-3.0-or-later
// What an application leaves in a Linux home: its folders in the base folders
// of programs' files (config, data, cache, state), Flatpak's and Snap's data
// folder of it, and the desktop entries and icons that start and show it.
#include "desinstalador/desinstalador.h"

#include "escaner/medicion.h"
#include "nucleo/textos.h"
#include "plataforma/entradas.h"
#include "plataforma/lectura.h"

#include <optional>
#include <set>

namespace fs = std::filesystem;
using plataforma::EntradaEscritorio;

namespace {

// Folders and files of the base folders that many programs share: never one
// application's leftovers, whatever it is called.
const std::set<std::string>& compartidas()
{
    static const std::set<std::string> c{
        "applications", "autostart",     "icons",          "flatpak",      "trash",          "mime",
        "fonts",        "themes",        "menus",          "systemd",      "dconf",          "keyrings",
        "gtk-2.0",      "gtk-3.0",       "gtk-4.0",        "pulse",        "fontconfig",     "environment.d",
        "sounds",       "backgrounds",   "wallpapers",     "thumbnails",   "gvfs-metadata",  "desktop-directories",
        "mimeapps.list", "user-dirs.dirs", "user-dirs.locale", "recently-used.xbel", "xdg-desktop-portal",
        "session",      "sessions",      "data",           "cache",        "config",         "state",
        "logs",         "bin",           "lib",            "share",        "tmp",            "history",
        "color-schemes", "vorlano"};
    return c;
}

// Which entries of a folder are the application's.
enum class Criterio {
    idONombre, // n == id, or n is one of the names
    soloId,    // n == id
    entrada,   // a desktop entry named after id, or starting the application's program
};

struct Lugar {
    fs::path carpeta;
    const char* detalle;
    Criterio regla;
    std::optional<TipoApp> solo; // only applications of that kind have leftovers here
};

// The icon files of those names in the user's themed icons.
std::vector<fs::path> iconos(const fs::path& datos, const std::set<std::string>& nombres)
{
    std::vector<fs::path> r;
    if (nombres.empty())
        return r;
    const fs::path hicolor = datos / "icons/hicolor";
    for (const std::string& tam : plataforma::nombresEn(hicolor))
        for (const std::string& n : plataforma::nombresEn(hicolor / tam / "apps"))
            if (const fs::path p = hicolor / tam / "apps" / n; nombres.contains(p.stem().string()))
                r.push_back(p);
    return r;
}

} // namespace

void Desinstalador::restosDeEscritorio(const AppInstalada& app, std::vector<Elemento>& r) const
{
    const std::string id = minusculas(app.bundleID);
    // Flatpak and Snap give each application base folders of its own, inside
    // their data folders: a folder of the same name in the user's is another
    // program's.
    std::set<std::string> nombres;
    if (app.tipo != TipoApp::flatpak && app.tipo != TipoApp::snap)
        for (const std::string& n : app.otrosNombres)
            nombres.insert(minusculas(n));
    const fs::path datos = entorno.base(plataforma::Base::datos);
    const fs::path config = entorno.base(plataforma::Base::config);
    const Lugar lugares[] = {
        {config, QT_TRANSLATE_NOOP("Vorlano", "Configuración"), Criterio::idONombre, {}},
        {datos, QT_TRANSLATE_NOOP("Vorlano", "Datos de la app"), Criterio::idONombre, {}},
        {entorno.base(plataforma::Base::cache), QT_TRANSLATE_NOOP("Vorlano", "Cachés"), Criterio::idONombre, {}},
        {entorno.base(plataforma::Base::estado), QT_TRANSLATE_NOOP("Vorlano", "Estado de la app"), Criterio::idONombre,
         {}},
        {entorno.ruta(".var/app"), QT_TRANSLATE_NOOP("Vorlano", "Datos de la app (Flatpak)"), Criterio::soloId,
         TipoApp::flatpak},
        {entorno.ruta("snap"), QT_TRANSLATE_NOOP("Vorlano", "Datos de la app (Snap)"), Criterio::soloId, TipoApp::snap},
        {config / "autostart", QT_TRANSLATE_NOOP("Vorlano", "Inicio automático"), Criterio::entrada, {}},
        {datos / "applications", QT_TRANSLATE_NOOP("Vorlano", "Acceso en el menú de aplicaciones"), Criterio::entrada,
         {}},
    };
    // The programs of an AppImage or of a home program lie at or inside its url.
    const bool porPrograma = app.tipo == TipoApp::appImage || app.tipo == TipoApp::enCasa;
    auto esSuyo = [&](const fs::path& programa) {
        return porPrograma && !programa.empty() && (programa == app.url || dentroDe(programa, app.url));
    };

    // What the other installed applications are called and where they are,
    // read only when a name is about to decide: a folder one of them could
    // own isn't offered.
    std::optional<std::set<std::string>> ajenos;
    std::vector<fs::path> otras;
    auto deOtra = [&](const std::string& n, const fs::path& ruta) {
        if (!ajenos) {
            ajenos.emplace();
            for (const AppInstalada& a : apps()) {
                if (a.url == app.url)
                    continue;
                ajenos->insert(minusculas(a.bundleID));
                for (const std::string& o : a.otrosNombres)
                    ajenos->insert(minusculas(o));
                otras.push_back(a.url);
            }
        }
        return ajenos->contains(n) ||
               std::any_of(otras.begin(), otras.end(), [&](const fs::path& u) { return dentroDe(u, ruta); });
    };

    std::set<std::string> usados;
    for (const Elemento& e : r)
        usados.insert(e.url.native());
    std::set<std::string> iconosSuyos, iconosAjenos;
    std::vector<std::pair<fs::path, const char*>> halladas;
    for (const Lugar& lugar : lugares) {
        if (lugar.solo && *lugar.solo != app.tipo)
            continue;
        for (const std::string& nombre : plataforma::nombresEn(lugar.carpeta)) {
            const fs::path p = lugar.carpeta / nombre;
            // The application itself, or part of it, goes with it.
            if (p == app.url || dentroDe(p, app.url))
                continue;
            const std::string n = minusculas(nombre);
            bool suyo = false;
            switch (lugar.regla) {
            case Criterio::idONombre:
                suyo = !compartidas().contains(n) && ((!id.empty() && n == id) || nombres.contains(n)) &&
                       !deOtra(n, p);
                break;
            case Criterio::soloId: suyo = !id.empty() && n == id; break;
            case Criterio::entrada: {
                if (!n.ends_with(".desktop"))
                    break;
                const auto e = plataforma::leerEntrada(p, p.stem().string());
                suyo = (!id.empty() && n == id + ".desktop") || (e && esSuyo(e->programa));
                // Icons named by the entries that go with it, and by those that stay.
                if (e && !e->icono.empty() && !e->icono.starts_with('/'))
                    (suyo ? iconosSuyos : iconosAjenos).insert(e->icono);
                break;
            }
            }
            if (suyo)
                halladas.emplace_back(p, lugar.detalle);
        }
    }
    for (const std::string& i : iconosAjenos)
        iconosSuyos.erase(i);
    for (fs::path& p : iconos(datos, iconosSuyos))
        halladas.emplace_back(std::move(p), QT_TRANSLATE_NOOP("Vorlano", "Icono"));

    for (auto& [url, detalle] : halladas) {
        if (!usados.insert(url.native()).second)
            continue;
        Elemento el;
        el.nombre = "~/" + rutaDesdeCasa(url);
        el.detalle = tr(detalle);
        el.tamano = tamanoEnDisco(url);
        el.seleccionado = true;
        el.url = std::move(url);
        r.push_back(std::move(el));
    }
}
