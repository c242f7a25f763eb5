// SPDX-License-Identifier: GPL-3.0-or-later
#include "nucleo/paralelo.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/task_group.h>

void enParalelo(size_t n, const std::function<void(size_t)>& f)
{
    if (n == 0)
        return;
    // Grain 1: jobs vary from one file to a whole tree, so let TBB steal work
    // item by item rather than hand out fixed chunks.
    tbb::parallel_for(
        tbb::blocked_range<size_t>(0, n, 1),
        [&](const tbb::blocked_range<size_t>& r) {
            for (size_t i = r.begin(); i != r.end(); ++i)
                f(i);
        },
        tbb::simple_partitioner());
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
    grupo_->grupo.run(std::move(f));
}

void Tareas::esperar()
{
    grupo_->grupo.wait();
}
