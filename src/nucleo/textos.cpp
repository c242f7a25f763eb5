// SPDX-License-Identifier: GPL-3.0-or-later
#include "nucleo/textos.h"

#include <algorithm>

std::string rellenar(std::string texto,
                     std::initializer_list<std::pair<std::string_view, std::string_view>> valores)
{
    // One pass over the text: a value that holds a marker (a file name such
    // as "{total}") is never filled in itself.
    std::string r;
    r.reserve(texto.size());
    for (size_t i = 0; i < texto.size();) {
        bool hecho = false;
        if (texto[i] == '{')
            for (const auto& [nombre, valor] : valores) {
                const std::string_view resto = std::string_view(texto).substr(i + 1);
                if (resto.starts_with(nombre) && resto.substr(nombre.size()).starts_with('}')) {
                    r += valor;
                    i += nombre.size() + 2;
                    hecho = true;
                    break;
                }
            }
        if (!hecho)
            r += texto[i++];
    }
    return r;
}

std::vector<std::string_view> trozos(std::string_view texto, char separador)
{
    std::vector<std::string_view> r;
    for (size_t i = 0; i <= texto.size();) {
        const size_t fin = std::min(texto.find(separador, i), texto.size());
        if (fin > i)
            r.push_back(texto.substr(i, fin - i));
        i = fin + 1;
    }
    return r;
}
