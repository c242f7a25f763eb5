// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The desktop's services that the application talks to: notices on screen
// and the redraw of the desktop widget. Built only into the application.

#include <QObject>
#include <QString>

class QWindow;

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace plataforma {

// Notices of the desktop. One with the same clave as a notice still on
// screen takes its place. Without a notification service nothing shows and
// nothing is reported.
class Notificaciones : public QObject {
    Q_OBJECT
public:
    explicit Notificaciones(QObject* padre = nullptr);

    // Starts listening for the user's answers; once.
    void escuchar();
    // Posts a notice with the default sound; returns at once.
    void mostrar(const std::string& clave, const std::string& titulo, const std::string& cuerpo);

Q_SIGNALS:
    // The user acted on the notice of that clave (clicked it).
    void activada(const QString& clave);

private Q_SLOTS:
    void accionInvocada(uint id, const QString& accion);

private:
    // The desktop's number of the last notice of each clave.
    std::map<std::string, uint32_t> numeros_;
    bool escuchando_ = false;
};

// Asks the desktop widget to draw itself again.
void recargarWidgets();

// Hears recargarWidgets() of any program of the user's session. Without a
// session bus it never fires.
class RecargaWidgets : public QObject {
    Q_OBJECT
public:
    explicit RecargaWidgets(QObject* padre = nullptr);

Q_SIGNALS:
    void recargar();
};

// Before the GUI application object of the desktop widget: the display
// system in which a window can keep its place on the desktop.
void elegirPlataformaWidget();

// Makes a window a desktop widget before it is first shown: no frame, below
// other windows, on every workspace, off the task bar and the pager.
void ponerEnEscritorio(QWindow* ventana);

// Shows the entry selected in the desktop's file manager, or, where none
// answers, opens the folder that holds it. Returns at once.
void mostrarEnArchivos(const std::filesystem::path& ruta);

// The font file of the icon set the screens draw with; empty when missing.
std::filesystem::path fuenteIconos();

// The user asked the desktop for less motion.
bool movimientoReducido();

} // namespace plataforma
