// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The tray item: the free gigabytes drawn into the icon and as tooltip, and
// the menu of the program. Shown while the setting asks for it and the
// desktop has a tray; without one the program runs on without it.

#include <QAction>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

class Estado;

class Bandeja : public QObject {
    Q_OBJECT
public:
    explicit Bandeja(Estado& estado, QObject* padre = nullptr);

    // The menu as it stands, for whoever shows it and for tests.
    QMenu& menu() { return menu_; }
    QAction& analizarAhora() { return *analizar_; }
    // The icon's picture for a number of free bytes.
    static QIcon icono(int64_t libre);

Q_SIGNALS:
    void abrirVentana();
    void abrirAjustes();
    void salir();

private:
    void actualizar();
    void mostrarSegunAjuste();

    Estado& estado_;
    QMenu menu_;
    QAction* espacio_;
    QAction* analizar_;
    QSystemTrayIcon icono_;
};
