// SPDX-License-Identifier: GPL-3.0-or-later
#include "estado/estado_mapa.h"

#include "escaner/apps_abiertas.h"
#include "estado/historial_compartido.h"
#include "estado/trabajo.h"
#include "limpieza/limpiador.h"
#include "mapa/medidor.h"
#include "nucleo/textos.h"
#include "plataforma/escritorio.h"

#include <algorithm>

namespace {

QString texto(const std::optional<std::string>& t)
{
    return t ? QString::fromStdString(*t) : QString();
}

// How many leading pieces name a folder where applications keep their data:
// Library, and the config and data homes of a Linux desktop. 0 for none.
size_t piezasDeDatos(const std::vector<std::string_view>& piezas)
{
    if (piezas.empty())
        return 0;
    if (piezas[0] == "Library" || piezas[0] == ".config")
        return 1;
    if (piezas[0] == ".local" && piezas.size() > 1 && piezas[1] == "share")
        return 2;
    return 0;
}

} // namespace

QString Nodo::id() const
{
    return nodo ? nodo->id.toString(QUuid::WithoutBraces) : QString();
}

QString Nodo::nombre() const
{
    return nodo ? QString::fromStdString(textoVisible(nodo->nombre)) : QString();
}

QString Nodo::ruta() const
{
    return nodo ? QString::fromStdString(textoVisible(nodo->ruta)) : QString();
}

QVariantList Nodo::hijos() const
{
    QVariantList r;
    if (nodo)
        for (const auto& h : nodo->hijos)
            r.append(QVariant::fromValue(Nodo(h)));
    return r;
}

EstadoMapa::EstadoMapa(QObject* padre) : EstadoMapa(Entorno::actual(), padre) {}

EstadoMapa::EstadoMapa(Entorno entorno, QObject* padre) : QObject(padre), entorno_(std::move(entorno)) {}

void EstadoMapa::medir()
{
    if (!midiendo_) {
        midiendo_ = true;
        Q_EMIT midiendoChanged();
    }
    ponerProgreso(0);
    ponerAviso(std::nullopt);
    cancelar_->poner(false);
    QPointer<EstadoMapa> yo(this);
    enSegundoPlano(
        this,
        [e = entorno_, cancelar = cancelar_, yo] {
            return MedidorMapa(e).medir(
                [yo](int p) { enHiloPrincipal(yo, [p](EstadoMapa* m) { m->ponerProgreso(p); }); },
                [cancelar] { return cancelar->activa(); });
        },
        [this](std::shared_ptr<NodoDisco> nuevo) {
            midiendo_ = false;
            Q_EMIT midiendoChanged();
            // A cancelled measurement leaves whatever was shown before.
            if (!cancelar_->activa()) {
                protegidas_ = MedidorMapa::protegidasEncontradas(*nuevo);
                raiz_ = Nodo(nuevo);
                actual_ = raiz_;
                seleccion_ = {};
                Q_EMIT raizChanged();
                Q_EMIT actualChanged();
                Q_EMIT seleccionChanged();
                Q_EMIT protegidasChanged();
            }
            Q_EMIT medicionTerminada();
        });
}

void EstadoMapa::detener()
{
    cancelar_->poner(true);
}

void EstadoMapa::entrar(const Nodo& nodo)
{
    if (!nodo.nodo || !nodo.nodo->esCarpeta || nodo.nodo->hijos.empty())
        return;
    actual_ = nodo;
    Q_EMIT actualChanged();
    seleccionar({});
}

void EstadoMapa::seleccionar(const Nodo& nodo)
{
    if (nodo == seleccion_)
        return;
    seleccion_ = nodo;
    Q_EMIT seleccionChanged();
}

std::string EstadoMapa::relativa(const NodoDisco& nodo) const
{
    const std::string prefijo = entorno_.home.native() + "/";
    if (nodo.ruta.starts_with(prefijo))
        return nodo.ruta.substr(prefijo.size());
    return nodo.ruta;
}

std::optional<std::string> EstadoMapa::impedimento(const NodoDisco& nodo) const
{
    if (nodo.protegido)
        return ::tr("Protegida por macOS");
    const std::string rel = relativa(nodo);
    const auto piezas = trozos(rel, '/');
    if (!Limpiador(entorno_).permitido(nodo.ruta))
        return ::tr("Carpeta del sistema o de tu cuenta: no se puede mover desde aquí");
    // The data folder itself and the folders right below it belong to the
    // system or to every application at once.
    if (const size_t base = piezasDeDatos(piezas); base > 0 && piezas.size() < base + 2)
        return ::tr("Carpeta del sistema o de tu cuenta: no se puede mover desde aquí");
    return std::nullopt;
}

std::optional<std::string> EstadoMapa::advertencia(const NodoDisco& nodo) const
{
    const std::string rel = relativa(nodo);
    const auto piezas = trozos(rel, '/');
    const size_t base = piezasDeDatos(piezas);
    if (base == 0)
        return std::nullopt;
    // The folder named after an application: in Library one level further
    // down (Application Support/<app>), in the Linux homes right below them.
    const size_t nombre = piezas[0] == "Library" ? 2 : base;
    if (piezas.size() > nombre) {
        const auto app = AppsAbiertas::actuales().quienUsa(piezas[nombre], {});
        if (app)
            return rellenar(::tr("Son datos de {app}, que está abierta. Ciérrala antes."), {{"app", *app}});
    }
    return ::tr("Son datos de una app: puede perder ajustes o archivos guardados.");
}

void EstadoMapa::moverAPapelera(const Nodo& n)
{
    const std::shared_ptr<NodoDisco> nodo = n.nodo;
    if (!nodo || impedimento(*nodo))
        return;
    // The cleaner's own move: no link or mount point on the way is crossed.
    if (const auto error = Limpiador(entorno_).moverAPapelera(nodo->ruta, textoVisible(nodo->nombre))) {
        ponerAviso(*error);
        return;
    }
    // Out of its parent, and every ancestor lighter by the same bytes.
    if (const auto padre = nodo->padre.lock()) {
        std::erase_if(padre->hijos, [&](const auto& h) { return h == nodo; });
        for (auto a = padre; a; a = a->padre.lock())
            a->tamano -= nodo->tamano;
    }
    HistorialCompartido::shared().anotar(Resultado{.enPapelera = nodo->tamano}, "mapa");
    plataforma::recargarWidgets();
    seleccionar({});
    ++version_;
    Q_EMIT versionChanged();
}

QString EstadoMapa::relativa(const Nodo& nodo) const
{
    return nodo.nodo ? QString::fromStdString(textoVisible(relativa(*nodo.nodo))) : QString();
}

QString EstadoMapa::impedimento(const Nodo& nodo) const
{
    return nodo.nodo ? texto(impedimento(*nodo.nodo)) : QString();
}

QString EstadoMapa::advertencia(const Nodo& nodo) const
{
    return nodo.nodo ? texto(advertencia(*nodo.nodo)) : QString();
}

std::vector<std::shared_ptr<NodoDisco>> EstadoMapa::camino() const
{
    std::vector<std::shared_ptr<NodoDisco>> r;
    for (auto n = actual_.nodo; n; n = n->padre.lock())
        r.insert(r.begin(), n);
    return r;
}

QVariantList EstadoMapa::caminoLista() const
{
    QVariantList r;
    for (const auto& n : camino())
        r.append(QVariant::fromValue(Nodo(n)));
    return r;
}

QStringList EstadoMapa::protegidasLista() const
{
    QStringList r;
    for (const std::string& p : protegidas_)
        r.append(QString::fromStdString(textoVisible(p)));
    return r;
}

QString EstadoMapa::avisoTexto() const
{
    return texto(aviso_);
}

void EstadoMapa::ponerProgreso(int64_t p)
{
    if (p == progreso_)
        return;
    progreso_ = p;
    Q_EMIT progresoChanged();
}

void EstadoMapa::ponerAviso(std::optional<std::string> a)
{
    if (a == aviso_)
        return;
    aviso_ = std::move(a);
    Q_EMIT avisoChanged();
}
