// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The desktop application: owns the one Estado, loads the windows from the
// program's QML module, keeps the tray item, and serves vorlano:// links,
// those of its own command line and those later starts hand over.

#include "app/bandeja.h"
#include "app/instancia.h"
#include "estado/estado.h"
#include "nucleo/entorno.h"
#include "nucleo/modelo.h"

#include <QPointer>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QStringList>

#include <memory>
#include <optional>

class VorlanoApp : public QObject {
    Q_OBJECT
public:
    // The graphical path of the program: hands the links of the command line
    // to a running instance and ends, or becomes the instance and runs until
    // quit. Never returns.
    [[noreturn]] static void main(int argc, char** argv);

    // Inside a running QApplication.
    explicit VorlanoApp(Entorno entorno, QObject* padre = nullptr);
    ~VorlanoApp() override;

    // Becomes the instance that later starts hand their links to; false when
    // another one already is.
    bool escuchar();
    Instancia& instancia() { return instancia_; }

    Estado& estado() { return estado_; }
    Bandeja& bandeja() { return *bandeja_; }
    // The main window, once loaded.
    QQuickWindow* ventana() const { return ventana_; }
    QQuickWindow* ajustes() const { return ajustes_; }

    // Shows the main window, loading it the first time, and brings it forward.
    void abrirVentanaPrincipal();
    void abrirAjustes();
    // Links delivered to the program: the first one counts; an unknown one,
    // or one of another scheme, changes nothing.
    void abrirEnlaces(const QStringList& urls);

    // The link a "vorlano://{enlace}" text names: the exact scheme, then the
    // host as the raw value; path, query and fragment don't count.
    static std::optional<Enlace> leerEnlace(const QString& url);

Q_SIGNALS:
    // The program should end.
    void salir();

private:
    QQuickWindow* cargar(const char* archivo);
    // Loads the window the first time, shows it and brings it forward.
    void mostrar(QPointer<QQuickWindow>& ventana, const char* archivo);
    void alOcultarse();

    Estado estado_;
    QQmlApplicationEngine motor_;
    QPointer<QQuickWindow> ventana_;
    QPointer<QQuickWindow> ajustes_;
    std::unique_ptr<Bandeja> bandeja_;
    Instancia instancia_;
};
