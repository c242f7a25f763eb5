// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The texts of the uninstall screen, from the chosen application and its
// leftovers as the state holds them.

#include "desinstalador/desinstalador.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace textosApps {

// The application's bytes (0 when none is chosen) and those of every ticked leftover.
int64_t totalElegido(const std::optional<AppInstalada>& app, const std::vector<Elemento>& restos);

// Whether removing it goes through the system's password prompt: a snap
// always, anything else when it isn't the user's.
bool pideContrasena(const AppInstalada& app);

// "¿Desinstalar {nombre}?", and the paragraph under it.
std::string tituloConfirmacion(const std::optional<AppInstalada>& app);
std::string mensajeConfirmacion(const std::optional<AppInstalada>& app, const std::vector<Elemento>& restos);

// The line under the application's own row: what it is and who will ask what.
std::string nota(const AppInstalada& app);

// Version and identifier, whichever there is, joined by " · ".
std::string encabezado(const AppInstalada& app);

// The success view's title and line, for the application's name and the outcome.
std::string tituloExito(const std::string& app, const Resultado& r);
std::string detalleExito(const Resultado& r);

} // namespace textosApps
