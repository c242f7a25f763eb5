// SPDX-License-Identifier: GPL-3.0-or-later
#include "pantallas/grafico.h"

#include <unicode/dtptngen.h>
#include <unicode/smpdtfmt.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>

namespace {

// A round step that cuts the axis into about three parts: 1, 2 or 5 times a
// power of ten, never finer than the unit's labels can show.
double paso(double maximo, double minimo)
{
    const double bruto = std::max(maximo / 3, minimo);
    const double potencia = std::pow(10.0, std::floor(std::log10(bruto)));
    for (const double m : {1.0, 2.0, 5.0})
        if (m * potencia >= bruto)
            return std::max(m * potencia, minimo);
    return std::max(10 * potencia, minimo);
}

std::string fechaCorta(Fecha f, const std::string& locale)
{
    UErrorCode st = U_ZERO_ERROR;
    const icu::Locale loc(locale.c_str());
    std::unique_ptr<icu::DateTimePatternGenerator> gen(icu::DateTimePatternGenerator::createInstance(loc, st));
    if (U_FAILURE(st))
        return {};
    const icu::UnicodeString patron = gen->getBestPattern(icu::UnicodeString("dMMM"), st);
    icu::SimpleDateFormat formato(patron, loc, st);
    if (U_FAILURE(st))
        return {};
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(f.time_since_epoch()).count();
    icu::UnicodeString texto;
    formato.format(UDate(ms), texto);
    std::string r;
    return texto.toUTF8String(r);
}

} // namespace

Grafico graficoSemanas(const std::vector<BytesSemana>& semanas, const std::string& locale)
{
    Grafico g;
    int64_t maximo = 0;
    for (const BytesSemana& s : semanas)
        maximo = std::max(maximo, s.bytes);
    g.enGigas = !semanas.empty() && maximo > 999'999'999;
    const double divisor = g.enGigas ? 1e9 : 1e6;
    for (const BytesSemana& s : semanas)
        g.barras.push_back(double(s.bytes) / divisor);

    const double alto = double(maximo) / divisor;
    const double p = paso(alto, g.enGigas ? 0.1 : 1.0);
    g.tope = std::max(p, std::ceil(alto / p - 1e-9) * p);
    for (int i = 0; i * p <= g.tope + p / 1000; ++i) {
        char texto[48];
        std::snprintf(texto, sizeof texto, g.enGigas ? "%.1f GB" : "%.0f MB", i * p);
        g.marcas.push_back({i * p, texto});
    }
    for (size_t i = 0; i < semanas.size(); ++i)
        g.fechas.push_back(i % 2 == 0 ? fechaCorta(semanas[i].inicio, locale) : std::string());
    return g;
}
