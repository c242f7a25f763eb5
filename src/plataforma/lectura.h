// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plataforma {

// Whether anything is at the path, links followed: a dangling link is nothing.
bool existe(const std::filesystem::path& ruta);

// Whether the absolute path is proven absent: it doesn't exist (links
// followed) and the nearest folder above it that does can be read, so that its
// listing shows the absence. False when the path exists, when a folder on the
// way can't be searched or read, when a file stands where a folder should, and
// for a path longer than the system takes. Linear in the path's length.
bool ausenciaProbada(const std::filesystem::path& ruta);

// The names in a folder but "." and "..", in listing order; none when it
// can't be read. Links in it are listed, not followed.
std::vector<std::string> nombresEn(const std::filesystem::path& carpeta);

// The whole content of a small regular file, links not followed. Absent when it
// can't be opened, isn't a regular file, or holds more than `maximo` bytes. A
// FIFO or device in its place never blocks the caller.
std::optional<std::string> leerArchivo(const std::filesystem::path& ruta, size_t maximo);

// Whether a regular file begins with these bytes, links not followed. False
// when it can't be opened or read; a FIFO or device never blocks the caller.
bool empiezaPor(const char* ruta, std::string_view firma);

} // namespace plataforma
