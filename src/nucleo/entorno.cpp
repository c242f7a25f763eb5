// SPDX-License-Identifier: GPL-3.0-or-later
#include "nucleo/entorno.h"

#include "plataforma/sistema.h"

#include <cstdlib>

namespace fs = std::filesystem;

fs::path estandarizar(const fs::path& p)
{
    std::error_code ec;
    fs::path abs = p.is_absolute() ? p : fs::absolute(p, ec);
    if (ec)
        abs = p;
    fs::path n = abs.lexically_normal();
    // "/a/b/" normalises to "/a/b/" (an empty last element); drop it.
    if (!n.has_filename() && n.has_relative_path())
        n = n.parent_path();
    return n;
}

bool dentroDe(const fs::path& ruta, const fs::path& carpeta)
{
    const std::string &r = ruta.native(), &c = carpeta.native();
    return r.size() > c.size() + 1 && r.starts_with(c) && r[c.size()] == '/';
}

namespace {

// The folder itself, every link on its way resolved; as given when it can't
// be (it may not exist).
fs::path resuelta(const fs::path& p)
{
    std::error_code ec;
    fs::path r = fs::canonical(p, ec);
    return ec ? p : r;
}

} // namespace

Entorno Entorno::actual()
{
    const char* v = std::getenv("VORLANO_HOME");
    if (v != nullptr && *v != '\0')
        return Entorno{resuelta(estandarizar(v)), true};
    return Entorno{resuelta(estandarizar(plataforma::carpetaPersonalReal())), false};
}

fs::path Entorno::ruta(std::string_view relativa) const
{
    return home / fs::path(relativa);
}

fs::path Entorno::base(plataforma::Base b) const
{
    return plataforma::carpetaBase(b, home, prueba);
}

plataforma::CarpetasPersonales Entorno::personales() const
{
    return plataforma::carpetasPersonales(home, base(plataforma::Base::config));
}
