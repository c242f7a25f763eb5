// SPDX-License-Identifier: GPL-3.0-or-later
// The map section of the window over a scratch home, and the tiles' labels.
#include "pantallas/comun.h"

#include "estado/estado_mapa.h"
#include "estado/historial_compartido.h"
#include "pantallas/modelo_baldosas.h"
#include "plataforma/papelera.h"

using pantallas::VentanaPrueba;
namespace fs = std::filesystem;

namespace {

std::shared_ptr<NodoDisco> hijo(const std::shared_ptr<NodoDisco>& n, std::string_view nombre)
{
    for (const auto& h : n->hijos)
        if (h->nombre == nombre)
            return h;
    return nullptr;
}

} // namespace

// Measuring held, then cancelled back to the start page; measured in full,
// then tiles selected and entered, the lock, a file whose name isn't UTF-8
// moved to the Trash by its own bytes, a move the Trash refuses, the
// crumbs, and measuring again.
TEST(PantallaMapa, MedirElegirEntrarYMover)
{
    VentanaPrueba v;
    const fs::path raro = v.casa.reservado("Documents/a/\xff\xfe-raro.bin", 5'000'000);
    v.casa.reservado("Documents/a/notas", 900'000);
    v.casa.reservado("Documents/b", 3'000'000);
    v.casa.reservado("Music/disco", 2'000'000);
    v.casa.muchos("Pictures", 2000, 100);
    auto* mapa = v.leer("mapa", "estado").value<EstadoMapa*>();
    ASSERT_NE(mapa, nullptr);
    v.pulsar("seccion-mapa");
    EXPECT_TRUE(v.visible("inicio"));
    pantallas::capturar(v.ventana(), "mapa-inicio");
    {
        pantallas::TrabajoRetenido retenido;
        v.pulsar("medir");
        EXPECT_TRUE(v.visible("midiendo"));
        EXPECT_EQ(v.texto("porcentaje"), "0 %");
        pantallas::capturar(v.ventana(), "mapa-midiendo");
        v.pulsar(v.buscar("midiendo", "cancelar"));
        // The page stays until the measurement has noticed.
        EXPECT_TRUE(v.visible("midiendo"));
    }
    ASSERT_TRUE(hasta([&] { return !mapa->midiendo(); }));
    v.asentar();
    EXPECT_TRUE(v.visible("inicio"));
    EXPECT_FALSE(mapa->raiz());

    v.pulsar("medir");
    ASSERT_TRUE(hasta([&] { return !mapa->midiendo() && mapa->actual(); }));
    v.asentar(400);
    EXPECT_TRUE(v.visible("paginaMapa"));
    EXPECT_TRUE(v.visible("pista"));
    const auto raiz = mapa->raiz();
    EXPECT_EQ(v.texto("tamanoActual"), formatoBytes(raiz->tamano));

    // A folder right in home is selected but can't be moved from here.
    v.pulsar("baldosa-Documents");
    EXPECT_EQ(mapa->seleccion(), hijo(raiz, "Documents"));
    EXPECT_TRUE(v.visible("seleccion"));
    EXPECT_TRUE(v.visible("candado"));
    EXPECT_EQ(v.texto("barraInferior", "impedimento"), "Carpeta del sistema o de tu cuenta: no se puede mover desde aquí");
    EXPECT_FALSE(v.visible("moverAPapelera"));
    EXPECT_TRUE(v.visible("abrir"));
    pantallas::capturar(v.ventana(), "mapa-seleccion");

    // Pictures' files are each below a node of their own: no folder mark,
    // and a double click stays where it is.
    EXPECT_FALSE(v.leer("baldosa-Pictures", "abrible").toBool());
    EXPECT_TRUE(v.leer("baldosa-Music", "abrible").toBool());
    v.pulsar("baldosa-Pictures", true);
    EXPECT_EQ(mapa->actual(), raiz);
    v.pulsar("baldosa-Documents", true);
    const auto docs = hijo(raiz, "Documents");
    EXPECT_EQ(mapa->actual(), docs);
    v.pulsar("baldosa-a", true);
    const auto a = hijo(docs, "a");
    ASSERT_EQ(mapa->actual(), a);
    EXPECT_TRUE(v.visible("miga-2"));

    // A file deeper down can be moved: the question, then the tree lowered
    // in place and the move in the history.
    const std::string baldosa = "baldosa-\uFFFD\uFFFD-raro.bin";
    v.pulsar(baldosa);
    const auto datos = hijo(a, raro.filename().native());
    ASSERT_EQ(mapa->seleccion(), datos);
    EXPECT_EQ(datos->ruta, raro);
    EXPECT_EQ(v.texto("nombreSeleccion"), "\uFFFD\uFFFD-raro.bin");
    EXPECT_FALSE(v.visible("candado"));
    v.pulsar("moverAPapelera");
    EXPECT_EQ(v.texto("confirmarMover", "titulo"), "¿Mover \uFFFD\uFFFD-raro.bin a la Papelera?");
    EXPECT_EQ(v.texto("confirmarMover", "mensaje"), formatoBytes(datos->tamano) + ". Puedes recuperarlo desde la Papelera.");
    pantallas::capturar(v.ventana(), "mapa-confirmar");
    const int64_t antes[] = {a->tamano, docs->tamano, raiz->tamano}, movido = datos->tamano;
    ASSERT_GE(movido, 5'000'000);
    v.pulsar(v.buscar("confirmarMover", "aceptar"));
    ASSERT_TRUE(hasta([&] { return hijo(a, raro.filename().native()) == nullptr; }));
    v.asentar();
    EXPECT_EQ(a->tamano, antes[0] - movido);
    EXPECT_EQ(docs->tamano, antes[1] - movido);
    EXPECT_EQ(raiz->tamano, antes[2] - movido);
    EXPECT_TRUE(apoyo::papelera(plataforma::carpetaPapelera().parent_path()).contains(raro.string()));
    EXPECT_EQ(v.buscar(baldosa), nullptr);
    // What is left, below a tile of its own, fills the map as "Otros".
    EXPECT_NE(v.buscar("baldosa-Otros"), nullptr);
    EXPECT_EQ(v.buscar("baldosa-notas"), nullptr);
    EXPECT_EQ(v.texto("tamanoActual"), formatoBytes(a->tamano));
    const auto& registros = HistorialCompartido::shared().historial().registros();
    ASSERT_EQ(registros.size(), 1u);
    EXPECT_EQ(registros[0].tipo, "mapa");
    EXPECT_EQ(registros[0].papelera, movido);

    // A file already gone: the Trash refuses it, the tree stays and the
    // message waits behind the selection.
    v.pulsar("miga-1");
    v.pulsar("baldosa-b");
    fs::remove(v.casa.ruta("Documents/b"));
    v.pulsar("moverAPapelera");
    v.pulsar(v.buscar("confirmarMover", "aceptar"));
    EXPECT_TRUE(mapa->aviso() && mapa->aviso()->starts_with("b: "));
    EXPECT_NE(v.buscar("baldosa-b"), nullptr);
    // A crumb: the selection goes, the message shows in the bar.
    v.pulsar("miga-0");
    EXPECT_EQ(mapa->actual(), raiz);
    EXPECT_FALSE(mapa->seleccion());
    EXPECT_TRUE(v.visible("aviso"));

    // Measuring again keeps the map on screen, hides the button and clears
    // the message; the new map replaces it.
    {
        pantallas::TrabajoRetenido retenido;
        v.pulsar("volverAMedir");
        EXPECT_TRUE(v.visible("paginaMapa"));
        EXPECT_FALSE(v.visible("midiendo"));
        EXPECT_FALSE(v.visible("volverAMedir"));
        EXPECT_TRUE(v.visible("pista"));
    }
    ASSERT_TRUE(hasta([&] { return !mapa->midiendo(); }));
    v.asentar();
    EXPECT_TRUE(v.visible("volverAMedir"));
    EXPECT_NE(mapa->raiz(), raiz);
}

// Labels only on tiles whose inset cell exceeds 70 by 36: some in a large
// area, none in a tiny one.
TEST(PantallaMapa, EtiquetasSegunElTamano)
{
    apoyo::CasaPrueba casa;
    for (int i = 0; i < 60; ++i)
        casa.reservado("Iguales/" + std::to_string(100 + i), 100'000);
    EstadoMapa mapa(casa.entorno());
    QSignalSpy medido(&mapa, &EstadoMapa::medicionTerminada);
    mapa.medir();
    ASSERT_TRUE(esperar(medido));
    mapa.entrar(Nodo(hijo(mapa.raiz(), "Iguales")));
    ModeloBaldosas baldosas;
    baldosas.ponerEstado(&mapa);
    for (const auto& [ancho, alto] : {std::pair{1200.0, 900.0}, std::pair{400.0, 150.0}, std::pair{72.0, 38.0}}) {
        baldosas.ponerAncho(ancho);
        baldosas.ponerAlto(alto);
        ASSERT_GT(baldosas.rowCount(), 0);
        int conEtiqueta = 0;
        for (int i = 0; i < baldosas.rowCount(); ++i) {
            const QModelIndex fila = baldosas.index(i);
            const double w = fila.data(ModeloBaldosas::anchoCelda).toDouble(), h = fila.data(ModeloBaldosas::altoCelda).toDouble();
            EXPECT_LE(fila.data(ModeloBaldosas::izquierda).toDouble() + w, ancho + 0.01);
            EXPECT_EQ(fila.data(ModeloBaldosas::etiqueta).toBool(), w - 3 > 70 && h - 3 > 36) << ancho;
            conEtiqueta += fila.data(ModeloBaldosas::etiqueta).toBool();
        }
        EXPECT_EQ(baldosas.conEtiqueta(), conEtiqueta);
        EXPECT_EQ(conEtiqueta > 0, ancho > 72) << ancho;
    }
}
