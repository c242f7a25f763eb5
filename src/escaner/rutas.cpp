// SPDX-License-Identifier: GPL-3.0-or-later
// How a path under home is shown: relative to home, with links resolved.
#include "escaner/escaner.h"

#include <cstdlib>

namespace fs = std::filesystem;

namespace {

// The path with every link resolved, or the path as given when it can't be
// (it may be gone by now).
fs::path resuelta(const fs::path& p)
{
    char* r = ::realpath(p.c_str(), nullptr);
    if (r == nullptr)
        return p;
    fs::path resultado(r);
    std::free(r);
    return resultado;
}

} // namespace

std::string Escaner::rutaRelativa(const fs::path& url) const
{
    const fs::path casa = resuelta(entorno.home), p = resuelta(url);
    auto ip = p.begin();
    for (auto ic = casa.begin(); ic != casa.end(); ++ic, ++ip)
        if (ip == p.end() || *ic != *ip)
            return url.filename().string();
    if (ip == p.end())
        return url.filename().string();
    std::string r;
    for (; ip != p.end(); ++ip) {
        if (!r.empty())
            r += '/';
        r += ip->native();
    }
    return r;
}

std::string Escaner::relativa(const std::string& ruta) const
{
    const std::string casa = resuelta(entorno.home).native() + '/';
    const std::string p = resuelta(ruta).native();
    return p.starts_with(casa) ? p.substr(casa.size()) : ruta;
}
