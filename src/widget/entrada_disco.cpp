// SPDX-License-Identifier: GPL-3.0-or-later
#include "widget/entrada_disco.h"

#include "nucleo/textos.h"
#include "plataforma/sistema.h"

#include <QDateTime>
#include <QLocale>

#include <chrono>
#include <cmath>

double EntradaDisco::usado() const
{
    return total < 1 ? 0 : double(total - libre) / double(total);
}

bool EntradaDisco::poco() const
{
    return total >= 1 && usado() >= 0.9;
}

EntradaDisco EntradaDisco::actual()
{
    const auto disco = plataforma::espacioDisco(plataforma::carpetaPersonalReal());
    return {std::chrono::system_clock::now(), disco.libre, disco.total};
}

const EntradaDisco& EntradaDisco::ejemplo()
{
    static const EntradaDisco e{std::chrono::system_clock::now(), 46'000'000'000, 245'000'000'000};
    return e;
}

std::string EntradaDisco::lineaEstado() const
{
    if (poco())
        return tr("Queda poco espacio");
    return rellenar(tr("{n} % usado · de {total}"),
                    {{"n", std::to_string(std::llround(usado() * 100))}, {"total", gigasCortos(total)}});
}

std::string EntradaDisco::deTotal() const
{
    return rellenar(tr("de {total}"), {{"total", gigasCortos(total)}});
}

std::string EntradaDisco::hora() const
{
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(date.time_since_epoch()).count();
    // Hours and minutes: some locales' short format carries the seconds too.
    QString formato = QLocale().timeFormat(QLocale::ShortFormat);
    formato.remove(QStringLiteral(":ss")).remove(QStringLiteral(".ss"));
    return QLocale().toString(QDateTime::fromMSecsSinceEpoch(ms).time(), formato).toStdString();
}

QString EntradaDisco::lineaEstadoQml() const
{
    return QString::fromStdString(lineaEstado());
}

QString EntradaDisco::deTotalQml() const
{
    return QString::fromStdString(deTotal());
}

QString EntradaDisco::horaQml() const
{
    return QString::fromStdString(hora());
}

QString EntradaDisco::libreTextoQml() const
{
    return QString::fromStdString(formatoBytes(libre));
}

Familia familiaDe(std::string_view nombre)
{
    if (nombre == "mediano")
        return Familia::mediano;
    if (nombre == "grande")
        return Familia::grande;
    return Familia::chico;
}

std::string_view nombre(Familia f)
{
    switch (f) {
    case Familia::mediano:
        return "mediano";
    case Familia::grande:
        return "grande";
    default:
        return "chico";
    }
}

Puntos tamano(Familia f)
{
    switch (f) {
    case Familia::mediano:
        return {364, 170};
    case Familia::grande:
        return {364, 382};
    default:
        return {170, 170};
    }
}
