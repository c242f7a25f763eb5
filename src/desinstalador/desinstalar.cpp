// SPDX-License-Identifier: GPL-3.0-or-later
// Uninstalling: the application first, then the chosen leftovers. A bundle,
// an AppImage or a home program goes to the Trash, so that it can come back;
// Flatpak and Snap applications are removed by their own tools.
#include "desinstalador/desinstalador.h"

#include "limpieza/limpiador.h"
#include "nucleo/textos.h"
#include "plataforma/paquetes.h"
#include "plataforma/papelera.h"
#include "plataforma/permiso.h"
#include "plataforma/sistema.h"

#include <cstdlib>

Resultado Desinstalador::desinstalar(const AppInstalada& app, const std::vector<Elemento>& restos) const
{
    Resultado r;
    r.libreAntes = plataforma::espacioDisco(entorno.home).libre;
    // Leftovers of an application that is still installed stay where they are.
    const bool porHerramienta = app.tipo == TipoApp::flatpak || app.tipo == TipoApp::snap;
    if (auto error = porHerramienta ? quitarPaquete(app) : moverAppAPapelera(app)) {
        r.errores.push_back(std::move(*error));
        return r;
    }
    // A package tool deletes; the rest can come back from the Trash.
    (porHerramienta ? r.borrado : r.enPapelera) += app.tamano;

    const Limpiador limpiador(entorno);
    for (const Elemento& e : restos) {
        if (!e.seleccionado)
            continue;
        if (auto error = limpiador.moverAPapelera(e.url, e.nombre))
            r.errores.push_back(std::move(*error));
        else
            r.enPapelera += e.tamano;
    }
    r.libreDespues = plataforma::espacioDisco(entorno.home).libre;
    return r;
}

namespace {

// A test-mode stand-in for an outside program, named by the environment.
std::optional<std::string> sustituto(const Entorno& entorno, const char* variable)
{
    if (entorno.prueba)
        if (const char* e = std::getenv(variable))
            return e;
    return std::nullopt;
}

} // namespace

std::optional<std::string> Desinstalador::quitarPaquete(const AppInstalada& app) const
{
    const plataforma::ProgramasPaquetes programas{sustituto(entorno, "VORLANO_FLATPAK"),
                                                  sustituto(entorno, "VORLANO_SNAP"),
                                                  sustituto(entorno, "VORLANO_ELEVADOR"), limitePaquetes};
    const plataforma::AppPaquete paquete{.id = app.bundleID, .carpeta = app.url};
    // The installation is the one whose app/ folder holds it.
    std::string opcion = "--system";
    for (const plataforma::InstalacionFlatpak& i : instalacionesFlatpak())
        if (app.url.parent_path().parent_path() == i.carpeta)
            opcion = i.opcion;
    const plataforma::Desinstalacion d = app.tipo == TipoApp::snap
                                             ? plataforma::quitarSnap(app.bundleID, programas)
                                             : plataforma::quitarFlatpak(paquete, opcion, programas);
    using Estado = plataforma::Desinstalacion::Estado;
    switch (d.estado) {
    case Estado::hecha: return std::nullopt;
    case Estado::sinPrograma:
        return rellenar(tr("{nombre}: no se encontró el programa {programa}"),
                        {{"nombre", app.nombre}, {"programa", d.programa}});
    case Estado::sinRespuesta:
        return rellenar(tr("{nombre}: {programa} no terminó a tiempo"), {{"nombre", app.nombre}, {"programa", d.programa}});
    case Estado::negada:
        return rellenar(tr("{nombre}: no se pudo desinstalar (se canceló o falta permiso)"), {{"nombre", app.nombre}});
    case Estado::fallida:
        // The tool's own words say best what went wrong.
        if (!d.mensaje.empty())
            return app.nombre + ": " + d.mensaje;
        return rellenar(tr("{nombre}: {programa} terminó con el código {codigo}"),
                        {{"nombre", app.nombre}, {"programa", d.programa}, {"codigo", std::to_string(d.codigo)}});
    }
    return std::nullopt;
}

std::optional<std::string> Desinstalador::moverAppAPapelera(const AppInstalada& app) const
{
    if (!app.deRoot) {
        // The bundle lies outside the home and skips the path rule, not the
        // rest: no link or mount point inside it, or in its place, is crossed.
        const plataforma::Traslado t = plataforma::moverAPapelera(app.url);
        if (!t.movido)
            return Limpiador::motivo(t, app.nombre);
        return std::nullopt;
    }
    // Not the user's to move: the system asks for an administrator's password.
    // Tests name a stand-in for the prompt.
    const plataforma::Traslado t =
        plataforma::moverAPapeleraComoAdministrador(app.url, sustituto(entorno, "VORLANO_ELEVADOR"));
    if (t.movido)
        return std::nullopt;
    // What was known before anyone was asked is said as it is.
    if (!t.error.empty())
        return app.nombre + ": " + t.error;
    return rellenar(tr("{nombre}: no se pudo mover a la Papelera (se canceló o falta permiso)"),
                    {{"nombre", app.nombre}});
}
