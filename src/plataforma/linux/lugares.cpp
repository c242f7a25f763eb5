// SPDX-License-Identifier: GPL-3.0-or-later
// The freedesktop.org base directories and user-dirs.dirs.
#include "plataforma/lugares.h"

#include "plataforma/lectura.h"

#include <cstdlib>
#include <optional>
#include <string>

namespace fs = std::filesystem;

namespace plataforma {

namespace {

// user-dirs.dirs holds a few lines; anything this big is not one.
constexpr size_t maximoUserDirs = 64 * 1024;

// The keys of user-dirs.dirs, in the order of Personal.
constexpr std::string_view claves[] = {"DESKTOP", "DOCUMENTS", "DOWNLOAD", "PICTURES", "VIDEOS", "MUSIC"};

// "." and ".." resolved by text, no trailing slash.
fs::path normal(const fs::path& p)
{
    fs::path n = p.lexically_normal();
    if (!n.has_filename() && n.has_relative_path())
        n = n.parent_path();
    return n;
}

// Strictly inside home, by whole components.
bool dentroDeCasa(const fs::path& p, const fs::path& home)
{
    const std::string& t = p.native();
    const std::string& h = home.native();
    return t.size() > h.size() + 1 && t.compare(0, h.size(), h) == 0 && t[h.size()] == '/';
}

// The value of one line `XDG_<CLAVE>_DIR="…"` as a shell that sources the file
// sees it: inside double quotes a backslash keeps only ", \, $ and ` literal,
// and a leading $HOME (or ${HOME}) is the home folder. Other expansions
// aren't understood: the line counts as absent.
std::optional<fs::path> valor(std::string_view v, const fs::path& home)
{
    if (!v.starts_with('"'))
        return std::nullopt;
    v.remove_prefix(1);
    std::string texto;
    bool cerrado = false;
    for (size_t i = 0; i < v.size(); ++i) {
        const char c = v[i];
        if (c == '"') {
            cerrado = true;
            break;
        }
        if (c == '\\' && i + 1 < v.size() && std::string_view("\"\\$`").find(v[i + 1]) != std::string_view::npos) {
            texto += v[++i];
            continue;
        }
        // An unescaped $ or ` would expand to something we can't know; only
        // the leading $HOME is taken, below, from what the file says.
        if ((c == '$' || c == '`') && !(texto.empty() && (v.substr(i).starts_with("$HOME") ||
                                                          v.substr(i).starts_with("${HOME}"))))
            return std::nullopt;
        texto += c;
    }
    if (!cerrado)
        return std::nullopt;
    for (std::string_view casa : {"${HOME}", "$HOME"})
        if (std::string_view(texto).starts_with(casa)) {
            const std::string_view resto = std::string_view(texto).substr(casa.size());
            if (!resto.empty() && resto.front() != '/')
                return std::nullopt; // $HOMEX is another variable
            return home.native() + std::string(resto);
        }
    if (!texto.starts_with('/'))
        return std::nullopt;
    return fs::path(texto);
}

} // namespace

std::string_view basePorDefecto(Base b)
{
    switch (b) {
    case Base::cache:
        return ".cache";
    case Base::config:
        return ".config";
    case Base::datos:
        return ".local/share";
    case Base::estado:
        return ".local/state";
    }
    return ".cache";
}

fs::path carpetaBase(Base b, const fs::path& home, bool soloCasa)
{
    const char* variable = b == Base::cache    ? "XDG_CACHE_HOME"
                           : b == Base::config ? "XDG_CONFIG_HOME"
                           : b == Base::datos  ? "XDG_DATA_HOME"
                                               : "XDG_STATE_HOME";
    // A relative value is invalid and ignored, as the base directory rules say.
    if (const char* v = soloCasa ? nullptr : std::getenv(variable); v != nullptr && v[0] == '/')
        return normal(v);
    return home / basePorDefecto(b);
}

std::string_view nombrePorDefecto(Personal p)
{
    constexpr std::string_view nombres[] = {"Desktop", "Documents", "Downloads", "Pictures", "Movies", "Music"};
    return nombres[size_t(p)];
}

CarpetasPersonales leerCarpetasPersonales(std::string_view texto, const fs::path& home)
{
    const fs::path casa = normal(home);
    CarpetasPersonales r;
    for (Personal p : todasLasPersonales)
        r.rutas[size_t(p)] = casa / nombrePorDefecto(p);
    while (!texto.empty()) {
        const size_t fin = texto.find('\n');
        std::string_view linea = texto.substr(0, fin);
        texto = fin == std::string_view::npos ? std::string_view() : texto.substr(fin + 1);
        linea.remove_prefix(std::min(linea.find_first_not_of(" \t"), linea.size()));
        if (!linea.starts_with("XDG_"))
            continue;
        linea.remove_prefix(4);
        for (size_t i = 0; i < std::size(claves); ++i) {
            if (!linea.starts_with(claves[i]) || !linea.substr(claves[i].size()).starts_with("_DIR="))
                continue;
            const auto v = valor(linea.substr(claves[i].size() + 5), casa);
            // The last assignment wins, as in the shell; one that leads out
            // of home, or is home itself (a disabled folder), leaves the
            // English name.
            if (v)
                r.rutas[i] = dentroDeCasa(normal(*v), casa) ? normal(*v) : casa / nombrePorDefecto(Personal(i));
        }
    }
    return r;
}

CarpetasPersonales carpetasPersonales(const fs::path& home, const fs::path& config)
{
    const auto texto = leerArchivo(config / "user-dirs.dirs", maximoUserDirs);
    return leerCarpetasPersonales(texto ? std::string_view(*texto) : std::string_view(), home);
}

} // namespace plataforma
