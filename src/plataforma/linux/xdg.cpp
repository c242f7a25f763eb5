// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/linux/xdg.h"

#include <cstdlib>
#include <string_view>

namespace fs = std::filesystem;

namespace plataforma {

fs::path datosDeUsuario()
{
    if (const char* d = std::getenv("XDG_DATA_HOME"); d != nullptr && *d)
        return d;
    if (const char* h = std::getenv("HOME"); h != nullptr && *h)
        return fs::path(h) / ".local/share";
    return {};
}

std::vector<fs::path> carpetasDeEntradas()
{
    std::vector<fs::path> r;
    if (const fs::path d = datosDeUsuario(); !d.empty())
        r.emplace_back(d / "applications");
    const char* dirs = std::getenv("XDG_DATA_DIRS");
    std::string_view resto = dirs != nullptr && *dirs ? dirs : "/usr/local/share:/usr/share";
    while (!resto.empty()) {
        const size_t dos = resto.find(':');
        if (const auto d = resto.substr(0, dos); !d.empty())
            r.emplace_back(fs::path(d) / "applications");
        resto = dos == std::string_view::npos ? std::string_view() : resto.substr(dos + 1);
    }
    return r;
}

std::string idDeEntrada(const fs::path& base, const fs::path& entrada)
{
    std::string id = entrada.lexically_relative(base).replace_extension().string();
    for (char& c : id)
        if (c == '/')
            c = '-';
    return id;
}

} // namespace plataforma
