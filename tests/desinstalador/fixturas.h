// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Real application bundles for the uninstaller's tests.

#include <plist/plist.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

using Claves = std::vector<std::pair<std::string, std::string>>;

// A bundle whose Contents/Info.plist holds those text keys, written by libplist.
inline fs::path crearBundle(const fs::path& bundle, const Claves& claves, bool binario = false)
{
    plist_t dict = plist_new_dict();
    for (const auto& [k, v] : claves)
        plist_dict_set_item(dict, k.c_str(), plist_new_string(v.c_str()));
    char* datos = nullptr;
    uint32_t n = 0;
    binario ? plist_to_bin(dict, &datos, &n) : plist_to_xml(dict, &datos, &n);
    plist_free(dict);
    fs::create_directories(bundle / "Contents/MacOS");
    std::ofstream(bundle / "Contents/Info.plist", std::ios::binary).write(datos, n);
    std::free(datos);
    return bundle;
}

inline fs::path crearApp(const fs::path& bundle, const std::string& id)
{
    return crearBundle(bundle, {{"CFBundleIdentifier", id}});
}
