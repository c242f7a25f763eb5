// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Real applications for the uninstaller's tests: bundles, Flatpak
// installations, snaps, desktop entries and AppImages, and what the Trash holds.

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "desinstalador/desinstalador.h"
#include "plataforma/papelera.h"

#include <glib.h>
#include <gtest/gtest.h>
#include <plist/plist.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <vector>

namespace fs = std::filesystem;

using Claves = std::vector<std::pair<std::string, std::string>>;

// A bundle whose Contents/Info.plist holds those text keys, written by libplist.
inline fs::path crearBundle(const fs::path& bundle, const Claves& claves, bool binario = false)
{
    plist_t dict = plist_new_dict();
    for (const auto& [k, v] : claves)
        plist_dict_set_item(dict, k.c_str(), plist_new_string(v.c_str()));
    char* datos = nullptr;
    uint32_t n = 0;
    binario ? plist_to_bin(dict, &datos, &n) : plist_to_xml(dict, &datos, &n);
    plist_free(dict);
    fs::create_directories(bundle / "Contents/MacOS");
    std::ofstream(bundle / "Contents/Info.plist", std::ios::binary).write(datos, n);
    std::free(datos);
    return bundle;
}

inline fs::path crearApp(const fs::path& bundle, const std::string& id)
{
    return crearBundle(bundle, {{"CFBundleIdentifier", id}});
}

// The original paths of what the Trash holds, each with a valid .trashinfo.
inline std::set<std::string> enPapelera()
{
    std::set<std::string> r;
    for (const auto& [ruta, nombre] : apoyo::papelera(plataforma::carpetaPapelera().parent_path())) {
        EXPECT_TRUE(fs::exists(fs::symlink_status(plataforma::carpetaPapelera() / "files" / nombre))) << nombre;
        r.insert(ruta);
    }
    return r;
}

// A file with that content and mode: a shell script standing in for an
// outside program, a desktop entry of an application.
inline fs::path archivoModo(const fs::path& p, std::string_view contenido, fs::perms modo = fs::perms::owner_all)
{
    fs::create_directories(p.parent_path());
    std::ofstream(p, std::ios::binary) << contenido;
    fs::permissions(p, modo);
    return p;
}
inline fs::path guion(const fs::path& p, std::string_view cuerpo)
{
    return archivoModo(p, "#!/bin/sh\n" + std::string(cuerpo) + "\n");
}
inline fs::path entrada(const fs::path& p, std::string_view lineas)
{
    return archivoModo(p, "[Desktop Entry]\nType=Application\n" + std::string(lineas), fs::perms::owner_read | fs::perms::owner_write);
}

// A Flatpak application as flatpak deploys it: the active commit with its
// metadata, the deploy record holding the version, an exported desktop entry
// and icon, and `bytes` of files.
inline fs::path flatpak(const fs::path& instalacion, const std::string& id, const std::string& nombre,
                        const std::string& version, int64_t bytes)
{
    const fs::path app = instalacion / "app" / id;
    const fs::path activa = app / "x86_64/stable/0123abcd";
    archivoModo(activa / "metadata", "[Application]\nname=" + id + "\nruntime=org.ej.Base/x86_64/1\n");
    archivoModo(activa / "files/bin/programa", std::string(size_t(bytes), 'f'));
    entrada(activa / "export/share/applications" / (id + ".desktop"), "Name=" + nombre + "\nIcon=" + id + "\nExec=programa\n");
    archivoModo(activa / "export/share/icons/hicolor/128x128/apps" / (id + ".png"), "png");
    GVariantBuilder meta;
    g_variant_builder_init(&meta, G_VARIANT_TYPE("a{sv}"));
    g_variant_builder_add(&meta, "{sv}", "appdata-version", g_variant_new_string(version.c_str()));
    GVariant* deploy = g_variant_ref_sink(g_variant_new("(ssasta{sv})", "origen", "0123abcd", nullptr, guint64(bytes), &meta));
    archivoModo(activa / "deploy", std::string(static_cast<const char*>(g_variant_get_data(deploy)), g_variant_get_size(deploy)));
    g_variant_unref(deploy);
    fs::create_directory_symlink("0123abcd", app / "x86_64/stable/active");
    fs::create_directory_symlink("x86_64/stable", app / "current");
    return app;
}

// A snap mounted under `raiz` at revision 7, its package in `paquetes`.
inline void snap(const fs::path& raiz, const fs::path& paquetes, const std::string& nombre, std::string_view yaml)
{
    archivoModo(raiz / nombre / "7/meta/snap.yaml", "name: " + nombre + "\n" + std::string(yaml));
    fs::create_directory_symlink("7", raiz / nombre / "current");
    archivoModo(paquetes / (nombre + "_7.snap"), std::string(8192, 's'));
}

// The orphans' rows of the terminal report of that home, as
// "<mark> <name> — <detail>", sizes left out.
inline std::set<std::string> huerfanosDelInforme(const fs::path& casa)
{
    const std::string s = apoyo::ejecutarVorlano(casa, {"--scan"}).salida;
    std::set<std::string> r;
    const size_t titulo = s.find("\n■ Restos de apps desinstaladas — ");
    if (titulo == std::string::npos)
        return r;
    const std::regex fila("   (\\[.\\]) [0-9.,]+ [A-Za-z]+ +(.*)");
    std::istringstream lineas(s.substr(s.find('\n', titulo + 1) + 1));
    std::smatch m;
    for (std::string l; std::getline(lineas, l) && std::regex_match(l, m, fila);)
        r.insert(m.str(1) + " " + m.str(2));
    return r;
}

// A test-mode home (where the stand-ins of outside programs are honoured)
// whose Trash starts empty; the system's entries, Flatpak installations and
// snaps are scratch folders under `sistema`, so nothing installed leaks in.
class CasaApps : public ::testing::Test {
protected:
    apoyo::CasaPrueba casa, sistema;
    apoyo::Variable modoPrueba{"VORLANO_HOME", casa.raiz().string()};
    apoyo::Variable dirs{"XDG_DATA_DIRS", sistema.ruta("share").string()};
    apoyo::Variable flatpakSistema{"FLATPAK_SYSTEM_DIR", sistema.ruta("flatpak").string()};
    apoyo::Variable configFlatpak{"FLATPAK_CONFIG_DIR", sistema.ruta("etc").string()};
    const fs::path datos = casa.ruta(".local/share");
    const fs::path aplicaciones = datos / "applications";
    CasaApps()
    {
        apoyo::borrarArbol(plataforma::carpetaPapelera());
        // A declared installation, a damaged declaration and a relative one.
        sistema.archivoCon("etc/installations.d/extra.conf",
                           "[Installation \"extra\"]\nPath=" + sistema.ruta("extra").string() + "\n");
        sistema.archivoCon("etc/installations.d/roto.conf", "[Installation \"roto\"\nPath=/x\n\xff");
        sistema.archivoCon("etc/installations.d/relativa.conf", "[Installation \"rel\"]\nPath=extra\n");
    }

    Desinstalador conSistema() const
    {
        Desinstalador d(casa.entorno());
        d.flatpaksSistema = plataforma::flatpaksDeSistema();
        d.snaps = sistema.ruta("snap");
        d.paquetesSnap = sistema.ruta("snaps");
        return d;
    }
    // Path below the home folder -> detalle.
    std::map<std::string, std::string> hallados(const std::vector<Elemento>& es) const
    {
        std::map<std::string, std::string> r;
        for (const Elemento& e : es)
            r[e.url.lexically_relative(casa.raiz()).string()] = e.detalle.value_or("");
        return r;
    }
    static const AppInstalada& app(const std::vector<AppInstalada>& apps, std::string_view nombre)
    {
        const auto it = std::find_if(apps.begin(), apps.end(), [&](const auto& a) { return a.nombre == nombre; });
        EXPECT_NE(it, apps.end()) << nombre;
        return *it;
    }
};
