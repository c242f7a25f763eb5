// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace plataforma {

// The program's own application identifier.
inline constexpr const char* identificadorPropio = "app.vorlano.Vorlano";

// The files this program runs from: its executable and, when it runs from
// an AppImage, that AppImage. Whatever application holds one of them is this
// program, and is never offered for uninstalling.
std::vector<std::filesystem::path> programaPropio();

// One application the user has open, as the system names it.
struct AppAbierta {
    std::optional<std::string> bundle;
    std::optional<std::string> nombre;
};

// The user's open regular applications (those a dock would show; helpers and
// background processes don't count), one entry per application, in the order
// the system lists them.
std::vector<AppAbierta> appsAbiertas();

// The application a process runs in, by the control groups it lies in (the
// text of /proc/<pid>/cgroup): a Flatpak application's id from its scope
// "app-flatpak-<id>-<n>.scope", a snap's "<snap>_<app>" (the id of its
// desktop entry) from "snap.<snap>.<app>-<uuid>.scope". Absent for any
// other process.
std::optional<std::string> appDeGrupo(std::string_view grupos);

// The .app bundles in a folder of applications, in walk order: bundles up to
// four levels below it (a vendor's subfolders), hidden entries skipped, no
// package entered, links not followed, no other file system entered. A folder
// that can't be read gives none.
std::vector<std::filesystem::path> bundlesDeApps(const std::filesystem::path& raiz);

// The applications installed anywhere on this machine, whatever folder a scan
// is told to look at: read once when made, then asked many times.
class AppsConocidas {
public:
    AppsConocidas();
    // Whether an application with this identifier is installed; case is
    // ignored, so that a leftover of an installed app is never taken as orphaned.
    bool existe(std::string_view id) const;

private:
    std::unordered_set<std::string> ids_; // lower case
};

} // namespace plataforma
