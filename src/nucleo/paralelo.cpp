// SPDX-License-Identifier: GPL-3.0-or-later
#include "nucleo/paralelo.h"

#include "nucleo/entorno.h"

#include <tbb/blocked_range.h>
#include <tbb/global_control.h>
#include <tbb/info.h>
#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>
#include <tbb/task_group.h>

#include <algorithm>
#include <cstdlib>

namespace {

// Walks and measuring wait on the disk more than on the processor: with a
// cold cache a few walkers per core keep more reads in flight, and with a
// warm one the extra threads cost little (see bench/README.md for the
// figures). VORLANO_HILOS sets the number in test mode, for measuring.
int hilos()
{
    const int nucleos = std::max(1, tbb::info::default_concurrency());
    int n = std::max(8, nucleos);
    if (Entorno::actual().prueba)
        if (const char* v = std::getenv("VORLANO_HILOS"); v != nullptr) {
            char* fin = nullptr;
            const long pedido = std::strtol(v, &fin, 10);
            if (fin != v && *fin == '\0' && pedido >= 1 && pedido <= 256)
                n = int(pedido);
        }
    return n;
}

tbb::task_arena& arena()
{
    static const int n = hilos();
    // The default limit is the number of cores; the arena may have more.
    static tbb::global_control limite(tbb::global_control::max_allowed_parallelism, size_t(n));
    static tbb::task_arena a(n);
    return a;
}

} // namespace

void enParalelo(size_t n, const std::function<void(size_t)>& f)
{
    if (n == 0)
        return;
    // Grain 1: jobs vary from one file to a whole tree, so let TBB steal work
    // item by item rather than hand out fixed chunks.
    arena().execute([&] {
        tbb::parallel_for(
            tbb::blocked_range<size_t>(0, n, 1),
            [&](const tbb::blocked_range<size_t>& r) {
                for (size_t i = r.begin(); i != r.end(); ++i)
                    f(i);
            },
            tbb::simple_partitioner());
    });
}

struct Tareas::Grupo {
    tbb::task_group grupo;
};

Tareas::Tareas() : grupo_(std::make_unique<Grupo>()) {}

Tareas::~Tareas()
{
    esperar();
}

void Tareas::lanzar(std::function<void()> f)
{
    arena().execute([&] { grupo_->grupo.run(std::move(f)); });
}

void Tareas::esperar()
{
    arena().execute([&] { grupo_->grupo.wait(); });
}
