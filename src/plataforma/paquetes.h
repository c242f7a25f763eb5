// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Applications of the system's package formats that install per application
// (Flatpak and Snap), read from their installation folders, and their removal
// through the formats' own tools.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace plataforma {

// One application as a package format describes it.
struct AppPaquete {
    std::string id;                // Flatpak application id, or Snap name
    std::filesystem::path carpeta; // what makes it up on disk, and is measured
    std::string nombre;            // the name its desktop entry or metadata shows; the id if none
    std::string version;           // empty when unknown
    std::filesystem::path icono;   // an icon file of its own, or empty
};

// A Flatpak installation: its folder, and the option that names it to the
// flatpak command ("--user", "--system" or "--installation=<id>").
struct InstalacionFlatpak {
    std::filesystem::path carpeta;
    std::string opcion;
};

// The system's Flatpak installations, as flatpak itself finds them: the
// default one ($FLATPAK_SYSTEM_DIR, else /var/lib/flatpak) and each one the
// key files of installations.d declare ($FLATPAK_CONFIG_DIR, else
// /etc/flatpak). The user's is flatpak/ in the data home, "--user".
std::vector<InstalacionFlatpak> flatpaksDeSistema();

// The applications of one installation: each app/<id> folder with an active
// deployment whose metadata names that id; carpeta is app/<id>. Half-removed
// ones are left out.
std::vector<AppPaquete> appsFlatpak(const std::filesystem::path& instalacion);

// Where snaps are mounted (/snap, or /var/lib/snapd/snap where a distribution
// puts them there) and where snapd keeps their packages.
std::filesystem::path raizSnaps();
std::filesystem::path paquetesSnap();

// The application snaps (no bases, cores, kernels or snapd): each <raiz>/<name>
// whose current revision has meta/snap.yaml; carpeta is that revision's
// package in `paquetes`, left out when it isn't there.
std::vector<AppPaquete> appsSnap(const std::filesystem::path& raiz, const std::filesystem::path& paquetes);

// How a removal through a package tool ended.
struct Desinstalacion {
    enum class Estado {
        hecha,
        sinPrograma, // the tool (or the password prompt) isn't there
        sinRespuesta, // it didn't end in time
        negada,       // the password prompt was cancelled or refused
        fallida,      // the tool reported a failure
    };
    Estado estado = Estado::hecha;
    std::string programa; // the tool's name, for the message
    int32_t codigo = 0;   // its exit status when it failed
    std::string mensaje;  // the last thing it said, when it failed
};

// How the tools are run. The programs stand in for the system's own (absent:
// the system's); `elevador` runs a tool as administrator (empty: the tool
// runs as is). The limit leaves time for the password prompt.
struct ProgramasPaquetes {
    std::optional<std::string> flatpak, snap, elevador;
    double limite = 600;
};

// Uninstalls a Flatpak application, every deployed branch of it, from the
// user's installation or, through the password prompt, from one of the
// system's; `opcion` names the installation. Non-interactive.
Desinstalacion quitarFlatpak(const AppPaquete& app, const std::string& opcion,
                             const ProgramasPaquetes& programas = {});

// Removes a snap (`snap remove`), through the password prompt.
Desinstalacion quitarSnap(const std::string& nombre, const ProgramasPaquetes& programas = {});

} // namespace plataforma
