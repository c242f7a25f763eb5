// SPDX-License-Identifier: GPL-3.0-or-later
#include "mapa/recorrido.h"

#include "mapa/medidor.h"

#include <fts.h>
#include <sys/stat.h>

#include <algorithm>

namespace {

// Cancellation takes a lock, so it is asked once per this many entries.
constexpr uint64_t entradasPorConsulta = 4096;

int64_t bytes(const FTSENT* e)
{
    return e->fts_statp != nullptr ? int64_t(e->fts_statp->st_blocks) * 512 : 0;
}

// The folders open on the walk's current path. A folder becomes a node only
// when it closes at a million bytes or more, so small folders (and small
// files) cost no allocation and no text; the frames are reused.
class Pila {
public:
    explicit Pila(std::shared_ptr<NodoDisco> t) : tarea(std::move(t)) {}

    bool vacia() const { return alto == 0; }

    void abrir(short nivel, int64_t propios)
    {
        if (alto == marcos.size())
            marcos.emplace_back();
        Marco& m = marcos[alto++];
        m.nivel = nivel;
        m.tamano = propios;
        m.resto = 0;
        m.hijos.clear();
    }

    // Every folder of the entry's level or deeper has ended. A folder that
    // fts hands back itself (FTS_DP, or FTS_DNR/FTS_ERR after its FTS_D)
    // closes by name and may keep a node; any other is folded as a number.
    void cerrarHasta(const FTSENT* e)
    {
        const bool fin = e->fts_info == FTS_DP || e->fts_info == FTS_DNR || e->fts_info == FTS_ERR;
        while (alto > 0 && marcos[alto - 1].nivel >= e->fts_level)
            cerrarTope(fin && marcos[alto - 1].nivel == e->fts_level ? e : nullptr);
    }

    // A walk that stops early folds its open folders, so the bytes seen still
    // reach the task's node.
    void plegarTodo()
    {
        while (alto > 0)
            cerrarTope(nullptr);
    }

    void sumarArchivo(const FTSENT* e, int64_t b)
    {
        Marco& p = marcos[alto - 1];
        p.tamano += b;
        if (b < MedidorMapa::minimoArchivo) {
            p.resto += b;
            return;
        }
        auto nodo = std::make_shared<NodoDisco>(std::string(e->fts_name, e->fts_namelen),
                                                std::string(e->fts_path, e->fts_pathlen), false);
        nodo->tamano = b;
        p.hijos.push_back(std::move(nodo));
    }

private:
    struct Marco {
        short nivel = 0;
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

    // e is the folder's own entry, or null when its name isn't at hand.
    void cerrarTope(const FTSENT* e)
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
        auto nodo = std::make_shared<NodoDisco>(std::string(e->fts_name, e->fts_namelen),
                                                std::string(e->fts_path, e->fts_pathlen), true);
        adoptar(nodo, m);
        p.hijos.push_back(std::move(nodo));
    }

    std::shared_ptr<NodoDisco> tarea;
    std::vector<Marco> marcos;
    size_t alto = 0;
};

} // namespace

Protegidas::Protegidas(const std::filesystem::path& home)
{
    rutas.push_back(home.native());
    rutas.emplace_back("/");
    for (std::string_view r : MedidorMapa::lugaresProtegidos)
        rutas.push_back(home.native() + "/" + std::string(r));
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

// Unreadable folders: fts gives FTS_D and then FTS_DNR for the same entry, with
// no FTS_DP. The DNR closes the folder as a DP would, so its own blocks (all
// that could be seen of it) reach its ancestors. A folder skipped with
// FTS_SKIP comes back as FTS_DP without having been pushed; the level test of
// cerrarHasta ignores it.
void medirTarea(const std::shared_ptr<NodoDisco>& t, const Protegidas& protegidas, ListaSegura& vistas,
                const std::function<bool()>& cancelado)
{
    char* raices[] = {const_cast<char*>(t->ruta.c_str()), nullptr};
    FTS* fts = ::fts_open(raices, FTS_PHYSICAL | FTS_NOCHDIR | FTS_XDEV, nullptr);
    if (fts == nullptr)
        return;
    Pila pila(t);
    uint64_t leidas = 0;
    while (FTSENT* e = ::fts_read(fts)) {
        if (++leidas % entradasPorConsulta == 0 && cancelado && cancelado())
            break;
        pila.cerrarHasta(e);
        const int64_t b = bytes(e);
        switch (e->fts_info) {
        case FTS_D:
            if (e->fts_level > 0 && protegidas.contiene(std::string_view(e->fts_path, e->fts_pathlen))) {
                vistas.agregar(std::string(e->fts_name, e->fts_namelen));
                ::fts_set(fts, e, FTS_SKIP);
            } else {
                pila.abrir(e->fts_level, b);
            }
            break;
        case FTS_F:
        case FTS_SL:
        case FTS_SLNONE:
        case FTS_DEFAULT:
            if (e->fts_level == 0)
                t->tamano = b;
            else if (!pila.vacia())
                pila.sumarArchivo(e, b);
            break;
        default:
            break;
        }
    }
    pila.plegarTodo();
    ::fts_close(fts);
}
