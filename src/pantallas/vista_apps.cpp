// SPDX-License-Identifier: GPL-3.0-or-later
#include "pantallas/vista_apps.h"

#include "nucleo/formato.h"
#include "nucleo/textos.h"
#include "pantallas/textos_apps.h"

namespace {

QString q(const std::string& s)
{
    return QString::fromStdString(s);
}

} // namespace

VistaApps::VistaApps(QObject* padre) : QObject(padre)
{
    filtro_.setFilterRole(ModeloApps::nombre);
    filtro_.setFilterCaseSensitivity(Qt::CaseInsensitive);
}

void VistaApps::ponerEstado(EstadoApps* e)
{
    if (e == estado_)
        return;
    if (estado_)
        disconnect(estado_, nullptr, this, nullptr);
    estado_ = e;
    filtro_.setSourceModel(e ? e->modeloApps() : nullptr);
    if (e) {
        for (auto senal : {&EstadoApps::elegidaChanged, &EstadoApps::resultadoChanged, &EstadoApps::buscandoRestosChanged})
            connect(e, senal, this, &VistaApps::alCambiar);
        connect(e->modeloRestos(), &ModeloElementos::seleccionCambiada, this, &VistaApps::alCambiar);
        connect(e->modeloRestos(), &QAbstractItemModel::modelReset, this, &VistaApps::alCambiar);
    }
    Q_EMIT estadoChanged();
    alCambiar();
}

void VistaApps::ponerBusqueda(const QString& b)
{
    if (b == busqueda_)
        return;
    busqueda_ = b;
    filtro_.setFilterFixedString(b);
    Q_EMIT busquedaChanged();
}

void VistaApps::alCambiar()
{
    Q_EMIT cambiado();
    revisar();
}

void VistaApps::revisar()
{
    const bool a = estado_ && estado_->elegida() && estado_->estaAbierta(*estado_->elegida());
    if (a == abierta_)
        return;
    abierta_ = a;
    Q_EMIT abiertaChanged();
}

void VistaApps::elegir(int fila)
{
    if (!estado_)
        return;
    const QModelIndex i = filtro_.mapToSource(filtro_.index(fila, 0));
    if (i.isValid())
        estado_->elegir(i.row());
}

qint64 VistaApps::totalElegido() const
{
    return estado_ ? textosApps::totalElegido(estado_->elegida(), estado_->restos()) : 0;
}

QString VistaApps::total() const
{
    return q(rellenar(plataforma::tr("Total: {bytes}"), {{"bytes", formatoBytes(totalElegido())}}));
}

QString VistaApps::tituloConfirmacion() const
{
    return estado_ ? q(textosApps::tituloConfirmacion(estado_->elegida())) : QString();
}

QString VistaApps::mensajeConfirmacion() const
{
    return estado_ ? q(textosApps::mensajeConfirmacion(estado_->elegida(), estado_->restos())) : QString();
}

QString VistaApps::nota() const
{
    return estado_ && estado_->elegida() ? q(textosApps::nota(*estado_->elegida())) : QString();
}

QString VistaApps::encabezado() const
{
    return estado_ && estado_->elegida() ? q(textosApps::encabezado(*estado_->elegida())) : QString();
}

QString VistaApps::tituloExito() const
{
    if (!estado_ || !estado_->resultado())
        return {};
    return q(textosApps::tituloExito(estado_->resultado()->first, estado_->resultado()->second));
}

QString VistaApps::detalleExito() const
{
    return estado_ && estado_->resultado() ? q(textosApps::detalleExito(estado_->resultado()->second)) : QString();
}
