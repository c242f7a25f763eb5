// SPDX-License-Identifier: GPL-3.0-or-later
#include "estado/estado.h"

#include "escaner/apps_abiertas.h"
#include "escaner/escaner.h"
#include "estado/avisos.h"
#include "estado/historial_compartido.h"
#include "estado/trabajo.h"
#include "limpieza/limpiador.h"
#include "nucleo/textos.h"
#include "plataforma/escritorio.h"
#include "plataforma/papelera.h"
#include "plataforma/sesion.h"

#include <QVariantMap>

namespace InicioSesion {

bool activo()
{
    return plataforma::inicioSesionActivo();
}

void cambiar(bool activo)
{
    if (const auto error = plataforma::cambiarInicioSesion(activo))
        plataforma::anotarEnSistema("Vorlano: no se pudo cambiar el inicio de sesión: " + *error);
}

} // namespace InicioSesion

namespace {

QStringList lista(const auto& textos)
{
    QStringList r;
    for (const std::string& t : textos)
        r.append(QString::fromStdString(textoVisible(t)));
    return r;
}

// Progress texts from any thread, delivered to the state on the main thread.
Progreso progresoHacia(Estado* estado)
{
    return [yo = QPointer<Estado>(estado)](const std::string& texto) {
        enHiloPrincipal(yo, [texto](Estado* e) { e->recibirProgreso(texto); });
    };
}

} // namespace

Estado::Estado(Entorno entorno, std::chrono::milliseconds primera, std::chrono::milliseconds periodo, QObject* padre)
    : QObject(padre),
      entorno_(std::move(entorno)),
      modelo_(new ModeloCategorias(categorias_, this)),
      disco_(plataforma::espacioDisco(entorno_.home)),
      abrirAlIniciar_(InicioSesion::activo())
{
    connect(modelo_, &ModeloCategorias::seleccionCambiada, this, &Estado::seleccionChanged);
    reloj_.setInterval(periodo);
    connect(&reloj_, &QTimer::timeout, this, &Estado::revisarEspacio);
    reloj_.start();
    QTimer::singleShot(primera, this, &Estado::revisarEspacio);
}

void Estado::ponerFase(Fase fase)
{
    if (fase == fase_)
        return;
    fase_ = std::move(fase);
    Q_EMIT faseChanged();
}

void Estado::ponerDisco(plataforma::EspacioDisco disco)
{
    if (disco.libre == disco_.libre && disco.total == disco_.total)
        return;
    disco_ = disco;
    Q_EMIT discoChanged();
}

void Estado::recibirProgreso(const std::string& texto)
{
    if (estaTrabajando())
        ponerFase({Fase::Tipo::trabajando, texto});
}

void Estado::analizar()
{
    analizarY({});
}

void Estado::analizarY(std::function<void()> despues)
{
    ponerFase({Fase::Tipo::trabajando, ::tr("Preparando…")});
    enSegundoPlano(
        this,
        [e = entorno_, progreso = progresoHacia(this)] { return Escaner(e).escanear(progreso); },
        [this, despues = std::move(despues)](std::vector<Categoria> nuevas) {
            // All fields first, then the news, in the order the fields were set.
            modelo_->reiniciar([&] { categorias_ = std::move(nuevas); });
            sugeridas_.clear();
            for (const Categoria& c : categorias_)
                if (c.tamanoSeleccionado() > 0)
                    sugeridas_.insert(c.id);
            const auto disco = plataforma::espacioDisco(entorno_.home);
            const bool otroDisco = disco.libre != disco_.libre || disco.total != disco_.total;
            disco_ = disco;
            fase_ = {Fase::Tipo::listo, {}};
            ++analisisID_;
            Q_EMIT seleccionChanged();
            Q_EMIT sugeridasChanged();
            if (otroDisco)
                Q_EMIT discoChanged();
            Q_EMIT faseChanged();
            Q_EMIT analisisIDChanged();
            Q_EMIT analisisTerminado();
            if (despues)
                despues();
        });
}

void Estado::limpiar()
{
    ponerFase({Fase::Tipo::trabajando, ::tr("Limpiando…")});
    // A copy: ticks changed during the cleaning don't reach it.
    enSegundoPlano(
        this,
        [e = entorno_, categorias = categorias_, progreso = progresoHacia(this)] {
            return Limpiador(e).limpiar(categorias, progreso);
        },
        [this](Resultado r) {
            resultado_ = std::move(r);
            ++limpiezas_;
            Q_EMIT resultadoChanged();
            Q_EMIT limpiezasChanged();
            HistorialCompartido::shared().anotar(*resultado_, "limpieza");
            plataforma::recargarWidgets();
            analizarY([this] { Q_EMIT limpiezaTerminada(); });
        });
}

void Estado::vaciarLaPapelera()
{
    enSegundoPlano(
        this, [] { return plataforma::vaciarPapelera(); },
        [this](std::optional<std::string> error) {
            avisoPapelera_ = std::move(error);
            Q_EMIT avisoPapeleraChanged();
            if (!avisoPapelera_ && resultado_ && resultado_->enPapelera != 0) {
                resultado_->enPapelera = 0;
                Q_EMIT resultadoChanged();
            }
            ponerDisco(plataforma::espacioDisco(entorno_.home));
            Q_EMIT papeleraVaciada();
        });
}

void Estado::revisarEspacio()
{
    const auto disco = plataforma::espacioDisco(Entorno::actual().home);
    ponerDisco(disco);
    Avisos::shared().revisar(disco.libre);
}

void Estado::refrescarAppsAbiertas()
{
    const AppsAbiertas abiertas = AppsAbiertas::actuales();
    for (Categoria& c : categorias_)
        for (Elemento& e : c.elementos)
            if (e.revisarUso)
                e.enUso = abiertas.quienUsa(e.nombreUso ? *e.nombreUso : e.url.filename().native(), e.bundles);
    modelo_->refrescar();
    Q_EMIT seleccionChanged();
}

void Estado::cambiarInicioSesion(bool activo)
{
    InicioSesion::cambiar(activo);
    const bool ahora = InicioSesion::activo();
    if (ahora != abrirAlIniciar_) {
        abrirAlIniciar_ = ahora;
        Q_EMIT abrirAlIniciarChanged();
    }
}

bool Estado::marcar(size_t categoria, size_t elemento, bool seleccionado)
{
    ModeloElementos* m = modelo_->elementosDe(int(categoria));
    return m != nullptr && m->marcar(int(elemento), seleccionado);
}

std::vector<std::string> Estado::appsAbiertasSeleccionadas() const
{
    std::set<std::string> apps;
    for (const Categoria& c : categorias_)
        for (const Elemento& e : c.elementos)
            if (e.seleccionado && e.enUso)
                apps.insert(*e.enUso);
    return {apps.begin(), apps.end()};
}

QString Estado::progreso() const
{
    return estaTrabajando() ? QString::fromStdString(fase_.texto) : QString();
}

QVariant Estado::resultadoMapa() const
{
    if (!resultado_)
        return {};
    return QVariantMap{{QStringLiteral("borrado"), qint64(resultado_->borrado)},
                       {QStringLiteral("enPapelera"), qint64(resultado_->enPapelera)},
                       {QStringLiteral("errores"), lista(resultado_->errores)},
                       {QStringLiteral("libreAntes"), qint64(resultado_->libreAntes)},
                       {QStringLiteral("libreDespues"), qint64(resultado_->libreDespues)}};
}

QString Estado::avisoPapeleraTexto() const
{
    return avisoPapelera_ ? QString::fromStdString(textoVisible(*avisoPapelera_)) : QString();
}

QStringList Estado::sugeridasLista() const
{
    return lista(sugeridas_);
}

int64_t Estado::seleccionadoEn(std::optional<Modo> modo) const
{
    int64_t s = 0;
    for (const Categoria& c : categorias_)
        if (!modo || c.modo == *modo)
            s += c.tamanoSeleccionado();
    return s;
}

QStringList Estado::appsAbiertasSeleccionadasLista() const
{
    return lista(appsAbiertasSeleccionadas());
}
