// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What each cleaning, uninstall or move to the Trash from the map freed: sizes,
// date and kind only, no paths. One list in memory mirrored in a small JSON file.

#include "nucleo/entorno.h"
#include "nucleo/formato.h"
#include "nucleo/modelo.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

struct Registro {
    Fecha fecha;
    int64_t borrado = 0;
    int64_t papelera = 0;
    // "limpieza", "desinstalacion" or "mapa".
    std::string tipo;

    // Two entries of one instant share it.
    Fecha id() const { return fecha; }
    // borrado + papelera, held at the ends of the range rather than overflowing.
    int64_t total() const;
    bool operator==(const Registro&) const = default;
};

struct BytesSemana {
    Fecha inicio;
    int64_t bytes = 0;
};

// How dates are grouped into weeks and months. Empty fields mean the user's
// own: the locale of their dates and the system's time zone.
struct Calendario {
    std::string locale; // ICU id, such as "es_ES" or "en_US"
    std::string zona;   // time-zone id, such as "Europe/Madrid"
};

class Historial {
public:
    static constexpr size_t maximo = 500;

    // Loads the file; one that is missing, unreadable or damaged in any way
    // gives an empty history and is left as it is until the next anotar.
    // `ahora` stands for the clock (the system's when empty).
    explicit Historial(std::filesystem::path archivo, std::function<Fecha()> ahora = {}, Calendario calendario = {});

    // Library/Application Support/Vorlano/historial.json under the home folder.
    static std::filesystem::path archivoDe(const Entorno& entorno);

    const std::vector<Registro>& registros() const { return registros_; }
    const std::filesystem::path& archivo() const { return archivo_; }

    // Records one operation that freed at least one byte, keeps the newest
    // `maximo` and writes the whole list back. False, with nothing changed,
    // for an operation that freed nothing. A failed write is not reported:
    // the list stays in memory and the next anotar writes it all again.
    bool anotar(const Resultado& resultado, const std::string& tipo);

    // Bytes of the entries in the current calendar month (of this year).
    int64_t esteMes() const;
    // Bytes of all entries kept.
    int64_t total() const;
    // The last 8 weeks, oldest first, the current one last; weeks begin on
    // the first weekday of the locale, and empty weeks count 0.
    std::vector<BytesSemana> porSemana() const;

private:
    std::filesystem::path archivo_;
    std::function<Fecha()> ahora_;
    Calendario calendario_;
    std::vector<Registro> registros_;
};
