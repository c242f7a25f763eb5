// SPDX-License-Identifier: GPL-3.0-or-later
#include "nucleo/formato.h"

#include "nucleo/textos.h"

#include <QLocale>
#include <QString>

#include <unicode/calendar.h>
#include <unicode/locid.h>
#include <unicode/reldatefmt.h>

#include <cmath>
#include <cstdio>
#include <memory>

namespace {

struct Unidad {
    const char* nombre;
    double divisor;
    int decimales;
};

constexpr Unidad unidades[] = {
    {"KB", 1e3, 0},
    {"MB", 1e6, 1},
    {"GB", 1e9, 2},
    {"TB", 1e12, 2},
};

} // namespace

std::string formatoBytes(int64_t n)
{
    static const std::string separador = QString(QLocale::system().decimalPoint()).toStdString();
    return formatoBytes(n, separador);
}

std::string formatoBytes(int64_t n, std::string_view separadorDecimal)
{
    const bool negativo = n < 0;
    const double magnitud = std::fabs(double(n));

    // Take the unit in which the rounded figure stays below 1000, so that
    // 999,999 bytes read "1 MB" and not "1000 KB".
    size_t u = 0;
    double escalado = 0;
    for (;; ++u) {
        const double factor = std::pow(10.0, unidades[u].decimales);
        escalado = std::round(magnitud / unidades[u].divisor * factor) / factor;
        if (escalado < 1000 || u + 1 == std::size(unidades))
            break;
    }

    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*f", unidades[u].decimales, escalado);
    std::string cifra = buf;
    if (const size_t punto = cifra.find('.'); punto != std::string::npos) {
        while (cifra.back() == '0')
            cifra.pop_back();
        if (cifra.back() == '.')
            cifra.pop_back();
        else
            cifra.replace(punto, 1, separadorDecimal);
    }
    if (negativo && cifra != "0")
        cifra = "-" + cifra;
    return cifra + " " + unidades[u].nombre;
}

std::string haceCuanto(Fecha fecha)
{
    return haceCuanto(fecha, std::chrono::system_clock::now(), localeApp());
}

std::string haceCuanto(Fecha fecha, Fecha ahora, const std::string& locale)
{
    using namespace std::chrono;
    const Fecha desde = std::min(fecha, ahora);
    const icu::Locale loc(locale.c_str());
    UErrorCode st = U_ZERO_ERROR;

    // Count whole calendar units from the date up to now, largest first; each
    // difference moves the calendar on, so the smaller units see the rest.
    std::unique_ptr<icu::Calendar> cal(icu::Calendar::createInstance(loc, st));
    if (U_FAILURE(st))
        return {};
    const auto ms = [](Fecha f) { return double(duration_cast<milliseconds>(f.time_since_epoch()).count()); };
    cal->setTime(ms(desde), st);
    const UDate hasta = ms(ahora);
    const int32_t anos = cal->fieldDifference(hasta, UCAL_YEAR, st);
    const int32_t meses = cal->fieldDifference(hasta, UCAL_MONTH, st);
    const int32_t dias = cal->fieldDifference(hasta, UCAL_DATE, st);
    const int32_t horas = cal->fieldDifference(hasta, UCAL_HOUR_OF_DAY, st);
    const int32_t minutos = cal->fieldDifference(hasta, UCAL_MINUTE, st);
    const int32_t segundos = cal->fieldDifference(hasta, UCAL_SECOND, st);
    if (U_FAILURE(st))
        return {};

    URelativeDateTimeUnit unidad = UDAT_REL_UNIT_SECOND;
    int32_t cuenta = segundos;
    if (anos > 0) {
        unidad = UDAT_REL_UNIT_YEAR, cuenta = anos;
    } else if (meses > 0) {
        unidad = UDAT_REL_UNIT_MONTH, cuenta = meses;
    } else if (dias >= 7) {
        unidad = UDAT_REL_UNIT_WEEK, cuenta = dias / 7;
    } else if (dias > 0) {
        unidad = UDAT_REL_UNIT_DAY, cuenta = dias;
    } else if (horas > 0) {
        unidad = UDAT_REL_UNIT_HOUR, cuenta = horas;
    } else if (minutos > 0) {
        unidad = UDAT_REL_UNIT_MINUTE, cuenta = minutos;
    }

    // The named style gives "ayer" for one day back and "ahora" for zero seconds.
    icu::RelativeDateTimeFormatter fmt(loc, nullptr, UDAT_STYLE_LONG, UDISPCTX_CAPITALIZATION_NONE, st);
    icu::UnicodeString texto;
    fmt.format(-double(cuenta), unidad, texto, st);
    if (U_FAILURE(st))
        return {};
    std::string r;
    texto.toUTF8String(r);
    return r;
}

std::string gigasCortos(int64_t n)
{
    // std::llround rounds halves away from zero.
    return std::to_string(std::llround(double(n) / 1e9)) + " GB";
}

PartesGigas partesGigas(int64_t n)
{
    const std::string t = gigasCortos(n);
    PartesGigas p;
    size_t i = 0;
    auto siguiente = [&]() {
        while (i < t.size() && t[i] == ' ')
            ++i;
        const size_t inicio = i;
        while (i < t.size() && t[i] != ' ')
            ++i;
        return t.substr(inicio, i - inicio);
    };
    p.numero = siguiente();
    p.unidad = siguiente();
    return p;
}
