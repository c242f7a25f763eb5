// SPDX-License-Identifier: GPL-3.0-or-later
#include "estado/estado_apps.h"

#include "escaner/medicion.h"
#include "estado/historial_compartido.h"
#include "estado/trabajo.h"
#include "nucleo/textos.h"
#include "plataforma/apps.h"
#include "plataforma/escritorio.h"

#include <QVariantMap>

#include <algorithm>

namespace fs = std::filesystem;

namespace {

// Two applications are the same when their bundles have the same path.
auto conRuta(const fs::path& url)
{
    return [&url](const AppInstalada& a) { return a.url == url; };
}

} // namespace

EstadoApps::EstadoApps(QObject* padre) : EstadoApps(Entorno::actual(), padre) {}

EstadoApps::EstadoApps(Entorno entorno, QObject* padre)
    : QObject(padre),
      entorno_(std::move(entorno)),
      modeloApps_(new ModeloApps(apps_, this)),
      modeloRestos_(new ModeloElementos([this]() -> std::vector<Elemento>& { return restos_; }, this))
{
}

void EstadoApps::cargar()
{
    if (!apps_.empty() || cargando_)
        return;
    cargando_ = true;
    Q_EMIT cargandoChanged();
    enSegundoPlano(
        this, [e = entorno_] { return Desinstalador(e).apps(); },
        [this](std::vector<AppInstalada> lista) {
            // A bundle dropped meanwhile stays in the list.
            for (const AppInstalada& a : apps_)
                if (std::none_of(lista.begin(), lista.end(), conRuta(a.url)))
                    lista.push_back(a);
            if (lista.size() > apps_.size())
                Desinstalador::ordenarPorNombre(lista);
            modeloApps_->reiniciar([&] { apps_ = std::move(lista); });
            cargando_ = false;
            Q_EMIT cargandoChanged();
            medirApps();
        });
}

void EstadoApps::medirApps()
{
    std::vector<std::vector<fs::path>> grupos;
    for (const AppInstalada& a : apps_)
        grupos.push_back({a.url});
    enSegundoPlano(
        this, [grupos] { return std::pair(grupos, medirEnParalelo(grupos)); },
        [this](std::pair<std::vector<std::vector<fs::path>>, std::vector<int64_t>> medidas) {
            // By path, not by position: a drop may have changed the list since.
            const auto& [grupos, tamanos] = medidas;
            for (size_t i = 0; i < grupos.size() && i < tamanos.size(); ++i)
                for (AppInstalada& a : apps_)
                    if (a.url == grupos[i].front())
                        a.tamano = tamanos[i];
            modeloApps_->refrescar();
            if (elegida_)
                if (const auto it = std::find_if(apps_.begin(), apps_.end(), conRuta(elegida_->url)); it != apps_.end()) {
                    elegida_ = *it;
                    Q_EMIT elegidaChanged();
                }
            Q_EMIT tamanosMedidos();
        });
}

void EstadoApps::elegir(int fila)
{
    if (fila >= 0 && size_t(fila) < apps_.size())
        elegir(apps_[size_t(fila)]);
}

void EstadoApps::elegir(const AppInstalada& app)
{
    elegida_ = app;
    Q_EMIT elegidaChanged();
    ponerRestos({});
    ponerResultado(std::nullopt);
    ponerBuscando(true);
    enSegundoPlano(
        this, [e = entorno_, app] { return Desinstalador(e).restos(app); },
        [this, url = app.url](std::vector<Elemento> restos) {
            // A newer choice wins; this search just ran out.
            if (!elegida_ || elegida_->url != url)
                return;
            std::stable_sort(restos.begin(), restos.end(),
                             [](const Elemento& a, const Elemento& b) { return a.tamano > b.tamano; });
            ponerRestos(std::move(restos));
            ponerBuscando(false);
        });
}

void EstadoApps::recibir(const QUrl& url)
{
    // The path's bytes as they were, whatever their encoding.
    if (url.isLocalFile())
        recibir(fs::path(QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString()));
}

void EstadoApps::recibir(const fs::path& ruta)
{
    if (ruta.extension() != ".app")
        return;
    const auto app = Desinstalador(entorno_).leer(ruta);
    if (!app)
        return;
    if (const auto it = std::find_if(apps_.begin(), apps_.end(), conRuta(app->url)); it != apps_.end()) {
        elegir(*it);
        return;
    }
    enSegundoPlano(
        this, [a = *app]() mutable {
            a.tamano = tamanoEnDisco(a.url);
            return a;
        },
        [this](AppInstalada a) {
            modeloApps_->reiniciar([&] {
                apps_.push_back(a);
                Desinstalador::ordenarPorNombre(apps_);
            });
            const auto it = std::find_if(apps_.begin(), apps_.end(), conRuta(a.url));
            elegir(it != apps_.end() ? *it : a);
        });
}

void EstadoApps::desinstalar()
{
    if (!elegida_)
        return;
    trabajando_ = true;
    Q_EMIT trabajandoChanged();
    enSegundoPlano(
        this, [e = entorno_, app = *elegida_, restos = restos_] { return Desinstalador(e).desinstalar(app, restos); },
        [this, app = *elegida_](Resultado r) {
            trabajando_ = false;
            Q_EMIT trabajandoChanged();
            ponerResultado(std::pair(app.nombre, r));
            HistorialCompartido::shared().anotar(r, "desinstalacion");
            plataforma::recargarWidgets();
            std::error_code ec;
            if (fs::symlink_status(app.url, ec).type() != fs::file_type::not_found)
                return;
            // Gone: out of the list and out of the pane. A failed or refused
            // move leaves it chosen, with the errors of resultado.
            modeloApps_->reiniciar([&] { std::erase_if(apps_, conRuta(app.url)); });
            elegida_.reset();
            Q_EMIT elegidaChanged();
            ponerRestos({});
        });
}

bool EstadoApps::estaAbierta(int fila) const
{
    return fila >= 0 && size_t(fila) < apps_.size() && estaAbierta(apps_[size_t(fila)]);
}

bool EstadoApps::estaAbierta(const AppInstalada& app) const
{
    if (app.bundleID.empty())
        return false;
    const std::string id = minusculas(app.bundleID);
    const auto abiertas = plataforma::appsAbiertas();
    return std::any_of(abiertas.begin(), abiertas.end(),
                       [&](const plataforma::AppAbierta& a) { return a.bundle && minusculas(*a.bundle) == id; });
}

void EstadoApps::ponerResultado(std::optional<std::pair<std::string, Resultado>> r)
{
    if (!r && !resultado_)
        return;
    resultado_ = std::move(r);
    Q_EMIT resultadoChanged();
}

void EstadoApps::ponerBuscando(bool v)
{
    if (v == buscandoRestos_)
        return;
    buscandoRestos_ = v;
    Q_EMIT buscandoRestosChanged();
}

void EstadoApps::ponerRestos(std::vector<Elemento> r)
{
    if (r.empty() && restos_.empty())
        return;
    modeloRestos_->reiniciar([&] { restos_ = std::move(r); });
}

QVariant EstadoApps::elegidaMapa() const
{
    return elegida_ ? QVariant(mapaDe(*elegida_)) : QVariant();
}

QVariant EstadoApps::resultadoMapa() const
{
    if (!resultado_)
        return {};
    QStringList errores;
    for (const std::string& e : resultado_->second.errores)
        errores.append(textoDe(e));
    return QVariantMap{{QStringLiteral("app"), textoDe(resultado_->first)},
                       {QStringLiteral("borrado"), qint64(resultado_->second.borrado)},
                       {QStringLiteral("enPapelera"), qint64(resultado_->second.enPapelera)},
                       {QStringLiteral("errores"), errores}};
}
