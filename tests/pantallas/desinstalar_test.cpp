// SPDX-License-Identifier: GPL-3.0-or-later
// The uninstall section of the window over real bundles of a scratch home:
// choosing, unticking, the question, the uninstall into the Trash, and an
// application that runs.
#include "pantallas/comun.h"

#include "desinstalador/fixturas.h"
#include "estado/comun.h"
#include "estado/estado_apps.h"
#include "estado/trabajo.h"
#include "nucleo/textos.h"

#include <QMimeData>

using pantallas::VentanaPrueba;

namespace {

// The window on the uninstall section, its list built and measured.
EstadoApps* abrirSeccion(VentanaPrueba& v)
{
    auto* apps = v.buscar("desinstalar")->property("estado").value<EstadoApps*>();
    EXPECT_NE(apps, nullptr);
    v.pulsar("seccion-desinstalar");
    EXPECT_TRUE(hasta([&] { return !apps->cargando() && !apps->apps().empty() && apps->apps()[0].tamano > 0; }));
    v.asentar();
    return apps;
}

// The names of the leftover rows the pane shows.
std::vector<std::string> filasRestos(VentanaPrueba& v)
{
    std::vector<std::string> r;
    auto* repetidor = v.buscar("restos");
    for (int i = 0; i < repetidor->property("count").toInt(); ++i) {
        QQuickItem* fila = nullptr;
        QMetaObject::invokeMethod(repetidor, "itemAt", Q_RETURN_ARG(QQuickItem*, fila), Q_ARG(int, i));
        r.push_back(fila->property("nombre").toString().toStdString());
    }
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

// chattr +i for as long as it lives, where the file system has it.
class Inmutable {
public:
    explicit Inmutable(fs::path p) : ruta_(std::move(p))
    {
        activo_ = apoyo::ejecutarPrograma("/usr/bin/chattr", {"+i", ruta_.string()}).estado == 0;
    }
    ~Inmutable()
    {
        if (activo_)
            apoyo::ejecutarPrograma("/usr/bin/chattr", {"-i", ruta_.string()});
    }
    bool activo() const { return activo_; }

private:
    fs::path ruta_;
    bool activo_ = false;
};

} // namespace

// Choosing one application and at once another shows only the second's
// leftovers; unticking one lowers the total and the question's figures;
// the uninstall empties the pane into the success view, takes the row away
// and leaves the bundle and its ticked leftovers in the Trash.
TEST(PantallaDesinstalar, ElegirMarcarYDesinstalar)
{
    VentanaPrueba v;
    crearApp(v.casa.ruta("Applications/Alfa.app"), "org.prueba.alfa");
    crearApp(v.casa.ruta("Applications/Beta.app"), "org.prueba.beta");
    v.casa.archivo("Applications/Beta.app/Contents/MacOS/beta", 100 * 4096);
    // A slower search than Beta's, so that its answer tends to come last.
    v.casa.muchos("Library/Application Support/org.prueba.alfa", 20000, 0);
    v.casa.archivo("Library/Caches/org.prueba.beta/a", 300 * 4096);
    v.casa.archivo("Library/Preferences/org.prueba.beta.plist", 2 * 4096);
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
    // Both have ended and both answers have come back, in whatever order.
    ASSERT_TRUE(grupoDeTrabajo()->waitForDone(120'000));
    ASSERT_TRUE(hasta([&] { return !apps->buscandoRestos(); }));
    v.asentar();
    v.asentar();
    EXPECT_EQ(v.texto("nombre"), "Beta");
    EXPECT_EQ(v.texto("nota"), "La app");
    EXPECT_EQ(filasRestos(v), (std::vector<std::string>{"~/Library/Caches/org.prueba.beta", "~/Library/Preferences/org.prueba.beta.plist"}));
    const int64_t app = apps->elegida()->tamano;
    ASSERT_GT(app, 0);
    const int64_t cache = apoyo::du(v.casa.ruta("Library/Caches/org.prueba.beta"));
    const int64_t plist = apoyo::du(v.casa.ruta("Library/Preferences/org.prueba.beta.plist"));
    EXPECT_EQ(v.texto("total"), "Total: " + formatoBytes(app + cache + plist));
    EXPECT_TRUE(v.leer("botonDesinstalar", "enabled").toBool());
    pantallas::capturar(v.ventana(), "desinstalar-app");

    // The first leftover's box unticked.
    QQuickItem* primera = nullptr;
    QMetaObject::invokeMethod(v.buscar("restos"), "itemAt", Q_RETURN_ARG(QQuickItem*, primera), Q_ARG(int, 0));
    v.pulsar(primera->findChild<QQuickItem*>(QStringLiteral("casillaElemento")));
    EXPECT_EQ(v.texto("total"), "Total: " + formatoBytes(app + plist));
    v.pulsar("botonDesinstalar");
    QObject* dialogo = v.buscar("confirmarDesinstalar");
    ASSERT_TRUE(dialogo->property("opened").toBool() || dialogo->property("visible").toBool());
    EXPECT_EQ(dialogo->property("titulo").toString().toStdString(), "¿Desinstalar Beta?");
    EXPECT_EQ(dialogo->property("mensaje").toString().toStdString(),
              "La app y 1 archivo más (" + formatoBytes(app + plist) +
                  ") irán a la Papelera. Puedes recuperarlos desde ahí.");
    pantallas::capturar(v.ventana(), "desinstalar-confirmar");

    v.pulsar(dialogo->findChild<QQuickItem*>(QStringLiteral("aceptar")));
    ASSERT_TRUE(hasta([&] { return apps->resultado().has_value() && !apps->trabajando(); }));
    v.asentar(400);
    EXPECT_TRUE(v.visible("exito"));
    EXPECT_EQ(v.texto("tituloExito"), "Beta está en la Papelera");
    EXPECT_EQ(v.buscar("app-Beta"), nullptr);
    EXPECT_NE(v.buscar("app-Alfa"), nullptr);
    EXPECT_EQ(enPapelera(), (std::set<std::string>{v.casa.ruta("Applications/Beta.app").string(),
                                                    v.casa.ruta("Library/Preferences/org.prueba.beta.plist").string()}));
    EXPECT_TRUE(fs::exists(v.casa.ruta("Library/Caches/org.prueba.beta/a")));
    pantallas::capturar(v.ventana(), "desinstalar-exito");

    // The search field filters the list; the chosen one stays in the pane.
    v.pulsar("app-Alfa");
    auto* buscar = v.buscar("buscar");
    buscar->setProperty("text", QStringLiteral("zz"));
    v.asentar();
    EXPECT_EQ(v.buscar("app-Alfa"), nullptr);
    EXPECT_EQ(v.texto("nombre"), "Alfa");
    buscar->setProperty("text", QStringLiteral("ALF"));
    v.asentar();
    EXPECT_NE(v.buscar("app-Alfa"), nullptr);
}

// An application that runs can't be uninstalled: the warning shows and the
// button is off, until it ends. Open applications are the machine's, so the
// running one has an identifier no test run beside this one uses.
TEST(PantallaDesinstalar, AbiertaNoSeDesinstala)
{
    VentanaPrueba v;
    crearApp(v.casa.ruta("Applications/Beta.app"), "org.prueba.abierta");
    auto programa = std::make_unique<apoyo::ProgramaEnMarcha>(v.casa.ruta("Applications/Beta.app/Contents/MacOS/beta"));
    EstadoApps* apps = abrirSeccion(v);
    v.pulsar("app-Beta");
    ASSERT_TRUE(hasta([&] { return !apps->buscandoRestos(); }));
    v.asentar();
    EXPECT_TRUE(v.visible("abierta"));
    EXPECT_FALSE(v.leer("botonDesinstalar", "enabled").toBool());
    EXPECT_TRUE(v.visible("sinRestos"));
    pantallas::capturar(v.ventana(), "desinstalar-abierta");

    programa.reset();
    EXPECT_TRUE(hasta([&] { return !v.visible("abierta"); }));
    EXPECT_TRUE(v.leer("botonDesinstalar", "enabled").toBool());
}

// A bundle the system won't let move stays chosen, with the error in the
// footer in place of the total; its leftovers stay where they were.
TEST(PantallaDesinstalar, MovimientoFallido)
{
    VentanaPrueba v;
    const fs::path bundle = crearApp(v.casa.ruta("Applications/Gamma.app"), "org.prueba.gamma");
    v.casa.archivo("Library/Caches/org.prueba.gamma/a", 40 * 4096);
    EstadoApps* apps = abrirSeccion(v);
    const Inmutable fija(bundle);
    if (!fija.activo())
        GTEST_SKIP() << "este sistema de archivos no admite chattr +i";
    v.pulsar("app-Gamma");
    ASSERT_TRUE(hasta([&] { return !apps->buscandoRestos(); }));
    v.pulsar("botonDesinstalar");
    v.pulsar(v.buscar("confirmarDesinstalar", "aceptar"));
    ASSERT_TRUE(hasta([&] { return apps->resultado().has_value() && !apps->trabajando(); }));
    v.asentar();
    EXPECT_TRUE(v.visible("detalle"));
    EXPECT_FALSE(v.visible("exito"));
    EXPECT_EQ(v.texto("nombre"), "Gamma");
    EXPECT_NE(v.buscar("app-Gamma"), nullptr);
    EXPECT_FALSE(v.visible("total"));
    ASSERT_EQ(apps->resultado()->second.errores.size(), 1u);
    EXPECT_TRUE(apps->resultado()->second.errores[0].starts_with("Gamma: ")) << apps->resultado()->second.errores[0];
    EXPECT_TRUE(v.visible("errores"));
    EXPECT_TRUE(fs::exists(bundle / "Contents/Info.plist"));
    EXPECT_TRUE(fs::exists(v.casa.ruta("Library/Caches/org.prueba.gamma/a")));
    pantallas::capturar(v.ventana(), "desinstalar-fallo");
}

// Dropping on the section: the dashed outline while something is over it;
// only the first item counts, and only an application bundle with its
// property list chooses anything.
TEST(PantallaDesinstalar, Soltar)
{
    VentanaPrueba v;
    crearApp(v.casa.ruta("Applications/Beta.app"), "org.prueba.beta");
    const fs::path suelta = crearApp(v.casa.ruta("Descargas/Suelta.app"), "org.prueba.suelta");
    const fs::path nota = v.casa.archivo("Documents/nota.txt", 100);
    const fs::path sinInfo = v.casa.crearDir("Documents/x.app/Contents/MacOS");
    const fs::path raro = crearApp(v.casa.ruta("Documents/\xff\xfe.app"), "org.prueba.raro");
    EstadoApps* apps = abrirSeccion(v);

    arrastrar(v, {suelta}, false);
    EXPECT_TRUE(v.visible("contorno"));
    pantallas::capturar(v.ventana(), "desinstalar-soltando");
    QDragLeaveEvent sale;
    QCoreApplication::sendEvent(v.ventana(), &sale);
    v.asentar();
    EXPECT_FALSE(v.visible("contorno"));

    std::vector<fs::path> cincuenta{nota, suelta};
    for (int i = 0; i < 48; ++i)
        cincuenta.push_back(v.casa.archivo("Documents/otro" + std::to_string(i), 10));
    for (const auto& rutas : std::vector<std::vector<fs::path>>{
             {nota}, {sinInfo.parent_path().parent_path()}, cincuenta}) {
        arrastrar(v, rutas);
        EXPECT_FALSE(v.visible("contorno"));
        EXPECT_FALSE(apps->elegida()) << rutas.front();
        EXPECT_TRUE(v.visible("vacio")) << rutas.front();
    }
    // A name that isn't UTF-8 reaches the uninstaller as the same bytes.
    arrastrar(v, {raro});
    ASSERT_TRUE(hasta([&] { return apps->elegida() && !apps->buscandoRestos(); }));
    EXPECT_EQ(apps->elegida()->url, raro);
    v.asentar();
    EXPECT_EQ(v.texto("nombre"), "\uFFFD\uFFFD");

    std::swap(cincuenta[0], cincuenta[1]);
    arrastrar(v, cincuenta);
    ASSERT_TRUE(hasta([&] { return apps->elegida()->url == suelta && !apps->buscandoRestos(); }));
    v.asentar();
    EXPECT_EQ(v.texto("nombre"), "Suelta");
    EXPECT_NE(v.buscar("app-Suelta"), nullptr);
}
