// SPDX-License-Identifier: GPL-3.0-or-later
// Asking git whether a folder holds tracked files. Only git's exit status is
// read: the folder counts as tracked exactly when git says so.
#include "escaner/escaner.h"

#include "plataforma/ejecutar.h"

#include <sys/stat.h>

namespace fs = std::filesystem;

const std::optional<std::string>& Escaner::git()
{
    // The places of macOS first, then the usual ones of Linux.
    static const std::optional<std::string> programa = plataforma::buscarPrograma({
        "/Library/Developer/CommandLineTools/usr/bin/git",
        "/Applications/Xcode.app/Contents/Developer/usr/bin/git",
        "/opt/homebrew/bin/git",
        "/usr/local/bin/git",
        "/usr/bin/git",
    });
    return programa;
}

bool Escaner::dentroDeRepositorio(const fs::path& carpeta) const
{
    // The home folder's own .git counts; nothing above home is looked at.
    for (fs::path p = carpeta; std::distance(p.begin(), p.end()) >= 2; p = p.parent_path()) {
        struct stat st;
        if (::lstat((p / ".git").c_str(), &st) == 0)
            return true;
        if (p == entorno.home)
            return false;
    }
    return false;
}

bool Escaner::versionadaEnGit(std::string_view nombre, const fs::path& en, const std::optional<std::string>& git)
{
    if (!git)
        return false;
    const auto codigo = plataforma::codigoDeSalida(*git, {"-C", en.string(), "ls-files", "--error-unmatch", "--", std::string(nombre)});
    return codigo == 0;
}
