// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The uninstaller: the applications the user can remove, what each leaves in
// the user's Library, and the leftovers of applications that are gone.

#include "nucleo/entorno.h"
#include "nucleo/modelo.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

// One installed application, as read from its bundle.
struct AppInstalada {
    std::filesystem::path url; // the .app bundle
    std::string nombre;        // the name shown, without ".app"
    std::string bundleID;      // may be empty; never absent
    std::string version;       // empty when the bundle doesn't say
    // Every name by which leftovers may be found; no repeats, order of no meaning.
    std::vector<std::string> otrosNombres;
    // The bundle's owner is known and isn't the current user.
    bool deRoot = false;
    // Bytes of the bundle; 0 until someone measures it.
    int64_t tamano = 0;
};

struct Desinstalador {
    Entorno entorno;

    explicit Desinstalador(Entorno e) : entorno(std::move(e)) {}

    // The applications the user may uninstall, sorted by name in the user's
    // language, ignoring case; equal names stay in the order found.
    std::vector<AppInstalada> apps() const;

    // One bundle; absent when it can't be read as an application.
    std::optional<AppInstalada> leer(const std::filesystem::path& url) const;

    // What the application left in Library, one selected item per entry,
    // measured, in the order of the fixed locations. Only looks.
    std::vector<Elemento> restos(const AppInstalada& app) const;

    // Moves the bundle, then each selected leftover that the path rule allows,
    // to the Trash. When the bundle can't be moved nothing else is touched.
    // Sizes are those already measured; nothing is deleted. Blocking, and may
    // wait minutes for the user's password.
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
    // The path below the home folder, links resolved on both sides; the
    // whole path when it isn't below it.
    std::string rutaDesdeCasa(const std::filesystem::path& url) const;
};
