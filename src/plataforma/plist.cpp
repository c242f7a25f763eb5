// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/plist.h"

#include "plataforma/lectura.h"

#include <plist/plist.h>

#include <cstdlib>
#include <memory>

namespace plataforma {

namespace {

// Info.plist files are small; anything bigger is not one.
constexpr size_t tamanoMaximo = 16 * 1024 * 1024;

} // namespace

std::optional<DiccionarioPlist> leerPlist(const std::filesystem::path& archivo)
{
    const auto datos = leerArchivo(archivo, tamanoMaximo);
    if (!datos || datos->empty())
        return std::nullopt;
    plist_t raiz = nullptr;
    plist_from_memory(datos->data(), uint32_t(datos->size()), &raiz);
    if (raiz == nullptr)
        return std::nullopt;
    std::unique_ptr<void, void (*)(plist_t)> guarda(raiz, plist_free);
    if (plist_get_node_type(raiz) != PLIST_DICT)
        return std::nullopt;

    DiccionarioPlist r;
    plist_dict_iter it = nullptr;
    plist_dict_new_iter(raiz, &it);
    if (it == nullptr)
        return r;
    for (;;) {
        char* clave = nullptr;
        plist_t valor = nullptr;
        plist_dict_next_item(raiz, it, &clave, &valor);
        if (clave == nullptr)
            break;
        std::optional<std::string> texto;
        if (valor != nullptr && plist_get_node_type(valor) == PLIST_STRING) {
            char* s = nullptr;
            plist_get_string_val(valor, &s);
            if (s != nullptr) {
                texto = std::string(s);
                std::free(s);
            }
        }
        r[clave] = std::move(texto);
        std::free(clave);
    }
    std::free(it);
    return r;
}

std::optional<std::string> textoDe(const DiccionarioPlist& d, const std::string& clave)
{
    const auto it = d.find(clave);
    if (it == d.end())
        return std::nullopt;
    return it->second;
}

} // namespace plataforma
