// SPDX-License-Identifier: GPL-3.0-or-later
// The map section of the window over a measured scratch home: its pages,
// selecting and entering tiles, the crumbs, the lock, and a move to the
// Trash redrawn without measuring again; and the tiles' labels by size.
#include "pantallas/comun.h"

#include "estado/comun.h"
#include "estado/estado_mapa.h"
#include "nucleo/textos.h"
#include "pantallas/modelo_baldosas.h"
#include "plataforma/papelera.h"

#include <QTest>

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

TEST(PantallaMapa, MedirElegirEntrarYMover)
{
    VentanaPrueba v;
    v.casa.reservado("Documents/a/datos", 5'000'000);
    v.casa.reservado("Documents/a/notas", 900'000);
    v.casa.reservado("Documents/b", 3'000'000);
    v.casa.reservado("Music/disco", 2'000'000);
    v.casa.muchos("Pictures", 2000, 100);
    auto* mapa = v.buscar("mapa")->property("estado").value<EstadoMapa*>();
    ASSERT_NE(mapa, nullptr);
    v.pulsar("seccion-mapa");
    EXPECT_TRUE(v.visible("inicio"));
    pantallas::capturar(v.ventana(), "mapa-inicio");

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
    EXPECT_EQ(v.leer("barraInferior", "impedimento").toString().toStdString(),
              "Carpeta del sistema o de tu cuenta: no se puede mover desde aquí");
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

    // A file deeper down can be moved: the question, then the tree lowered in place.
    v.pulsar("baldosa-datos");
    const auto datos = hijo(a, "datos");
    ASSERT_EQ(mapa->seleccion(), datos);
    EXPECT_FALSE(v.visible("candado"));
    v.pulsar("moverAPapelera");
    QObject* dialogo = v.buscar("confirmarMover");
    EXPECT_EQ(dialogo->property("titulo").toString().toStdString(), "¿Mover datos a la Papelera?");
    EXPECT_EQ(dialogo->property("mensaje").toString().toStdString(),
              formatoBytes(datos->tamano) + ". Puedes recuperarlo desde la Papelera.");
    pantallas::capturar(v.ventana(), "mapa-confirmar");
    const int64_t antes[] = {a->tamano, docs->tamano, raiz->tamano}, movido = datos->tamano;
    ASSERT_GE(movido, 5'000'000);
    v.pulsar(dialogo->findChild<QQuickItem*>(QStringLiteral("aceptar")));
    ASSERT_TRUE(hasta([&] { return hijo(a, "datos") == nullptr; }));
    v.asentar();
    EXPECT_EQ(a->tamano, antes[0] - movido);
    EXPECT_EQ(docs->tamano, antes[1] - movido);
    EXPECT_EQ(raiz->tamano, antes[2] - movido);
    EXPECT_EQ(v.buscar("baldosa-datos"), nullptr);
    // What is left, below a tile of its own, fills the map as "Otros".
    EXPECT_NE(v.buscar("baldosa-Otros"), nullptr);
    EXPECT_EQ(v.buscar("baldosa-notas"), nullptr);
    EXPECT_EQ(v.texto("tamanoActual"), formatoBytes(a->tamano));
    EXPECT_FALSE(std::filesystem::exists(v.casa.ruta("Documents/a/datos")));

    // A tile, then a crumb: the bar is back at the hint.
    v.pulsar("miga-0");
    v.pulsar("baldosa-Music");
    EXPECT_TRUE(v.visible("seleccion"));
    v.pulsar("miga-0");
    EXPECT_EQ(mapa->actual(), raiz);
    EXPECT_FALSE(mapa->seleccion());
    EXPECT_TRUE(v.visible("pista"));

    // Measuring again keeps the map on screen and hides the button.
    ASSERT_TRUE(v.visible("volverAMedir"));
    v.pulsar("volverAMedir");
    EXPECT_TRUE(v.visible("paginaMapa"));
    EXPECT_FALSE(v.visible("midiendo"));
    if (mapa->midiendo()) {
        EXPECT_FALSE(v.visible("volverAMedir"));
    }
    ASSERT_TRUE(hasta([&] { return !mapa->midiendo(); }));
    v.asentar();
    EXPECT_TRUE(v.visible("volverAMedir"));
}

// The ring while measuring, and a cancel before the first result leaves
// the start page; measuring again runs in full, and a file whose name isn't
// UTF-8 is shown, selected and moved to the Trash by its own bytes.
TEST(PantallaMapa, CancelarYNombreRaro)
{
    VentanaPrueba v;
    const fs::path raro = v.casa.reservado("Documents/\xff\xfe-raro.bin", 2'000'000);
    v.casa.reservado("Documents/otro.bin", 3'000'000);
    auto* mapa = v.buscar("mapa")->property("estado").value<EstadoMapa*>();
    v.pulsar("seccion-mapa");
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
    v.pulsar("baldosa-Documents", true);
    const std::string nombre = "baldosa-\uFFFD\uFFFD-raro.bin";
    v.pulsar(nombre);
    ASSERT_TRUE(mapa->seleccion());
    EXPECT_EQ(mapa->seleccion()->ruta, raro);
    EXPECT_EQ(v.texto("nombreSeleccion"), "\uFFFD\uFFFD-raro.bin");
    v.pulsar("moverAPapelera");
    EXPECT_EQ(v.leer("confirmarMover", "titulo").toString().toStdString(), "¿Mover \uFFFD\uFFFD-raro.bin a la Papelera?");
    v.pulsar(v.buscar("confirmarMover", "aceptar"));
    ASSERT_TRUE(hasta([&] { return !fs::exists(fs::symlink_status(raro)); }));
    v.asentar();
    EXPECT_EQ(v.buscar(nombre.c_str()), nullptr);
    const auto papelera = apoyo::papelera(plataforma::carpetaPapelera().parent_path());
    EXPECT_TRUE(papelera.contains(raro.string()));
}

// Labels only on tiles whose inset cell exceeds 70 by 36; sixty equal
// children all fit in a large area, and none is labelled in a tiny one.
TEST(PantallaMapa, EtiquetasSegunElTamano)
{
    apoyo::CasaPrueba casa;
    for (int i = 0; i < 60; ++i)
        casa.reservado("Iguales/" + std::to_string(100 + i), 100'000);
    EstadoMapa mapa(casa.entorno());
    mapa.medir();
    ASSERT_TRUE(esperar(&mapa, &EstadoMapa::medicionTerminada));
    mapa.entrar(Nodo(hijo(mapa.raiz(), "Iguales")));
    ModeloBaldosas baldosas;
    baldosas.ponerEstado(&mapa);
    baldosas.ponerAncho(1200);
    baldosas.ponerAlto(900);
    ASSERT_GT(baldosas.rowCount(), 0);
    EXPECT_GT(baldosas.conEtiqueta(), 0);
    for (const auto& [ancho, alto] : {std::pair{1200.0, 900.0}, std::pair{400.0, 150.0}, std::pair{72.0, 38.0}}) {
        baldosas.ponerAncho(ancho);
        baldosas.ponerAlto(alto);
        int conEtiqueta = 0;
        for (int i = 0; i < baldosas.rowCount(); ++i) {
            const QModelIndex fila = baldosas.index(i);
            const double w = fila.data(ModeloBaldosas::anchoCelda).toDouble(), h = fila.data(ModeloBaldosas::altoCelda).toDouble();
            EXPECT_LE(fila.data(ModeloBaldosas::izquierda).toDouble() + w, ancho + 0.01);
            EXPECT_EQ(fila.data(ModeloBaldosas::etiqueta).toBool(), w - 3 > 70 && h - 3 > 36) << ancho;
            conEtiqueta += fila.data(ModeloBaldosas::etiqueta).toBool();
        }
        EXPECT_EQ(baldosas.conEtiqueta(), conEtiqueta);
    }
    // A tiny area: colours and tooltips only.
    EXPECT_EQ(baldosas.conEtiqueta(), 0);
}
