// SPDX-License-Identifier: GPL-3.0-or-later
// The three screens end to end in the window opened on the demo home of
// scripts/casa-demo.sh, driven by clicks as a user would: the default
// cleaning, a move from the map and an uninstall, each checked on disk.
#include "pantallas/comun.h"

#include "desinstalador/fixturas.h"
#include "estado/comun.h"
#include "estado/estado_apps.h"
#include "estado/estado_mapa.h"
#include "estado/historial_compartido.h"
#include "nucleo/formato.h"

using pantallas::VentanaPrueba;

namespace {

bool enLaPapelera(const fs::path& ruta)
{
    return enPapelera().contains(ruta.string());
}

} // namespace

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
    ASSERT_FALSE(e.categorias().empty());
    ASSERT_GT(e.seleccionado(), 0);
    pantallas::capturar(v.ventana(), "demo-resumen");
    v.pulsar("seccion-limpieza");
    for (const Categoria& c : e.categorias())
        if (e.sugeridas().contains(c.id))
            v.pulsar("categoria-" + c.id);
    pantallas::capturar(v.ventana(), "demo-limpieza");

    std::vector<std::pair<fs::path, Modo>> marcados;
    for (const Categoria& c : e.categorias())
        for (const Elemento& el : c.elementos)
            if (el.seleccionado)
                for (const fs::path& u : el.urls())
                    marcados.emplace_back(u, c.modo);
    QSignalSpy limpieza(&v.estado(), &Estado::limpiezaTerminada);
    v.pulsar("limpiar");
    v.pulsar(v.buscar("confirmar", "aceptar"));
    ASSERT_TRUE(esperar(limpieza));
    v.asentar(400);
    ASSERT_TRUE(e.resultado());
    EXPECT_TRUE(e.resultado()->errores.empty()) << e.resultado()->errores.front();
    for (const auto& [ruta, modo] : marcados) {
        if (modo == Modo::papelera)
            EXPECT_TRUE(enLaPapelera(ruta)) << ruta;
        else
            EXPECT_TRUE(!fs::exists(fs::symlink_status(ruta)) || (fs::is_directory(ruta) && fs::is_empty(ruta))) << ruta;
    }
    EXPECT_EQ(v.texto("lineaResultado"), "Liberaste " + formatoBytes(e.resultado()->borrado));
    pantallas::capturar(v.ventana(), "demo-banner");

    // The map: into Vídeos, the film to the Trash, the folder lowered.
    auto* mapa = v.buscar("mapa")->property("estado").value<EstadoMapa*>();
    v.pulsar("seccion-mapa");
    v.pulsar("medir");
    ASSERT_TRUE(hasta([&] { return !mapa->midiendo() && mapa->actual(); }));
    v.asentar(400);
    pantallas::capturar(v.ventana(), "demo-mapa");
    // The places left out are named on every level.
    const std::string protegidas = "No se miden (protegidas por macOS): Fotos.photoslibrary, Mail, Trash.";
    EXPECT_EQ(v.texto("protegidas"), protegidas);
    v.pulsar("baldosa-Vídeos", true);
    const auto videos = mapa->actual();
    ASSERT_EQ(videos->nombre, "Vídeos");
    EXPECT_EQ(v.texto("protegidas"), protegidas);
    const int64_t antes = videos->tamano;
    v.pulsar("baldosa-boda.mov");
    ASSERT_TRUE(mapa->seleccion());
    const int64_t pelicula = mapa->seleccion()->tamano;
    v.pulsar("moverAPapelera");
    v.pulsar(v.buscar("confirmarMover", "aceptar"));
    const fs::path boda = v.casa.ruta("Vídeos/boda.mov");
    ASSERT_TRUE(hasta([&] { return !fs::exists(boda); }));
    v.asentar();
    EXPECT_TRUE(enLaPapelera(boda));
    EXPECT_EQ(videos->tamano, antes - pelicula);
    EXPECT_EQ(v.texto("tamanoActual"), formatoBytes(videos->tamano));

    // The uninstall: Pintor and its preferences to the Trash.
    auto* apps = v.buscar("desinstalar")->property("estado").value<EstadoApps*>();
    v.pulsar("seccion-desinstalar");
    ASSERT_TRUE(hasta([&] { return !apps->cargando() && v.buscar("app-Pintor") != nullptr; }));
    v.asentar();
    v.pulsar("app-Pintor");
    ASSERT_TRUE(hasta([&] { return apps->elegida() && !apps->buscandoRestos(); }));
    v.asentar();
    pantallas::capturar(v.ventana(), "demo-desinstalar");
    v.pulsar("botonDesinstalar");
    v.pulsar(v.buscar("confirmarDesinstalar", "aceptar"));
    ASSERT_TRUE(hasta([&] { return apps->resultado().has_value() && !apps->trabajando(); }));
    v.asentar(400);
    EXPECT_TRUE(v.visible("exito"));
    EXPECT_EQ(v.texto("tituloExito"), "Pintor está en la Papelera");
    EXPECT_TRUE(enLaPapelera(v.casa.ruta("Applications/Pintor.app")));
    EXPECT_TRUE(enLaPapelera(v.casa.ruta("Library/Preferences/com.pintor.app.plist")));
    EXPECT_EQ(v.buscar("app-Pintor"), nullptr);

    // Everything freed is in the history card.
    v.pulsar("seccion-resumen");
    v.asentar(900);
    EXPECT_TRUE(v.visible("historial"));
    EXPECT_EQ(v.texto("totalHistorial"), formatoBytes(HistorialCompartido::shared().total()) + " en total con Vorlano");
    EXPECT_EQ(HistorialCompartido::shared().historial().registros().size(), 3u);
    pantallas::capturar(v.ventana(), "demo-historial");
}
