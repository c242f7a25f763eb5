// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace plataforma {

// The top-level dictionary of a property list, binary or XML. A key whose value
// isn't a string maps to nullopt, so "present but not text" stays visible.
using DiccionarioPlist = std::map<std::string, std::optional<std::string>>;

// Absent when the file can't be read, doesn't parse, or isn't a dictionary.
std::optional<DiccionarioPlist> leerPlist(const std::filesystem::path& archivo);

// The text value of a key, absent when missing or not text.
std::optional<std::string> textoDe(const DiccionarioPlist& d, const std::string& clave);

} // namespace plataforma
