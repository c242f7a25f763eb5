// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The two objects that worker threads share with the caller of a measurement.
// Each takes its lock for one read or write, never around file work.

#include <mutex>
#include <set>
#include <string>
#include <vector>

// A set of texts that many threads add to.
class ListaSegura {
public:
    void agregar(std::string texto);
    // The members, in the set's (ascending) order.
    std::vector<std::string> todos() const;

private:
    mutable std::mutex cerrojo;
    std::set<std::string> datos;
};

// A boolean written by one thread and read by others: the cancel flag.
class Bandera {
public:
    void poner(bool v);
    bool activa() const;

private:
    mutable std::mutex cerrojo;
    bool valor = false;
};
