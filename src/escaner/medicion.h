// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Sizes are allocated blocks (st_blocks * 512), never logical length. Links
// count as themselves and are never followed; walks stay on one device.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

// Allocated bytes of the entry and the whole tree under it; 0 if it can't be
// statted. A folder that can't be read counts its own blocks, as du does; an
// entry that can't be statted counts nothing. A file reached twice through
// hard links counts twice.
int64_t tamanoEnDisco(const std::filesystem::path& ruta);

// One sum per list, at the same index, as tamanoEnDisco would add them up, with
// the folders spread over the workers. progreso, if given, gets the whole
// percentage of finished lists each time it grows, from worker threads,
// possibly out of order.
std::vector<int64_t> medirEnParalelo(const std::vector<std::vector<std::filesystem::path>>& listas,
                                     const std::function<void(int)>& progreso = {});
