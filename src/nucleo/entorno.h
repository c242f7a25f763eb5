// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "plataforma/lugares.h"

#include <filesystem>
#include <string_view>

// Where the program is allowed to work. VORLANO_HOME redirects the home folder
// to a scratch folder: that is test mode, and the only place that decides it.
struct Entorno {
    std::filesystem::path home;
    bool prueba = false;

    // Reads the environment anew at every call; never cached. The home is
    // resolved once here, links included, so that every stage and the path
    // rule see the same folder.
    static Entorno actual();

    // home with a relative path appended; the path need not exist.
    std::filesystem::path ruta(std::string_view relativa) const;

    // A base folder of programs' files for this home (plataforma::carpetaBase):
    // in test mode always its default place inside the scratch home. It may
    // lie outside home.
    std::filesystem::path base(plataforma::Base b) const;

    // The user's own folders, as the desktop named them (user-dirs.dirs in the
    // config home); reads a small file at each call.
    plataforma::CarpetasPersonales personales() const;
};

// Whether the path lies strictly inside the folder, by the text of whole
// components: "/a/bc" is not inside "/a/b", nor is "/a/b" itself.
bool dentroDe(const std::filesystem::path& ruta, const std::filesystem::path& carpeta);

// Absolute, with "." and ".." resolved by text and no trailing slash. Links are
// not resolved. A relative path is taken from the working directory.
std::filesystem::path estandarizar(const std::filesystem::path& p);
