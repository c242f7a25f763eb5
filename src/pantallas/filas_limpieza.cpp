// SPDX-License-Identifier: GPL-3.0-or-later
#include "pantallas/filas_limpieza.h"

#include "nucleo/textos.h"
#include "pantallas/rotulos.h"

#include <algorithm>

std::vector<bool> seleccionAlPulsar(const std::vector<Elemento>& elementos)
{
    const bool libresMarcados = std::all_of(elementos.begin(), elementos.end(),
                                            [](const Elemento& e) { return e.enUso || e.seleccionado; });
    std::vector<bool> r;
    r.reserve(elementos.size());
    for (const Elemento& e : elementos)
        r.push_back(!libresMarcados && !e.enUso);
    return r;
}

FilasLimpieza::FilasLimpieza(QObject* padre) : QAbstractListModel(padre) {}

void FilasLimpieza::ponerEstado(Estado* e)
{
    if (e == estado_)
        return;
    if (estado_) {
        estado_->disconnect(this);
        estado_->modeloCategorias()->disconnect(this);
    }
    estado_ = e;
    if (e != nullptr) {
        ModeloCategorias* m = e->modeloCategorias();
        // A new analysis replaces the categories under this model too.
        connect(m, &QAbstractItemModel::modelAboutToBeReset, this, [this] { beginResetModel(); });
        connect(m, &QAbstractItemModel::modelReset, this, [this] {
            reconstruir();
            endResetModel();
        });
        connect(m, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& a, const QModelIndex& b) {
            for (int c = a.row(); c <= b.row(); ++c)
                if (size_t(c) < filaCategoria_.size() && filaCategoria_[size_t(c)] >= 0)
                    Q_EMIT dataChanged(index(filaCategoria_[size_t(c)]), index(filaCategoria_[size_t(c)]));
        });
        const auto rehacer = [this] {
            beginResetModel();
            reconstruir();
            endResetModel();
        };
        connect(e, &Estado::sugeridasChanged, this, rehacer);
        connect(e, &Estado::resultadoChanged, this, [this, rehacer] {
            const bool hayBanner = !filas_.empty() && filas_.front().tipo == banner;
            if (hayBanner != estado_->resultado().has_value())
                rehacer();
        });
    }
    beginResetModel();
    reconstruir();
    endResetModel();
    Q_EMIT estadoChanged();
}

void FilasLimpieza::ponerAbiertas(const QStringList& ids)
{
    if (ids == abiertas_)
        return;
    beginResetModel();
    abiertas_ = ids;
    reconstruir();
    endResetModel();
    Q_EMIT abiertasChanged();
}

bool FilasLimpieza::estaAbierta(int c) const
{
    return abiertas_.contains(QString::fromStdString(estado_->categorias()[size_t(c)].id));
}

std::vector<FilasLimpieza::Fila> FilasLimpieza::filasDeCategoria(int c) const
{
    std::vector<Fila> r{{categoria, c, -1}};
    if (estaAbierta(c)) {
        const int n = int(estado_->categorias()[size_t(c)].elementos.size());
        for (int i = 0; i < n; ++i)
            r.push_back({elemento, c, i});
    }
    return r;
}

void FilasLimpieza::reconstruir()
{
    filas_.clear();
    filaCategoria_.clear();
    if (!estado_)
        return;
    const auto& cats = estado_->categorias();
    filaCategoria_.assign(cats.size(), -1);
    if (estado_->resultado())
        filas_.push_back({banner});
    // Fixed at the end of the analysis: ticking never moves a category.
    std::vector<int> sugeridas, otras;
    for (size_t c = 0; c < cats.size(); ++c)
        (estado_->sugeridas().contains(cats[c].id) ? sugeridas : otras).push_back(int(c));
    const auto grupo = [&](const std::vector<int>& cs, Cabecera cab) {
        if (cs.empty())
            return;
        filas_.push_back({cabecera, cab});
        for (const int c : cs) {
            filaCategoria_[size_t(c)] = int(filas_.size());
            for (const Fila& f : filasDeCategoria(c))
                filas_.push_back(f);
        }
    };
    grupo(sugeridas, Cabecera::listas);
    grupo(otras, sugeridas.empty() ? Cabecera::otrasSolas : Cabecera::otras);
    conectarElementos();
}

void FilasLimpieza::conectarElementos()
{
    for (const auto& c : conexiones_)
        disconnect(c);
    conexiones_.clear();
    for (int c = 0; c < int(filaCategoria_.size()); ++c) {
        ModeloElementos* m = estado_->modeloCategorias()->elementosDe(c);
        if (m == nullptr)
            continue;
        conexiones_.push_back(connect(
            m, &QAbstractItemModel::dataChanged, this,
            [this, c](const QModelIndex& a, const QModelIndex& b, const QList<int>& roles) {
                const int f = filaCategoria_[size_t(c)];
                if (f < 0 || !estaAbierta(c))
                    return;
                const QList<int> nuestros =
                    roles == QList<int>{ModeloElementos::seleccionado} ? QList<int>{seleccionado} : QList<int>{};
                Q_EMIT dataChanged(index(f + 1 + a.row()), index(f + 1 + b.row()), nuestros);
            }));
    }
}

void FilasLimpieza::desplegar(const QString& id, bool abrir)
{
    if (abiertas_.contains(id) == abrir)
        return;
    int c = -1;
    if (estado_)
        for (size_t i = 0; i < estado_->categorias().size(); ++i)
            if (QString::fromStdString(estado_->categorias()[i].id) == id)
                c = int(i);
    const int f = c >= 0 ? filaCategoria_[size_t(c)] : -1;
    const int n = c >= 0 ? int(estado_->categorias()[size_t(c)].elementos.size()) : 0;
    const auto moverSiguientes = [&](int delta) {
        for (int& otra : filaCategoria_)
            if (otra > f)
                otra += delta;
    };
    if (f >= 0 && n > 0 && abrir) {
        beginInsertRows({}, f + 1, f + n);
        abiertas_.append(id);
        const auto nuevas = filasDeCategoria(c);
        filas_.insert(filas_.begin() + f + 1, nuevas.begin() + 1, nuevas.end());
        moverSiguientes(n);
        endInsertRows();
    } else if (f >= 0 && n > 0) {
        beginRemoveRows({}, f + 1, f + n);
        abiertas_.removeAll(id);
        filas_.erase(filas_.begin() + f + 1, filas_.begin() + f + 1 + n);
        moverSiguientes(-n);
        endRemoveRows();
    } else if (abrir) {
        abiertas_.append(id);
    } else {
        abiertas_.removeAll(id);
    }
    if (f >= 0)
        Q_EMIT dataChanged(index(f), index(f), {abierta});
    Q_EMIT abiertasChanged();
}

void FilasLimpieza::alternar(int fila)
{
    if (fila < 0 || size_t(fila) >= filas_.size() || filas_[size_t(fila)].tipo != categoria)
        return;
    const int c = filas_[size_t(fila)].valor;
    if (ModeloElementos* m = estado_->modeloCategorias()->elementosDe(c))
        m->ponerSeleccion(seleccionAlPulsar(estado_->categorias()[size_t(c)].elementos));
}

void FilasLimpieza::mostrar(int fila) const
{
    if (fila < 0 || size_t(fila) >= filas_.size() || filas_[size_t(fila)].tipo != elemento)
        return;
    const Fila& f = filas_[size_t(fila)];
    if (ModeloElementos* m = estado_->modeloCategorias()->elementosDe(f.valor))
        m->mostrarEnArchivos(f.elemento);
}

int FilasLimpieza::filaDe(const QString& id) const
{
    if (!estado_)
        return -1;
    for (size_t c = 0; c < filaCategoria_.size(); ++c)
        if (QString::fromStdString(estado_->categorias()[c].id) == id)
            return filaCategoria_[c];
    return -1;
}

int FilasLimpieza::rowCount(const QModelIndex& padre) const
{
    return padre.isValid() ? 0 : int(filas_.size());
}

QVariant FilasLimpieza::data(const QModelIndex& indice, int rol) const
{
    if (!checkIndex(indice, CheckIndexOption::IndexIsValid) || !estado_)
        return {};
    const Fila& f = filas_[size_t(indice.row())];
    switch (rol) {
    case tipo: {
        static const QString nombres[] = {QStringLiteral("banner"), QStringLiteral("cabecera"),
                                          QStringLiteral("categoria"), QStringLiteral("elemento")};
        return nombres[f.tipo];
    }
    case cabeceraRol: {
        static const QString nombres[] = {QStringLiteral("listas"), QStringLiteral("otras"),
                                          QStringLiteral("otrasSolas")};
        return f.tipo == cabecera ? nombres[f.valor] : QString();
    }
    case indiceCategoria:
        return f.tipo == categoria || f.tipo == elemento ? f.valor : -1;
    case indiceElemento:
        return f.elemento;
    }
    if (f.tipo == categoria) {
        const Categoria& c = estado_->categorias()[size_t(f.valor)];
        switch (rol) {
        case abierta:
            return estaAbierta(f.valor);
        case id:
            return QString::fromStdString(c.id);
        case titulo:
            return textoDe(c.titulo);
        case descripcion:
            return textoDe(c.descripcion);
        case icono:
            return QString::fromStdString(c.icono);
        case nivel:
            return int(c.nivel);
        case etiqueta:
            return textoDe(::etiqueta(c.nivel));
        case tamano:
            return qint64(c.tamano());
        case cantidad:
            return int(c.elementos.size());
        case marcados:
            return int(std::count_if(c.elementos.begin(), c.elementos.end(),
                                     [](const Elemento& e) { return e.seleccionado; }));
        case linea:
            return textoDe(rotulos::lineaCategoria(c, localeApp()).texto);
        case lineaEnUso:
            return textoDe(rotulos::lineaCategoria(c, localeApp()).enUso);
        case todoEnUso:
            return rotulos::lineaCategoria(c, localeApp()).todoEnUso;
        }
        return {};
    }
    if (f.tipo == elemento) {
        const Categoria& c = estado_->categorias()[size_t(f.valor)];
        const Elemento& e = c.elementos[size_t(f.elemento)];
        switch (rol) {
        case nivel:
            return int(c.nivel);
        case cantidad:
            return int(c.elementos.size());
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
        }
    }
    return {};
}

bool FilasLimpieza::setData(const QModelIndex& indice, const QVariant& valor, int rol)
{
    if (rol != seleccionado || !checkIndex(indice, CheckIndexOption::IndexIsValid) || !estado_)
        return false;
    const Fila& f = filas_[size_t(indice.row())];
    ModeloElementos* m = f.tipo == elemento ? estado_->modeloCategorias()->elementosDe(f.valor) : nullptr;
    return m != nullptr && m->marcar(f.elemento, valor.toBool());
}

QHash<int, QByteArray> FilasLimpieza::roleNames() const
{
    return {{tipo, "tipo"},
            {cabeceraRol, "cabecera"},
            {indiceCategoria, "indiceCategoria"},
            {indiceElemento, "indiceElemento"},
            {abierta, "abierta"},
            {id, "id"},
            {titulo, "titulo"},
            {descripcion, "descripcion"},
            {icono, "icono"},
            {nivel, "nivel"},
            {etiqueta, "etiqueta"},
            {tamano, "tamano"},
            {cantidad, "cantidad"},
            {marcados, "marcados"},
            {linea, "linea"},
            {lineaEnUso, "lineaEnUso"},
            {todoEnUso, "todoEnUso"},
            {nombre, "nombre"},
            {detalle, "detalle"},
            {enUso, "enUso"},
            {seleccionado, "seleccionado"}};
}
