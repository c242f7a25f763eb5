// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the uninstall screen shows beside the state: the list filtered by the
// search field, and the texts and figures of the chosen application, kept
// current as the state and the ticks of its leftovers change.

#include "estado/estado_apps.h"

#include <QObject>
#include <QPointer>
#include <QSortFilterProxyModel>
#include <QString>
#include <QtQml/qqmlregistration.h>

class VistaApps : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(EstadoApps* estado READ estado WRITE ponerEstado NOTIFY estadoChanged)
    Q_PROPERTY(QString busqueda READ busqueda WRITE ponerBusqueda NOTIFY busquedaChanged)
    // The applications whose name holds busqueda, ignoring case, in list order.
    Q_PROPERTY(QAbstractItemModel* filtradas READ filtradas CONSTANT)
    Q_PROPERTY(qint64 totalElegido READ totalElegido NOTIFY cambiado)
    Q_PROPERTY(QString total READ total NOTIFY cambiado)
    Q_PROPERTY(QString tituloConfirmacion READ tituloConfirmacion NOTIFY cambiado)
    Q_PROPERTY(QString mensajeConfirmacion READ mensajeConfirmacion NOTIFY cambiado)
    // Of the chosen application: the line under its own row, and its caption.
    Q_PROPERTY(QString nota READ nota NOTIFY cambiado)
    Q_PROPERTY(QString encabezado READ encabezado NOTIFY cambiado)
    // The chosen application is running (asked again by revisar).
    Q_PROPERTY(bool abierta READ abierta NOTIFY abiertaChanged)
    Q_PROPERTY(QString tituloExito READ tituloExito NOTIFY cambiado)
    Q_PROPERTY(QString detalleExito READ detalleExito NOTIFY cambiado)

public:
    explicit VistaApps(QObject* padre = nullptr);

    EstadoApps* estado() const { return estado_; }
    void ponerEstado(EstadoApps* e);
    QString busqueda() const { return busqueda_; }
    void ponerBusqueda(const QString& b);
    QAbstractItemModel* filtradas() { return &filtro_; }

    qint64 totalElegido() const;
    QString total() const;
    QString tituloConfirmacion() const;
    QString mensajeConfirmacion() const;
    QString nota() const;
    QString encabezado() const;
    bool abierta() const { return abierta_; }
    QString tituloExito() const;
    QString detalleExito() const;

    // Chooses the application of that row of filtradas.
    Q_INVOKABLE void elegir(int fila);
    // Asks the system again whether the chosen application runs.
    Q_INVOKABLE void revisar();

Q_SIGNALS:
    void estadoChanged();
    void busquedaChanged();
    void cambiado();
    void abiertaChanged();

private:
    void alCambiar();

    QPointer<EstadoApps> estado_;
    QString busqueda_;
    QSortFilterProxyModel filtro_;
    bool abierta_ = false;
};
