// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/apps_abiertas.h"

#include "nucleo/textos.h"
#include "plataforma/apps.h"

AppsAbiertas AppsAbiertas::actuales()
{
    const std::string propio = minusculas(plataforma::identificadorPropio);
    AppsAbiertas r;
    for (const auto& a : plataforma::appsAbiertas()) {
        if (!a.bundle || a.bundle->empty() || minusculas(*a.bundle) == propio)
            continue;
        r.apps.push_back(describir(*a.bundle, a.nombre));
    }
    return r;
}

AppsAbiertas::App AppsAbiertas::describir(std::string_view bundle, std::optional<std::string_view> nombre)
{
    App a;
    a.bundle = minusculas(bundle);
    a.nombre = nombre ? std::string(*nombre) : a.bundle;
    // The first word, blanks around it dropped.
    const std::string bajo = minusculas(a.nombre);
    const size_t inicio = bajo.find_first_not_of(' ');
    if (inicio != std::string::npos) {
        const size_t fin = bajo.find(' ', inicio);
        std::string palabra = bajo.substr(inicio, fin == std::string::npos ? std::string::npos : fin - inicio);
        if (caracteres(palabra) >= 4)
            a.clave = std::move(palabra);
    }
    return a;
}

std::optional<std::string> AppsAbiertas::quienUsa(std::string_view nombre,
                                                  const std::vector<std::string>& bundles) const
{
    if (apps.empty())
        return std::nullopt;
    const std::string carpeta = minusculas(nombre);
    std::vector<std::string> duenos;
    duenos.reserve(bundles.size());
    for (const auto& b : bundles)
        duenos.push_back(minusculas(b));

    // Application by application: an earlier app that matches loosely wins
    // over a later one that would match exactly.
    for (const App& a : apps) {
        for (const auto& d : duenos)
            if (d == a.bundle)
                return a.nombre;
        if (carpeta == a.bundle)
            return a.nombre;
        if (carpeta.size() > a.bundle.size() && carpeta.starts_with(a.bundle) && carpeta[a.bundle.size()] == '.')
            return a.nombre;
        if (!a.clave.empty() && carpeta.find(a.clave) != std::string::npos)
            return a.nombre;
    }
    return std::nullopt;
}
