// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The rows of the cleaning list as one flat model, so the view only makes
// the rows on screen even when an unfolded category holds thousands of
// items: the result banner, then the categories the analysis suggested
// under their header, then the others under theirs, each category followed
// by its items while it is unfolded. Rows read Estado's categories and
// ticking a row ticks it there.

#include "estado/estado.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <vector>

// The category checkbox: when every free item (not in use) is ticked, which
// includes there being none, everything is unticked; otherwise the free
// items are ticked and those in use unticked.
std::vector<bool> seleccionAlPulsar(const std::vector<Elemento>& elementos);

class FilasLimpieza : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Estado* estado READ estado WRITE ponerEstado NOTIFY estadoChanged)
    // The ids of the unfolded categories; kept across analyses.
    Q_PROPERTY(QStringList abiertas READ abiertas WRITE ponerAbiertas NOTIFY abiertasChanged)

public:
    // The kinds of rows; for QML, the role tipo names them ("banner",
    // "cabecera", "categoria", "elemento").
    enum Tipo { banner, cabecera, categoria, elemento };
    // The header above the suggested categories, above the others when
    // there were suggestions, and above the others alone; the role cabecera
    // names them ("listas", "otras", "otrasSolas").
    enum Cabecera { listas, otras, otrasSolas };
    enum Rol {
        tipo = Qt::UserRole + 1,
        cabeceraRol,
        indiceCategoria,
        indiceElemento,
        abierta,
        id,
        titulo,
        descripcion,
        icono,
        nivel,
        etiqueta,
        tamano,
        cantidad,
        marcados,
        linea,
        lineaEnUso,
        todoEnUso,
        nombre,
        detalle,
        enUso,
        seleccionado
    };

    explicit FilasLimpieza(QObject* padre = nullptr);

    Estado* estado() const { return estado_; }
    void ponerEstado(Estado* e);
    QStringList abiertas() const { return abiertas_; }
    void ponerAbiertas(const QStringList& ids);

    int rowCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int rol) const override;
    // seleccionado of an item row is the one role a screen writes.
    bool setData(const QModelIndex& indice, const QVariant& valor, int rol) override;
    QHash<int, QByteArray> roleNames() const override;

    // Unfolds or folds one category; its item rows come and go in place.
    Q_INVOKABLE void desplegar(const QString& id, bool abrir);
    // The category checkbox of that row.
    Q_INVOKABLE void alternar(int fila);
    // Shows an item row's entry in the file manager.
    Q_INVOKABLE void mostrar(int fila) const;
    // The row of a category, or -1.
    Q_INVOKABLE int filaDe(const QString& id) const;

Q_SIGNALS:
    void estadoChanged();
    void abiertasChanged();

private:
    struct Fila {
        Tipo tipo;
        int valor = 0; // the header's kind, or the category's index
        int elemento = -1;
    };

    // Builds the rows from the state; the views are told by a reset.
    void reconstruir();
    std::vector<Fila> filasDeCategoria(int c) const;
    void conectarElementos();
    bool estaAbierta(int c) const;

    QPointer<Estado> estado_;
    QStringList abiertas_;
    std::vector<Fila> filas_;
    // The row of each category, or -1 when not shown.
    std::vector<int> filaCategoria_;
    std::vector<QMetaObject::Connection> conexiones_;
};
