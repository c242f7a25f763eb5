// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The desktop widget's host: a window of its own kept below the others on
// every workspace, drawing the disk of the user's real home in the size the
// user chose. It takes new figures every minute and at once when the program
// says it cleaned or moved something to the Trash; its controls open the
// program through vorlano:// links. Its size and place are kept in
// Vorlano/Widget.conf under the config home.

#include "plataforma/escritorio.h"
#include "widget/entrada_disco.h"

#include <QMenu>
#include <QObject>
#include <QQuickView>
#include <QSettings>
#include <QTimer>
#include <QUrl>

#include <filesystem>
#include <optional>

class AnfitrionWidget : public QObject {
    Q_OBJECT
public:
    // Inside a running QApplication. programa is the vorlano binary that
    // links are handed to; without a family the stored one is drawn.
    AnfitrionWidget(std::filesystem::path programa, std::optional<Familia> familia, QObject* padre = nullptr);
    ~AnfitrionWidget() override;

    QQuickView& ventana() { return ventana_; }
    QMenu& menu() { return menu_; }
    Familia familia() const { return familia_; }

    // Shows the window where it stood last time, or at the top right corner.
    void mostrar();
    // Draws this size from now on and keeps it.
    void ponerFamilia(Familia f);

public Q_SLOTS:
    // Takes the disk's figures anew and draws them.
    void refrescar();
    // A control's vorlano:// link: the program opens it, or hands it to the
    // running one.
    void abrirEnlace(const QUrl& url);

Q_SIGNALS:
    // The widget was given new figures.
    void refrescado();

private Q_SLOTS:
    void mostrarMenu();

private:
    void construirMenu();
    void guardarPosicion();

    std::filesystem::path programa_;
    QSettings ajustes_;
    Familia familia_;
    QQuickView ventana_;
    QMenu menu_;
    QTimer reloj_;
    QTimer guardado_;
    plataforma::RecargaWidgets recarga_;
};

// The terminal's --widget [chico|mediano|grande]: the host until the user
// removes the widget. Status 1 without a display; 0 when another host of
// this user already runs.
int ejecutarAnfitrionWidget(int argc, char** argv);
