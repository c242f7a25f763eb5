// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The lists the screens show, as models over the lists the state objects
// own: a row is read from there, and ticking a row edits it there, so the
// selection has one home.

#include "desinstalador/desinstalador.h"
#include "nucleo/modelo.h"

#include <QAbstractListModel>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <vector>

// The items of a category or the leftovers of an application.
class ModeloElementos : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Lo da un estado")
    Q_PROPERTY(int cantidad READ cantidad NOTIFY cantidadChanged)

public:
    enum Rol { nombre = Qt::UserRole + 1, detalle, tamano, enUso, seleccionado, ruta };

    // lista gives the list that lives elsewhere, for as long as this model.
    ModeloElementos(std::function<std::vector<Elemento>&()> lista, QObject* padre);

    int rowCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int rol) const override;
    // seleccionado is the one role a screen writes.
    bool setData(const QModelIndex& indice, const QVariant& valor, int rol) override;
    QHash<int, QByteArray> roleNames() const override;

    int cantidad() const { return rowCount(); }
    // Ticks or unticks one row; true if that changed it.
    Q_INVOKABLE bool marcar(int fila, bool seleccionado);
    // Ticks or unticks every row.
    Q_INVOKABLE void marcarTodos(bool seleccionado);
    // One tick for each row, in order, told as one change.
    void ponerSeleccion(const std::vector<bool>& seleccion);
    // Shows the row's entry in the file manager.
    Q_INVOKABLE void mostrarEnArchivos(int fila) const;
    const std::vector<Elemento>& lista() const { return lista_(); }

    // cambio replaces the list; the views are told around it.
    void reiniciar(const std::function<void()>& cambio);
    // Rows changed in place.
    void refrescar();

Q_SIGNALS:
    void cantidadChanged();
    // A row's tick changed, by the screen or by marcar.
    void seleccionCambiada();

private:
    std::function<std::vector<Elemento>&()> lista_;
};

// The categories of the last analysis, each with its items as a model.
class ModeloCategorias : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Lo da Estado")
    Q_PROPERTY(int cantidad READ cantidad NOTIFY cantidadChanged)

public:
    enum Rol {
        id = Qt::UserRole + 1,
        titulo,
        descripcion,
        icono,
        nivel,
        etiqueta,
        modo,
        tamano,
        tamanoSeleccionado,
        cantidadElementos,
        marcados,
        // Every item is used by an open application (and there is one).
        todoEnUso,
        elementos
    };

    ModeloCategorias(std::vector<Categoria>& lista, QObject* padre);

    int rowCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int rol) const override;
    QHash<int, QByteArray> roleNames() const override;

    int cantidad() const { return rowCount(); }
    // The items of one category; null outside the list.
    Q_INVOKABLE ModeloElementos* elementosDe(int fila) const;

    // cambio replaces the list (a new analysis); the views are told around it.
    void reiniciar(const std::function<void()>& cambio);
    // Items changed in place (who uses them).
    void refrescar();

Q_SIGNALS:
    void cantidadChanged();
    void seleccionCambiada();

private:
    std::vector<Categoria>& lista_;
    std::vector<ModeloElementos*> hijos_;
};

// The installed applications.
class ModeloApps : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Lo da EstadoApps")
    Q_PROPERTY(int cantidad READ cantidad NOTIFY cantidadChanged)

public:
    enum Rol { nombre = Qt::UserRole + 1, version, bundleID, tamano, deRoot, ruta, tipo, icono };

    ModeloApps(const std::vector<AppInstalada>& lista, QObject* padre);

    int rowCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int rol) const override;
    QHash<int, QByteArray> roleNames() const override;
    int cantidad() const { return rowCount(); }

    void reiniciar(const std::function<void()>& cambio);
    // Sizes changed in place.
    void refrescar();

Q_SIGNALS:
    void cantidadChanged();

private:
    const std::vector<AppInstalada>& lista_;
};

// Display text of a path or name held as bytes.
QString textoDe(const std::string& bytes);
// One application as {nombre, version, bundleID, tamano, deRoot, ruta, archivo (the last
// component of ruta), tipo, icono}.
QVariantMap mapaDe(const AppInstalada& app);
// The kind of an application as the screens name it: "bundle", "flatpak",
// "snap", "appImage" or "enCasa".
QString nombreTipo(TipoApp tipo);
// Its own icon file as a URL, or an empty one.
QUrl urlIcono(const AppInstalada& app);
