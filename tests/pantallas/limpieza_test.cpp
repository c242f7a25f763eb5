// SPDX-License-Identifier: GPL-3.0-or-later
// The cleaning list and the summary, driven through the window over a
// scratch home: what each state shows, and a cleaning from the first click
// to the files gone from disk.
#include "pantallas/comun.h"

#include "estado/comun.h"
#include "nucleo/formato.h"

using pantallas::VentanaPrueba;

namespace {

QQuickItem* dentro(VentanaPrueba& v, const char* fila, const char* hijo)
{
    QObject* f = v.buscar(fila);
    return f ? f->findChild<QQuickItem*>(QString::fromUtf8(hijo)) : nullptr;
}

} // namespace

// The summary: no cards before an analysis; after it, a card per category
// and two access cards, and a card's action unfolds only its category.
TEST(Resumen, TarjetasYAcciones)
{
    apoyo::Variable grande("VORLANO_GRANDE_MB", "1");
    VentanaPrueba v;
    v.casa.archivo("Library/Logs/a.log", 200 * 4096);
    v.casa.archivo("Documents/grande.bin", 600 * 4096);
    EXPECT_FALSE(v.visible("tituloTarjetas"));
    EXPECT_FALSE(v.visible("historial"));
    EXPECT_EQ(v.texto("tituloPortada"), "Revisa qué se puede limpiar");
    v.analizar();
    v.asentar(900);
    EXPECT_TRUE(v.visible("tituloTarjetas"));
    EXPECT_TRUE(v.visible("acceso-mapa"));
    EXPECT_TRUE(v.visible("acceso-desinstalar"));
    EXPECT_EQ(v.texto("tituloPortada"), "Puedes liberar " + formatoBytes(v.estado().seleccionado()));
    auto* estadoGrandes = dentro(v, "tarjeta-grandes", "estadoTarjeta");
    ASSERT_NE(estadoGrandes, nullptr);
    EXPECT_EQ(estadoGrandes->property("text").toString().toStdString(), "Sin marcar");
    pantallas::capturar(v.ventana(), "resumen-tarjetas");

    v.ventana()->setProperty("abiertas", QStringList{QStringLiteral("logs")});
    v.pulsar("tarjeta-grandes");
    EXPECT_EQ(v.seccion(), "limpieza");
    const QStringList abiertas = v.ventana()->property("abiertas").toStringList();
    EXPECT_EQ(abiertas, (QStringList{QStringLiteral("logs"), QStringLiteral("grandes")}));
    v.pulsar("seccion-resumen");
    v.pulsar("acceso-mapa");
    EXPECT_EQ(v.seccion(), "mapa");
}
