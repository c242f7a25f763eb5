// SPDX-License-Identifier: GPL-3.0-or-later
#include "mapa/medidor.h"

#include "mapa/recorrido.h"
#include "nucleo/paralelo.h"
#include "plataforma/lectura.h"

#include <sys/stat.h>

#include <algorithm>
#include <mutex>

namespace {

// Levels 0 to 2 are listed here; each folder at level 3 is one parallel task.
constexpr int nivelTareas = 3;
constexpr size_t tareasPorAviso = 20;

struct Esqueleto {
    const Protegidas& protegidas;
    ListaSegura& vistas;
    std::vector<std::shared_ptr<NodoDisco>>& tareas;

    // nodo.tamano already holds the folder's own bytes. Small files become
    // numbers at once: totalizar would fold them anyway, and this way no
    // node is made for them.
    void armar(const std::shared_ptr<NodoDisco>& nodo, int nivel)
    {
        if (nivel == nivelTareas) {
            tareas.push_back(nodo);
            return;
        }
        nodo->esqueleto = true;
        for (const std::string& nombre : plataforma::nombresEn(nodo->ruta)) {
            std::string ruta = nodo->ruta + "/" + nombre;
            struct stat st;
            if (::lstat(ruta.c_str(), &st) != 0)
                continue;
            const bool carpeta = S_ISDIR(st.st_mode);
            const int64_t propios = int64_t(st.st_blocks) * 512;
            const bool protegido = protegidas.contiene(ruta);
            if (!carpeta && !protegido && propios < MedidorMapa::minimoArchivo) {
                nodo->tamano += propios;
                nodo->resto += propios;
                continue;
            }
            auto hijo = std::make_shared<NodoDisco>(nombre, std::move(ruta), carpeta);
            hijo->padre = nodo;
            nodo->hijos.push_back(hijo);
            if (protegido) {
                hijo->protegido = true;
                vistas.agregar(nombre);
            } else if (!carpeta) {
                hijo->tamano = propios;
            } else {
                if (nivel + 1 < nivelTareas)
                    hijo->tamano = propios;
                armar(hijo, nivel + 1);
            }
        }
    }
};

// Adds the listed levels up; the folders the tasks measured are closed already.
void totalizar(NodoDisco& nodo)
{
    if (!nodo.esqueleto)
        return;
    for (const auto& h : nodo.hijos) {
        totalizar(*h);
        nodo.tamano += h->tamano;
    }
    std::erase_if(nodo.hijos, [&](const std::shared_ptr<NodoDisco>& h) {
        const int64_t minimo = h->esCarpeta ? MedidorMapa::minimoCarpeta : MedidorMapa::minimoArchivo;
        if (h->protegido || h->tamano >= minimo)
            return false;
        nodo.resto += h->tamano;
        return true;
    });
    cerrar(nodo);
}

} // namespace

std::shared_ptr<NodoDisco> MedidorMapa::medir(const std::function<void(int)>& progreso,
                                              const std::function<bool()>& cancelado) const
{
    // Nothing reads the home folder's own entry: the root has no own bytes.
    auto raiz = std::make_shared<NodoDisco>(entorno.home.filename().native(), entorno.home.native(), true);
    const Protegidas protegidas(entorno.home, entorno.base(plataforma::Base::datos) / "Trash");
    std::vector<std::shared_ptr<NodoDisco>> tareas;
    Esqueleto{protegidas, *vistas, tareas}.armar(raiz, 0);

    std::mutex cerrojo;
    size_t hechas = 0;
    const size_t divisor = std::max<size_t>(tareas.size(), 1);
    enParalelo(tareas.size(), [&](size_t i) {
        if (cancelado && cancelado())
            return;
        medirTarea(tareas[i], protegidas, *vistas, cancelado);
        size_t n;
        {
            std::lock_guard g(cerrojo);
            n = ++hechas;
        }
        if (progreso && n % tareasPorAviso == 0)
            progreso(int(n * 100 / divisor));
    });

    totalizar(*raiz);
    raiz->protegidasVistas = vistas->todos(); // sorted: the set's order
    return raiz;
}
