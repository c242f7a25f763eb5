// SPDX-License-Identifier: GPL-3.0-or-later
#include "estado/avisos.h"

#include "estado/navegacion.h"
#include "nucleo/entorno.h"
#include "nucleo/textos.h"

#include <QDateTime>
#include <QJSEngine>
#include <QTimer>

#include <charconv>
#include <cstdlib>
#include <string_view>

using namespace std::chrono;

namespace {

constexpr const char* clave = "poco-espacio";

// A whole decimal number with an optional sign, and nothing else.
std::optional<int64_t> leerEntero(std::string_view s)
{
    if (s.size() > 1 && s[0] == '+' && s[1] != '-')
        s.remove_prefix(1);
    int64_t v = 0;
    const auto [fin, error] = std::from_chars(s.data(), s.data() + s.size(), v);
    if (s.empty() || error != std::errc() || fin != s.data() + s.size())
        return std::nullopt;
    return v;
}

// Dates are stored as UTC text with milliseconds, which reads back exactly.
QString aTexto(Fecha f)
{
    return QDateTime::fromMSecsSinceEpoch(duration_cast<milliseconds>(f.time_since_epoch()).count(), Qt::UTC)
        .toString(Qt::ISODateWithMs);
}

std::optional<Fecha> desdeTexto(const QString& s)
{
    const QDateTime d = QDateTime::fromString(s, Qt::ISODateWithMs);
    if (!d.isValid())
        return std::nullopt;
    return Fecha(milliseconds(d.toMSecsSinceEpoch()));
}

} // namespace

Avisos::Avisos(Preferencias& preferencias, std::function<Fecha()> ahora, QObject* padre)
    : QObject(padre), preferencias_(preferencias), ahora_(std::move(ahora))
{
    if (!ahora_)
        ahora_ = [] { return system_clock::now(); };
    connect(&preferencias_, &Preferencias::avisoGBChanged, this, &Avisos::limiteGBChanged);
    connect(&notificaciones_, &plataforma::Notificaciones::activada, this, [](const QString&) {
        // Queued, so that the desktop's call returns before the window shows.
        QTimer::singleShot(0, [] {
            if (Ventana::abrir)
                Ventana::abrir();
        });
    });
}

Avisos& Avisos::shared()
{
    static auto* a = new Avisos(Preferencias::shared());
    return *a;
}

Avisos* Avisos::create(QQmlEngine*, QJSEngine*)
{
    QJSEngine::setObjectOwnership(&shared(), QJSEngine::CppOwnership);
    return &shared();
}

void Avisos::configurar()
{
    notificaciones_.escuchar();
}

int64_t Avisos::limiteGB() const
{
    if (Entorno::actual().prueba)
        if (const char* v = std::getenv("VORLANO_AVISO_GB"); v != nullptr)
            if (const auto n = leerEntero(v))
                return *n;
    return preferencias_.entero(Preferencias::claveAvisoGB).value_or(0);
}

void Avisos::revisar(int64_t libre)
{
    const int64_t gb = limiteGB();
    if (gb < 1 || libre < 1)
        return;
    // A limit beyond any disk is as good as infinite.
    const int64_t limite = gb > INT64_MAX / 1'000'000'000 - 2 ? INT64_MAX - margen : gb * 1'000'000'000;
    if (libre > limite + margen) {
        preferencias_.poner(claveArmado, true);
        return;
    }
    if (libre >= limite)
        return;
    if (preferencias_.booleano(claveArmado) == false)
        return;
    const Fecha ahora = ahora_();
    if (const auto t = preferencias_.texto(claveUltimo))
        if (const auto ultimo = desdeTexto(*t); ultimo && ahora - *ultimo < seconds(86'400))
            return;
    // Decided before it is sent: a notice that doesn't arrive still counts.
    preferencias_.poner(claveArmado, false);
    preferencias_.poner(claveUltimo, aTexto(ahora));
    enviar(libre);
}

void Avisos::enviar(int64_t libre)
{
    notificaciones_.mostrar(clave, ::tr("Te queda poco espacio"),
                            rellenar(::tr("Quedan {bytes} libres. Abre Vorlano para ver qué se puede limpiar."),
                                     {{"bytes", formatoBytes(libre)}}));
}
