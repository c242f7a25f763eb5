// SPDX-License-Identifier: GPL-3.0-or-later
// Uninstalling: the bundle to the Trash first, then the chosen leftovers.
// Nothing is deleted, so an uninstall can be undone from the Trash.
#include "desinstalador/desinstalador.h"

#include "limpieza/limpiador.h"
#include "nucleo/textos.h"
#include "plataforma/papelera.h"
#include "plataforma/permiso.h"
#include "plataforma/sistema.h"

#include <cstdlib>

Resultado Desinstalador::desinstalar(const AppInstalada& app, const std::vector<Elemento>& restos) const
{
    Resultado r;
    r.libreAntes = plataforma::espacioDisco(entorno.home).libre;
    // Leftovers of an application that is still installed stay where they are.
    if (auto error = moverAppAPapelera(app)) {
        r.errores.push_back(std::move(*error));
        return r;
    }
    r.enPapelera += app.tamano;

    const Limpiador limpiador(entorno);
    for (const Elemento& e : restos) {
        if (!e.seleccionado)
            continue;
        if (!limpiador.permitido(e.url)) {
            r.errores.push_back(rellenar(tr("{nombre}: ruta no permitida, se omitió"), {{"nombre", e.nombre}}));
            continue;
        }
        if (auto error = plataforma::moverAPapelera(e.url))
            r.errores.push_back(e.nombre + ": " + *error);
        else
            r.enPapelera += e.tamano;
    }
    r.libreDespues = plataforma::espacioDisco(entorno.home).libre;
    return r;
}

std::optional<std::string> Desinstalador::moverAppAPapelera(const AppInstalada& app) const
{
    if (!app.deRoot) {
        if (auto error = plataforma::moverAPapelera(app.url))
            return app.nombre + ": " + *error;
        return std::nullopt;
    }
    // Not the user's to move: the system asks for an administrator's password.
    // Tests name a stand-in for the prompt.
    std::optional<std::string> elevador;
    if (entorno.prueba)
        if (const char* e = std::getenv("VORLANO_ELEVADOR"))
            elevador = e;
    if (plataforma::moverAPapeleraComoAdministrador(app.url, elevador))
        return std::nullopt;
    return rellenar(tr("{nombre}: no se pudo mover a la Papelera (se canceló o falta permiso)"),
                    {{"nombre", app.nombre}});
}
