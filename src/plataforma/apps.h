// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace plataforma {

// The program's own application identifier.
inline constexpr const char* identificadorPropio = "app.vorlano.Vorlano";

// One application the user has open, as the system names it.
struct AppAbierta {
    std::optional<std::string> bundle;
    std::optional<std::string> nombre;
};

// The user's open regular applications (those a dock would show; helpers and
// background processes don't count), one entry per application, in the order
// the system lists them.
std::vector<AppAbierta> appsAbiertas();

} // namespace plataforma
