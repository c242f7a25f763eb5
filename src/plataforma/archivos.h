// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

namespace plataforma {

// The creation (birth) time of an entry, links not followed; absent where the
// file system doesn't record one.
std::optional<std::chrono::system_clock::time_point> fechaCreacion(const std::filesystem::path& ruta);

// Whether the path is a package: a directory the user sees as one document or
// program (Foo.app, Bar.framework, Fotos.photoslibrary…), known here by its
// extension, in any case. A file or a link is never one.
bool esPaquete(const std::filesystem::path& ruta);

// The name the system shows for a path; a trailing "/" is ignored.
std::string nombreVisible(const std::filesystem::path& ruta);

} // namespace plataforma
