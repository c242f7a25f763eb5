// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// A snapshot of the applications the user has open, and the judge of whether a
// folder name or owner belongs to one of them. A snapshot never changes.
struct AppsAbiertas {
    struct App {
        std::string bundle; // lower case
        std::string clave;  // first word of the name, lower case; empty if under 4 characters
        std::string nombre; // as shown to the user
    };
    std::vector<App> apps;

    static AppsAbiertas actuales();

    // Builds the entry of one application from what the system says of it.
    static App describir(std::string_view bundle, std::optional<std::string_view> nombre);

    // The display name of the first open application that matches the name or
    // one of the owners; absent if none does.
    std::optional<std::string> quienUsa(std::string_view nombre, const std::vector<std::string>& bundles) const;
};
