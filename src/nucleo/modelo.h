// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The records every part of the program speaks: what a removable thing is, how
// things are grouped and how safe a group is, and what a cleaning reports.
// All are plain values.

#include "plataforma/lugares.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

// A command that cleans an item instead of deleting its path.
struct Accion {
    std::string ejecutable;
    std::vector<std::string> argumentos;
    // Where the size difference measures what the command freed.
    std::optional<std::filesystem::path> medir;
};

// One removable thing as the user sees it: one row of a category.
struct Elemento {
    std::filesystem::path url;
    std::string nombre;
    std::optional<std::string> detalle;
    // Allocated bytes; 0 or less means "not measured yet".
    int64_t tamano = 0;
    // Display name of the open application that holds the thing.
    std::optional<std::string> enUso;
    bool seleccionado = false;
    // Bundle identifiers of the applications that own the thing.
    std::vector<std::string> bundles;
    bool revisarUso = false;
    // Name to match against open apps instead of the last path component.
    std::optional<std::string> nombreUso;
    // Further locations measured and removed with this row.
    std::vector<std::filesystem::path> extra;
    std::optional<Accion> accion;

    // Two rows with one path are one thing.
    const std::string& id() const { return url.native(); }
    // url first, then extra in order.
    std::vector<std::filesystem::path> urls() const;
};

// Safety level: lower is safer; ordered by raw value.
enum class Nivel : int { seguro = 0, redescarga = 1, revisar = 2 };
std::string etiqueta(Nivel n);

// How a category's items leave the disk.
enum class Modo { borrar, papelera };

struct Categoria {
    std::string id;
    std::string titulo;
    std::string descripcion;
    std::string icono;
    Nivel nivel = Nivel::seguro;
    Modo modo = Modo::borrar;
    std::vector<Elemento> elementos;

    int64_t tamano() const;
    int64_t tamanoSeleccionado() const;
};

// What one cleaning or uninstalling run reports.
struct Resultado {
    int64_t borrado = 0;
    int64_t enPapelera = 0;
    std::vector<std::string> errores;
    int64_t libreAntes = 0;
    int64_t libreDespues = 0;
};

// One row of a rule table of the scanner: ruta is relative to home, or to
// the base folder of programs' files that base names ($XDG_CACHE_HOME…),
// for the programs that follow it.
struct Regla {
    std::string ruta;
    std::string nombre;
    std::vector<std::string> bundles;
    std::optional<plataforma::Base> base;
};

// The sections of the main window, in display order.
enum class Seccion { resumen, limpieza, mapa, desinstalar };
inline constexpr Seccion todasLasSecciones[] = {Seccion::resumen, Seccion::limpieza, Seccion::mapa,
                                                 Seccion::desinstalar};
std::string valor(Seccion s);
std::string titulo(Seccion s);
std::string icono(Seccion s);

// Deep links of the vorlano:// scheme.
enum class Enlace { resumen, analizar, limpieza, mapa, desinstalar };
inline constexpr Enlace todosLosEnlaces[] = {Enlace::resumen, Enlace::analizar, Enlace::limpieza,
                                             Enlace::mapa, Enlace::desinstalar};
std::string valor(Enlace e);
std::optional<Enlace> enlaceDesde(std::string_view valor);
// "vorlano://" followed by the raw value.
std::string url(Enlace e);
