// SPDX-License-Identifier: GPL-3.0-or-later
#include "mapa/recorrido.h"

#include "mapa/medidor.h"
#include "plataforma/arbol.h"

#include <algorithm>

namespace {

// Cancellation takes a lock, so it is asked once per this many entries.
constexpr uint64_t entradasPorConsulta = 4096;

// The folders open on the walk's current path. A folder becomes a node only
// when it closes at a million bytes or more, so small folders (and small
// files) cost no allocation and no text; the frames are reused.
class Pila {
public:
    explicit Pila(std::shared_ptr<NodoDisco> t) : tarea(std::move(t)) {}

    void abrir(int64_t propios)
    {
        if (alto == marcos.size())
            marcos.emplace_back();
        Marco& m = marcos[alto++];
        m.tamano = propios;
        m.resto = 0;
        m.hijos.clear();
    }

    // The top frame's folder has ended (e is its end): it keeps a node if
    // large enough.
    void terminar(const plataforma::EntradaArbol& e) { cerrarTope(&e); }

    // A walk that stops early folds its open folders, so the bytes seen still
    // reach the task's node.
    void plegarTodo()
    {
        while (alto > 0)
            cerrarTope(nullptr);
    }

    void sumarArchivo(const plataforma::EntradaArbol& e, int64_t b)
    {
        Marco& p = marcos[alto - 1];
        p.tamano += b;
        if (b < MedidorMapa::minimoArchivo) {
            p.resto += b;
            return;
        }
        auto nodo = std::make_shared<NodoDisco>(std::string(e.nombre), std::string(e.ruta), false);
        nodo->tamano = b;
        p.hijos.push_back(std::move(nodo));
    }

private:
    struct Marco {
        int64_t tamano = 0;
        int64_t resto = 0;
        // Children that kept a node; their padre is set when this folder
        // becomes a node itself (a folder holding one is a million bytes too).
        std::vector<std::shared_ptr<NodoDisco>> hijos;
    };

    static void adoptar(const std::shared_ptr<NodoDisco>& nodo, Marco& m)
    {
        nodo->tamano = m.tamano;
        nodo->resto = m.resto;
        nodo->hijos = std::move(m.hijos);
        m.hijos.clear();
        cerrar(*nodo);
        for (auto& h : nodo->hijos)
            h->padre = nodo;
    }

    // e is the folder's end, or null when the walk stopped inside it: then
    // it is folded into its parent as a number.
    void cerrarTope(const plataforma::EntradaArbol* e)
    {
        Marco& m = marcos[--alto];
        if (alto == 0) {
            adoptar(tarea, m);
            return;
        }
        Marco& p = marcos[alto - 1];
        p.tamano += m.tamano;
        if (e == nullptr || m.tamano < MedidorMapa::minimoCarpeta) {
            p.resto += m.tamano;
            m.hijos.clear();
            return;
        }
        auto nodo = std::make_shared<NodoDisco>(std::string(e->nombre), std::string(e->ruta), true);
        adoptar(nodo, m);
        p.hijos.push_back(std::move(nodo));
    }

    std::shared_ptr<NodoDisco> tarea;
    std::vector<Marco> marcos;
    size_t alto = 0;
};

} // namespace

Protegidas::Protegidas(const std::filesystem::path& home, const std::filesystem::path& papelera)
{
    rutas.push_back(home.native());
    rutas.emplace_back("/");
    for (std::string_view r : MedidorMapa::lugaresProtegidos)
        rutas.push_back(home.native() + "/" + std::string(r));
    rutas.push_back(papelera.lexically_normal().native());
}

bool Protegidas::contiene(std::string_view ruta) const
{
    return ruta.ends_with(".photoslibrary") || std::find(rutas.begin(), rutas.end(), ruta) != rutas.end();
}

void cerrar(NodoDisco& nodo)
{
    std::stable_sort(nodo.hijos.begin(), nodo.hijos.end(),
                     [](const auto& a, const auto& b) { return a->tamano > b->tamano; });
    if (nodo.hijos.size() <= MedidorMapa::maxHijos)
        return;
    for (size_t i = MedidorMapa::maxHijos; i < nodo.hijos.size(); ++i)
        nodo.resto += nodo.hijos[i]->tamano;
    nodo.hijos.resize(MedidorMapa::maxHijos);
}

// Every folder the walk opens a frame for ends exactly once (finCarpeta, or
// ilegible when it couldn't be opened, with its own blocks as all that was
// seen), and the end closes its frame; pruned protected places get no frame
// and no end. The first entry is the task's own.
void medirTarea(const std::shared_ptr<NodoDisco>& t, const Protegidas& protegidas, ListaSegura& vistas,
                const std::function<bool()>& cancelado)
{
    Pila pila(t);
    uint64_t leidas = 0;
    plataforma::recorrerArbol(t->ruta, [&](const plataforma::EntradaArbol& e) {
        if (++leidas % entradasPorConsulta == 0 && cancelado && cancelado())
            return plataforma::Paso::parar;
        const int64_t b = int64_t(e.st.st_blocks) * 512;
        switch (e.tipo) {
        case plataforma::TipoEntrada::carpeta:
            if (e.nivel > 0 && protegidas.contiene(e.ruta)) {
                vistas.agregar(std::string(e.nombre));
                return plataforma::Paso::podar;
            }
            pila.abrir(b);
            break;
        case plataforma::TipoEntrada::finCarpeta:
        case plataforma::TipoEntrada::ilegible:
            pila.terminar(e);
            break;
        default:
            if (e.nivel == 0)
                t->tamano = b;
            else
                pila.sumarArchivo(e, b);
        }
        return plataforma::Paso::seguir;
    });
    pila.plegarTodo();
}
