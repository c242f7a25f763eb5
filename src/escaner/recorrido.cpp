// SPDX-License-Identifier: GPL-3.0-or-later
// The one walk over the home folder that feeds four categories: project
// artefacts (recognised and pruned on sight), installers and large files.
#include "escaner/escaner.h"

#include "plataforma/arbol.h"
#include "nucleo/paralelo.h"
#include "nucleo/textos.h"
#include "plataforma/archivos.h"

#include <algorithm>
#include <array>

namespace fs = std::filesystem;

namespace {

// Disk images and packages a Mac installs from, and a Linux desktop's:
// distribution packages, Flatpak bundles and references, snaps, and the
// self-extracting .run installers (drivers, VirtualBox…).
constexpr std::array<std::string_view, 9> extensionesInstalador{"dmg",     "pkg",        "xip",  "deb", "rpm",
                                                                "flatpak", "flatpakref", "snap", "run"};
// An .iso is an installer when it is named after a system, as the systems'
// own downloads are ("debian-12.5.0-amd64-netinst.iso",
// "Fedora-Workstation-Live-x86_64-40.iso", "Win11_23H2_Spanish_x64.iso");
// an image the user made of a disc or a backup isn't named so.
constexpr std::string_view sistemas[] = {
    "almalinux", "alpine",   "archlinux", "centos",  "debian",  "elementaryos", "endeavouros", "fedora",
    "freebsd",   "garuda",   "kali",      "kubuntu", "linuxmint", "lubuntu",    "manjaro",     "mx",
    "neon",      "nixos",    "opensuse",  "pop-os",  "proxmox", "rhel",         "rocky",       "tails",
    "ubuntu",    "win10",    "win11",     "windows", "xubuntu", "zorin"};
// Artefact names that may just as well be a project's own sources: git is
// asked about these.
constexpr std::array<std::string_view, 6> puedeSerCodigo{"build", "dist", "target", "Library", "venv", ".venv"};

struct Proyecto {
    Elemento elemento;
    bool esDependencia;
    std::string nombre;
    fs::path padre;
};

struct Archivo {
    std::string ruta;
    int64_t tamano;
    Fecha fecha;
};

// The extension of a file name, after its last dot; empty for none. A name
// beginning with its only dot has none.
std::string_view extension(std::string_view nombre)
{
    const size_t punto = nombre.find_last_of('.');
    return punto == std::string_view::npos || punto == 0 ? std::string_view() : nombre.substr(punto + 1);
}

// Whether the text begins with the lower-case ASCII prefix, in any case.
bool empiezaSinCaso(std::string_view texto, std::string_view prefijo)
{
    return texto.size() >= prefijo.size() &&
           std::equal(prefijo.begin(), prefijo.end(), texto.begin(),
                      [](char b, char a) { return (a >= 'A' && a <= 'Z' ? char(a - 'A' + 'a') : a) == b; });
}

bool esInstalador(std::string_view nombre)
{
    const std::string_view ext = extension(nombre);
    auto es = [&](std::string_view e) { return ext.size() == e.size() && empiezaSinCaso(ext, e); };
    if (std::any_of(extensionesInstalador.begin(), extensionesInstalador.end(), es))
        return true;
    if (!es("iso"))
        return false;
    // The system's name, then a separator or the version.
    return std::any_of(std::begin(sistemas), std::end(sistemas), [&](std::string_view s) {
        if (!empiezaSinCaso(nombre, s) || nombre.size() == s.size())
            return false;
        const char c = nombre[s.size()];
        return c == '-' || c == '_' || c == '.' || c == ' ' || (c >= '0' && c <= '9');
    });
}

// "Imagen de disco · modificado hace 3 días"; the type falls back to the
// extension as it stands.
std::string detalleArchivo(const Archivo& a)
{
    const std::string_view nombre = std::string_view(a.ruta).substr(a.ruta.find_last_of('/') + 1);
    const std::string tipo = plataforma::descripcionTipo(nombre).value_or(std::string(extension(nombre)));
    return rellenar(tr("{tipo} · modificado {hace}"), {{"tipo", tipo}, {"hace", haceCuanto(a.fecha)}});
}

} // namespace

Hallazgos Escaner::recorrerCarpetaPersonal(const std::optional<std::string>& git) const
{
    const int64_t minimo = minimoGrande();
    std::vector<Proyecto> proyectos;
    std::vector<Archivo> instaladores, grandes;

    // Links are never followed and other volumes never entered. Nothing is
    // built per entry: only what is reported gets a string of its own.
    plataforma::recorrerArbol(entorno.home, [&](const plataforma::EntradaArbol& e) {
        if (e.nivel == 0)
            return plataforma::Paso::seguir;
        if (e.tipo == plataforma::TipoEntrada::carpeta) {
            if (e.nivel == 1 && (e.nombre == "Library" || e.nombre == "Applications"))
                return plataforma::Paso::podar;
            if (auto c = clasificar(e.nombre, e.padre)) {
                const fs::path url(e.ruta), padre(e.padre);
                Elemento el{.url = url,
                            .nombre = rutaRelativa(url),
                            .detalle = rellenar(tr("{tipo} · usado {actividad}"),
                                                {{"tipo", c->tipo}, {"actividad", actividad(padre, url)}})};
                proyectos.push_back({std::move(el), c->esDependencia, std::string(e.nombre), padre});
                return plataforma::Paso::podar;
            }
            const bool entrar = !(e.nombre.starts_with('.') || e.nombre == "Pods" || esPaquete(e.nombre, e.ruta.data()));
            return entrar ? plataforma::Paso::seguir : plataforma::Paso::podar;
        }
        if (e.tipo != plataforma::TipoEntrada::archivo || e.nombre.starts_with('.'))
            return plataforma::Paso::seguir;
        const int64_t tamano = int64_t(e.st.st_blocks) * 512;
        const Fecha fecha(std::chrono::seconds(e.st.st_mtim.tv_sec));
        if (esInstalador(e.nombre)) {
            instaladores.push_back({std::string(e.ruta), tamano, fecha});
            return plataforma::Paso::seguir;
        }
        // The largest so far, largest first and equal sizes in walk order; a
        // file that wouldn't make the list costs nothing.
        if (tamano < minimo || (grandes.size() == size_t(maxGrandes) && tamano <= grandes.back().tamano))
            return plataforma::Paso::seguir;
        const auto sitio = std::upper_bound(grandes.begin(), grandes.end(), tamano,
                                            [](int64_t t, const Archivo& a) { return t > a.tamano; });
        grandes.insert(sitio, {std::string(e.ruta), tamano, fecha});
        if (grandes.size() > size_t(maxGrandes))
            grandes.pop_back();
        return plataforma::Paso::seguir;
    });

    // Folders of ambiguous names that git tracks are sources, not artefacts.
    std::vector<char> versionada(proyectos.size(), 0);
    enParalelo(proyectos.size(), [&](size_t i) {
        const Proyecto& p = proyectos[i];
        if (std::find(puedeSerCodigo.begin(), puedeSerCodigo.end(), p.nombre) == puedeSerCodigo.end())
            return;
        if (dentroDeRepositorio(p.padre))
            versionada[i] = versionadaEnGit(p.nombre, p.padre, git); // each iteration owns its slot
    });

    Hallazgos h;
    for (size_t i = 0; i < proyectos.size(); ++i)
        if (!versionada[i])
            (proyectos[i].esDependencia ? h.dependencias : h.compilaciones).push_back(std::move(proyectos[i].elemento));
    for (const Archivo& a : instaladores)
        h.instaladores.push_back(Elemento{.url = a.ruta,
                                          .nombre = fs::path(a.ruta).filename().string(),
                                          .detalle = detalleArchivo(a),
                                          .tamano = a.tamano});
    for (const Archivo& a : grandes)
        h.grandes.push_back(
            Elemento{.url = a.ruta, .nombre = rutaRelativa(a.ruta), .detalle = detalleArchivo(a), .tamano = a.tamano});
    return h;
}
