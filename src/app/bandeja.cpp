// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/bandeja.h"

#include "estado/estado.h"
#include "estado/preferencias.h"
#include "nucleo/color.h"
#include "nucleo/formato.h"
#include "nucleo/textos.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace {

QString q(const std::string& s)
{
    return QString::fromStdString(s);
}

QColor color(const Color& c)
{
    return QColor::fromRgbF(float(c.rojo), float(c.verde), float(c.azul), float(c.opacidad));
}

} // namespace

Bandeja::Bandeja(Estado& estado, QObject* padre) : QObject(padre), estado_(estado)
{
    espacio_ = menu_.addAction(QString());
    espacio_->setEnabled(false);
    menu_.addSeparator();
    connect(menu_.addAction(q(::tr("Abrir Vorlano"))), &QAction::triggered, this, &Bandeja::abrirVentana);
    analizar_ = menu_.addAction(q(::tr("Analizar ahora")));
    connect(analizar_, &QAction::triggered, this, [this] {
        Q_EMIT abrirVentana();
        if (!estado_.estaTrabajando())
            estado_.analizar();
    });
    menu_.addSeparator();
    QAction* ajustes = menu_.addAction(q(::tr("Ajustes…")));
    ajustes->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    connect(ajustes, &QAction::triggered, this, &Bandeja::abrirAjustes);
    menu_.addSeparator();
    QAction* salir = menu_.addAction(q(::tr("Salir de Vorlano")));
    salir->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(salir, &QAction::triggered, this, &Bandeja::salir);

    icono_.setContextMenu(&menu_);
    connect(&icono_, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason r) {
        if (r == QSystemTrayIcon::Trigger)
            Q_EMIT abrirVentana();
    });
    connect(&estado_, &Estado::discoChanged, this, &Bandeja::actualizar);
    connect(&estado_, &Estado::faseChanged, this, &Bandeja::actualizar);
    connect(&Preferencias::shared(), &Preferencias::barraMenuChanged, this, &Bandeja::mostrarSegunAjuste);
    actualizar();
    mostrarSegunAjuste();
}

QIcon Bandeja::icono(int64_t libre)
{
    // The whole gigabytes in white on the brand's gradient, as large as fits.
    constexpr int lado = 64;
    QPixmap imagen(lado, lado);
    imagen.fill(Qt::transparent);
    QPainter p(&imagen);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient fondo(0, 0, lado, lado);
    fondo.setColorAt(0, color(Marca::degradado.inicio));
    fondo.setColorAt(1, color(Marca::degradado.fin));
    QPainterPath forma;
    forma.addRoundedRect(QRectF(0, 0, lado, lado), 14, 14);
    p.fillPath(forma, fondo);
    const QString numero = q(partesGigas(libre).numero);
    QFont letra = p.font();
    letra.setBold(true);
    letra.setPixelSize(numero.size() <= 2 ? 40 : numero.size() == 3 ? 30 : 22);
    p.setFont(letra);
    p.setPen(Qt::white);
    p.drawText(QRect(0, 0, lado, lado), Qt::AlignCenter, numero);
    p.end();
    return QIcon(imagen);
}

void Bandeja::actualizar()
{
    const auto disco = estado_.disco();
    espacio_->setText(q(rellenar(::tr("{libre} libres de {total}"),
                                 {{"libre", formatoBytes(disco.libre)}, {"total", formatoBytes(disco.total)}})));
    analizar_->setEnabled(!estado_.estaTrabajando());
    icono_.setIcon(icono(disco.libre));
    icono_.setToolTip(q(gigasCortos(disco.libre)));
}

void Bandeja::mostrarSegunAjuste()
{
    // Without a tray on this desktop there is nothing to show, and nothing to say.
    icono_.setVisible(Preferencias::shared().conBarraMenu() && QSystemTrayIcon::isSystemTrayAvailable());
}
