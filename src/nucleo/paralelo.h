// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <memory>

// A blocking parallel loop: calls f(i) for every i in [0, n) on as many
// threads as the machine offers, and returns when all calls have ended.
// f must be safe to call concurrently; it is never called with a lock held.
void enParalelo(size_t n, const std::function<void(size_t)>& f);

// Jobs that may launch more jobs, on the same threads as enParalelo. lanzar is
// safe from any thread, from inside a running job too; esperar returns when
// every job launched before or during the wait has ended.
class Tareas {
public:
    Tareas();
    ~Tareas(); // waits
    Tareas(const Tareas&) = delete;
    Tareas& operator=(const Tareas&) = delete;

    void lanzar(std::function<void()> f);
    void esperar();

private:
    struct Grupo;
    std::unique_ptr<Grupo> grupo_;
};
