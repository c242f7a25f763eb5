// SPDX-License-Identifier: GPL-3.0-or-later
#include "widget/datos_widget.h"

#include "nucleo/formato.h"
#include "nucleo/modelo.h"
#include "nucleo/textos.h"
#include "widget/entrada_disco.h"

#include <QCoreApplication>
#include <QVariantMap>

namespace {

struct Control {
    Enlace enlace;
    const char* simbolo;
    const char* tinte;
    const char* titulo;
    const char* subtitulo;
};

constexpr Control botonesMediano[] = {
    {Enlace::analizar, "sparkle.magnifyingglass", "turquesa", QT_TRANSLATE_NOOP("Vorlano", "Analizar"), ""},
    {Enlace::mapa, "square.split.2x2.fill", "naranja", QT_TRANSLATE_NOOP("Vorlano", "Mapa"), ""},
    {Enlace::desinstalar, "xmark.app", "indigo", QT_TRANSLATE_NOOP("Vorlano", "Apps"), ""},
};

// The titles are looked up in the catalogue when the lists are built.
constexpr Control accesosGrande[] = {
    {Enlace::analizar, "sparkle.magnifyingglass", "turquesa", QT_TRANSLATE_NOOP("Vorlano", "Analizar"), QT_TRANSLATE_NOOP("Vorlano", "Buscar qué limpiar")},
    {Enlace::limpieza, "sparkles", "azul", QT_TRANSLATE_NOOP("Vorlano", "Limpieza"), QT_TRANSLATE_NOOP("Vorlano", "Revisar la lista")},
    {Enlace::mapa, "square.split.2x2.fill", "naranja", QT_TRANSLATE_NOOP("Vorlano", "Mapa del disco"), QT_TRANSLATE_NOOP("Vorlano", "Qué ocupa espacio")},
    {Enlace::desinstalar, "xmark.app", "indigo", QT_TRANSLATE_NOOP("Vorlano", "Desinstalar apps"), QT_TRANSLATE_NOOP("Vorlano", "Con todos sus restos")},
};

QString q(const std::string& s)
{
    return QString::fromStdString(s);
}

template <size_t N>
QVariantList lista(const Control (&controles)[N])
{
    QVariantList r;
    for (const Control& c : controles)
        r.append(QVariantMap{{QStringLiteral("url"), q(url(c.enlace))},
                             {QStringLiteral("simbolo"), QLatin1String(c.simbolo)},
                             {QStringLiteral("tinte"), QLatin1String(c.tinte)},
                             {QStringLiteral("titulo"), q(tr(c.titulo))},
                             {QStringLiteral("subtitulo"), *c.subtitulo ? q(tr(c.subtitulo)) : QString()}});
    return r;
}

} // namespace

DatosWidget* DatosWidget::create(QQmlEngine*, QJSEngine*)
{
    return new DatosWidget();
}

QString DatosWidget::urlResumen() const
{
    return q(url(Enlace::resumen));
}

QVariantList DatosWidget::botones() const
{
    return lista(botonesMediano);
}

QVariantList DatosWidget::accesos() const
{
    return lista(accesosGrande);
}

QString DatosWidget::familia(const QString& nombre) const
{
    return q(std::string(::nombre(familiaDe(nombre.toStdString()))));
}

QString DatosWidget::numeroGigas(qint64 bytes) const
{
    return q(partesGigas(bytes).numero);
}

QString DatosWidget::unidadGigas(qint64 bytes) const
{
    return q(partesGigas(bytes).unidad);
}
