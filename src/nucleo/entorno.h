// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string_view>

// Where the program is allowed to work. VORLANO_HOME redirects the home folder
// to a scratch folder: that is test mode, and the only place that decides it.
struct Entorno {
    std::filesystem::path home;
    bool prueba = false;

    // Reads the environment anew at every call; never cached.
    static Entorno actual();

    // home with a relative path appended; the path need not exist.
    std::filesystem::path ruta(std::string_view relativa) const;
};

// Absolute, with "." and ".." resolved by text and no trailing slash. Links are
// not resolved. A relative path is taken from the working directory.
std::filesystem::path estandarizar(const std::filesystem::path& p);
