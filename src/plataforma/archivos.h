// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plataforma {

// The creation (birth) time of an entry, links not followed; absent where the
// file system doesn't record one.
std::optional<std::chrono::system_clock::time_point> fechaCreacion(const std::filesystem::path& ruta);

// When the entry arrived in its folder, where the system records that; absent
// otherwise.
std::optional<std::chrono::system_clock::time_point> fechaLlegada(const std::filesystem::path& ruta);

// Whether the absolute path lies where volumes come and go (under /mnt,
// /media or /run/media, at or below a mount point /etc/fstab names, or below
// an automount point) while no volume is mounted there to hold it: then that
// the path is missing proves nothing. False for any other path.
bool enVolumenDesmontado(const std::filesystem::path& ruta);

// One mount of the mount table: where, and whether it is an automount's trap
// (which holds nothing until the volume comes).
struct Montaje {
    std::string punto;
    bool automontaje = false;
};
// The mounts in place now, as this process sees them; absent when the table
// can't be read.
std::optional<std::vector<Montaje>> montajesActuales();

// The same judged on given tables: the mounts in place now and the mount
// points of /etc/fstab.
bool enVolumenDesmontado(const std::filesystem::path& ruta, const std::vector<Montaje>& montados,
                         const std::vector<std::string>& fstab);

// Whether the path is a package: a directory the user sees as one document or
// program (Foo.app, Bar.framework, Fotos.photoslibrary…), known here by its
// extension, in any case. A file or a link is never one.
bool esPaquete(const std::filesystem::path& ruta);
// The same for a C path, so that a walk can ask without building a path object.
bool esPaquete(const char* ruta);

// Whether the file shares blocks with another one (a clone made by copying
// with reflinks), so that removing it may free nothing. False whenever that
// can't be told. Links are not followed.
bool esClon(const std::filesystem::path& ruta);

// The user-facing description of a file type in the system's language
// ("Apple disk image"), known from the file's name alone; absent when the name
// matches no known type.
std::optional<std::string> descripcionTipo(std::string_view nombre);

// The name the system shows for a path; a trailing "/" is ignored.
std::string nombreVisible(const std::filesystem::path& ruta);

} // namespace plataforma
