// SPDX-License-Identifier: GPL-3.0-or-later
#include "pantallas/vista_ajustes.h"

#include "nucleo/textos.h"
#include "plataforma/sistema.h"

#include <QGuiApplication>
#include <QUrlQuery>
#include <QVariantMap>

#include <array>

namespace {

// The product's addresses, in one place.
constexpr const char* direccionSitio = "https://vorlano.app";
constexpr const char* direccionComentarios = "comentarios@vorlano.app";

constexpr std::array<int, 4> limitesAviso{0, 10, 20, 50};

} // namespace

VistaAjustes::VistaAjustes(QObject* padre) : QObject(padre)
{
    const auto como = plataforma::comoDarAccesoTotal();
    paginaAcceso_ = QUrl(QString::fromStdString(como.pagina));
    ordenAcceso_ = QString::fromStdString(como.orden);
    revisarAcceso();
    if (auto* app = qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        connect(app, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState s) {
            if (s == Qt::ApplicationActive)
                revisarAcceso();
        });
}

QString VistaAjustes::version()
{
    const QString v = QStringLiteral(VORLANO_VERSION);
    return v.isEmpty() ? QStringLiteral("—") : v;
}

QUrl VistaAjustes::sitio()
{
    return QUrl(QLatin1String(direccionSitio));
}

QUrl VistaAjustes::comentarios()
{
    QUrl u(QStringLiteral("mailto:") + QLatin1String(direccionComentarios));
    QUrlQuery consulta;
    consulta.addQueryItem(QStringLiteral("subject"), QStringLiteral("Vorlano"));
    u.setQuery(consulta);
    return u;
}

QVariantList VistaAjustes::opcionesAviso()
{
    QVariantList r;
    for (const int gb : limitesAviso)
        r.append(QVariantMap{{QStringLiteral("etiqueta"), gb == 0 ? QString::fromStdString(plataforma::tr("Nunca"))
                                                                  : QStringLiteral("%1 GB").arg(gb)},
                             {QStringLiteral("valor"), gb}});
    return r;
}

int VistaAjustes::indiceAviso(int gb)
{
    // 0 or less is off.
    if (gb <= 0)
        return 0;
    for (size_t i = 0; i < limitesAviso.size(); ++i)
        if (limitesAviso[i] == gb)
            return int(i);
    return -1;
}

void VistaAjustes::revisarAcceso()
{
    const bool a = plataforma::tieneAccesoTotal();
    if (a == accesoTotal_)
        return;
    accesoTotal_ = a;
    Q_EMIT accesoTotalChanged();
}
