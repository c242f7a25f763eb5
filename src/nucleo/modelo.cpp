// SPDX-License-Identifier: GPL-3.0-or-later
#include "nucleo/modelo.h"

#include "nucleo/textos.h"

std::vector<std::filesystem::path> Elemento::urls() const
{
    std::vector<std::filesystem::path> r;
    r.reserve(1 + extra.size());
    r.push_back(url);
    r.insert(r.end(), extra.begin(), extra.end());
    return r;
}

std::string etiqueta(Nivel n)
{
    switch (n) {
    case Nivel::seguro: return tr("Seguro");
    case Nivel::redescarga: return tr("Se vuelve a descargar");
    case Nivel::revisar: return tr("Revisa antes");
    }
    return {};
}

int64_t Categoria::tamano() const
{
    int64_t s = 0;
    for (const auto& e : elementos)
        s += e.tamano;
    return s;
}

int64_t Categoria::tamanoSeleccionado() const
{
    int64_t s = 0;
    for (const auto& e : elementos)
        if (e.seleccionado)
            s += e.tamano;
    return s;
}

std::string valor(Seccion s)
{
    switch (s) {
    case Seccion::resumen: return "resumen";
    case Seccion::limpieza: return "limpieza";
    case Seccion::mapa: return "mapa";
    case Seccion::desinstalar: return "desinstalar";
    }
    return {};
}

std::string titulo(Seccion s)
{
    switch (s) {
    case Seccion::resumen: return tr("Resumen");
    case Seccion::limpieza: return tr("Limpieza");
    case Seccion::mapa: return tr("Mapa del disco");
    case Seccion::desinstalar: return tr("Desinstalar apps");
    }
    return {};
}

std::string icono(Seccion s)
{
    switch (s) {
    case Seccion::resumen: return "gauge.with.dots.needle.33percent";
    case Seccion::limpieza: return "sparkles";
    case Seccion::mapa: return "square.split.2x2.fill";
    case Seccion::desinstalar: return "xmark.app";
    }
    return {};
}

std::string valor(Enlace e)
{
    switch (e) {
    case Enlace::resumen: return "resumen";
    case Enlace::analizar: return "analizar";
    case Enlace::limpieza: return "limpieza";
    case Enlace::mapa: return "mapa";
    case Enlace::desinstalar: return "desinstalar";
    }
    return {};
}

std::optional<Enlace> enlaceDesde(std::string_view v)
{
    for (Enlace e : todosLosEnlaces)
        if (valor(e) == v)
            return e;
    return std::nullopt;
}

std::string url(Enlace e)
{
    return "vorlano://" + valor(e);
}
