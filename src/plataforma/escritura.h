// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string_view>

namespace plataforma {

// Replaces the file's content all at once: a temporary file in the same
// folder is written and flushed to disk, renamed over the file, and the folder
// is flushed too. True only if every step succeeded. On a failure before the
// rename the old file is left as it was and the temporary file is removed;
// readers, even after a crash, see the old content or the new, never a mix.
// Temporary files of earlier writes that were killed, an hour old or more,
// are removed. The folder must exist.
bool escribirAtomico(const std::filesystem::path& archivo, std::string_view contenido);

} // namespace plataforma
