// SPDX-License-Identifier: GPL-3.0-or-later
// The one walk over the home folder that feeds four categories: project
// artefacts (recognised and pruned on sight), installers and large files.
#include "escaner/escaner.h"

#include "plataforma/arbol.h"
#include "nucleo/paralelo.h"
#include "nucleo/textos.h"
#include "plataforma/archivos.h"
#include "plataforma/lectura.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <deque>

namespace fs = std::filesystem;

namespace {

// Disk images and packages a Mac installs from, and a Linux desktop's:
// distribution packages, Flatpak bundles and references, and the
// self-extracting .run installers (drivers, VirtualBox…). Snaps are told by
// their content, below.
constexpr std::array<std::string_view, 8> extensionesInstalador{"dmg", "pkg",     "xip",        "deb",
                                                                "rpm", "flatpak", "flatpakref", "run"};
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

// The file at ruta, called nombre, by its name and, for a snap, its first bytes.
bool esInstalador(std::string_view nombre, const char* ruta)
{
    const std::string_view ext = extension(nombre);
    auto es = [&](std::string_view e) { return ext.size() == e.size() && empiezaSinCaso(ext, e); };
    // Test runners keep their snapshots in .snap files beside the sources; a
    // snap package is a SquashFS image.
    if (es("snap"))
        return plataforma::empiezaPor(ruta, "hsqs");
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

// What the walk finds in one stretch of the home, in walk order.
struct Parte {
    std::vector<Proyecto> proyectos;
    std::vector<Archivo> instaladores;
    // Largest first, equal sizes in walk order, at most maxGrandes.
    std::vector<Archivo> grandes;
    // With the index of the search's folder they lie in.
    std::vector<std::pair<size_t, Candidato>> candidatos;
};

// The largest so far, largest first and equal sizes in the order they came; a
// file that wouldn't make the list costs nothing.
void agregarGrande(std::vector<Archivo>& grandes, Archivo a)
{
    if (grandes.size() == size_t(Escaner::maxGrandes) && a.tamano <= grandes.back().tamano)
        return;
    const auto sitio = std::upper_bound(grandes.begin(), grandes.end(), a.tamano,
                                        [](int64_t t, const Archivo& x) { return t > x.tamano; });
    grandes.insert(sitio, std::move(a));
    if (grandes.size() > size_t(Escaner::maxGrandes))
        grandes.pop_back();
}

// Where the walk stands: inside which of the duplicate search's folders, and
// whether below a folder that only that search enters (levels are home's, -1
// for none).
struct Estado {
    int nivelCopias = -1;
    size_t copias = 0;
    int nivelSoloCopias = -1;

    // A folder at this level is left: what began there ends.
    void salir(int nivel)
    {
        if (nivel == nivelSoloCopias)
            nivelSoloCopias = -1;
        if (nivel == nivelCopias)
            nivelCopias = -1;
    }
};

// The visitor of a walk of the home or of a stretch of it. Nothing is built
// per entry: only what is reported gets a string of its own.
class Visita {
public:
    struct Comun {
        const Escaner& escaner;
        int64_t minimo;
        dev_t dispositivo;
        // The search's folders as the walk spells paths, and whether the walk
        // reached each on home's device (each is reached once at most).
        std::vector<std::string> copias;
        std::vector<char> alcanzadas;
    };

    // desplazamiento: home's level of the walk's root.
    Visita(Comun& comun, Parte* parte, Estado estado, int desplazamiento)
        : comun_(comun), parte_(parte), estado_(estado), desplazamiento_(desplazamiento)
    {
    }

    // Folders at level `reparte` on home's device are handed to `tarea`
    // rather than entered; the walk goes on in the part siguienteParte gives.
    int reparte = -1;
    std::function<void(std::string_view ruta, const Estado& estado)> tarea;
    std::function<Parte*()> siguienteParte;

    plataforma::Paso operator()(const plataforma::EntradaArbol& e)
    {
        using plataforma::Paso;
        using plataforma::TipoEntrada;
        const int nivel = e.nivel + desplazamiento_;
        if (e.tipo == TipoEntrada::finCarpeta || e.tipo == TipoEntrada::ilegible) {
            estado_.salir(nivel);
            return Paso::seguir;
        }
        if (e.tipo == TipoEntrada::carpeta) {
            // The root of a stretch was judged by the walk that handed it over.
            if (desplazamiento_ > 0 && e.nivel == 0)
                return Paso::seguir;
            if (!carpeta(e, nivel))
                return Paso::podar;
            if (nivel == reparte && e.st.st_dev == comun_.dispositivo) {
                tarea(e.ruta, estado_);
                estado_.salir(nivel);
                parte_ = siguienteParte();
                return Paso::podar;
            }
            // Deeper than a walk goes: entered by nobody, as a walk of the
            // whole home would leave it.
            if (nivel >= plataforma::profundidadMaxima) {
                estado_.salir(nivel);
                return Paso::podar;
            }
            return Paso::seguir;
        }
        archivo(e);
        return Paso::seguir;
    }

private:
    // Whether the folder is entered, by this walk or the duplicate search.
    bool carpeta(const plataforma::EntradaArbol& e, int nivel)
    {
        bool esCopias = false;
        if (estado_.nivelCopias < 0 && e.st.st_dev == comun_.dispositivo)
            for (size_t i = 0; i < comun_.copias.size(); ++i)
                if (comun_.copias[i] == e.ruta) {
                    estado_.nivelCopias = nivel;
                    estado_.copias = i;
                    comun_.alcanzadas[i] = 1;
                    esCopias = true;
                }
        const bool entraCasa = estado_.nivelSoloCopias < 0 && (nivel == 0 || carpetaDeCasa(e, nivel));
        if (entraCasa)
            return true;
        const bool entraCopias =
            estado_.nivelCopias >= 0 && (esCopias || Escaner::entraEnCopias(e.nombre, e.padre, e.ruta.data()));
        if (entraCopias && estado_.nivelSoloCopias < 0)
            estado_.nivelSoloCopias = nivel;
        return entraCopias;
    }

    // Library and Applications at the top, project artefacts (recognised
    // here), hidden folders and packages are not entered.
    bool carpetaDeCasa(const plataforma::EntradaArbol& e, int nivel)
    {
        if (nivel == 1 && (e.nombre == "Library" || e.nombre == "Applications"))
            return false;
        if (auto c = Escaner::clasificar(e.nombre, e.padre)) {
            const fs::path url(e.ruta), padre(e.padre);
            Elemento el{.url = url,
                        .nombre = comun_.escaner.rutaRelativa(url),
                        .detalle = rellenar(tr("{tipo} · usado {actividad}"),
                                            {{"tipo", c->tipo}, {"actividad", Escaner::actividad(padre, url)}})};
            parte_->proyectos.push_back({std::move(el), c->esDependencia, std::string(e.nombre), padre});
            return false;
        }
        return !(e.nombre.starts_with('.') || e.nombre == "Pods" || Escaner::esPaquete(e.nombre, e.ruta.data()));
    }

    void archivo(const plataforma::EntradaArbol& e)
    {
        if (estado_.nivelCopias >= 0)
            if (auto c = Escaner::candidatoDe(e))
                parte_->candidatos.emplace_back(estado_.copias, std::move(*c));
        if (estado_.nivelSoloCopias >= 0 || e.tipo != plataforma::TipoEntrada::archivo || e.nombre.starts_with('.'))
            return;
        const int64_t tamano = int64_t(e.st.st_blocks) * 512;
        const Fecha fecha(std::chrono::seconds(e.st.st_mtim.tv_sec));
        if (esInstalador(e.nombre, e.ruta.data()))
            parte_->instaladores.push_back({std::string(e.ruta), tamano, fecha});
        else if (tamano >= comun_.minimo)
            agregarGrande(parte_->grandes, {std::string(e.ruta), tamano, fecha});
    }

    Comun& comun_;
    Parte* parte_;
    Estado estado_;
    const int desplazamiento_;
};

// Home's levels walked here; each folder at this level is a parallel task.
constexpr int nivelTareas = 2;

} // namespace

Hallazgos Escaner::recorrerCarpetaPersonal(const std::optional<std::string>& git) const
{
    struct stat st;
    if (::lstat(entorno.home.c_str(), &st) != 0)
        return {};
    Visita::Comun comun{*this, minimoGrande(), st.st_dev, {}, {}};
    const std::vector<fs::path> carpetasCopias = carpetasDeCopias();
    for (const fs::path& c : carpetasCopias) {
        std::string r = c.native();
        while (r.size() > 1 && r.back() == '/')
            r.pop_back();
        comun.copias.push_back(std::move(r));
    }
    comun.alcanzadas.assign(comun.copias.size(), 0);

    // The top levels are walked here, the folders below in parallel. Each
    // task and each stretch between tasks has a part of its own; read in
    // order, the parts are the findings of one walk.
    struct Tarea {
        std::string ruta;
        Estado estado;
        size_t parte;
    };
    std::deque<Parte> partes(1);
    std::vector<Tarea> tareas;
    Visita arriba(comun, &partes.back(), {}, 0);
    arriba.reparte = nivelTareas;
    arriba.tarea = [&](std::string_view ruta, const Estado& estado) {
        partes.emplace_back();
        tareas.push_back({std::string(ruta), estado, partes.size() - 1});
    };
    arriba.siguienteParte = [&] { return &partes.emplace_back(); };
    // Links are never followed and other volumes never entered.
    plataforma::recorrerArbol(entorno.home, std::ref(arriba));
    enParalelo(tareas.size(), [&](size_t i) {
        Visita visita(comun, &partes[tareas[i].parte], tareas[i].estado, nivelTareas);
        plataforma::recorrerArbol(tareas[i].ruta, std::ref(visita));
    });

    std::vector<Proyecto> proyectos;
    std::vector<Archivo> instaladores, grandes;
    std::vector<std::pair<size_t, Candidato>> candidatos;
    for (Parte& p : partes) {
        std::move(p.proyectos.begin(), p.proyectos.end(), std::back_inserter(proyectos));
        std::move(p.instaladores.begin(), p.instaladores.end(), std::back_inserter(instaladores));
        for (Archivo& a : p.grandes)
            agregarGrande(grandes, std::move(a));
        std::move(p.candidatos.begin(), p.candidatos.end(), std::back_inserter(candidatos));
    }
    // The search walks its folders one after another.
    for (size_t i = 0; i < carpetasCopias.size(); ++i)
        if (!comun.alcanzadas[i]) {
            std::vector<Candidato> otros;
            recogerCopias(carpetasCopias[i], otros);
            for (Candidato& c : otros)
                candidatos.emplace_back(i, std::move(c));
        }
    std::stable_sort(candidatos.begin(), candidatos.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });

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
    for (auto& [i, c] : candidatos)
        h.candidatos.push_back(std::move(c));
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
