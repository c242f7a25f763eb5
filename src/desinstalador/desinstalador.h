// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The uninstaller: the applications the user can remove, what each leaves in
// the user's Library, and the leftovers of applications that are gone.

#include "nucleo/entorno.h"
#include "nucleo/modelo.h"
#include "plataforma/paquetes.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

// How an application came to the machine, which decides how it leaves.
enum class TipoApp {
    bundle,   // an .app bundle
    flatpak,  // a Flatpak application, of the user's installation or the system's
    snap,     // a snap
    appImage, // an AppImage file
    enCasa,   // a program unpacked into the home folder, started by a desktop entry of the user's
};

// One installed application.
struct AppInstalada {
    // What the application is on disk, and what is measured and moved: the
    // .app bundle, the Flatpak app/<id> folder, the snap's package, the
    // AppImage, or the home program's folder (its file when it has none of
    // its own).
    std::filesystem::path url;
    std::string nombre; // the name shown, without ".app"
    // The identifier: bundle identifier, Flatpak application id, snap name,
    // or desktop file id. May be empty; never absent.
    std::string bundleID;
    std::string version; // empty when the application doesn't say
    // Every name by which leftovers may be found; no repeats, order of no meaning.
    std::vector<std::string> otrosNombres;
    // The bundle's owner is known and isn't the current user.
    bool deRoot = false;
    // Bytes of the bundle; 0 until someone measures it.
    int64_t tamano = 0;
    TipoApp tipo = TipoApp::bundle;
    // An icon file of the application's own, where it names one; else empty.
    std::filesystem::path icono;
};

struct Desinstalador {
    Entorno entorno;
    // The installations outside the home folder: the system's Flatpak
    // installations, where snaps are mounted and where snapd keeps their
    // packages. Empty in test mode, where only the home counts; tests point
    // them at scratch folders.
    std::vector<plataforma::InstalacionFlatpak> flatpaksSistema;
    std::filesystem::path snaps, paquetesSnap;
    // Seconds Flatpak's or Snap's tool may take, password prompt included.
    double limitePaquetes = 600;

    explicit Desinstalador(Entorno e);

    // The applications the user may uninstall, sorted by name in the user's
    // language, ignoring case; equal names stay in the order found.
    std::vector<AppInstalada> apps() const;

    // Sorts by name in the user's language, ignoring case; equal names keep
    // their order.
    static void ordenarPorNombre(std::vector<AppInstalada>& apps);

    // One bundle; absent when it can't be read as an application.
    std::optional<AppInstalada> leer(const std::filesystem::path& url) const;

    // What the application left in Library and in the folders of a Linux
    // home, one selected item per entry, measured, in the order of the fixed
    // locations. Only looks.
    std::vector<Elemento> restos(const AppInstalada& app) const;

    // Removes the application (to the Trash, or through Flatpak's or Snap's
    // own tool), then moves each selected leftover that the path rule allows
    // to the Trash. When the application can't be removed nothing else is
    // touched. Sizes are those already measured. Blocking, and may wait
    // minutes for the user's password.
    Resultado desinstalar(const AppInstalada& app, const std::vector<Elemento>& restos) const;

    // The bundle to the Trash, asking for an administrator's consent when it
    // isn't the user's. Absent on success, else the message.
    std::optional<std::string> moverAppAPapelera(const AppInstalada& app) const;

    // One unselected, unmeasured item per identifier of an application that is
    // no longer installed, holding every entry named after it.
    std::vector<Elemento> restosHuerfanos(const std::vector<AppInstalada>& instaladas) const;

    // First components a bundle identifier is expected to start with.
    static const std::unordered_set<std::string>& prefijos();
    // The vendor part of an identifier: its first two pieces, lower case.
    static std::string fabricante(std::string_view id);
    // Whether a name has the shape of a bundle identifier.
    static bool pareceID(std::string_view texto);

private:
    // Uninstalls a Flatpak or Snap application with its tool (in test mode
    // VORLANO_FLATPAK and VORLANO_SNAP name stand-ins). Absent on success,
    // else the message.
    std::optional<std::string> quitarPaquete(const AppInstalada& app) const;

    // The applications of the system's package formats, the AppImages and
    // the home programs, unfiltered and unsorted.
    std::vector<AppInstalada> programas() const;
    // The Flatpak installations to look in: the user's, then the system's.
    std::vector<plataforma::InstalacionFlatpak> instalacionesFlatpak() const;

    // restos for a Linux home: appends to r what the application left in the
    // base folders and the desktop's folders, skipping paths already in r.
    void restosDeEscritorio(const AppInstalada& app, std::vector<Elemento>& r) const;

    // The path below the home folder, links resolved on both sides; the
    // whole path when it isn't below it.
    std::string rutaDesdeCasa(const std::filesystem::path& url) const;
};
