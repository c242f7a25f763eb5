// SPDX-License-Identifier: GPL-3.0-or-later
#include "pantallas/rotulos_qml.h"

#include "nucleo/formato.h"
#include "nucleo/textos.h"
#include "pantallas/grafico.h"
#include "pantallas/rotulos.h"

#include <QDateTime>
#include <QVariantMap>

namespace {

// The names inside these texts reach here already shown as text
// (textoVisible, where the state hands them over); the texts' own line
// breaks, which separate the question's paragraphs, must stay breaks.
QString q(const std::string& texto)
{
    return QString::fromStdString(texto);
}

} // namespace

Rotulos* Rotulos::create(QQmlEngine*, QJSEngine*)
{
    return new Rotulos();
}

QVariantList Rotulos::secciones() const
{
    QVariantList r;
    for (const Seccion s : todasLasSecciones)
        r.append(QVariantMap{{QStringLiteral("valor"), q(valor(s))},
                             {QStringLiteral("titulo"), q(titulo(s))},
                             {QStringLiteral("icono"), q(icono(s))}});
    return r;
}

QString Rotulos::bytes(qint64 n) const
{
    return q(formatoBytes(n));
}

QString Rotulos::gigasCortos(qint64 n) const
{
    return q(::gigasCortos(n));
}

QString Rotulos::conBytes(const QString& texto, qint64 n) const
{
    return q(rellenar(texto.toStdString(), {{"bytes", formatoBytes(n)}}));
}

QString Rotulos::tituloConfirmacion(qint64 seleccionado) const
{
    return q(rotulos::tituloConfirmacion(seleccionado));
}

QString Rotulos::mensajeConfirmacion(qint64 aBorrar, qint64 aPapelera, const QStringList& apps) const
{
    std::vector<std::string> nombres;
    for (const QString& a : apps)
        nombres.push_back(a.toStdString());
    return q(rotulos::mensajeConfirmacion(aBorrar, aPapelera, nombres));
}

QString Rotulos::lineaResultado(qint64 borrado, qint64 enPapelera) const
{
    return q(rotulos::lineaResultado(borrado, enPapelera));
}

QString Rotulos::lineaEspacio(qint64 libreAntes, qint64 libreAhora) const
{
    return q(rotulos::lineaEspacio(libreAntes, libreAhora));
}

QString Rotulos::avisos(int n) const
{
    return q(rotulos::avisos(n));
}

QString Rotulos::lineaPapelera(qint64 enPapelera) const
{
    return q(rotulos::lineaPapelera(enPapelera));
}

QString Rotulos::elementos(int n) const
{
    return q(rotulos::elementos(n));
}

QString Rotulos::libresDe(qint64 libre, qint64 total) const
{
    return q(rotulos::libresDe(libre, total));
}

QString Rotulos::estadoTarjeta(qint64 tamanoSeleccionado, bool todoEnUso) const
{
    return q(rotulos::estadoTarjeta(tamanoSeleccionado, todoEnUso));
}

int Rotulos::casoListo(const QVariant& resultado, qint64 seleccionado) const
{
    const QVariantMap r = resultado.toMap();
    return rotulos::casoListo(!r.isEmpty(), r.value(QStringLiteral("borrado")).toLongLong(),
                              r.value(QStringLiteral("enPapelera")).toLongLong(), seleccionado);
}

QVariantMap Rotulos::grafico(const QVariantList& porSemana) const
{
    std::vector<BytesSemana> semanas;
    for (const QVariant& v : porSemana) {
        const QVariantMap m = v.toMap();
        const qint64 ms = m.value(QStringLiteral("inicio")).toDateTime().toMSecsSinceEpoch();
        semanas.push_back({Fecha(std::chrono::milliseconds(ms)), m.value(QStringLiteral("bytes")).toLongLong()});
    }
    const Grafico g = graficoSemanas(semanas, localeApp());
    QVariantList barras, marcas, fechas;
    for (const double b : g.barras)
        barras.append(b);
    for (const MarcaEje& m : g.marcas)
        marcas.append(QVariantMap{{QStringLiteral("valor"), m.valor}, {QStringLiteral("texto"), q(m.texto)}});
    for (const std::string& f : g.fechas)
        fechas.append(q(f));
    return {{QStringLiteral("enGigas"), g.enGigas},
            {QStringLiteral("barras"), barras},
            {QStringLiteral("tope"), g.tope},
            {QStringLiteral("marcas"), marcas},
            {QStringLiteral("fechas"), fechas}};
}
