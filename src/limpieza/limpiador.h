// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The only piece that removes what an analysis found, and the path rule that
// guards every removal of the program.

#include "nucleo/entorno.h"
#include "nucleo/modelo.h"
#include "nucleo/progreso.h"
#include "plataforma/papelera.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct Limpiador {
    Entorno entorno;
    // Seconds an item's command may run before it counts as failed.
    double limiteAccion = 900;

    // Reads where the user's own folders and the base folders are, once.
    explicit Limpiador(Entorno e);

    // Folders of the home folder that are never removed themselves; what lies
    // below them may be.
    static constexpr std::string_view raicesIntocables[] = {
        "Library",   "Library/Caches", "Library/Logs", "Library/Developer", "Library/Application Support",
        "Downloads", "Documents",      "Desktop",      "Developer",         "Projects",
        "Pictures",  "Movies",         "Music"};
    // The same on a Linux home: the parents of the base folders and what a
    // user would lose with a whole folder: installed programs and fonts,
    // passwords, desktop entries, autostart and user services, Flatpak's
    // per-application data, containers, and what every application of the
    // desktop shares: icons, themes, file types, shell extensions and the
    // desktop's settings database.
    static constexpr std::string_view raicesLinux[] = {
        ".local/share",           ".local/state",              ".local/bin",
        ".local/lib",             ".local/share/Trash",        ".local/share/keyrings",
        ".local/share/kwalletd",  ".local/share/applications", ".local/share/flatpak",
        ".local/share/fonts",     ".local/share/containers",   ".local/share/icons",
        ".local/share/themes",    ".local/share/mime",         ".local/share/dbus-1",
        ".local/share/systemd",   ".local/share/gnome-shell",  ".config/autostart",
        ".config/systemd",        ".config/dconf",             ".config/environment.d",
        ".var/app"};

    // Every protected root of this home, relative to it: both lists, the
    // base folders (cache, config, data and state homes) and the user's own
    // folders as the desktop names them, where these lie inside home.
    const std::vector<std::string>& raices() const { return raices_; }
    // The Trash folders of this home, relative: nothing in them is ever
    // allowed, since only emptying the Trash removes what it holds.
    const std::vector<std::string>& papeleras() const { return papeleras_; }

    // The path rule, on text only (nothing is opened, no link followed): after
    // resolving "." and "..", the path lies strictly inside the home folder,
    // at least two components deep, is not one of raices() and is not in a
    // Trash.
    bool permitido(const std::filesystem::path& ruta) const;

    // Removes every selected item: runs its command, or empties it in place
    // (borrar) or moves it to the Trash (papelera) by its category. Failures
    // become lines of errores and never stop the run. Blocking; progreso is
    // called on this thread, once before each item that is worked on.
    Resultado limpiar(std::vector<Categoria> categorias, const Progreso& progreso) const;

    // Empties one path in place: a folder stays and loses its children, a file
    // is removed, a link is left alone. A path the rule refuses is not touched.
    // Problems are added to errores under the name given. Returns the bytes of
    // what was removed but not given back, being hard-linked elsewhere; absent
    // when the path was refused and nothing was tried.
    std::optional<int64_t> vaciar(const std::filesystem::path& ruta, const std::string& nombre,
                                  std::vector<std::string>& errores) const;

    // Moves one path to the Trash if the rule allows it, without leaving the
    // home folder on the way: no folder between the home and it may be a link
    // or a mount point, nor may it be or hold a mount point itself. Absent
    // once it is in the Trash, else the line for errores under the name given.
    // The cleaner, the uninstaller's leftovers and the map all move this way.
    std::optional<std::string> moverAPapelera(const std::filesystem::path& ruta, const std::string& nombre) const;

    // The line for errores of a Trash move that failed.
    static std::string motivo(const plataforma::Traslado& t, const std::string& nombre);

private:
    std::vector<std::string> raices_;
    std::vector<std::string> papeleras_;

    // The path below the home folder, if the rule allows it.
    std::optional<std::filesystem::path> relativaPermitida(const std::filesystem::path& ruta) const;
    void ejecutarAccion(const Elemento& e, Resultado& r) const;
    void moverElemento(const Elemento& e, Resultado& r) const;
    void vaciarElemento(const Elemento& e, Resultado& r) const;
};
