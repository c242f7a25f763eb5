// SPDX-License-Identifier: GPL-3.0-or-later
// What an application leaves in the user's Library: thirteen fixed folders,
// each with its own test of which direct children belong to the app.
#include "desinstalador/desinstalador.h"

#include "escaner/medicion.h"
#include "nucleo/textos.h"
#include "plataforma/lectura.h"

#include <set>

namespace fs = std::filesystem;

namespace {

// How a lower-case child name n is matched against the lower-case identifier
// id (and, for the first kind, the app's names).
enum class Regla {
    idONombre,        // n == id, or n is one of the names
    preferencias,     // id + "." ... ".plist"
    idPunto,          // id + "." ...
    estadoVentanas,   // id + ".savedstate"
    idOIdPunto,       // id, or id + "." ...
    igualId,          // id
    cookies,          // id ... ".binarycookies"
    agente,           // id ... ".plist"
    grupo,            // "group." + id, or ... "." + id
};

struct Lugar {
    const char* carpeta;
    const char* detalle;
    Regla regla;
};

constexpr Lugar lugares[] = {
    {"Library/Application Support", QT_TRANSLATE_NOOP("Vorlano", "Datos de la app"), Regla::idONombre},
    {"Library/Caches", QT_TRANSLATE_NOOP("Vorlano", "Cachés"), Regla::idONombre},
    {"Library/Logs", QT_TRANSLATE_NOOP("Vorlano", "Registros"), Regla::idONombre},
    {"Library/Preferences", QT_TRANSLATE_NOOP("Vorlano", "Preferencias"), Regla::preferencias},
    {"Library/Preferences/ByHost", QT_TRANSLATE_NOOP("Vorlano", "Preferencias"), Regla::idPunto},
    {"Library/Saved Application State", QT_TRANSLATE_NOOP("Vorlano", "Estado de ventanas"), Regla::estadoVentanas},
    {"Library/HTTPStorages", QT_TRANSLATE_NOOP("Vorlano", "Datos web"), Regla::idOIdPunto},
    {"Library/WebKit", QT_TRANSLATE_NOOP("Vorlano", "Datos web"), Regla::igualId},
    {"Library/Cookies", QT_TRANSLATE_NOOP("Vorlano", "Cookies"), Regla::cookies},
    {"Library/Application Scripts", QT_TRANSLATE_NOOP("Vorlano", "Scripts"), Regla::igualId},
    {"Library/LaunchAgents", QT_TRANSLATE_NOOP("Vorlano", "Inicio automático"), Regla::agente},
    {"Library/Containers", QT_TRANSLATE_NOOP("Vorlano", "Contenedor"), Regla::igualId},
    {"Library/Group Containers", QT_TRANSLATE_NOOP("Vorlano", "Contenedor compartido"), Regla::grupo},
};

bool pertenece(Regla regla, const std::string& n, const std::string& id, const std::set<std::string>& nombres)
{
    // Only the first kind goes by names. Without an identifier nothing else
    // can be told apart: an empty prefix would take every name.
    if (regla == Regla::idONombre)
        return n == id || nombres.contains(n);
    if (id.empty())
        return false;
    const std::string idPunto = id + ".";
    switch (regla) {
    case Regla::idONombre: break;
    case Regla::preferencias: return n.starts_with(idPunto) && n.ends_with(".plist");
    case Regla::idPunto: return n.starts_with(idPunto);
    case Regla::estadoVentanas: return n == id + ".savedstate";
    case Regla::idOIdPunto: return n == id || n.starts_with(idPunto);
    case Regla::igualId: return n == id;
    case Regla::cookies: return n.starts_with(id) && n.ends_with(".binarycookies");
    case Regla::agente: return n.starts_with(id) && n.ends_with(".plist");
    case Regla::grupo: return n == "group." + id || n.ends_with("." + id);
    }
    return false;
}

} // namespace

std::vector<Elemento> Desinstalador::restos(const AppInstalada& app) const
{
    const std::string id = minusculas(app.bundleID);
    std::set<std::string> nombres;
    for (const std::string& n : app.otrosNombres)
        nombres.insert(minusculas(n));

    // The thirteen folders differ and a listing names each child once, so no
    // path can be found twice.
    std::vector<Elemento> r;
    for (const Lugar& lugar : lugares) {
        const fs::path carpeta = entorno.ruta(lugar.carpeta);
        for (const std::string& nombre : plataforma::nombresEn(carpeta)) {
            if (!pertenece(lugar.regla, minusculas(nombre), id, nombres))
                continue;
            fs::path url = carpeta / nombre;
            Elemento el;
            el.nombre = "~/" + rutaDesdeCasa(url);
            el.detalle = tr(lugar.detalle);
            el.tamano = tamanoEnDisco(url);
            el.seleccionado = true;
            el.url = std::move(url);
            r.push_back(std::move(el));
        }
    }
    restosDeEscritorio(app, r);
    return r;
}

std::string Desinstalador::rutaDesdeCasa(const fs::path& url) const
{
    std::error_code ec;
    const fs::path h = fs::weakly_canonical(entorno.home, ec);
    const fs::path u = ec ? fs::path() : fs::weakly_canonical(url, ec);
    if (ec)
        return url.string();
    auto ih = h.begin(), iu = u.begin();
    for (; ih != h.end() && iu != u.end() && *ih == *iu; ++ih, ++iu) {
    }
    if (ih != h.end() || iu == u.end())
        return url.string();
    std::string resto;
    for (; iu != u.end(); ++iu)
        if (!iu->empty())
            resto += (resto.empty() ? "" : "/") + iu->string();
    return resto;
}
