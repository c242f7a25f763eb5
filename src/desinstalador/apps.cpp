// SPDX-License-Identifier: GPL-3.0-or-later
// The installed applications: the bundles of the application folders, read
// from their Info.plist, and the applications of a Linux home.
#include "desinstalador/desinstalador.h"

#include "plataforma/plist.h"
#include "nucleo/textos.h"
#include "plataforma/apps.h"
#include "plataforma/archivos.h"
#include "plataforma/paquetes.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QCollator>
#include <QLocale>
#include <QString>

#include <algorithm>

namespace fs = std::filesystem;

Desinstalador::Desinstalador(Entorno e) : entorno(std::move(e))
{
    if (!entorno.prueba) {
        flatpaksSistema = plataforma::flatpaksDeSistema();
        snaps = plataforma::raizSnaps();
        paquetesSnap = plataforma::paquetesSnap();
    }
}

std::vector<AppInstalada> Desinstalador::apps() const
{
    std::vector<fs::path> raices;
    if (!entorno.prueba)
        raices.emplace_back("/Applications");
    raices.push_back(entorno.ruta("Applications"));

    std::vector<AppInstalada> r;
    for (const fs::path& raiz : raices)
        for (const fs::path& bundle : plataforma::bundlesDeApps(raiz))
            if (auto app = leer(bundle))
                r.push_back(std::move(*app));
    for (AppInstalada& app : programas())
        r.push_back(std::move(app));
    // The system's own applications and this program are not offered: by its
    // identifier, or as whatever holds the files it runs from (a home
    // program's entry names it by another id).
    const auto propio = plataforma::programaPropio();
    std::erase_if(r, [&](const AppInstalada& a) {
        if (a.bundleID.starts_with("com.apple.") || a.bundleID == plataforma::identificadorPropio)
            return true;
        std::error_code ec;
        const fs::path url = fs::weakly_canonical(a.url, ec);
        return std::any_of(propio.begin(), propio.end(), [&](const fs::path& p) { return p == url || dentroDe(p, url); });
    });

    ordenarPorNombre(r);
    return r;
}

void Desinstalador::ordenarPorNombre(std::vector<AppInstalada>& apps)
{
    // The user's order of names; where the system has no locale (C), the
    // order of the language the program speaks.
    QLocale idioma = QLocale::system();
    if (idioma.language() == QLocale::C)
        idioma = QLocale(QString::fromStdString(localeApp()));
    QCollator orden(idioma);
    orden.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<QString> claves;
    for (const AppInstalada& a : apps)
        claves.push_back(QString::fromStdString(a.nombre));
    std::vector<size_t> indices(apps.size());
    for (size_t i = 0; i < indices.size(); ++i)
        indices[i] = i;
    std::stable_sort(indices.begin(), indices.end(),
                     [&](size_t a, size_t b) { return orden.compare(claves[a], claves[b]) < 0; });
    std::vector<AppInstalada> ordenadas;
    ordenadas.reserve(apps.size());
    for (size_t i : indices)
        ordenadas.push_back(std::move(apps[i]));
    apps = std::move(ordenadas);
}

std::optional<AppInstalada> Desinstalador::leer(const fs::path& url) const
{
    const auto info = plataforma::leerPlist(url / "Contents/Info.plist");
    if (!info)
        return std::nullopt;
    const auto id = plataforma::textoDe(*info, "CFBundleIdentifier");
    if (!id)
        return std::nullopt;

    AppInstalada app;
    app.url = url;
    app.bundleID = *id;
    app.nombre = plataforma::nombreVisible(url);
    for (size_t p = 0; (p = app.nombre.find(".app", p)) != std::string::npos;)
        app.nombre.erase(p, 4);
    app.version = plataforma::textoDe(*info, "CFBundleShortVersionString").value_or("");

    // The display name always; the bundle's own names when they are long
    // enough not to match unrelated folders.
    app.otrosNombres.push_back(app.nombre);
    for (const char* clave : {"CFBundleName", "CFBundleDisplayName", "CFBundleExecutable"}) {
        const auto n = plataforma::textoDe(*info, clave);
        if (n && caracteres(*n) > 2 &&
            std::find(app.otrosNombres.begin(), app.otrosNombres.end(), *n) == app.otrosNombres.end())
            app.otrosNombres.push_back(*n);
    }

    struct stat st;
    app.deRoot = ::lstat(url.c_str(), &st) == 0 && st.st_uid != ::getuid();
    return app;
}
