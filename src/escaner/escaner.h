// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "escaner/apps_abiertas.h"
#include "nucleo/entorno.h"
#include "nucleo/formato.h"
#include "nucleo/modelo.h"
#include "nucleo/progreso.h"
#include "plataforma/arbol.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

// One file taken into the duplicate search.
struct Candidato {
    std::string ruta;
    int64_t tamano = 0;  // logical length
    int64_t bloques = 0; // allocated bytes
    uint64_t dispositivo = 0;
    uint64_t inodo = 0;
    // Whole seconds: the modification time from the walk, replaced by the
    // creation time, where the file system records one, once the file turns
    // out to have a copy.
    Fecha creado{};
};

// What the one walk over the home folder finds.
struct Hallazgos {
    std::vector<Elemento> compilaciones;
    std::vector<Elemento> dependencias;
    std::vector<Elemento> instaladores;
    // The largest files at or above the floor, largest first, at most maxGrandes.
    std::vector<Elemento> grandes;
    // What the duplicate search would take from its folders, in the order
    // it would walk them.
    std::vector<Candidato> candidatos;
};

// A folder recognised as a project artefact: its display name and whether it
// holds installed dependencies rather than build output.
struct Clasificacion {
    std::string tipo;
    bool esDependencia = false;
};

// One analysis of the home folder: runs the stages in a fixed order, measures
// what no stage measured, removes overlaps, and returns the categories.
struct Escaner {
    Entorno entorno;
    // The user's own folders, read once when the scanner is made.
    plataforma::CarpetasPersonales personales;

    explicit Escaner(Entorno e) : entorno(std::move(e)), personales(entorno.personales()) {}

    static constexpr int diasDescargas = 60;
    static constexpr int maxGrandes = 40;
    static constexpr int64_t minimoDuplicado = 100000;

    // Bytes from which a file counts as large: 250 MB, or VORLANO_GRANDE_MB
    // in test mode.
    int64_t minimoGrande() const;

    // Lower-case names of children of Library/Caches that "apps" leaves alone.
    static const std::unordered_set<std::string>& cachesExcluidas();
    // The same for the cache home: those, the folders a rule of another
    // category claims there, and what a desktop keeps there that isn't a cache.
    static const std::unordered_set<std::string>& cachesLinuxExcluidas();
    // Lower-case names of children of the cache home whose owners their
    // name doesn't tell, with the owners' desktop ids.
    static const std::unordered_map<std::string, std::vector<std::string>>& duenosDeCaches();

    // Blocking; progreso is called on this thread except while measuring (then
    // from worker threads, so it must be safe for that).
    std::vector<Categoria> escanear(const Progreso& progreso) const;

    // A category of the fixed table, with its localized texts, holding elementos.
    Categoria categoria(std::string_view id, std::vector<Elemento> elementos) const;

    // Marks each item with the open app that uses it; in use means unselected.
    static std::vector<Elemento> marcarUso(std::vector<Elemento> elementos, const AppsAbiertas& abiertas);

    // One item per direct child of a folder under home (listing order), .DS_Store
    // and names incluir refuses left out. With abiertas, in-use items come
    // unselected. A folder that carpetaReal refuses gives none.
    std::vector<Elemento> hijos(const std::filesystem::path& de, const AppsAbiertas* abiertas,
                                const std::function<bool(std::string_view)>& incluir) const;

    // The folder, if it lies strictly inside home and is reached from home
    // through real folders only, itself included: a root that is a link
    // gives no items.
    std::optional<std::filesystem::path> carpetaReal(const std::filesystem::path& carpeta) const;
    // A base folder of programs' files (cache, config, data, state home) if
    // it passes carpetaReal and isn't one of the user's own folders.
    std::optional<std::filesystem::path> base(plataforma::Base b) const;
    // "~/" and the path below home, or the path itself outside it.
    std::string mostrar(const std::filesystem::path& ruta) const;

    // Places known by name. Each is total: what can't be read gives fewer items.

    // Development caches, tools fetched again on use, and logs of programs
    // known by name.
    static const std::vector<Regla>& programacion();
    static const std::vector<Regla>& redescarga();
    static const std::vector<Regla>& registros();
    // Lower-case names in Library/Application Support and the config home
    // never searched for Electron caches.
    static const std::unordered_set<std::string>& appSupportExcluidas();
    // One item per rule whose path exists (one existence test each, and one
    // look at each base folder).
    std::vector<Elemento> desdeReglas(const std::vector<Regla>& reglas, const AppsAbiertas& abiertas,
                                      bool seleccionar) const;
    // The folders of Electron-style apps in Library/Application Support and
    // the config home: those with Code Cache, GPUCache or GrShaderCache inside.
    std::vector<std::filesystem::path> appsElectron() const;
    // One item per Electron-style app: its cache folders, never the app's own folder.
    std::vector<Elemento> cachesDeElectron(const AppsAbiertas& abiertas) const;
    // One item per Flatpak application with a cache (~/.var/app/<id>/cache),
    // named as the installed application shows itself, else by its id; and per Snap with caches (~/snap/<name>/<revision or common>/.cache).
    std::vector<Elemento> cachesDeFlatpak(const AppsAbiertas& abiertas) const;
    std::vector<Elemento> cachesDeSnap(const AppsAbiertas& abiertas) const;
    // Logs found by their shape: the X server's logs of ended sessions, the
    // logs folders of Electron-style apps in the config home.
    std::vector<Elemento> registrosDeApps() const;

    // VS Code's and Cursor's state of projects that are gone or unopened for 3 months.
    std::vector<Elemento> espaciosDeTrabajo() const;
    std::vector<Elemento> espaciosDeTrabajo(Fecha ahora) const;
    // True only when the path is provably absent: not on an unmounted volume,
    // and its nearest existing folder could be listed.
    static bool seguroQueNoExiste(const std::filesystem::path& ruta);
    // The later of the modification dates of the folder and its state.vscdb.
    static std::optional<Fecha> ultimaModificacion(const std::filesystem::path& carpeta);

    // First-level entries of Downloads that arrived there over diasDescargas ago.
    std::vector<Elemento> descargasAntiguas() const;
    std::vector<Elemento> descargasAntiguas(Fecha ahora) const;

    // The simctl and docker programs, looked for once per process.
    static const std::optional<std::string>& simctl();
    static const std::optional<std::string>& programaDocker();
    // simctl under the developer folder that this xcode-select reports.
    static std::optional<std::string> buscarSimctl(const std::string& xcodeSelect);
    // Simulator data and Docker's reclaimable space, cleaned by the tool's own
    // command. Nothing in test mode; the ...Con forms run the given program.
    std::vector<Elemento> simuladores() const;
    std::vector<Elemento> simuladoresCon(const std::string& simctl, double limite = 15) const;
    std::vector<Elemento> docker() const;
    std::vector<Elemento> dockerCon(const std::string& programa, double limite = 10) const;
    // "1.5GB (10%)" as bytes, decimal units; 0 for what can't be read.
    static int64_t bytesDeDocker(std::string_view texto);

    // Removes repeated, nested and negligible items, sorts each category by
    // size and drops empty categories.
    static std::vector<Categoria> depurar(std::vector<Categoria> categorias);
    static constexpr int64_t minimoElemento = 65536;

    // One pass over the home folder for project artefacts, installers, large
    // files and the duplicate search's candidates, its top folders walked in
    // parallel; the artefacts git tracks are left out afterwards. The
    // search's folders that the pass can't cover (outside home, on another
    // device, under a folder it doesn't enter) are walked on their own. Never
    // fails: what can't be read isn't reported.
    Hallazgos recorrerCarpetaPersonal(const std::optional<std::string>& git = Escaner::git()) const;
    // The artefact a folder of this name is, judged by the marker files in
    // padre, the folder that holds it.
    static std::optional<Clasificacion> clasificar(std::string_view nombre, std::string_view padre);
    // A package such as Foo.app: only names with a dot are asked about.
    static bool esPaquete(std::string_view nombre, const char* ruta);
    // "hace 3 días": the latest modification of the folder and the one that
    // holds it; "—" when neither can be read.
    static std::string actividad(const std::filesystem::path& padre, const std::filesystem::path& carpeta);
    // The path below home, links resolved, or the last component for a path
    // that isn't below home.
    std::string rutaRelativa(const std::filesystem::path& url) const;
    // Whether a .git lies in the folder or any folder above it up to home.
    bool dentroDeRepositorio(const std::filesystem::path& carpeta) const;
    // Whether git tracks any file under en/nombre; false when git is absent,
    // fails or can't start.
    static bool versionadaEnGit(std::string_view nombre, const std::filesystem::path& en,
                                const std::optional<std::string>& git = Escaner::git());
    // The git program: the first executable of the known places, found once.
    static const std::optional<std::string>& git();

    // Every copy but one of each set of identical files in the user's
    // Desktop, Documents, Downloads, Pictures and Videos, in no set order:
    // from the candidates of the home walk, or walking those folders.
    std::vector<Elemento> duplicados(std::vector<Candidato> candidatos) const;
    std::vector<Elemento> duplicados() const;
    // The folders the search walks, each once, in this order: a folder that
    // is another one, or lies inside another one, is walked with it.
    std::vector<std::filesystem::path> carpetasDeCopias() const;
    // Below those folders, hidden folders, project artefacts and packages
    // are not entered.
    static bool entraEnCopias(std::string_view nombre, std::string_view padre, const char* ruta);
    // A visible regular file of at least minimoDuplicado bytes, by logical length.
    static std::optional<Candidato> candidatoDe(const plataforma::EntradaArbol& e);
    // The candidates under one folder, in walk order; links are not followed.
    static void recogerCopias(const std::filesystem::path& carpeta, std::vector<Candidato>& candidatos);
    // The candidates split by key, computed in parallel; those without a key
    // drop out. Groups come in the order of their first member, with the
    // members in the candidates' order; single-member groups included.
    static std::vector<std::vector<Candidato>>
    agrupar(const std::vector<Candidato>& candidatos,
            const std::function<std::optional<std::string>(const std::string&)>& clave);
    // SHA-256 in hexadecimal of the first and the last 64 KiB, or of the whole
    // file (of a file with holes, its data and where the holes are, which are
    // never read); absent when it can't be opened.
    static std::optional<std::string> huellaParcial(const std::string& ruta);
    static std::optional<std::string> huellaCompleta(const std::string& ruta);
    // Whether the name reads as a copy: "informe (2).pdf", "foto copy 3.jpg".
    static bool pareceCopia(std::string_view ruta);
    // The path below home, links resolved, or the path itself.
    std::string relativa(const std::string& ruta) const;
    // Whether a comes before b among identical files; the first one is kept.
    bool conservarAntes(const Candidato& a, const Candidato& b) const;

private:
    // Fills every item still at size 0 in one parallel pass.
    static void medir(std::vector<Categoria>& categorias, const Progreso& progreso);
};
