// SPDX-License-Identifier: GPL-3.0-or-later
// The window on the demo home, clicked through a state of each screen: the
// screenshots of a home with something in it.
#include "pantallas/comun.h"

#include "estado/estado_apps.h"
#include "estado/estado_mapa.h"

using pantallas::VentanaPrueba;

TEST(Demo, TresPantallas)
{
    // The demo's large files are tens of MB, as its own scan says.
    apoyo::Variable grande("VORLANO_GRANDE_MB", "20");
    VentanaPrueba v(true, [](apoyo::CasaPrueba& casa) { apoyo::crearCasaDemo(casa.raiz()); });
    const Estado& e = v.estado();

    // The summary's button analyses; the cleaning list's button cleans what
    // was ticked by default.
    QSignalSpy analisis(&v.estado(), &Estado::analisisTerminado);
    v.pulsar("accionPortada");
    ASSERT_TRUE(esperar(analisis));
    v.asentar(900);
    ASSERT_GT(e.seleccionado(), 0);
    pantallas::capturar(v.ventana(), "demo-resumen");
    v.pulsar("seccion-limpieza");
    for (const std::string& id : e.sugeridas())
        v.pulsar("categoria-" + id);
    pantallas::capturar(v.ventana(), "demo-limpieza");
    QSignalSpy limpieza(&v.estado(), &Estado::limpiezaTerminada);
    v.pulsar("limpiar");
    v.pulsar(v.buscar("confirmar", "aceptar"));
    ASSERT_TRUE(esperar(limpieza));
    v.asentar(400);
    ASSERT_TRUE(e.resultado());
    EXPECT_TRUE(e.resultado()->errores.empty()) << e.resultado()->errores.front();
    pantallas::capturar(v.ventana(), "demo-banner");

    // The map names the places left out on every level.
    auto* mapa = v.leer("mapa", "estado").value<EstadoMapa*>();
    v.pulsar("seccion-mapa");
    v.pulsar("medir");
    ASSERT_TRUE(hasta([&] { return !mapa->midiendo() && mapa->actual(); }));
    v.asentar(400);
    pantallas::capturar(v.ventana(), "demo-mapa");
    const std::string protegidas = "No se miden (protegidas por macOS): Fotos.photoslibrary, Mail, Trash.";
    EXPECT_EQ(v.texto("protegidas"), protegidas);
    v.pulsar("baldosa-Vídeos", true);
    ASSERT_EQ(mapa->actual()->nombre, "Vídeos");
    EXPECT_EQ(v.texto("protegidas"), protegidas);

    auto* apps = v.leer("desinstalar", "estado").value<EstadoApps*>();
    v.pulsar("seccion-desinstalar");
    ASSERT_TRUE(hasta([&] { return !apps->cargando() && v.buscar("app-Pintor") != nullptr; }));
    v.asentar();
    v.pulsar("app-Pintor");
    ASSERT_TRUE(hasta([&] { return apps->elegida() && !apps->buscandoRestos(); }));
    v.asentar();
    pantallas::capturar(v.ventana(), "demo-desinstalar");

    v.pulsar("seccion-resumen");
    v.asentar(900);
    EXPECT_TRUE(v.visible("historial"));
    pantallas::capturar(v.ventana(), "demo-historial");
}
