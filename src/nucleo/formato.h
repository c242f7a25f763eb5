// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

using Fecha = std::chrono::system_clock::time_point;

// Byte count as text in decimal units KB, MB, GB or TB only: "0 KB", "512 KB",
// "1,5 MB", "2,25 GB". KB has no decimals, MB one, GB and TB two; trailing
// zeros of the fraction are dropped. The decimal separator is the current
// locale's; the overload takes it for tests.
std::string formatoBytes(int64_t n);
std::string formatoBytes(int64_t n, std::string_view separadorDecimal);

// "hace 3 días", "ayer", "ahora" in localeApp(): the largest calendar unit whose
// count is at least 1. A date in the future reads as the present.
std::string haceCuanto(Fecha fecha);
std::string haceCuanto(Fecha fecha, Fecha ahora, const std::string& locale);

// Whole gigabytes, halves away from zero, no locale: "2 GB".
std::string gigasCortos(int64_t n);

struct PartesGigas {
    std::string numero;
    std::string unidad;
};
// gigasCortos split at the blank.
PartesGigas partesGigas(int64_t n);
