// SPDX-License-Identifier: GPL-3.0-or-later
// The uninstall state over real bundles of a scratch home.
#include "estado/estado_apps.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "desinstalador/fixturas.h"
#include "estado/comun.h"
#include "estado/historial_compartido.h"
#include "estado/trabajo.h"

#include <QCoreApplication>

#include <unistd.h>

using apoyo::CasaPrueba;

namespace {

std::vector<std::string> nombres(const EstadoApps& e)
{
    std::vector<std::string> r;
    for (const AppInstalada& a : e.apps())
        r.push_back(a.nombre);
    return r;
}

// Every worker done and every result applied.
void terminar()
{
    grupoDeTrabajo()->waitForDone();
    QCoreApplication::processEvents();
}

} // namespace

// The list is built once and measured; a drop chooses, and adds what is new
// in name order; what isn't an application changes nothing.
TEST(EstadoApps, CargarYRecibir)
{
    CasaPrueba casa;
    crearApp(casa.ruta("Applications/Beta.app"), "org.prueba.beta");
    casa.archivo("Applications/Beta.app/Contents/MacOS/beta", 300 * 4096);
    crearApp(casa.ruta("Applications/alfa.app"), "org.prueba.alfa");
    EstadoApps e(casa.entorno());
    QSignalSpy cargando(&e, &EstadoApps::cargandoChanged);
    QSignalSpy medidos(&e, &EstadoApps::tamanosMedidos);
    e.cargar();
    EXPECT_TRUE(e.cargando());
    e.cargar();
    ASSERT_TRUE(esperar(medidos));
    EXPECT_EQ(cargando.count(), 2);
    EXPECT_EQ(nombres(e), (std::vector<std::string>{"alfa", "Beta"}));
    EXPECT_EQ(e.apps()[1].tamano, apoyo::du(casa.ruta("Applications/Beta.app")));
    e.cargar();
    EXPECT_EQ(cargando.count(), 2);

    QSignalSpy elegida(&e, &EstadoApps::elegidaChanged);
    casa.archivo("Documents/nota.txt", 10);
    casa.crearDir("Documents/Falsa.app/Contents");
    e.recibir(casa.ruta("Documents/nota.txt"));
    e.recibir(QUrl::fromLocalFile(QString::fromStdString(casa.ruta("Documents/Falsa.app").string())));
    terminar();
    EXPECT_EQ(elegida.count(), 0);

    // Already listed: chosen at once, with the size measured for the list.
    e.recibir(casa.ruta("Applications/Beta.app"));
    ASSERT_TRUE(e.elegida());
    EXPECT_EQ(e.elegida()->tamano, e.apps()[1].tamano);
    EXPECT_EQ(e.apps().size(), 2u);

    // New, even with an identifier the list would leave out.
    crearApp(casa.ruta("Documents/Gamma.app"), "com.apple.gamma");
    e.recibir(QUrl::fromLocalFile(QString::fromStdString(casa.ruta("Documents/Gamma.app").string())));
    terminar();
    EXPECT_EQ(nombres(e), (std::vector<std::string>{"alfa", "Beta", "Gamma"}));
    ASSERT_TRUE(e.elegida());
    EXPECT_EQ(e.elegida()->nombre, "Gamma");
    EXPECT_EQ(e.elegida()->tamano, apoyo::du(casa.ruta("Documents/Gamma.app")));
}

// Choosing twice in a row shows only the second choice's leftovers; an
// uninstall that fails keeps the application chosen with its error and
// writes no history; one that succeeds takes it out of the list.
TEST(EstadoApps, ElegirYDesinstalar)
{
    CasaPrueba casa;
    apoyo::Variable home("VORLANO_HOME", casa.raiz().string());
    crearApp(casa.ruta("Applications/Alfa.app"), "org.prueba.alfa");
    crearApp(casa.ruta("Applications/Beta.app"), "org.prueba.beta");
    casa.muchos("Library/Application Support/org.prueba.alfa", 3000, 4096);
    casa.archivo("Library/Caches/org.prueba.beta/a", 100 * 4096);
    casa.archivo("Library/Preferences/org.prueba.beta.plist", 200 * 4096);
    EstadoApps e(casa.entorno());
    e.cargar();
    ASSERT_TRUE(esperar(&e, &EstadoApps::tamanosMedidos));

    std::vector<std::string> vistos;
    QObject::connect(e.modeloRestos(), &QAbstractItemModel::modelReset, [&] {
        for (const Elemento& r : e.restos())
            vistos.push_back(r.url.string());
    });
    e.elegir(0);
    e.elegir(1);
    terminar();
    EXPECT_FALSE(e.buscandoRestos());
    ASSERT_EQ(e.restos().size(), 2u);
    // Largest first.
    EXPECT_EQ(e.restos()[0].url, casa.ruta("Library/Preferences/org.prueba.beta.plist"));
    for (const std::string& v : vistos)
        EXPECT_EQ(v.find("alfa"), std::string::npos) << v;

    HistorialCompartido& historial = HistorialCompartido::shared();
    if (::getuid() == 0) {
        // Owned by someone else, and the password prompt refused.
        apoyo::Variable niega("VORLANO_ELEVADOR", "/bin/false");
        ASSERT_EQ(::chown(casa.ruta("Applications/Alfa.app").c_str(), 65534, 65534), 0);
        EstadoApps otra(casa.entorno());
        otra.cargar();
        ASSERT_TRUE(esperar(&otra, &EstadoApps::tamanosMedidos));
        otra.elegir(0);
        terminar();
        ASSERT_TRUE(otra.elegida() && otra.elegida()->deRoot);
        otra.desinstalar();
        ASSERT_TRUE(esperar(&otra, &EstadoApps::resultadoChanged));
        ASSERT_TRUE(otra.resultado());
        EXPECT_EQ(otra.resultado()->second.errores.size(), 1u);
        EXPECT_TRUE(otra.elegida());
        EXPECT_EQ(otra.apps().size(), 2u);
        EXPECT_TRUE(historial.historial().registros().empty());
    }

    e.desinstalar();
    EXPECT_TRUE(e.trabajando());
    ASSERT_TRUE(esperar(&e, &EstadoApps::resultadoChanged));
    EXPECT_FALSE(e.trabajando());
    ASSERT_TRUE(e.resultado());
    EXPECT_EQ(e.resultado()->first, "Beta");
    EXPECT_TRUE(e.resultado()->second.errores.empty());
    EXPECT_EQ(nombres(e), std::vector<std::string>{"Alfa"});
    EXPECT_FALSE(e.elegida());
    EXPECT_TRUE(e.restos().empty());
    ASSERT_EQ(historial.historial().registros().size(), 1u);
    EXPECT_EQ(historial.historial().registros()[0].tipo, "desinstalacion");
    // A new choice clears the last result.
    e.elegir(0);
    EXPECT_FALSE(e.resultado());
    terminar();
}
