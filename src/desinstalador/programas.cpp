// SPDX-License-Identifier: GPL-3.0-or-later
// The applications of a Linux home besides bundles: Flatpak applications and
// snaps as their installations describe them, AppImage files, and programs
// unpacked into the home folder that a desktop entry of the user starts.
#include "desinstalador/desinstalador.h"

#include "limpieza/limpiador.h"
#include "nucleo/textos.h"
#include "plataforma/entradas.h"
#include "plataforma/paquetes.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <set>

namespace fs = std::filesystem;
using plataforma::EntradaEscritorio;

namespace {

bool esAppImage(const fs::path& p)
{
    const std::string n = p.filename().string();
    return n.size() > 9 && minusculas(n.substr(n.size() - 9)) == ".appimage";
}

// The name without ".AppImage".
std::string sinExtension(const fs::path& p)
{
    const std::string n = p.filename().string();
    return n.substr(0, n.size() - 9);
}

// Adds a name by which leftovers may be found, when it is long enough not to
// match unrelated folders and not there yet.
void anadirNombre(AppInstalada& app, const std::string& n)
{
    if (caracteres(n) > 2 && std::find(app.otrosNombres.begin(), app.otrosNombres.end(), n) == app.otrosNombres.end())
        app.otrosNombres.push_back(n);
}

bool deOtroUsuario(const fs::path& p)
{
    struct stat st;
    return ::lstat(p.c_str(), &st) == 0 && st.st_uid != ::getuid();
}

AppInstalada dePaquete(plataforma::AppPaquete p, TipoApp tipo)
{
    AppInstalada app;
    app.tipo = tipo;
    app.url = std::move(p.carpeta);
    app.nombre = std::move(p.nombre);
    app.bundleID = std::move(p.id);
    app.version = std::move(p.version);
    app.icono = std::move(p.icono);
    app.otrosNombres.push_back(app.nombre);
    app.deRoot = deOtroUsuario(app.url);
    return app;
}

// The executable regular files named *.AppImage (in any case) in a folder;
// links and folders of that name are not AppImages.
std::vector<fs::path> appImagesEn(const fs::path& carpeta)
{
    std::vector<fs::path> r;
    std::error_code ec;
    for (fs::directory_iterator it(carpeta, ec), fin; !ec && it != fin; it.increment(ec)) {
        std::error_code e2;
        const fs::file_status st = it->symlink_status(e2);
        if (!e2 && fs::is_regular_file(st) && (st.permissions() & fs::perms::owner_exec) != fs::perms::none &&
            esAppImage(it->path()))
            r.push_back(it->path());
    }
    std::sort(r.begin(), r.end());
    return r;
}

} // namespace

std::vector<plataforma::InstalacionFlatpak> Desinstalador::instalacionesFlatpak() const
{
    std::vector<plataforma::InstalacionFlatpak> r{{entorno.base(plataforma::Base::datos) / "flatpak", "--user"}};
    r.insert(r.end(), flatpaksSistema.begin(), flatpaksSistema.end());
    return r;
}

std::vector<AppInstalada> Desinstalador::programas() const
{
    std::vector<AppInstalada> r;
    const fs::path datos = entorno.base(plataforma::Base::datos);
    for (const plataforma::InstalacionFlatpak& inst : instalacionesFlatpak())
        for (plataforma::AppPaquete& p : plataforma::appsFlatpak(inst.carpeta))
            r.push_back(dePaquete(std::move(p), TipoApp::flatpak));
    for (plataforma::AppPaquete& p : plataforma::appsSnap(snaps, paquetesSnap))
        r.push_back(dePaquete(std::move(p), TipoApp::snap));

    std::error_code ec;
    const fs::path casa = fs::weakly_canonical(entorno.home, ec);
    // The user's desktop entries that start a program of the home folder, in
    // the order of their ids.
    std::vector<EntradaEscritorio> entradas = plataforma::entradasDe(datos / "applications");
    std::erase_if(entradas, [&](const EntradaEscritorio& e) { return !dentroDe(e.programa, casa); });
    std::sort(entradas.begin(), entradas.end(), [](const auto& a, const auto& b) { return a.id < b.id; });
    auto integracion = [&](const fs::path& programa) -> const EntradaEscritorio* {
        for (const EntradaEscritorio& e : entradas)
            if (e.programa == programa && e.aplicacion)
                return &e;
        return nullptr;
    };
    auto icono = [&](const EntradaEscritorio& e) {
        if (e.icono.starts_with('/'))
            return plataforma::esIcono(e.icono) ? fs::path(e.icono) : fs::path();
        return plataforma::iconoDeTema(datos, e.icono);
    };

    // AppImages where users keep them, and beside the programs their entries start.
    std::vector<fs::path> carpetas{entorno.ruta("Applications"), entorno.ruta(".local/bin"),
                                   entorno.personales()[plataforma::Personal::descargas]};
    for (const EntradaEscritorio& e : entradas)
        carpetas.push_back(e.programa.parent_path());
    std::set<fs::path> vistas;
    for (const fs::path& carpeta : carpetas)
        for (const fs::path& archivo : appImagesEn(carpeta)) {
            const fs::path real = fs::weakly_canonical(archivo, ec);
            if (ec || !vistas.insert(real).second)
                continue;
            AppInstalada app;
            app.tipo = TipoApp::appImage;
            app.url = real;
            const std::string base = sinExtension(real);
            const EntradaEscritorio* e = integracion(real);
            app.nombre = e && !e->nombre.empty() ? e->nombre : base;
            app.otrosNombres.push_back(app.nombre);
            if (e) {
                app.bundleID = e->id;
                app.version = e->version;
                app.icono = icono(*e);
                anadirNombre(app, e->claseVentana);
            }
            // "Editor-1.2-x86_64.AppImage" is the Editor's.
            anadirNombre(app, base.substr(0, base.find_first_of("-_")));
            app.deRoot = deOtroUsuario(real);
            r.push_back(std::move(app));
        }

    // Home programs: the folder they were unpacked into, found by going up
    // from the program past bin/, lib/ and usr/. Where that folder is one
    // that holds many things (the home folder, ~/.local/share, Downloads…)
    // or holds another application, only the program itself is offered.
    std::set<fs::path> compartidas{casa};
    const Limpiador limpiador(entorno);
    for (const std::string& c : limpiador.raices())
        compartidas.insert(casa / c);
    for (const char* c : {".local", ".local/opt", "bin", ".bin", "opt", "Applications", "Aplicaciones", "apps", "Apps",
                          "Programs", "Programas", "programs"})
        compartidas.insert(casa / c);

    std::map<fs::path, std::vector<const EntradaEscritorio*>> porCarpeta;
    for (const EntradaEscritorio& e : entradas) {
        if (!e.aplicacion || !e.visible || esAppImage(e.programa) || !fs::is_regular_file(e.programa, ec))
            continue;
        fs::path d = e.programa.parent_path();
        while (dentroDe(d, casa) && (d.filename() == "bin" || d.filename() == "sbin" || d.filename() == "lib" ||
                                   d.filename() == "lib64" || d.filename() == "libexec" || d.filename() == "usr"))
            d = d.parent_path();
        porCarpeta[dentroDe(d, casa) && !compartidas.contains(d) ? d : e.programa].push_back(&e);
    }
    // A folder that holds another application's folder or AppImage is shared.
    std::vector<std::pair<fs::path, const EntradaEscritorio*>> programas;
    for (const auto& par : porCarpeta) {
        const fs::path& url = par.first;
        const bool ajena = std::any_of(porCarpeta.begin(), porCarpeta.end(),
                                       [&](const auto& o) { return dentroDe(o.first, url); }) ||
                           std::any_of(vistas.begin(), vistas.end(), [&](const fs::path& a) { return dentroDe(a, url); });
        if (!ajena)
            programas.emplace_back(url, par.second.front());
        else
            for (const EntradaEscritorio* e : par.second)
                programas.emplace_back(e->programa, e);
    }
    std::set<fs::path> hechos;
    for (const auto& [url, e] : programas) {
        if (!hechos.insert(url).second)
            continue;
        AppInstalada app;
        app.tipo = TipoApp::enCasa;
        app.url = url;
        app.nombre = e->nombre.empty() ? e->id : e->nombre;
        app.bundleID = e->id;
        app.version = e->version;
        app.icono = icono(*e);
        app.otrosNombres.push_back(app.nombre);
        anadirNombre(app, e->claseVentana);
        anadirNombre(app, e->programa.stem().string());
        app.deRoot = deOtroUsuario(url);
        r.push_back(std::move(app));
    }
    return r;
}
