// SPDX-License-Identifier: GPL-3.0-or-later
#include "pantallas/textos_apps.h"

#include "nucleo/formato.h"
#include "nucleo/textos.h"

namespace textosApps {
namespace {

// Removed by its package tool rather than moved to the Trash.
bool porHerramienta(const AppInstalada& app)
{
    return app.tipo == TipoApp::flatpak || app.tipo == TipoApp::snap;
}

int64_t marcados(const std::vector<Elemento>& restos)
{
    int64_t n = 0;
    for (const Elemento& e : restos)
        n += e.seleccionado;
    return n;
}

} // namespace

int64_t totalElegido(const std::optional<AppInstalada>& app, const std::vector<Elemento>& restos)
{
    int64_t total = app ? app->tamano : 0;
    for (const Elemento& e : restos)
        if (e.seleccionado)
            total += e.tamano;
    return total;
}

bool pideContrasena(const AppInstalada& app)
{
    return app.tipo == TipoApp::snap || app.deRoot;
}

std::string tituloConfirmacion(const std::optional<AppInstalada>& app)
{
    return rellenar(tr("¿Desinstalar {nombre}?"), {{"nombre", app ? textoVisible(app->nombre) : ""}});
}

std::string mensajeConfirmacion(const std::optional<AppInstalada>& app, const std::vector<Elemento>& restos)
{
    const int64_t n = marcados(restos);
    const std::string bytes = formatoBytes(totalElegido(app, restos));
    std::string r;
    if (app && porHerramienta(*app)) {
        // Its tool deletes it: only the leftovers can come back.
        r = rellenar(n == 1 ? tr("{herramienta} desinstalará la app; 1 archivo más irá a la Papelera, de donde "
                                 "puedes recuperarlo. En total, {bytes}.")
                            : tr("{herramienta} desinstalará la app; {n} archivos más irán a la Papelera, de "
                                 "donde puedes recuperarlos. En total, {bytes}."),
                     {{"herramienta", app->tipo == TipoApp::snap ? "Snap" : "Flatpak"},
                      {"n", std::to_string(n)},
                      {"bytes", bytes}});
    } else {
        r = rellenar(n == 1 ? tr("La app y 1 archivo más ({bytes}) irán a la Papelera. Puedes recuperarlos desde ahí.")
                            : tr("La app y {n} archivos más ({bytes}) irán a la Papelera. Puedes recuperarlos "
                                 "desde ahí."),
                     {{"n", std::to_string(n)}, {"bytes", bytes}});
    }
    if (app && pideContrasena(*app))
        r += "\n\n" + (porHerramienta(*app) ? tr("El sistema te pedirá tu contraseña para desinstalarla.")
                                            : tr("macOS te pedirá tu contraseña para mover la app."));
    return r;
}

std::string nota(const AppInstalada& app)
{
    std::string r = tr("La app");
    switch (app.tipo) {
    case TipoApp::bundle: break;
    case TipoApp::flatpak: r += " · " + (app.deRoot ? tr("Flatpak del sistema") : tr("Flatpak")); break;
    case TipoApp::snap: r += " · " + tr("Snap"); break;
    case TipoApp::appImage: r += " · " + tr("AppImage"); break;
    case TipoApp::enCasa: r += " · " + tr("Programa en tu carpeta personal"); break;
    }
    if (pideContrasena(app))
        r += " · " + (app.tipo == TipoApp::bundle ? tr("macOS te pedirá tu contraseña")
                                                   : tr("el sistema te pedirá tu contraseña"));
    return r;
}

std::string encabezado(const AppInstalada& app)
{
    std::string r = textoVisible(app.version);
    if (!app.bundleID.empty())
        r += (r.empty() ? "" : " · ") + textoVisible(app.bundleID);
    return r;
}

std::string tituloExito(const std::string& app, const Resultado& r)
{
    // A package tool deleted it (borrado): it is not in the Trash.
    return rellenar(r.borrado > 0 ? tr("{app} se desinstaló") : tr("{app} está en la Papelera"),
                    {{"app", textoVisible(app)}});
}

std::string detalleExito(const Resultado& r)
{
    const std::string papelera = formatoBytes(r.enPapelera);
    if (r.borrado > 0)
        return rellenar(tr("Desinstalada: {borrado}. Movido a la Papelera: {bytes}; eso puedes recuperarlo desde ahí."),
                        {{"borrado", formatoBytes(r.borrado)}, {"bytes", papelera}});
    return rellenar(tr("Movido a la Papelera: {bytes}. Si te arrepientes, puedes recuperarla desde ahí."),
                    {{"bytes", papelera}});
}

} // namespace textosApps
