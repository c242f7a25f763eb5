// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Real application bundles for the uninstaller's tests.

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

enum class FormatoPlist { xml, binario };

using Claves = std::vector<std::pair<std::string, std::string>>;

// A bundle folder with Contents/Info.plist holding those text keys, written by
// libplist in the given format. Returns the bundle's path.
fs::path crearBundle(const fs::path& bundle, const Claves& claves, FormatoPlist formato = FormatoPlist::xml);

// The usual keys of an application.
Claves clavesDeApp(const std::string& id, const std::string& nombre = "", const std::string& ejecutable = "");

// Sets an environment variable for the life of the object, then restores it.
class Variable {
public:
    Variable(const char* nombre, const std::string& valor);
    ~Variable();
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* nombre_;
    std::optional<std::string> antes_;
};
