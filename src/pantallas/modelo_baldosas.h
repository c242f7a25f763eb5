// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The tiles of the folder the map shows, laid out in the map's drawing area:
// one row per tile, for the map and for the list beside it, and the texts of
// the map screen. The tiles are chosen again when the folder or the tree
// changes (EstadoMapa.version); only the rectangles when the area does.

#include "estado/estado_mapa.h"
#include "mapa/baldosas.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

#include <vector>

class ModeloBaldosas : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(EstadoMapa* estado READ estado WRITE ponerEstado NOTIFY estadoChanged)
    Q_PROPERTY(qreal ancho READ ancho WRITE ponerAncho NOTIFY areaChanged)
    Q_PROPERTY(qreal alto READ alto WRITE ponerAlto NOTIFY areaChanged)
    Q_PROPERTY(int cantidad READ rowCount NOTIFY cantidadChanged)
    // The inset of each tile in its cell.
    Q_PROPERTY(qreal margen READ margen CONSTANT)
    // How many tiles carry a label at this size.
    Q_PROPERTY(int conEtiqueta READ conEtiqueta NOTIFY areaChanged)
    // The note on the places left out, empty when there are none.
    Q_PROPERTY(QString notaProtegidas READ notaProtegidas NOTIFY notaProtegidasChanged)

public:
    // The tile's rectangle (izquierda, arriba, ancho, alto) is the whole cell; the map
    // draws it inset by margen. etiqueta: the inset cell is large enough for
    // the two lines of text. tipo: "carpeta", "archivo" or "otros".
    // abrible: a folder with children, which a double click opens.
    enum Rol {
        id = Qt::UserRole + 1,
        nodo,
        nombre,
        tamano,
        bytes,
        color,
        tipo,
        abrible,
        ruta,
        ayuda,
        izquierda,
        arriba,
        anchoCelda,
        altoCelda,
        etiqueta
    };

    static constexpr double margenCelda = 1.5;
    static constexpr double anchoEtiqueta = 70;
    static constexpr double altoEtiqueta = 36;

    explicit ModeloBaldosas(QObject* padre = nullptr);

    int rowCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int rol) const override;
    QHash<int, QByteArray> roleNames() const override;

    EstadoMapa* estado() const { return estado_; }
    void ponerEstado(EstadoMapa* e);
    qreal ancho() const { return area_.ancho; }
    qreal alto() const { return area_.alto; }
    static qreal margen() { return margenCelda; }
    void ponerAncho(qreal a);
    void ponerAlto(qreal a);
    int conEtiqueta() const;

    const std::vector<Baldosa>& baldosas() const { return baldosas_; }
    const std::vector<Rectangulo>& rectangulos() const { return rectangulos_; }

    // The row of the tile of that node, -1 for none.
    Q_INVOKABLE int filaDe(const Nodo& nodo) const;
    // The list's choice: the node of that row becomes the selection, or none
    // for the "Otros" row or no row.
    Q_INVOKABLE void seleccionarFila(int fila);
    // A folder with children, which the map can open.
    Q_INVOKABLE static bool seAbre(const Nodo& nodo);
    // "¿Mover {nombre} a la Papelera?" and the text under it.
    Q_INVOKABLE QString tituloMover(const Nodo& nodo) const;
    Q_INVOKABLE QString mensaje(const Nodo& nodo) const;
    // "~/{ruta}" of the node.
    Q_INVOKABLE QString rutaCorta(const Nodo& nodo) const;
    QString notaProtegidas() const;

Q_SIGNALS:
    void estadoChanged();
    void areaChanged();
    void cantidadChanged();
    void notaProtegidasChanged();

private:
    void elegirBaldosas();
    void calcular();
    // calcular, and the views told.
    void disponer();

    QPointer<EstadoMapa> estado_;
    Rectangulo area_;
    std::vector<Baldosa> baldosas_;
    std::vector<Rectangulo> rectangulos_;
};
