// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Adding up the allocated blocks of a tree one folder at a time, so that the
// folders can be spread over threads. Each folder is opened relative to the
// descriptor of the folder that listed it: an entry costs the lookup of its
// own name, and nothing is built for it. The sums are those of recorrerArbol:
// links count as themselves, folders on another device than the root and
// folders at profundidadMaxima count only their own blocks.

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace plataforma {

// An open folder, closed when the last sub-folder listed in it has been opened.
class DescriptorCarpeta;

// A folder whose contents are still to be added up (its own blocks are counted).
struct CarpetaPorSumar {
    // The folder that listed it; null for a root, whose nombre is its path.
    std::shared_ptr<const DescriptorCarpeta> padre;
    std::string nombre;
    // The root's device.
    dev_t dispositivo = 0;
    // 0 for the root.
    int nivel = 0;
};

// The allocated bytes of the entry itself, 0 if it can't be statted. For a
// folder whose contents count, `carpeta` gets it.
int64_t bloquesDeRaiz(const std::filesystem::path& ruta, std::optional<CarpetaPorSumar>& carpeta);

// Opens and lists the folder: the allocated bytes of every entry in it, the
// sub-folders' own blocks included, and each sub-folder whose contents count
// handed to `subcarpeta`. A folder that can't be opened adds nothing, a
// listing that fails midway ends there. subcarpeta must not call sumarCarpeta
// (the listing buffer lives on this call's stack).
int64_t sumarCarpeta(const CarpetaPorSumar& carpeta, const std::function<void(CarpetaPorSumar&&)>& subcarpeta);

} // namespace plataforma
