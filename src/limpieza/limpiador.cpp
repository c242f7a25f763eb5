// SPDX-License-Identifier: GPL-3.0-or-later
#include "limpieza/limpiador.h"

#include "escaner/medicion.h"
#include "plataforma/ejecutar.h"
#include "nucleo/textos.h"
#include "plataforma/borrado.h"
#include "plataforma/papelera.h"
#include "plataforma/sistema.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace {

std::string mensaje(std::string texto, const std::string& nombre)
{
    return rellenar(std::move(texto), {{"nombre", nombre}});
}

} // namespace

Limpiador::Limpiador(Entorno e) : entorno(std::move(e))
{
    const fs::path home = estandarizar(entorno.home);
    // Relative to home, for a folder strictly inside it.
    auto relativa = [&](const fs::path& p) -> std::optional<std::string> {
        const fs::path t = estandarizar(p);
        if (!dentroDe(t, home))
            return std::nullopt;
        return t.native().substr(home.native().size() + 1);
    };
    raices_.assign(std::begin(raicesIntocables), std::end(raicesIntocables));
    raices_.insert(raices_.end(), std::begin(raicesLinux), std::end(raicesLinux));
    for (plataforma::Base b : plataforma::todasLasBases)
        if (auto r = relativa(entorno.base(b)))
            raices_.push_back(std::move(*r));
    for (const fs::path& p : entorno.personales().rutas)
        if (auto r = relativa(p))
            raices_.push_back(std::move(*r));
    papeleras_ = {".Trash", ".local/share/Trash"};
    if (auto r = relativa(entorno.base(plataforma::Base::datos) / "Trash"))
        papeleras_.push_back(std::move(*r));
}

std::optional<fs::path> Limpiador::relativaPermitida(const fs::path& ruta) const
{
    const std::string p = estandarizar(ruta).native();
    const std::string h = estandarizar(entorno.home).native();
    // Strictly inside: "/home/ana2/x" is not inside "/home/ana".
    if (!dentroDe(p, h))
        return std::nullopt;
    const std::string r = p.substr(h.size() + 1);
    // A direct child of the home folder is never allowed, whatever its name.
    size_t piezas = 0;
    for (size_t i = 0; i < r.size();) {
        const size_t fin = std::min(r.find('/', i), r.size());
        if (fin > i)
            ++piezas;
        i = fin + 1;
    }
    if (piezas < 2)
        return std::nullopt;
    if (std::find(raices_.begin(), raices_.end(), r) != raices_.end())
        return std::nullopt;
    for (const std::string& p : papeleras_)
        if (r.starts_with(p) && (r.size() == p.size() || r[p.size()] == '/'))
            return std::nullopt;
    return fs::path(r);
}

bool Limpiador::permitido(const fs::path& ruta) const
{
    return relativaPermitida(ruta).has_value();
}

Resultado Limpiador::limpiar(std::vector<Categoria> categorias, const Progreso& progreso) const
{
    Resultado r;
    r.libreAntes = plataforma::espacioDisco(entorno.home).libre;
    for (const Categoria& c : categorias)
        for (const Elemento& e : c.elementos) {
            if (!e.seleccionado)
                continue;
            if (e.accion) {
                // The command does the cleaning; its paths are not ours to judge.
                progreso(mensaje(tr("Limpiando {nombre}…"), e.nombre));
                ejecutarAccion(e, r);
                continue;
            }
            // One refused path spares the whole item.
            const auto urls = e.urls();
            if (!std::all_of(urls.begin(), urls.end(), [&](const fs::path& u) { return permitido(u); })) {
                r.errores.push_back(mensaje(tr("{nombre}: ruta no permitida, se omitió"), e.nombre));
                continue;
            }
            progreso(mensaje(tr("Limpiando {nombre}…"), e.nombre));
            if (c.modo == Modo::papelera)
                moverElemento(e, r);
            else
                vaciarElemento(e, r);
        }
    r.libreDespues = plataforma::espacioDisco(entorno.home).libre;
    return r;
}

void Limpiador::ejecutarAccion(const Elemento& e, Resultado& r) const
{
    const Accion& a = *e.accion;
    const int64_t antes = a.medir ? tamanoEnDisco(*a.medir) : 0;
    const auto salida = plataforma::ejecutar(a.ejecutable, a.argumentos, limiteAccion);
    if (!salida || salida->codigo != 0) {
        r.errores.push_back(mensaje(tr("{nombre}: no se pudo completar"), e.nombre));
        return;
    }
    // Without a place to measure, the command's effect goes uncounted.
    if (a.medir)
        r.borrado += std::max<int64_t>(0, antes - tamanoEnDisco(*a.medir));
}

std::string Limpiador::motivo(const plataforma::Traslado& t, const std::string& nombre)
{
    switch (t.clase) {
    case plataforma::Clase::enlaceEnRuta:
        return mensaje(tr("{nombre}: es un enlace a otra carpeta, se omitió"), nombre);
    case plataforma::Clase::montaje:
        return mensaje(tr("{nombre}: hay un punto de montaje en su ruta, se omitió"), nombre);
    case plataforma::Clase::conMontaje:
        return mensaje(tr("{nombre}: contiene un punto de montaje, se omitió"), nombre);
    default:
        return nombre + ": " + t.error;
    }
}

std::optional<std::string> Limpiador::moverAPapelera(const fs::path& ruta, const std::string& nombre) const
{
    // The move works on the standardised path below home: ".." after a link
    // would lead elsewhere than the text the rule judged. The item itself may
    // be a link: it goes as a link.
    const auto relativa = relativaPermitida(ruta);
    if (!relativa)
        return mensaje(tr("{nombre}: ruta no permitida, se omitió"), nombre);
    const plataforma::Traslado t = plataforma::moverAPapelera(estandarizar(entorno.home), *relativa);
    if (t.movido)
        return std::nullopt;
    return motivo(t, nombre);
}

void Limpiador::moverElemento(const Elemento& e, Resultado& r) const
{
    for (const fs::path& u : e.urls())
        // What is already in the Trash stays there; the rest isn't tried.
        if (auto fallo = moverAPapelera(u, e.nombre)) {
            r.errores.push_back(std::move(*fallo));
            return;
        }
    // The figure of the analysis, not a new measurement.
    r.enPapelera += e.tamano;
}

void Limpiador::vaciarElemento(const Elemento& e, Resultado& r) const
{
    const auto urls = e.urls();
    int64_t retenido = 0;
    bool rechazado = false;
    for (const fs::path& u : urls) {
        const auto v = vaciar(u, e.nombre, r.errores);
        rechazado = rechazado || !v;
        retenido += v.value_or(0);
    }
    // Only what really went counts: an item that grew counts 0, and a file
    // whose data another hard link keeps frees nothing. A place refused (a
    // link or a mount swapped in since the analysis) keeps what the analysis
    // measured there, which can't be measured now without following it: the
    // item then counts nothing rather than too much.
    if (rechazado)
        return;
    int64_t quedan = 0;
    for (const fs::path& u : urls)
        quedan += tamanoEnDisco(estandarizar(u));
    r.borrado += std::max<int64_t>(0, e.tamano - quedan - retenido);
}

std::optional<int64_t> Limpiador::vaciar(const fs::path& ruta, const std::string& nombre,
                                         std::vector<std::string>& errores) const
{
    // The removal works on the standardised path below home: ".." after a
    // link would lead elsewhere than the text the rule judged.
    const auto relativa = relativaPermitida(ruta);
    if (!relativa) {
        errores.push_back(mensaje(tr("{nombre}: ruta no permitida, se omitió"), nombre));
        return std::nullopt;
    }
    const plataforma::Vaciado v = plataforma::vaciar(estandarizar(entorno.home), *relativa);
    switch (v.clase) {
    case plataforma::Clase::ausente:
        // Gone since the analysis: nothing left to do, nothing to say.
        break;
    case plataforma::Clase::enlace:
    case plataforma::Clase::enlaceEnRuta:
        errores.push_back(mensaje(tr("{nombre}: es un enlace a otra carpeta, se omitió"), nombre));
        return std::nullopt;
    case plataforma::Clase::montaje:
    case plataforma::Clase::conMontaje:
        errores.push_back(mensaje(tr("{nombre}: hay un punto de montaje en su ruta, se omitió"), nombre));
        return std::nullopt;
    case plataforma::Clase::archivo:
        if (!v.error.empty())
            errores.push_back(nombre + ": " + v.error);
        break;
    case plataforma::Clase::carpeta:
        if (!v.error.empty()) {
            // Not opened, so nothing in it went; what is left can't be read either.
            errores.push_back(
                rellenar(tr("{nombre}: no se pudo abrir ({descripción})"), {{"nombre", nombre}, {"descripción", v.error}}));
            return std::nullopt;
        }
        if (v.fallidos > 0)
            errores.push_back(rellenar(tr("{nombre}: {fallidos} de {total} elementos no se pudieron borrar (en uso o "
                                          "protegidos)"),
                                       {{"nombre", nombre},
                                        {"fallidos", std::to_string(v.fallidos)},
                                        {"total", std::to_string(v.total)}}));
        break;
    }
    return v.retenido;
}
