// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The system's language services: the translation lookup of user-visible
// texts (a Spanish source string is the key) and the Unicode rules for names.

#include <string>
#include <string_view>
#include <vector>

namespace plataforma {

// The translation of a Spanish source text, UTF-8. Without an installed
// translation (or without a QCoreApplication) this is the text itself.
std::string tr(const char* clave);

// Valid UTF-8 for display: bytes that aren't become U+FFFD. File names are
// bytes and may not be text; this is for the edge where they are shown.
std::string textoVisible(std::string_view bytes);

// The languages the program has texts in; Spanish, the source, always.
std::vector<std::string> idiomasDisponibles();

// The best match of the user's UI languages among those, else "es".
// Computed once per process.
const std::string& localeApp();

// Installs the translation of localeApp() into the running QCoreApplication;
// for Spanish, the catalogue of the system's own wording where there is one.
void instalarTraducciones();

// Lower case for comparisons of names: full Unicode rules for valid UTF-8,
// ASCII only for bytes that aren't text.
std::string minusculas(std::string_view texto);

// Whether the bytes are valid UTF-8.
bool esUtf8(std::string_view bytes);

// Number of characters (code points) of UTF-8 text; invalid bytes count one each.
size_t caracteres(std::string_view texto);

} // namespace plataforma
