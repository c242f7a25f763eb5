// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The desktop session, as far as it is files and sockets: the one running
// instance of the program, the login item and the system log.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace plataforma {

// The socket through which a second start hands its links to the running
// instance: one per user, and in test mode one per scratch home, so that
// programs working on different homes never meet.
std::filesystem::path rutaInstancia(const std::filesystem::path& home, bool prueba);

// Sends the message to the instance listening at ruta and closes. False,
// quickly, when nobody listens there (no socket, or one left by a crash).
bool entregarAInstancia(const std::filesystem::path& ruta, std::string_view mensaje);

// What can open when the user logs in: the program, or its desktop widget.
enum class Arranque { programa, widget };

// Whether it opens when the user logs in.
bool inicioSesionActivo(Arranque a = Arranque::programa);

// Makes it open, or not, at login. Absent on success, else the reason.
std::optional<std::string> cambiarInicioSesion(bool activo, Arranque a = Arranque::programa);

// Whether a graphical desktop can be reached: a display, or a Qt platform
// chosen by hand (offscreen, for tests and servers).
bool hayEscritorio();

// One line to the system log.
void anotarEnSistema(const std::string& linea);

} // namespace plataforma
