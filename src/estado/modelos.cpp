// SPDX-License-Identifier: GPL-3.0-or-later
#include "estado/modelos.h"

#include "nucleo/textos.h"
#include "plataforma/escritorio.h"

#include <QUrl>
#include <QVariantMap>

#include <algorithm>

QString textoDe(const std::string& bytes)
{
    return QString::fromStdString(textoVisible(bytes));
}

QVariantMap mapaDe(const AppInstalada& app)
{
    return {{QStringLiteral("nombre"), textoDe(app.nombre)},
            {QStringLiteral("version"), textoDe(app.version)},
            {QStringLiteral("bundleID"), textoDe(app.bundleID)},
            {QStringLiteral("tamano"), qint64(app.tamano)},
            {QStringLiteral("deRoot"), app.deRoot},
            {QStringLiteral("ruta"), textoDe(app.url.native())},
            {QStringLiteral("archivo"), textoDe(app.url.filename().native())},
            {QStringLiteral("tipo"), nombreTipo(app.tipo)},
            {QStringLiteral("icono"), urlIcono(app)}};
}

QString nombreTipo(TipoApp tipo)
{
    switch (tipo) {
    case TipoApp::bundle: return QStringLiteral("bundle");
    case TipoApp::flatpak: return QStringLiteral("flatpak");
    case TipoApp::snap: return QStringLiteral("snap");
    case TipoApp::appImage: return QStringLiteral("appImage");
    case TipoApp::enCasa: return QStringLiteral("enCasa");
    }
    return {};
}

QUrl urlIcono(const AppInstalada& app)
{
    // The path's bytes as they are, percent-encoded where they aren't text.
    if (app.icono.empty())
        return {};
    return QUrl(QStringLiteral("file://") +
                QString::fromLatin1(QByteArray::fromStdString(app.icono.native()).toPercentEncoding("/")));
}

// Items

ModeloElementos::ModeloElementos(std::function<std::vector<Elemento>&()> lista, QObject* padre)
    : QAbstractListModel(padre), lista_(std::move(lista))
{
}

int ModeloElementos::rowCount(const QModelIndex& padre) const
{
    return padre.isValid() ? 0 : int(lista_().size());
}

QVariant ModeloElementos::data(const QModelIndex& indice, int rol) const
{
    if (!checkIndex(indice, CheckIndexOption::IndexIsValid))
        return {};
    const Elemento& e = lista_()[size_t(indice.row())];
    switch (rol) {
    case nombre:
        return textoDe(e.nombre);
    case detalle:
        return e.detalle ? textoDe(*e.detalle) : QString();
    case tamano:
        return qint64(e.tamano);
    case enUso:
        return e.enUso ? textoDe(*e.enUso) : QString();
    case seleccionado:
        return e.seleccionado;
    case ruta:
        return textoDe(e.url.native());
    }
    return {};
}

bool ModeloElementos::setData(const QModelIndex& indice, const QVariant& valor, int rol)
{
    return rol == seleccionado && checkIndex(indice, CheckIndexOption::IndexIsValid) &&
           marcar(indice.row(), valor.toBool());
}

QHash<int, QByteArray> ModeloElementos::roleNames() const
{
    return {{nombre, "nombre"}, {detalle, "detalle"},           {tamano, "tamano"},
            {enUso, "enUso"},   {seleccionado, "seleccionado"}, {ruta, "ruta"}};
}

bool ModeloElementos::marcar(int fila, bool valor)
{
    auto& l = lista_();
    if (fila < 0 || size_t(fila) >= l.size() || l[size_t(fila)].seleccionado == valor)
        return false;
    l[size_t(fila)].seleccionado = valor;
    Q_EMIT dataChanged(index(fila), index(fila), {seleccionado});
    Q_EMIT seleccionCambiada();
    return true;
}

void ModeloElementos::marcarTodos(bool valor)
{
    bool cambio = false;
    for (Elemento& e : lista_())
        if (e.seleccionado != valor) {
            e.seleccionado = valor;
            cambio = true;
        }
    if (!cambio)
        return;
    Q_EMIT dataChanged(index(0), index(rowCount() - 1), {seleccionado});
    Q_EMIT seleccionCambiada();
}

void ModeloElementos::ponerSeleccion(const std::vector<bool>& seleccion)
{
    auto& l = lista_();
    bool cambio = false;
    for (size_t i = 0; i < l.size() && i < seleccion.size(); ++i)
        if (l[i].seleccionado != seleccion[i]) {
            l[i].seleccionado = seleccion[i];
            cambio = true;
        }
    if (!cambio)
        return;
    Q_EMIT dataChanged(index(0), index(rowCount() - 1), {seleccionado});
    Q_EMIT seleccionCambiada();
}

void ModeloElementos::mostrarEnArchivos(int fila) const
{
    const auto& l = lista_();
    if (fila >= 0 && size_t(fila) < l.size())
        plataforma::mostrarEnArchivos(l[size_t(fila)].url);
}

void ModeloElementos::reiniciar(const std::function<void()>& cambio)
{
    beginResetModel();
    cambio();
    endResetModel();
    Q_EMIT cantidadChanged();
}

void ModeloElementos::refrescar()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

// Categories

ModeloCategorias::ModeloCategorias(std::vector<Categoria>& lista, QObject* padre)
    : QAbstractListModel(padre), lista_(lista)
{
}

int ModeloCategorias::rowCount(const QModelIndex& padre) const
{
    return padre.isValid() ? 0 : int(lista_.size());
}

QVariant ModeloCategorias::data(const QModelIndex& indice, int rol) const
{
    if (!checkIndex(indice, CheckIndexOption::IndexIsValid))
        return {};
    const size_t fila = size_t(indice.row());
    const Categoria& c = lista_[fila];
    switch (rol) {
    case id:
        return QString::fromStdString(c.id);
    case titulo:
        return QString::fromStdString(c.titulo);
    case descripcion:
        return QString::fromStdString(c.descripcion);
    case icono:
        return QString::fromStdString(c.icono);
    case nivel:
        return int(c.nivel);
    case etiqueta:
        return QString::fromStdString(::etiqueta(c.nivel));
    case modo:
        return c.modo == Modo::papelera ? QStringLiteral("papelera") : QStringLiteral("borrar");
    case tamano:
        return qint64(c.tamano());
    case tamanoSeleccionado:
        return qint64(c.tamanoSeleccionado());
    case cantidadElementos:
        return int(c.elementos.size());
    case marcados:
        return int(std::count_if(c.elementos.begin(), c.elementos.end(), [](const Elemento& e) { return e.seleccionado; }));
    case todoEnUso:
        return !c.elementos.empty() &&
               std::all_of(c.elementos.begin(), c.elementos.end(), [](const Elemento& e) { return e.enUso.has_value(); });
    case elementos:
        return fila < hijos_.size() ? QVariant::fromValue(hijos_[fila]) : QVariant();
    }
    return {};
}

QHash<int, QByteArray> ModeloCategorias::roleNames() const
{
    return {{id, "id"},
            {titulo, "titulo"},
            {descripcion, "descripcion"},
            {icono, "icono"},
            {nivel, "nivel"},
            {etiqueta, "etiqueta"},
            {modo, "modo"},
            {tamano, "tamano"},
            {tamanoSeleccionado, "tamanoSeleccionado"},
            {cantidadElementos, "cantidadElementos"},
            {marcados, "marcados"},
            {todoEnUso, "todoEnUso"},
            {elementos, "elementos"}};
}

ModeloElementos* ModeloCategorias::elementosDe(int fila) const
{
    return fila >= 0 && size_t(fila) < hijos_.size() ? hijos_[size_t(fila)] : nullptr;
}

void ModeloCategorias::reiniciar(const std::function<void()>& cambio)
{
    beginResetModel();
    cambio();
    // A screen may still hold an old items model until it rebinds.
    for (ModeloElementos* h : hijos_)
        h->deleteLater();
    hijos_.clear();
    for (size_t i = 0; i < lista_.size(); ++i) {
        auto* h = new ModeloElementos([this, i]() -> std::vector<Elemento>& { return lista_[i].elementos; }, this);
        connect(h, &ModeloElementos::seleccionCambiada, this, [this, i] {
            Q_EMIT dataChanged(index(int(i)), index(int(i)), {tamanoSeleccionado, marcados});
            Q_EMIT seleccionCambiada();
        });
        hijos_.push_back(h);
    }
    endResetModel();
    Q_EMIT cantidadChanged();
}

void ModeloCategorias::refrescar()
{
    for (ModeloElementos* h : hijos_)
        h->refrescar();
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

// Applications

ModeloApps::ModeloApps(const std::vector<AppInstalada>& lista, QObject* padre) : QAbstractListModel(padre), lista_(lista)
{
}

int ModeloApps::rowCount(const QModelIndex& padre) const
{
    return padre.isValid() ? 0 : int(lista_.size());
}

QVariant ModeloApps::data(const QModelIndex& indice, int rol) const
{
    if (!checkIndex(indice, CheckIndexOption::IndexIsValid))
        return {};
    const AppInstalada& a = lista_[size_t(indice.row())];
    switch (rol) {
    case nombre:
        return textoDe(a.nombre);
    case version:
        return textoDe(a.version);
    case bundleID:
        return textoDe(a.bundleID);
    case tamano:
        return qint64(a.tamano);
    case deRoot:
        return a.deRoot;
    case ruta:
        return textoDe(a.url.native());
    case tipo:
        return nombreTipo(a.tipo);
    case icono:
        return urlIcono(a);
    }
    return {};
}

QHash<int, QByteArray> ModeloApps::roleNames() const
{
    return {{nombre, "nombre"}, {version, "version"}, {bundleID, "bundleID"}, {tamano, "tamano"},
            {deRoot, "deRoot"}, {ruta, "ruta"},       {tipo, "tipo"},         {icono, "icono"}};
}

void ModeloApps::reiniciar(const std::function<void()>& cambio)
{
    beginResetModel();
    cambio();
    endResetModel();
    Q_EMIT cantidadChanged();
}

void ModeloApps::refrescar()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {tamano});
}
