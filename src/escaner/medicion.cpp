// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/medicion.h"

#include "plataforma/arbol.h"
#include "nucleo/paralelo.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cstring>
#include <mutex>

namespace fs = std::filesystem;

// The factor follows the unit of st_blocks, which is 512 bytes on Linux and macOS.
static constexpr int64_t unidadBloque = 512;

int64_t tamanoEnDisco(const fs::path& ruta)
{
    int64_t suma = 0;
    plataforma::recorrerArbol(ruta, [&](const plataforma::EntradaArbol& e) {
        // A folder counts once, on the way in; one that can't be read still
        // has its own blocks, as du counts them.
        if (e.tipo != plataforma::TipoEntrada::finCarpeta && e.tipo != plataforma::TipoEntrada::ilegible)
            suma += int64_t(e.st.st_blocks) * unidadBloque;
        return plataforma::Paso::seguir;
    });
    return suma;
}

int64_t tamanoPropio(const fs::path& ruta)
{
    struct stat st;
    if (::lstat(ruta.c_str(), &st) != 0)
        return 0;
    return int64_t(st.st_blocks) * unidadBloque;
}

namespace {

struct Trabajo {
    size_t indice;
    fs::path ruta;
    bool soloPropio;
};

// Direct children of a directory, hidden ones included; empty if it can't be listed.
std::vector<fs::path> hijosDe(const fs::path& dir)
{
    std::vector<fs::path> r;
    DIR* d = ::opendir(dir.c_str());
    if (d == nullptr)
        return r;
    while (const dirent* e = ::readdir(d)) {
        if (std::strcmp(e->d_name, ".") == 0 || std::strcmp(e->d_name, "..") == 0)
            continue;
        r.push_back(dir / e->d_name);
    }
    ::closedir(d);
    return r;
}

} // namespace

std::vector<int64_t> medirEnParalelo(const std::vector<std::vector<fs::path>>& listas,
                                     const std::function<void(int)>& progreso)
{
    std::vector<Trabajo> trabajos;
    for (size_t i = 0; i < listas.size(); ++i)
        for (const fs::path& u : listas[i]) {
            struct stat st;
            std::vector<fs::path> hijos;
            if (::lstat(u.c_str(), &st) == 0 && S_ISDIR(st.st_mode))
                hijos = hijosDe(u);
            if (hijos.empty()) {
                trabajos.push_back({i, u, false});
                continue;
            }
            // The directory's own blocks plus each child's tree add up to its tree.
            trabajos.push_back({i, u, true});
            for (auto& h : hijos)
                trabajos.push_back({i, std::move(h), false});
        }

    std::vector<int64_t> sumas(listas.size(), 0);
    std::mutex cerrojo;
    size_t hechos = 0;
    const size_t total = std::max<size_t>(trabajos.size(), 1);
    enParalelo(trabajos.size(), [&](size_t k) {
        const Trabajo& t = trabajos[k];
        const int64_t tam = t.soloPropio ? tamanoPropio(t.ruta) : tamanoEnDisco(t.ruta);
        size_t n;
        {
            std::lock_guard g(cerrojo);
            sumas[t.indice] += tam;
            n = ++hechos;
        }
        if (progreso && n % 200 == 0)
            progreso(int(n * 100 / total));
    });
    return sumas;
}
