// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the cleaning tests share: selected items, a folder outside the home
// that must never lose a byte, and a cleaning run that keeps its messages.

#include "apoyo/casa.h"
#include "limpieza/limpiador.h"

#include <gtest/gtest.h>

#include <fstream>

namespace prueba {

namespace fs = std::filesystem;
using apoyo::CasaPrueba;

inline Elemento elemento(const fs::path& ruta, std::string nombre, int64_t tamano = 0)
{
    return Elemento{.url = ruta, .nombre = std::move(nombre), .tamano = tamano, .seleccionado = true};
}

inline Categoria categoria(Modo modo, std::vector<Elemento> elementos)
{
    return Categoria{.modo = modo, .elementos = std::move(elementos)};
}

inline bool existe(const fs::path& p)
{
    return fs::exists(fs::symlink_status(p));
}

inline bool vacia(const fs::path& carpeta)
{
    return fs::is_directory(fs::symlink_status(carpeta)) && fs::is_empty(carpeta);
}

// dato, sub/hondo and victima/dato, outside every scratch home.
struct Fuera {
    fs::path raiz = apoyo::carpetaTemporal("vorlano-fuera");
    std::map<std::string, std::string> antes;
    Fuera()
    {
        fs::create_directories(raiz / "sub");
        fs::create_directories(raiz / "victima");
        std::ofstream(raiz / "dato") << "no se toca";
        std::ofstream(raiz / "sub/hondo") << "hondo";
        std::ofstream(raiz / "victima/dato") << "tampoco";
        antes = apoyo::huellas(raiz);
    }
    ~Fuera() { apoyo::borrarArbol(raiz); }
    bool intacto() const { return apoyo::huellas(raiz) == antes; }
};

inline Resultado limpiar(const Entorno& entorno, std::vector<Categoria> cs, std::vector<std::string>* avisos = nullptr)
{
    return Limpiador(entorno).limpiar(std::move(cs), [&](const std::string& t) {
        if (avisos)
            avisos->push_back(t);
    });
}

using Lineas = std::vector<std::string>;

} // namespace prueba
