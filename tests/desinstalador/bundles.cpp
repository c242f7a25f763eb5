// SPDX-License-Identifier: GPL-3.0-or-later
#include "bundles.h"

#include <plist/plist.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

fs::path crearBundle(const fs::path& bundle, const Claves& claves, FormatoPlist formato)
{
    plist_t dict = plist_new_dict();
    for (const auto& [k, v] : claves)
        plist_dict_set_item(dict, k.c_str(), plist_new_string(v.c_str()));
    char* datos = nullptr;
    uint32_t n = 0;
    if (formato == FormatoPlist::xml)
        plist_to_xml(dict, &datos, &n);
    else
        plist_to_bin(dict, &datos, &n);
    plist_free(dict);
    if (datos == nullptr)
        throw std::runtime_error("libplist no escribió el plist");
    fs::create_directories(bundle / "Contents/MacOS");
    std::ofstream(bundle / "Contents/Info.plist", std::ios::binary).write(datos, n);
    std::free(datos);
    return bundle;
}

Claves clavesDeApp(const std::string& id, const std::string& nombre, const std::string& ejecutable)
{
    Claves c{{"CFBundleIdentifier", id}};
    if (!nombre.empty())
        c.emplace_back("CFBundleName", nombre);
    if (!ejecutable.empty())
        c.emplace_back("CFBundleExecutable", ejecutable);
    return c;
}

Variable::Variable(const char* nombre, const std::string& valor) : nombre_(nombre)
{
    if (const char* v = std::getenv(nombre))
        antes_ = v;
    ::setenv(nombre, valor.c_str(), 1);
}

Variable::~Variable()
{
    if (antes_)
        ::setenv(nombre_, antes_->c_str(), 1);
    else
        ::unsetenv(nombre_);
}
