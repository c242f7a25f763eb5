// SPDX-License-Identifier: GPL-3.0-or-later
// The uninstall section of the window over real bundles of a scratch home.
#include "pantallas/comun.h"

#include "desinstalador/fixturas.h"
#include "estado/estado_apps.h"
#include "estado/historial_compartido.h"
#include "estado/trabajo.h"

#include <QMimeData>

using pantallas::VentanaPrueba;

namespace {

// The window on the uninstall section, its list built and measured.
EstadoApps* abrirSeccion(VentanaPrueba& v)
{
    auto* apps = v.leer("desinstalar", "estado").value<EstadoApps*>();
    EXPECT_NE(apps, nullptr);
    v.pulsar("seccion-desinstalar");
    EXPECT_TRUE(hasta([&] { return !apps->cargando() && !apps->apps().empty() && apps->apps()[0].tamano > 0; }));
    v.asentar();
    return apps;
}

// The rows of a repeater the pane shows.
std::vector<QQuickItem*> filas(VentanaPrueba& v, const char* repetidor)
{
    std::vector<QQuickItem*> r;
    QObject* rep = v.buscar(repetidor);
    for (int i = 0; i < rep->property("count").toInt(); ++i)
        QMetaObject::invokeMethod(rep, "itemAt", Q_RETURN_ARG(QQuickItem*, r.emplace_back()), Q_ARG(int, i));
    return r;
}

// A drag of those paths over the section, and its drop unless told not to.
void arrastrar(VentanaPrueba& v, const std::vector<fs::path>& rutas, bool soltar = true)
{
    auto* zona = qobject_cast<QQuickItem*>(v.buscar("desinstalar"));
    const QPoint p = zona->mapToScene(QPointF(zona->width() / 2, zona->height() / 2)).toPoint();
    QMimeData datos;
    QList<QUrl> urls;
    // The bytes of each path as they are, whatever their encoding.
    for (const fs::path& r : rutas)
        urls.append(QUrl::fromEncoded("file://" + QByteArray::fromStdString(r.native()).toPercentEncoding("/")));
    datos.setUrls(urls);
    QDragEnterEvent entra(p, Qt::CopyAction, &datos, Qt::LeftButton, {});
    QCoreApplication::sendEvent(v.ventana(), &entra);
    QDragMoveEvent mueve(p, Qt::CopyAction, &datos, Qt::LeftButton, {});
    QCoreApplication::sendEvent(v.ventana(), &mueve);
    if (soltar) {
        QDropEvent suelta(p, Qt::CopyAction, &datos, Qt::LeftButton, {});
        QCoreApplication::sendEvent(v.ventana(), &suelta);
    }
    v.asentar();
}

} // namespace

// Two quick choices show only the second's leftovers, largest first;
// unticking one lowers the total and the question's figures; the uninstall
// hides the button while it runs, then shows the success view without the
// row, with the bundle and its ticked leftovers in the Trash and a history.
// A running application can't be uninstalled until it ends. A bundle the
// system won't let move stays chosen, the error in place of the total, its
// leftovers kept and no new history; the next choice clears the error.
TEST(PantallaDesinstalar, ElegirDesinstalarAbiertaYFallida)
{
    VentanaPrueba v;
    crearApp(v.casa.ruta("Applications/Alfa.app"), "org.prueba.alfa");
    crearApp(v.casa.ruta("Applications/Beta.app"), "org.prueba.beta");
    v.casa.archivo("Applications/Beta.app/Contents/MacOS/beta", 100 * 4096);
    // A slower search than Beta's, so that its answer tends to come last.
    v.casa.muchos("Library/Application Support/org.prueba.alfa", 20000, 0);
    v.casa.archivo("Library/Caches/org.prueba.beta/a", 2 * 4096);
    v.casa.archivo("Library/Preferences/org.prueba.beta.plist", 300 * 4096);
    // Open applications are the machine's: an identifier no other test uses.
    crearApp(v.casa.ruta("Applications/Abierta.app"), "org.prueba.abierta");
    const fs::path gamma = crearApp(v.casa.ruta("Applications/Gamma.app"), "org.prueba.gamma");
    v.casa.archivo("Library/Caches/org.prueba.gamma/a", 40 * 4096);
    auto programa = std::make_unique<apoyo::ProgramaEnMarcha>(v.casa.ruta("Applications/Abierta.app/Contents/MacOS/abierta"));
    EstadoApps* apps = abrirSeccion(v);
    EXPECT_TRUE(v.visible("vacio"));
    EXPECT_FALSE(v.visible("detalle"));
    pantallas::capturar(v.ventana(), "desinstalar-vacio");

    // Both searches wait until both are asked for, then run side by side.
    {
        pantallas::TrabajoRetenido retenido;
        v.pulsar("app-Alfa");
        v.pulsar("app-Beta");
        EXPECT_TRUE(v.visible("buscando"));
    }
    ASSERT_TRUE(grupoDeTrabajo()->waitForDone(120'000));
    ASSERT_TRUE(hasta([&] { return !apps->buscandoRestos(); }));
    v.asentar();
    EXPECT_EQ(v.texto("nombre"), "Beta");
    EXPECT_EQ(v.texto("nota"), "La app");
    std::vector<std::string> nombres;
    for (const QQuickItem* f : filas(v, "restos"))
        nombres.push_back(f->property("nombre").toString().toStdString());
    EXPECT_EQ(nombres, (std::vector<std::string>{"~/Library/Preferences/org.prueba.beta.plist", "~/Library/Caches/org.prueba.beta"}));
    const int64_t app = apoyo::du(v.casa.ruta("Applications/Beta.app"));
    const int64_t cache = apoyo::du(v.casa.ruta("Library/Caches/org.prueba.beta"));
    const int64_t plist = apoyo::du(v.casa.ruta("Library/Preferences/org.prueba.beta.plist"));
    EXPECT_EQ(apps->elegida()->tamano, app);
    EXPECT_EQ(v.texto("total"), "Total: " + formatoBytes(app + cache + plist));
    EXPECT_TRUE(v.leer("botonDesinstalar", "enabled").toBool());
    pantallas::capturar(v.ventana(), "desinstalar-app");

    v.pulsar(filas(v, "restos")[0]->findChild<QQuickItem*>(QStringLiteral("casillaElemento")));
    EXPECT_EQ(v.texto("total"), "Total: " + formatoBytes(app + cache));
    v.pulsar("botonDesinstalar");
    EXPECT_EQ(v.texto("confirmarDesinstalar", "titulo"), "¿Desinstalar Beta?");
    EXPECT_EQ(v.texto("confirmarDesinstalar", "mensaje"),
              "La app y 1 archivo más (" + formatoBytes(app + cache) + ") irán a la Papelera. Puedes recuperarlos desde ahí.");
    pantallas::capturar(v.ventana(), "desinstalar-confirmar");
    {
        pantallas::TrabajoRetenido retenido;
        v.pulsar(v.buscar("confirmarDesinstalar", "aceptar"));
        EXPECT_FALSE(v.visible("botonDesinstalar"));
    }
    ASSERT_TRUE(hasta([&] { return apps->resultado().has_value() && !apps->trabajando(); }));
    v.asentar(400);
    EXPECT_TRUE(v.visible("exito"));
    EXPECT_EQ(v.texto("tituloExito"), "Beta está en la Papelera");
    EXPECT_EQ(v.buscar("app-Beta"), nullptr);
    EXPECT_NE(v.buscar("app-Alfa"), nullptr);
    EXPECT_EQ(enPapelera(), (std::set<std::string>{v.casa.ruta("Applications/Beta.app").string(),
                                                    v.casa.ruta("Library/Caches/org.prueba.beta").string()}));
    EXPECT_TRUE(fs::exists(v.casa.ruta("Library/Preferences/org.prueba.beta.plist")));
    const auto& registros = HistorialCompartido::shared().historial().registros();
    ASSERT_EQ(registros.size(), 1u);
    EXPECT_EQ(registros[0].tipo, "desinstalacion");
    pantallas::capturar(v.ventana(), "desinstalar-exito");

    // The search field filters the list; the chosen one stays in the pane.
    v.pulsar("app-Alfa");
    QObject* buscar = v.buscar("buscar");
    buscar->setProperty("text", QStringLiteral("zz"));
    v.asentar();
    EXPECT_EQ(v.buscar("app-Alfa"), nullptr);
    EXPECT_EQ(v.texto("nombre"), "Alfa");
    buscar->setProperty("text", QStringLiteral("ALF"));
    v.asentar();
    EXPECT_NE(v.buscar("app-Alfa"), nullptr);
    buscar->setProperty("text", QString());
    v.asentar();

    v.pulsar("app-Abierta");
    ASSERT_TRUE(hasta([&] { return !apps->buscandoRestos(); }));
    v.asentar();
    EXPECT_TRUE(v.visible("abierta"));
    EXPECT_FALSE(v.leer("botonDesinstalar", "enabled").toBool());
    EXPECT_TRUE(v.visible("sinRestos"));
    pantallas::capturar(v.ventana(), "desinstalar-abierta");
    programa.reset();
    EXPECT_TRUE(hasta([&] { return !v.visible("abierta"); }));
    EXPECT_TRUE(v.leer("botonDesinstalar", "enabled").toBool());

    const auto chattr = [&](const char* cambio) {
        return apoyo::ejecutarPrograma("/usr/bin/chattr", {cambio, gamma.string()}).estado == 0;
    };
    if (!chattr("+i"))
        GTEST_SKIP() << "este sistema de archivos no admite chattr +i";
    v.pulsar("app-Gamma");
    ASSERT_TRUE(hasta([&] { return !apps->buscandoRestos(); }));
    v.pulsar("botonDesinstalar");
    v.pulsar(v.buscar("confirmarDesinstalar", "aceptar"));
    ASSERT_TRUE(hasta([&] { return apps->resultado().has_value() && !apps->trabajando(); }));
    v.asentar();
    chattr("-i");
    EXPECT_FALSE(v.visible("exito"));
    EXPECT_EQ(v.texto("nombre"), "Gamma");
    EXPECT_NE(v.buscar("app-Gamma"), nullptr);
    EXPECT_FALSE(v.visible("total"));
    ASSERT_EQ(apps->resultado()->second.errores.size(), 1u);
    EXPECT_TRUE(apps->resultado()->second.errores[0].starts_with("Gamma: ")) << apps->resultado()->second.errores[0];
    EXPECT_TRUE(v.visible("errores"));
    EXPECT_TRUE(fs::exists(gamma / "Contents/Info.plist"));
    EXPECT_TRUE(fs::exists(v.casa.ruta("Library/Caches/org.prueba.gamma/a")));
    EXPECT_EQ(registros.size(), 1u);
    pantallas::capturar(v.ventana(), "desinstalar-fallo");
    v.pulsar("app-Abierta");
    ASSERT_TRUE(hasta([&] { return !apps->buscandoRestos(); }));
    v.asentar();
    EXPECT_FALSE(v.visible("errores"));
    EXPECT_TRUE(v.visible("total"));
}

// The list is loaded once. A drop shows the outline while over the section;
// only its first item counts, and only a bundle with its property list: one
// in the list is chosen, a new one (even one the list would leave out) is
// measured and put in its place by name.
TEST(PantallaDesinstalar, Soltar)
{
    VentanaPrueba v;
    crearApp(v.casa.ruta("Applications/Beta.app"), "org.prueba.beta");
    const fs::path aguja = crearApp(v.casa.ruta("Descargas/Aguja.app"), "com.apple.aguja");
    v.casa.archivo("Descargas/Aguja.app/Contents/MacOS/aguja", 30 * 4096);
    const fs::path nota = v.casa.archivo("Documents/nota.txt", 100);
    const fs::path sinInfo = v.casa.crearDir("Documents/x.app/Contents/MacOS");
    const fs::path raro = crearApp(v.casa.ruta("Documents/\xff\xfe.app"), "org.prueba.raro");
    auto* apps = v.leer("desinstalar", "estado").value<EstadoApps*>();
    QSignalSpy cargando(apps, &EstadoApps::cargandoChanged);
    abrirSeccion(v);
    v.pulsar("seccion-resumen");
    v.pulsar("seccion-desinstalar");
    EXPECT_EQ(cargando.count(), 2);

    arrastrar(v, {aguja}, false);
    EXPECT_TRUE(v.visible("contorno"));
    pantallas::capturar(v.ventana(), "desinstalar-soltando");
    QDragLeaveEvent sale;
    QCoreApplication::sendEvent(v.ventana(), &sale);
    v.asentar();
    EXPECT_FALSE(v.visible("contorno"));

    std::vector<fs::path> cincuenta(50, aguja); // at once, the first no application
    cincuenta.front() = nota;
    for (const auto& rutas : std::vector<std::vector<fs::path>>{{nota}, {sinInfo.parent_path().parent_path()}, cincuenta}) {
        arrastrar(v, rutas);
        EXPECT_FALSE(v.visible("contorno"));
        EXPECT_FALSE(apps->elegida()) << rutas.front();
        EXPECT_TRUE(v.visible("vacio")) << rutas.front();
    }
    arrastrar(v, {v.casa.ruta("Applications/Beta.app")});
    ASSERT_TRUE(apps->elegida());
    EXPECT_EQ(apps->elegida()->nombre, "Beta");
    EXPECT_EQ(apps->apps().size(), 1u);
    arrastrar(v, {aguja, nota});
    ASSERT_TRUE(hasta([&] { return apps->elegida()->url == aguja && !apps->buscandoRestos(); }));
    v.asentar();
    EXPECT_EQ(v.texto("nombre"), "Aguja");
    EXPECT_EQ(apps->elegida()->tamano, apoyo::du(aguja));
    ASSERT_EQ(apps->apps().size(), 2u);
    EXPECT_EQ(apps->apps()[0].nombre, "Aguja");
    EXPECT_NE(v.buscar("app-Aguja"), nullptr);
    // A name that isn't UTF-8 reaches the uninstaller as the same bytes.
    arrastrar(v, {raro});
    ASSERT_TRUE(hasta([&] { return apps->elegida()->url == raro && !apps->buscandoRestos(); }));
    v.asentar();
    EXPECT_EQ(v.texto("nombre"), "\uFFFD\uFFFD");
}
