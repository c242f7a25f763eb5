// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// User-visible text. Every text the user sees is a Spanish source string looked
// up in the system's translations; the Spanish text is the key. A text that a
// table holds and tr() looks up later is marked QT_TRANSLATE_NOOP("Vorlano", …)
// there, so that the catalogues' extraction (scripts/catalogos.py) finds it too.

#include "plataforma/idioma.h"

#include <QtGlobal>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using plataforma::caracteres;
using plataforma::esUtf8;
using plataforma::idiomasDisponibles;
using plataforma::instalarTraducciones;
using plataforma::localeApp;
using plataforma::minusculas;
using plataforma::textoVisible;
using plataforma::tr;

// Puts each value in place of its "{nombre}" marker; the rest is literal.
std::string rellenar(std::string texto,
                     std::initializer_list<std::pair<std::string_view, std::string_view>> valores);

// The pieces of a text between separators, empty pieces left out.
std::vector<std::string_view> trozos(std::string_view texto, char separador);
