// SPDX-License-Identifier: GPL-3.0-or-later
#include "limpieza/historial.h"

#include "plataforma/calendario.h"
#include "plataforma/escritura.h"
#include "plataforma/lectura.h"

#include <nlohmann/json.hpp>
#include <unicode/calendar.h>
#include <unicode/locid.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <cmath>
#include <limits>
#include <memory>

namespace fs = std::filesystem;
using namespace std::chrono;

namespace {

// Dates are stored as seconds since 2001-01-01T00:00:00Z, with fraction.
constexpr seconds origen{978'307'200};
// A file larger than this can't be a history of 500 entries.
constexpr size_t tamanoMaximo = 8 << 20;

// Sums of byte counts saturate at the ends of the range instead of
// overflowing: a damaged file may hold any figures.
int64_t sumar(int64_t a, int64_t b)
{
    int64_t r;
    if (__builtin_add_overflow(a, b, &r))
        return a > 0 ? std::numeric_limits<int64_t>::max() : std::numeric_limits<int64_t>::min();
    return r;
}

// Microseconds survive the trip through a double of this range exactly, so
// an entry reads back as it was written.
Fecha alMicrosegundo(Fecha f)
{
    return Fecha(duration_cast<microseconds>(f.time_since_epoch()));
}

double segundosDesdeOrigen(Fecha f)
{
    const auto us = duration_cast<microseconds>(f.time_since_epoch() - origen).count();
    return double(us) / 1e6;
}

std::optional<Fecha> desdeOrigen(double s)
{
    // About 250 years either way: the clock counts nanoseconds since 1970 in
    // 64 bits, which ends in 2262.
    if (!std::isfinite(s) || std::fabs(s) > 8e9)
        return std::nullopt;
    return Fecha(origen + microseconds(std::llround(s * 1e6)));
}

std::string codificar(const std::vector<Registro>& registros)
{
    nlohmann::ordered_json lista = nlohmann::ordered_json::array();
    for (const Registro& r : registros)
        lista.push_back({{"fecha", segundosDesdeOrigen(r.fecha)},
                         {"borrado", r.borrado},
                         {"papelera", r.papelera},
                         {"tipo", r.tipo}});
    return lista.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

std::optional<int64_t> entero(const nlohmann::json& v)
{
    if (v.is_number_unsigned()) {
        const auto u = v.get<uint64_t>();
        if (u > uint64_t(INT64_MAX))
            return std::nullopt;
        return int64_t(u);
    }
    if (v.is_number_integer())
        return v.get<int64_t>();
    // Another writer may put a whole count as 1048576.0.
    if (v.is_number_float()) {
        const double d = v.get<double>();
        if (d == std::trunc(d) && d >= -0x1p63 && d < 0x1p63)
            return int64_t(d);
    }
    return std::nullopt;
}

// The list of a file's content; absent if any part of it is damaged.
std::optional<std::vector<Registro>> decodificar(const std::string& texto)
{
    const auto lista = nlohmann::json::parse(texto, nullptr, false);
    if (!lista.is_array())
        return std::nullopt;
    std::vector<Registro> r;
    r.reserve(lista.size());
    for (const auto& o : lista) {
        if (!o.is_object())
            return std::nullopt;
        const auto fecha = o.find("fecha");
        const auto borrado = o.find("borrado");
        const auto papelera = o.find("papelera");
        const auto tipo = o.find("tipo");
        if (fecha == o.end() || borrado == o.end() || papelera == o.end() || tipo == o.end() ||
            !fecha->is_number() || !tipo->is_string())
            return std::nullopt;
        const auto f = desdeOrigen(fecha->get<double>());
        const auto b = entero(*borrado);
        const auto p = entero(*papelera);
        if (!f || !b || !p)
            return std::nullopt;
        r.push_back({*f, *b, *p, tipo->get<std::string>()});
    }
    return r;
}

UDate aUDate(Fecha f)
{
    return double(duration_cast<microseconds>(f.time_since_epoch()).count()) / 1000.0;
}

Fecha desdeUDate(UDate d)
{
    return Fecha(microseconds(std::llround(d * 1000.0)));
}

std::unique_ptr<icu::Calendar> crearCalendario(const Calendario& c)
{
    const std::string locale = c.locale.empty() ? plataforma::localeDeFechas() : c.locale;
    icu::TimeZone* zona = c.zona.empty() ? icu::TimeZone::createDefault()
                                         : icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(c.zona));
    UErrorCode e = U_ZERO_ERROR;
    // The calendar adopts the zone.
    std::unique_ptr<icu::Calendar> cal(icu::Calendar::createInstance(zona, icu::Locale(locale.c_str()), e));
    if (U_FAILURE(e))
        return nullptr;
    return cal;
}

} // namespace

int64_t Registro::total() const
{
    return sumar(borrado, papelera);
}

Historial::Historial(fs::path archivo, std::function<Fecha()> ahora, Calendario calendario)
    : archivo_(std::move(archivo)), ahora_(std::move(ahora)), calendario_(std::move(calendario))
{
    if (!ahora_)
        ahora_ = [] { return system_clock::now(); };
    // Opened without waiting, links not followed: a FIFO or a link put in
    // its place is no history.
    if (const auto texto = plataforma::leerArchivo(archivo_, tamanoMaximo))
        if (auto lista = decodificar(*texto))
            registros_ = std::move(*lista);
}

fs::path Historial::archivoDe(const Entorno& entorno)
{
    return entorno.ruta("Library/Application Support/Vorlano/historial.json");
}

bool Historial::anotar(const Resultado& resultado, const std::string& tipo)
{
    if (sumar(resultado.borrado, resultado.enPapelera) < 1)
        return false;
    registros_.push_back({alMicrosegundo(ahora_()), resultado.borrado, resultado.enPapelera, tipo});
    if (registros_.size() > maximo)
        registros_.erase(registros_.begin(), registros_.end() - maximo);
    std::error_code ec;
    fs::create_directories(archivo_.parent_path(), ec);
    plataforma::escribirAtomico(archivo_, codificar(registros_));
    return true;
}

int64_t Historial::total() const
{
    int64_t suma = 0;
    for (const Registro& r : registros_)
        suma = sumar(suma, r.total());
    return suma;
}

int64_t Historial::esteMes() const
{
    const auto cal = crearCalendario(calendario_);
    if (!cal)
        return 0;
    UErrorCode e = U_ZERO_ERROR;
    auto mes = [&](Fecha f) {
        cal->setTime(aUDate(f), e);
        return std::pair(cal->get(UCAL_EXTENDED_YEAR, e), cal->get(UCAL_MONTH, e));
    };
    const auto actual = mes(ahora_());
    int64_t suma = 0;
    for (const Registro& r : registros_)
        if (mes(r.fecha) == actual)
            suma = sumar(suma, r.total());
    return U_SUCCESS(e) ? suma : 0;
}

std::vector<BytesSemana> Historial::porSemana() const
{
    std::vector<BytesSemana> semanas;
    const auto cal = crearCalendario(calendario_);
    if (!cal)
        return semanas;
    // The start of the current week: back to its first weekday, then midnight.
    UErrorCode e = U_ZERO_ERROR;
    cal->setTime(aUDate(ahora_()), e);
    const int atras = (cal->get(UCAL_DAY_OF_WEEK, e) - cal->getFirstDayOfWeek(e) + 7) % 7;
    cal->add(UCAL_DATE, -atras, e);
    for (auto campo : {UCAL_HOUR_OF_DAY, UCAL_MINUTE, UCAL_SECOND, UCAL_MILLISECOND})
        cal->set(campo, 0);
    const UDate base = cal->getTime(e);
    if (U_FAILURE(e))
        return semanas;
    for (int desplazamiento = -7; desplazamiento <= 0; ++desplazamiento) {
        // Calendar weeks, not 7 * 24 hours: a week with a daylight-saving
        // change is an hour shorter or longer.
        UErrorCode ew = U_ZERO_ERROR;
        cal->setTime(base, ew);
        cal->add(UCAL_WEEK_OF_YEAR, desplazamiento, ew);
        const UDate inicio = cal->getTime(ew);
        cal->add(UCAL_WEEK_OF_YEAR, 1, ew);
        const UDate fin = cal->getTime(ew);
        if (U_FAILURE(ew))
            continue;
        const Fecha desde = desdeUDate(inicio);
        const Fecha hasta = desdeUDate(fin);
        int64_t bytes = 0;
        for (const Registro& r : registros_)
            if (desde <= r.fecha && r.fecha < hasta)
                bytes = sumar(bytes, r.total());
        semanas.push_back({desde, bytes});
    }
    return semanas;
}
