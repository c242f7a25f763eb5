// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/plist.h"

#include "plataforma/lectura.h"

#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace plataforma {

namespace {

// Info.plist files are small; anything bigger is not one.
constexpr size_t tamanoMaximo = 16 * 1024 * 1024;
// libplist parses and frees nested values recursively, so a list nested
// hundreds of thousands of times overflows the stack. Real ones nest a few
// levels; these are checked before it parses.
constexpr size_t hondoMaximo = 128;
// Objects a binary list may reach, counting shared ones each time.
constexpr size_t visitasMaximas = 1 << 20;

uint64_t enteroBE(const unsigned char* p, size_t n)
{
    uint64_t r = 0;
    for (size_t i = 0; i < n; ++i)
        r = r << 8 | p[i];
    return r;
}

// Whether the elements of an XML list nest at most hondoMaximo deep. Comments,
// CDATA, declarations and quoted attributes are skipped; a closing tag that
// doesn't close the open element is refused rather than guessed at.
bool xmlLlano(std::string_view d)
{
    std::vector<std::string_view> abiertos;
    auto saltar = [&](size_t& i, std::string_view fin) {
        i = d.find(fin, i);
        if (i == std::string_view::npos)
            return false;
        i += fin.size();
        return true;
    };
    auto nombre = [&](size_t i) { return d.substr(i, d.find_first_of(" \t\r\n/>", i) - i); };
    for (size_t i = 0; (i = d.find('<', i)) != std::string_view::npos;) {
        const std::string_view resto = d.substr(i);
        if (resto.starts_with("<!--")) {
            if (!saltar(i, "-->"))
                return false;
        } else if (resto.starts_with("<![CDATA[")) {
            if (!saltar(i, "]]>"))
                return false;
        } else if (resto.starts_with("<?")) {
            if (!saltar(i, "?>"))
                return false;
        } else if (resto.starts_with("<!")) {
            if (!saltar(i, ">"))
                return false;
        } else if (resto.starts_with("</")) {
            if (abiertos.empty() || nombre(i + 2) != abiertos.back())
                return false;
            abiertos.pop_back();
            if (!saltar(i, ">"))
                return false;
        } else {
            size_t j = i + 1;
            for (char comilla = 0; j < d.size() && (comilla != 0 || d[j] != '>'); ++j)
                if (comilla != 0 ? d[j] == comilla : d[j] == '"' || d[j] == '\'')
                    comilla = comilla != 0 ? 0 : d[j];
            if (j >= d.size())
                return false;
            if (d[j - 1] != '/') {
                if (abiertos.size() >= hondoMaximo)
                    return false;
                abiertos.push_back(nombre(i + 1));
            }
            i = j + 1;
        }
    }
    return true;
}

// The same for a binary list: its arrays, sets and dictionaries are followed
// from the top object by their references, without recursion, with every
// count and offset checked against the file; and none of its strings holds
// a NUL.
bool binarioLlano(std::string_view datos)
{
    const auto* d = reinterpret_cast<const unsigned char*>(datos.data());
    if (datos.size() < 8 + 32)
        return false;
    // The trailer: sizes of an offset and of a reference, the number of
    // objects, the top one, where the offset table starts.
    const unsigned char* t = d + datos.size() - 32;
    const size_t tamOffset = t[6], tamRef = t[7];
    const uint64_t objetos = enteroBE(t + 8, 8), raiz = enteroBE(t + 16, 8), tabla = enteroBE(t + 24, 8);
    const uint64_t finTabla = datos.size() - 32;
    if (tamOffset < 1 || tamOffset > 8 || tamRef < 1 || tamRef > 8 || tabla > finTabla ||
        objetos > (finTabla - tabla) / tamOffset)
        return false;
    struct Nivel {
        uint64_t ref;    // where the next reference is
        uint64_t quedan; // references left
    };
    std::vector<Nivel> pila;
    size_t visitas = 0;
    // Strings already looked through: one shared a million times is read once.
    std::vector<bool> leido(objetos);
    auto entrar = [&](uint64_t objeto) {
        if (objeto >= objetos || ++visitas > visitasMaximas)
            return false;
        const uint64_t pos = enteroBE(d + tabla + objeto * tamOffset, tamOffset);
        if (pos >= tabla)
            return false;
        // Strings (ASCII and UTF-16) and containers begin with a count.
        const unsigned tipo = d[pos] >> 4;
        if (tipo != 0x5 && tipo != 0x6 && tipo != 0xA && tipo != 0xC && tipo != 0xD)
            return true;
        uint64_t cuenta = d[pos] & 0xF, inicio = pos + 1;
        if (cuenta == 0xF) {
            // The count follows as an integer object.
            if (inicio >= tabla || d[inicio] >> 4 != 1 || (d[inicio] & 0xF) > 3)
                return false;
            const size_t n = size_t(1) << (d[inicio] & 0xF);
            if (inicio + 1 + n > tabla)
                return false;
            cuenta = enteroBE(d + inicio + 1, n);
            inicio += 1 + n;
        }
        if (tipo == 0x5 || tipo == 0x6) {
            // libplist aborts the process when asked for a string or a key
            // that holds a NUL; no Info.plist has one.
            const uint64_t unidad = tipo == 0x6 ? 2 : 1;
            if (cuenta > (tabla - inicio) / unidad)
                return false;
            if (leido[objeto])
                return true;
            leido[objeto] = true;
            for (uint64_t i = inicio; i < inicio + cuenta * unidad; i += unidad)
                if (d[i] == 0 && (unidad == 1 || d[i + 1] == 0))
                    return false;
            return true;
        }
        // A dictionary's keys, then its values.
        const uint64_t refs = tipo == 0xD ? 2 : 1;
        if (cuenta > (tabla - inicio) / tamRef / refs || pila.size() >= hondoMaximo)
            return false;
        pila.push_back({inicio, cuenta * refs});
        return true;
    };
    if (!entrar(raiz))
        return false;
    while (!pila.empty()) {
        Nivel& n = pila.back();
        if (n.quedan == 0) {
            pila.pop_back();
            continue;
        }
        const uint64_t ref = enteroBE(d + n.ref, tamRef);
        n.ref += tamRef;
        --n.quedan;
        if (!entrar(ref))
            return false;
    }
    return true;
}

} // namespace

std::optional<DiccionarioPlist> leerPlist(const std::filesystem::path& archivo)
{
    const auto datos = leerArchivo(archivo, tamanoMaximo);
    if (!datos || datos->empty())
        return std::nullopt;
    const bool binario = datos->starts_with("bplist");
    if (!(binario ? binarioLlano(*datos) : xmlLlano(*datos)))
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
        uint64_t largo = 0;
        // A NUL would cut the text short wherever it is used as a C string.
        if (const char* s = valor != nullptr ? plist_get_string_ptr(valor, &largo) : nullptr;
            s != nullptr && std::memchr(s, 0, largo) == nullptr)
            texto = std::string(s, largo);
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
