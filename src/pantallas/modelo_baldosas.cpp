// SPDX-License-Identifier: GPL-3.0-or-later
#include "pantallas/modelo_baldosas.h"

#include "nucleo/formato.h"
#include "nucleo/textos.h"

#include <QColor>

namespace {

QString q(const std::string& s)
{
    return QString::fromStdString(s);
}

QColor colorQt(const Color& c)
{
    return QColor::fromRgbF(float(c.rojo), float(c.verde), float(c.azul), float(c.opacidad));
}

bool conEtiquetaEn(const Rectangulo& r)
{
    return r.ancho - 2 * ModeloBaldosas::margenCelda > ModeloBaldosas::anchoEtiqueta &&
           r.alto - 2 * ModeloBaldosas::margenCelda > ModeloBaldosas::altoEtiqueta;
}

} // namespace

ModeloBaldosas::ModeloBaldosas(QObject* padre) : QAbstractListModel(padre) {}

void ModeloBaldosas::ponerEstado(EstadoMapa* e)
{
    if (e == estado_)
        return;
    if (estado_)
        disconnect(estado_, nullptr, this, nullptr);
    estado_ = e;
    if (e) {
        connect(e, &EstadoMapa::actualChanged, this, &ModeloBaldosas::elegirBaldosas);
        connect(e, &EstadoMapa::versionChanged, this, &ModeloBaldosas::elegirBaldosas);
        connect(e, &EstadoMapa::protegidasChanged, this, &ModeloBaldosas::notaProtegidasChanged);
    }
    Q_EMIT estadoChanged();
    Q_EMIT notaProtegidasChanged();
    elegirBaldosas();
}

void ModeloBaldosas::ponerAncho(qreal a)
{
    if (a == area_.ancho)
        return;
    area_.ancho = a;
    disponer();
}

void ModeloBaldosas::ponerAlto(qreal a)
{
    if (a == area_.alto)
        return;
    area_.alto = a;
    disponer();
}

void ModeloBaldosas::elegirBaldosas()
{
    const int antes = rowCount();
    beginResetModel();
    baldosas_.clear();
    if (estado_ && estado_->actual())
        baldosas_ = ::baldosas(*estado_->actual());
    calcular();
    endResetModel();
    if (rowCount() != antes)
        Q_EMIT cantidadChanged();
    Q_EMIT areaChanged();
}

void ModeloBaldosas::calcular()
{
    std::vector<double> valores;
    valores.reserve(baldosas_.size());
    for (const Baldosa& b : baldosas_)
        valores.push_back(double(b.tamano));
    rectangulos_ = cuadricular(valores, {0, 0, area_.ancho, area_.alto});
}

void ModeloBaldosas::disponer()
{
    calcular();
    if (!baldosas_.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {izquierda, arriba, anchoCelda, altoCelda, etiqueta});
    Q_EMIT areaChanged();
}

int ModeloBaldosas::rowCount(const QModelIndex& padre) const
{
    return padre.isValid() ? 0 : int(baldosas_.size());
}

QVariant ModeloBaldosas::data(const QModelIndex& indice, int rol) const
{
    if (!checkIndex(indice, CheckIndexOption::IndexIsValid))
        return {};
    const size_t i = size_t(indice.row());
    const Baldosa& b = baldosas_[i];
    const Rectangulo r = i < rectangulos_.size() ? rectangulos_[i] : Rectangulo{};
    switch (rol) {
    case id: return q(textoVisible(b.id));
    case nodo: return QVariant::fromValue(Nodo(b.nodo));
    case nombre: return q(textoVisible(b.nombre));
    case tamano: return qint64(b.tamano);
    case bytes: return q(formatoBytes(b.tamano));
    case color: return colorQt(b.color);
    case tipo:
        return !b.nodo ? QStringLiteral("otros") : b.nodo->esCarpeta ? QStringLiteral("carpeta") : QStringLiteral("archivo");
    case abrible: return seAbre(Nodo(b.nodo));
    case ruta: return b.nodo ? q(textoVisible(b.nodo->ruta)) : QString();
    case ayuda: return q(textoVisible(b.nombre) + " — " + formatoBytes(b.tamano));
    case izquierda: return r.x;
    case arriba: return r.y;
    case anchoCelda: return r.ancho;
    case altoCelda: return r.alto;
    case etiqueta: return conEtiquetaEn(r);
    }
    return {};
}

QHash<int, QByteArray> ModeloBaldosas::roleNames() const
{
    return {{id, "id"},         {nodo, "nodo"},   {nombre, "nombre"}, {tamano, "tamano"},   {bytes, "bytes"},
            {color, "color"},   {tipo, "tipo"},   {abrible, "abrible"}, {ruta, "ruta"},     {ayuda, "ayuda"},
            {izquierda, "izquierda"}, {arriba, "arriba"}, {anchoCelda, "ancho"}, {altoCelda, "alto"},      {etiqueta, "etiqueta"}};
}

int ModeloBaldosas::conEtiqueta() const
{
    int n = 0;
    for (const Rectangulo& r : rectangulos_)
        n += conEtiquetaEn(r);
    return n;
}

int ModeloBaldosas::filaDe(const Nodo& n) const
{
    for (size_t i = 0; i < baldosas_.size(); ++i)
        if (n.nodo && baldosas_[i].nodo == n.nodo)
            return int(i);
    return -1;
}

void ModeloBaldosas::seleccionarFila(int fila)
{
    if (estado_)
        estado_->seleccionar(fila >= 0 && size_t(fila) < baldosas_.size() ? Nodo(baldosas_[size_t(fila)].nodo) : Nodo());
}

bool ModeloBaldosas::seAbre(const Nodo& n)
{
    return n.nodo && n.nodo->esCarpeta && !n.nodo->hijos.empty();
}

QString ModeloBaldosas::tituloMover(const Nodo& n) const
{
    return n.nodo ? q(rellenar(plataforma::tr("¿Mover {nombre} a la Papelera?"), {{"nombre", textoVisible(n.nodo->nombre)}}))
                  : QString();
}

QString ModeloBaldosas::mensaje(const Nodo& n) const
{
    if (!n.nodo)
        return {};
    std::string r = rellenar(plataforma::tr("{bytes}. Puedes recuperarlo desde la Papelera."), {{"bytes", formatoBytes(n.nodo->tamano)}});
    if (estado_)
        if (const auto aviso = estado_->advertencia(*n.nodo))
            r += "\n\n" + *aviso;
    return q(r);
}

QString ModeloBaldosas::rutaCorta(const Nodo& n) const
{
    return n.nodo && estado_ ? QStringLiteral("~/") + estado_->relativa(n) : QString();
}

QString ModeloBaldosas::notaProtegidas() const
{
    if (!estado_ || estado_->protegidas().empty())
        return {};
    std::string nombres;
    for (const std::string& p : estado_->protegidas())
        nombres += (nombres.empty() ? "" : ", ") + textoVisible(p);
    return q(rellenar(plataforma::tr("No se miden (protegidas por macOS): {nombres}."), {{"nombres", nombres}}));
}
