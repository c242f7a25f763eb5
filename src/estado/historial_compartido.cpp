// SPDX-License-Identifier: GPL-3.0-or-later
#include "estado/historial_compartido.h"

#include <QDateTime>
#include <QJSEngine>
#include <QVariantMap>

namespace {

QDateTime aFecha(Fecha f)
{
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(f.time_since_epoch()).count();
    return QDateTime::fromMSecsSinceEpoch(ms);
}

} // namespace

HistorialCompartido::HistorialCompartido(Historial historial) : historial_(std::move(historial)) {}

HistorialCompartido& HistorialCompartido::shared()
{
    // Never destroyed: observers may ask until the very end.
    static auto* h = new HistorialCompartido(Historial(Historial::archivoDe(Entorno::actual())));
    return *h;
}

HistorialCompartido* HistorialCompartido::create(QQmlEngine*, QJSEngine*)
{
    QJSEngine::setObjectOwnership(&shared(), QJSEngine::CppOwnership);
    return &shared();
}

void HistorialCompartido::anotar(const Resultado& resultado, const std::string& tipo)
{
    if (historial_.anotar(resultado, tipo))
        Q_EMIT registrosChanged();
}

QVariantList HistorialCompartido::registrosLista() const
{
    QVariantList r;
    for (const Registro& e : historial_.registros())
        r.append(QVariantMap{{QStringLiteral("fecha"), aFecha(e.fecha)},
                             {QStringLiteral("borrado"), qint64(e.borrado)},
                             {QStringLiteral("papelera"), qint64(e.papelera)},
                             {QStringLiteral("tipo"), QString::fromStdString(e.tipo)},
                             {QStringLiteral("total"), qint64(e.total())}});
    return r;
}

QVariantList HistorialCompartido::porSemanaLista() const
{
    QVariantList r;
    for (const BytesSemana& s : historial_.porSemana())
        r.append(QVariantMap{{QStringLiteral("inicio"), aFecha(s.inicio)}, {QStringLiteral("bytes"), qint64(s.bytes)}});
    return r;
}
