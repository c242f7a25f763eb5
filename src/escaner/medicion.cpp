// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/medicion.h"

#include "plataforma/arbol.h"
#include "nucleo/paralelo.h"
#include "plataforma/bloques.h"

#include <algorithm>
#include <atomic>
#include <optional>

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

namespace {

// Lists that are still being added up have jobs pending; a notice each time
// the finished lists cross a whole percentage.
class Avance {
public:
    Avance(size_t total, const std::function<void(int)>& progreso) : total_(std::max<size_t>(total, 1)), progreso_(progreso) {}

    void terminada()
    {
        const size_t n = ++hechas_;
        if (progreso_ && n * 100 / total_ != (n - 1) * 100 / total_)
            progreso_(int(n * 100 / total_));
    }

private:
    const size_t total_;
    const std::function<void(int)>& progreso_;
    std::atomic<size_t> hechas_{0};
};

} // namespace

std::vector<int64_t> medirEnParalelo(const std::vector<std::vector<fs::path>>& listas,
                                     const std::function<void(int)>& progreso)
{
    // Each job lists one folder: its files are added up on the way, and
    // each sub-folder becomes a job of its own, so a large tree spreads
    // over the workers while a folder of files costs one job.
    std::vector<std::atomic<int64_t>> sumas(listas.size());
    std::vector<std::atomic<size_t>> pendientes(listas.size());
    Avance avance(listas.size(), progreso);
    Tareas tareas;
    const auto terminar = [&](size_t i) {
        if (--pendientes[i] == 0)
            avance.terminada();
    };
    std::function<void(size_t, plataforma::CarpetaPorSumar&)> sumar = [&](size_t i,
                                                                          plataforma::CarpetaPorSumar& c) {
        sumas[i] += plataforma::sumarCarpeta(c, [&](plataforma::CarpetaPorSumar&& sub) {
            ++pendientes[i];
            tareas.lanzar([&sumar, i, sub = std::move(sub)]() mutable { sumar(i, sub); });
        });
        terminar(i);
    };
    for (size_t i = 0; i < listas.size(); ++i) {
        // One pending job holds the list open while its roots are launched.
        pendientes[i] = listas[i].size() + 1;
        for (const fs::path& raiz : listas[i])
            tareas.lanzar([&, i] {
                std::optional<plataforma::CarpetaPorSumar> c;
                sumas[i] += plataforma::bloquesDeRaiz(raiz, c);
                if (c)
                    sumar(i, *c);
                else
                    terminar(i);
            });
        terminar(i);
    }
    tareas.esperar();
    return std::vector<int64_t>(sumas.begin(), sumas.end());
}
