// SPDX-License-Identifier: GPL-3.0-or-later
#include "nucleo/plist.h"

#include <plist/plist.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <vector>

namespace {

// Info.plist files are small; anything bigger is not one.
constexpr off_t tamanoMaximo = 16 * 1024 * 1024;

std::optional<std::vector<char>> leerArchivo(const std::filesystem::path& p)
{
    const int fd = ::open(p.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (fd < 0)
        return std::nullopt;
    std::vector<char> datos;
    struct stat st;
    if (::fstat(fd, &st) == 0 && S_ISREG(st.st_mode) && st.st_size <= tamanoMaximo) {
        datos.resize(size_t(st.st_size));
        size_t leido = 0;
        while (leido < datos.size()) {
            const ssize_t n = ::read(fd, datos.data() + leido, datos.size() - leido);
            if (n <= 0)
                break;
            leido += size_t(n);
        }
        datos.resize(leido);
    } else {
        ::close(fd);
        return std::nullopt;
    }
    ::close(fd);
    return datos;
}

} // namespace

std::optional<DiccionarioPlist> leerPlist(const std::filesystem::path& archivo)
{
    const auto datos = leerArchivo(archivo);
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
