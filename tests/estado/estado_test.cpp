// SPDX-License-Identifier: GPL-3.0-or-later
// The analysis state over real scans and cleanings of a scratch home.
#include "estado/estado.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "estado/historial_compartido.h"
#include "estado/comun.h"

#include <unistd.h>

using apoyo::CasaPrueba;

namespace {

// The first item of a category, by the category's id.
std::pair<size_t, size_t> fila(const Estado& e, const std::string& id)
{
    for (size_t i = 0; i < e.categorias().size(); ++i)
        if (e.categorias()[i].id == id)
            return {i, 0};
    ADD_FAILURE() << "no category " << id;
    return {0, 0};
}

} // namespace

// An analysis, the application caches of an app opened after it, and the
// ticks that decide what the confirmation names.
TEST(Estado, AnalisisYAppsAbiertas)
{
    CasaPrueba casa;
    // Identifiers of this process: other tests may run programs of their own.
    const std::string id = "org.prueba" + std::to_string(::getpid()) + ".editor";
    casa.archivo("Library/Caches/" + id + "/datos", 200 * 4096);
    casa.archivo("Library/Caches/" + id + ".ayudante/datos", 200 * 4096);
    casa.archivo("Library/Caches/otra.cosa/datos", 200 * 4096);
    casa.archivo("Documents/grande.bin", 600 * 4096);
    apoyo::Variable grande("VORLANO_GRANDE_MB", "1");
    Estado e(casa.entorno());
    QSignalSpy fases(&e, &Estado::faseChanged);
    e.analizar();
    EXPECT_EQ(e.etapa(), 1);
    ASSERT_TRUE(esperar(&e, &Estado::analisisTerminado));
    EXPECT_EQ(e.etapa(), 2);
    EXPECT_EQ(e.analisisID(), 1);
    // The large file is found unticked: its category is no suggestion.
    EXPECT_EQ(e.sugeridas(), (std::set<std::string>{"apps"}));
    EXPECT_EQ(e.seleccionado(), apoyo::du(casa.ruta("Library/Caches")) - apoyo::asignado(casa.ruta("Library/Caches")));
    EXPECT_EQ(e.aBorrar(), e.seleccionado());
    EXPECT_EQ(e.aPapelera(), 0);

    // A progress text that comes after the end changes nothing.
    const int antes = fases.count();
    e.recibirProgreso("Midiendo…");
    EXPECT_EQ(e.etapa(), 2);
    EXPECT_EQ(fases.count(), antes);

    // Ticking through the screen's model moves the sums.
    const auto [grandes, _] = fila(e, "grandes");
    QSignalSpy seleccion(&e, &Estado::seleccionChanged);
    ModeloElementos* m = e.modeloCategorias()->elementosDe(int(grandes));
    ASSERT_NE(m, nullptr);
    EXPECT_TRUE(m->setData(m->index(0), true, ModeloElementos::seleccionado));
    EXPECT_EQ(seleccion.count(), 1);
    EXPECT_EQ(e.aPapelera(), apoyo::asignado(casa.ruta("Documents/grande.bin")));

    // The editor opens: both of its caches name it, once, while either is ticked.
    casa.archivoCon("Applications/Editor.app/Contents/Info.plist",
                    "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" + id +
                        "</string><key>CFBundleName</key><string>Editor de Prueba</string></dict></plist>");
    apoyo::ProgramaEnMarcha editor(casa.ruta("Applications/Editor.app/Contents/MacOS/editor"));
    e.refrescarAppsAbiertas();
    const auto [apps, __] = fila(e, "apps");
    std::vector<size_t> delEditor;
    for (size_t j = 0; j < e.categorias()[apps].elementos.size(); ++j) {
        const Elemento& el = e.categorias()[apps].elementos[j];
        EXPECT_TRUE(el.seleccionado) << el.nombre;
        if (el.enUso)
            delEditor.push_back(j);
    }
    ASSERT_EQ(delEditor.size(), 2u);
    EXPECT_EQ(e.appsAbiertasSeleccionadas(), std::vector<std::string>{"Editor de Prueba"});
    e.marcar(apps, delEditor[0], false);
    EXPECT_EQ(e.appsAbiertasSeleccionadas(), std::vector<std::string>{"Editor de Prueba"});
    e.marcar(apps, delEditor[1], false);
    EXPECT_TRUE(e.appsAbiertasSeleccionadas().empty());
}

// A cleaning ends in a new analysis with its result kept; emptying the Trash
// clears what the result had sent there; a cleaning of nothing counts but
// leaves the history alone.
TEST(Estado, LimpiezaPapeleraYLimpiezaVacia)
{
    CasaPrueba casa;
    apoyo::Variable home("VORLANO_HOME", casa.raiz().string());
    apoyo::Variable grande("VORLANO_GRANDE_MB", "1");
    casa.archivo("Library/Logs/a.log", 200 * 4096);
    casa.archivo("Documents/grande.bin", 600 * 4096);
    Estado e(casa.entorno());
    e.analizar();
    ASSERT_TRUE(esperar(&e, &Estado::analisisTerminado));
    const auto [grandes, _] = fila(e, "grandes");
    e.marcar(grandes, 0, true);

    auto& historial = HistorialCompartido::shared();
    QSignalSpy registros(&historial, &HistorialCompartido::registrosChanged);
    e.limpiar();
    ASSERT_TRUE(esperar(&e, &Estado::limpiezaTerminada));
    ASSERT_TRUE(e.resultado());
    EXPECT_EQ(e.resultado()->borrado, 200 * 4096);
    EXPECT_EQ(e.resultado()->enPapelera, 600 * 4096);
    EXPECT_TRUE(e.resultado()->errores.empty());
    EXPECT_EQ(e.limpiezas(), 1);
    EXPECT_EQ(e.analisisID(), 2);
    EXPECT_EQ(e.etapa(), 2);
    EXPECT_EQ(registros.count(), 1);
    ASSERT_EQ(historial.historial().registros().size(), 1u);
    EXPECT_EQ(historial.historial().registros()[0].tipo, "limpieza");

    e.vaciarLaPapelera();
    ASSERT_TRUE(esperar(&e, &Estado::papeleraVaciada));
    EXPECT_EQ(e.avisoPapelera(), std::nullopt);
    EXPECT_EQ(e.resultado()->enPapelera, 0);
    EXPECT_EQ(e.resultado()->borrado, 200 * 4096);

    // Nothing is left to clean.
    e.limpiar();
    ASSERT_TRUE(esperar(&e, &Estado::limpiezaTerminada));
    EXPECT_EQ(e.limpiezas(), 2);
    EXPECT_EQ(e.analisisID(), 3);
    EXPECT_EQ(e.resultado()->borrado + e.resultado()->enPapelera, 0);
    EXPECT_EQ(registros.count(), 1);
    EXPECT_EQ(Historial(Historial::archivoDe(casa.entorno())).registros().size(), 1u);
}

// The timer keeps the disk figures fresh with no analysis at all.
TEST(Estado, RelojDelDisco)
{
    CasaPrueba casa;
    apoyo::Variable home("VORLANO_HOME", casa.raiz().string());
    Estado e(casa.entorno(), std::chrono::milliseconds(1), std::chrono::milliseconds(20));
    QSignalSpy disco(&e, &Estado::discoChanged);
    casa.archivo("relleno", 20 << 20);
    ASSERT_TRUE(esperar(disco));
    std::filesystem::remove(casa.ruta("relleno"));
    ASSERT_TRUE(esperar(disco, 2));
    EXPECT_EQ(e.etapa(), 0);
    EXPECT_EQ(e.analisisID(), 0);
}
