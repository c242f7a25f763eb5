// SPDX-License-Identifier: GPL-3.0-or-later
// The cleaning list and the summary, driven through the window over a
// scratch home.
#include "pantallas/comun.h"

#include "desinstalador/fixturas.h"
#include "estado/historial_compartido.h"
#include "pantallas/filas_limpieza.h"
#include "widget/anfitrion.h"

#include <QTest>

#include <fstream>

#include <unistd.h>

using pantallas::VentanaPrueba;

namespace {

size_t categoria(const Estado& e, std::string_view id)
{
    for (size_t c = 0; c < e.categorias().size(); ++c)
        if (e.categorias()[c].id == id)
            return c;
    ADD_FAILURE() << "no category " << id;
    return 0;
}

// The objectName of an item's row, by its category and its name.
std::string filaDe(const Estado& e, std::string_view id, std::string_view nombre)
{
    const size_t c = categoria(e, id);
    const auto& els = e.categorias()[c].elementos;
    for (size_t i = 0; i < els.size(); ++i)
        if (els[i].nombre == nombre)
            return "elemento-" + std::to_string(c) + "-" + std::to_string(i);
    ADD_FAILURE() << "no item " << nombre << " in " << id;
    return {};
}

// The category checkbox: 0 nothing ticked, 1 all, 2 some.
int marca(VentanaPrueba& v, const char* fila)
{
    return v.buscar(fila, "casillaCategoria")->property("marca").toInt();
}

// The vertical place of a row in the list's content.
double altura(VentanaPrueba& v, const char* fila)
{
    auto* item = qobject_cast<QQuickItem*>(v.buscar(fila));
    return item ? item->mapToItem(nullptr, QPointF()).y() : -1;
}

// The units of the history chart's axis marks.
std::set<std::string> unidades(VentanaPrueba& v)
{
    std::set<std::string> r;
    for (const QQuickItem* m : v.todos("grafico", "marca"))
        r.insert(m->property("text").toString().section(QLatin1Char(' '), 1).toStdString());
    return r;
}

} // namespace

// Before, during and after an analysis that finds nothing; a late progress
// text changes nothing.
TEST(PantallaLimpieza, EstadosDeLaSeccion)
{
    VentanaPrueba v;
    EXPECT_FALSE(v.visible("tituloTarjetas"));
    EXPECT_FALSE(v.visible("historial"));
    EXPECT_EQ(v.texto("tituloPortada"), "Revisa qué se puede limpiar");
    v.pulsar("seccion-limpieza");
    EXPECT_TRUE(v.visible("vacioInicio"));
    EXPECT_FALSE(v.visible("pie"));
    pantallas::capturar(v.ventana(), "limpieza-inicio");

    QSignalSpy fin(&v.estado(), &Estado::analisisTerminado);
    {
        pantallas::TrabajoRetenido retenido;
        v.pulsar(v.buscar("vacioInicio", "botonVacio"));
        ASSERT_TRUE(v.estado().estaTrabajando());
        v.estado().recibirProgreso("Midiendo 12 carpetas…");
        v.asentar();
        EXPECT_TRUE(v.visible("analizando"));
        EXPECT_FALSE(v.visible("vacioInicio"));
        EXPECT_EQ(v.texto("progreso"), "Midiendo 12 carpetas…");
        EXPECT_FALSE(v.leer("volverAnalizar", "enabled").toBool());
        pantallas::capturar(v.ventana(), "limpieza-analizando");
        v.pulsar("seccion-resumen");
        EXPECT_EQ(v.texto("tituloPortada"), "Analizando tu Mac…");
        EXPECT_EQ(v.texto("textoPortada"), "Midiendo 12 carpetas…");
        EXPECT_TRUE(v.leer("anillo", "analizando").toBool());
        pantallas::capturar(v.ventana(), "resumen-analizando");
    }
    ASSERT_TRUE(esperar(fin));
    v.estado().recibirProgreso("Tarde…");
    v.asentar();
    EXPECT_FALSE(v.visible("tituloTarjetas"));
    EXPECT_FALSE(v.visible("acceso-mapa"));
    EXPECT_EQ(v.texto("tituloPortada"), "Lo seguro ya está limpio");
    v.pulsar("seccion-limpieza");
    EXPECT_TRUE(v.visible("todoLimpio"));
    EXPECT_FALSE(v.visible("lista"));
    EXPECT_FALSE(v.visible("pie"));
    pantallas::capturar(v.ventana(), "limpieza-todo-limpio");
}

// An application that opens after the analysis: "Limpiar" finds it and
// names it once for its two caches, which stay ticked. The category checkbox
// never ticks what is in use and clears it when ticked by hand; the split
// stays while ticking; then a category whose every item is in use, and the
// summary's cards.
TEST(PantallaLimpieza, CasillaYAppsAbiertas)
{
    apoyo::Variable grande("VORLANO_GRANDE_MB", "1");
    // Open applications are the machine's: an identifier of this process.
    const std::string id = "org.prueba" + std::to_string(::getpid()) + ".pincel";
    VentanaPrueba v(true, [&](apoyo::CasaPrueba& casa) {
        casa.reservado("Library/Caches/" + id + "/datos", 400 * 4096);
        casa.reservado("Library/Caches/" + id + ".ayudante/datos", 100 * 4096);
        casa.reservado("Library/Caches/otra.cosa/datos", 200 * 4096);
        casa.reservado("Documents/grande.bin", 3'000'000);
        crearBundle(casa.ruta("Applications/Pincel.app"), {{"CFBundleIdentifier", id}, {"CFBundleName", "Pincel Prueba"}});
    });
    v.pulsar("seccion-limpieza");
    v.analizar();
    v.ventana()->setProperty("abiertas", QStringList{QStringLiteral("apps"), QStringLiteral("grandes")});
    v.asentar();
    const Estado& e = v.estado();
    const auto& caches = e.categorias()[categoria(e, "apps")].elementos;
    ASSERT_EQ(caches.size(), 3u);
    EXPECT_EQ(marca(v, "categoria-apps"), 1);

    apoyo::ProgramaEnMarcha pincel(v.casa.ruta("Applications/Pincel.app/Contents/MacOS/pincel"));
    v.pulsar("limpiar");
    int64_t enUso = 0, libre = 0;
    for (const Elemento& el : caches)
        (el.enUso ? enUso : libre) += el.tamano;
    EXPECT_EQ(marca(v, "categoria-apps"), 1);
    EXPECT_EQ(v.texto("confirmar", "mensaje"),
              "Se borrarán " + formatoBytes(enUso + libre) + " de cachés y temporales. Se regeneran solos.\n\n" +
                  "Ojo: Pincel Prueba está abierto. Ciérralo antes para evitar problemas.");
    v.pulsar(v.buscar("confirmar", "cancelar"));
    EXPECT_FALSE(v.visible("confirmar"));
    EXPECT_EQ(v.textoEn("categoria-apps", "lineaEnUso"), formatoBytes(enUso) + " en uso por Pincel Prueba, no se marca.");
    EXPECT_EQ(v.textoEn(filaDe(e, "apps", id), "enUso"), "Pincel Prueba está abierto");
    pantallas::capturar(v.ventana(), "limpieza-lista");

    // Everything is ticked, so the checkbox unticks all; then it ticks the
    // free one alone.
    v.pulsar(v.buscar("categoria-apps", "casillaCategoria"));
    EXPECT_EQ(marca(v, "categoria-apps"), 0);
    EXPECT_EQ(e.seleccionado(), 0);
    EXPECT_TRUE(v.visible("cabecera-listas"));
    EXPECT_FALSE(v.leer("limpiar", "enabled").toBool());
    EXPECT_FALSE(v.visible("insignia"));
    v.pulsar(v.buscar("categoria-apps", "casillaCategoria"));
    EXPECT_EQ(e.seleccionado(), libre);
    EXPECT_TRUE(e.appsAbiertasSeleccionadas().empty());

    // Ticking by hand: one of its two caches, and the large file under the
    // other header, which stays there with its header though now ticked.
    const double antes = altura(v, "categoria-grandes");
    v.pulsar(v.buscar(filaDe(e, "apps", id), "casillaElemento"));
    v.pulsar(v.buscar(filaDe(e, "grandes", "Documents/grande.bin"), "casillaElemento"));
    EXPECT_EQ(marca(v, "categoria-apps"), 2);
    EXPECT_TRUE(v.visible("cabecera-otras"));
    EXPECT_EQ(altura(v, "categoria-grandes"), antes);
    EXPECT_GT(altura(v, "categoria-grandes"), altura(v, "cabecera-otras"));

    v.pulsar("limpiar");
    ASSERT_TRUE(v.visible("confirmar"));
    EXPECT_EQ(v.texto("confirmar", "titulo"), "¿Limpiar " + formatoBytes(e.seleccionado()) + "?");
    const int64_t papelera = apoyo::asignado(v.casa.ruta("Documents/grande.bin"));
    EXPECT_EQ(v.texto("confirmar", "mensaje"),
              "Se borrarán " + formatoBytes(e.seleccionado() - papelera) + " de cachés y temporales. Se regeneran solos.\n\n" +
                  formatoBytes(papelera) + " se moverán a la Papelera (puedes recuperarlos).\n\n" +
                  "Ojo: Pincel Prueba está abierto. Ciérralo antes para evitar problemas.");
    pantallas::capturar(v.ventana(), "limpieza-confirmar");
    v.pulsar(v.buscar("confirmar", "cancelar"));

    // The checkbox clears the item ticked by hand.
    v.pulsar(v.buscar("categoria-apps", "casillaCategoria"));
    EXPECT_EQ(marca(v, "categoria-apps"), 0);
    EXPECT_TRUE(e.appsAbiertasSeleccionadas().empty());

    // Only its caches left: nothing is suggested, the whole category is in
    // use and stays unticked, and the footer's button is off at 0.
    apoyo::borrarArbol(v.casa.ruta("Library/Caches/otra.cosa"));
    QSignalSpy fin(&v.estado(), &Estado::analisisTerminado);
    v.pulsar("volverAnalizar");
    ASSERT_TRUE(esperar(fin));
    v.asentar();
    EXPECT_TRUE(v.visible("cabecera-otrasSolas"));
    EXPECT_EQ(v.buscar("cabecera-listas"), nullptr);
    EXPECT_EQ(v.textoEn("categoria-apps", "linea"), "En uso por Pincel Prueba. Ciérrala y vuelve a analizar para limpiarlo.");
    v.pulsar(v.buscar("categoria-apps", "casillaCategoria"));
    EXPECT_EQ(marca(v, "categoria-apps"), 0);
    EXPECT_TRUE(v.visible("pie"));
    EXPECT_FALSE(v.leer("limpiar", "enabled").toBool());
    v.pulsar("limpiar");
    EXPECT_FALSE(v.visible("confirmar"));

    // The summary's cards; a card's action unfolds only its category.
    v.pulsar("seccion-resumen");
    v.asentar(900);
    EXPECT_TRUE(v.visible("tituloTarjetas"));
    EXPECT_TRUE(v.visible("acceso-desinstalar"));
    EXPECT_EQ(v.textoEn("tarjeta-apps", "estadoTarjeta"), "En uso por apps abiertas");
    EXPECT_EQ(v.textoEn("tarjeta-grandes", "estadoTarjeta"), "Sin marcar");
    pantallas::capturar(v.ventana(), "resumen-tarjetas");
    v.ventana()->setProperty("abiertas", QStringList{QStringLiteral("logs")});
    v.pulsar("tarjeta-grandes");
    EXPECT_EQ(v.seccion(), "limpieza");
    EXPECT_EQ(v.ventana()->property("abiertas").toStringList(), (QStringList{QStringLiteral("logs"), QStringLiteral("grandes")}));
    v.pulsar("seccion-resumen");
    v.pulsar("acceso-mapa");
    EXPECT_EQ(v.seccion(), "mapa");
}

// From the first click to the disk, the banner and the history card, over
// a history written by someone else (entries two years ahead and eight years
// old count in the total only); then a Trash that can't be emptied, until it
// can.
TEST(PantallaLimpieza, DeLaVentanaAlDisco)
{
    apoyo::Variable grande("VORLANO_GRANDE_MB", "1");
    using namespace std::chrono;
    const auto fecha = [](days d) {
        return std::to_string(duration_cast<seconds>((system_clock::now() + d).time_since_epoch()).count() - 978'307'200);
    };
    VentanaPrueba v(true, [&](apoyo::CasaPrueba& casa) {
        casa.archivoCon("Library/Application Support/Vorlano/historial.json",
                        "[{\"fecha\": " + fecha(days(730)) + ", \"borrado\": 7000000000, \"papelera\": 0, \"tipo\": \"limpieza\"},"
                        " {\"fecha\": " + fecha(days(-8 * 365)) + ", \"borrado\": 0, \"papelera\": 5000000, \"tipo\": \"mapa\"}]");
    });
    EXPECT_TRUE(v.visible("historial"));
    EXPECT_EQ(v.texto("esteMes"), formatoBytes(0));
    EXPECT_EQ(v.texto("totalHistorial"), formatoBytes(7'005'000'000) + " en total con Vorlano");
    EXPECT_EQ(unidades(v), std::set<std::string>{"MB"});
    pantallas::capturar(v.ventana(), "resumen-historial-raro");

    const std::string largo(255, 'n');
    apoyo::CasaPrueba& c = v.casa;
    c.reservado("Library/Caches/app.uno/sub/datos", 300 * 4096);
    c.reservado("Library/Caches/" + largo + "/datos", 200 * 4096);
    c.reservado("Library/Caches/app.tres/datos", 100 * 4096);
    // Enough of the disk for the ring's green end, and a week in gigabytes.
    c.reservado("Library/Caches/grande.cache/datos", 1'500'000'000);
    c.reservado("Library/Logs/a.log", 100 * 4096);
    c.reservado("Library/Logs/b.log", 150 * 4096);
    c.reservado("Documents/grande.bin", 3'000'000);

    v.pulsar("seccion-limpieza");
    QSignalSpy analisis(&v.estado(), &Estado::analisisTerminado);
    v.pulsar(v.buscar("vacioInicio", "botonVacio"));
    ASSERT_TRUE(esperar(analisis));
    v.asentar();
    const Estado& e = v.estado();
    v.pulsar("categoria-logs");
    v.pulsar("categoria-grandes");
    v.pulsar(v.buscar(filaDe(e, "logs", "b.log"), "casillaElemento"));
    v.pulsar(v.buscar(filaDe(e, "grandes", "Documents/grande.bin"), "casillaElemento"));
    const int64_t papelera = e.aPapelera();
    EXPECT_EQ(papelera, apoyo::asignado(c.ruta("Documents/grande.bin")));
    pantallas::capturar(v.ventana(), "limpieza-marcada");
    v.pulsar("seccion-resumen");
    EXPECT_EQ(v.leer("anillo", "liberable").toLongLong(), e.seleccionado());
    EXPECT_EQ(v.texto("tituloPortada"), "Puedes liberar " + formatoBytes(e.seleccionado()));
    pantallas::capturar(v.ventana(), "resumen-liberable");
    v.pulsar("seccion-limpieza");

    // Swapped for a link after the analysis.
    fs::rename(c.ruta("Library/Caches/app.tres"), c.crearDir("Otra") / "app.tres");
    fs::create_symlink("../../Otra/app.tres", c.ruta("Library/Caches/app.tres"));

    QSignalSpy limpieza(&v.estado(), &Estado::limpiezaTerminada);
    // The desktop widget beside the window: told over the session bus when
    // the cleaning is done, it has redrawn by the end of the new analysis
    // (its own clock would take a minute).
    std::optional<AnfitrionWidget> widget(std::in_place, VORLANO_BIN, Familia::chico);
    QSignalSpy redibujos(&*widget, &AnfitrionWidget::refrescado);
    v.pulsar("limpiar");
    v.pulsar(v.buscar("confirmar", "aceptar"));
    ASSERT_TRUE(esperar(limpieza));
    v.asentar(400);
    EXPECT_EQ(redibujos.count(), 1);
    widget.reset();
    // A cleaning ends in a new analysis.
    EXPECT_EQ(e.analisisID(), 2);

    EXPECT_TRUE(fs::exists(c.ruta("Library/Logs/b.log")));
    EXPECT_FALSE(fs::exists(c.ruta("Library/Logs/a.log")));
    for (const std::string& p : {std::string("app.uno"), largo, std::string("grande.cache")})
        EXPECT_TRUE(fs::is_directory(c.ruta("Library/Caches/" + p)) && fs::is_empty(c.ruta("Library/Caches/" + p))) << p;
    EXPECT_TRUE(fs::exists(c.ruta("Otra/app.tres/datos")));
    EXPECT_TRUE(fs::is_symlink(c.ruta("Library/Caches/app.tres")));
    const fs::path datos = plataforma::carpetaPapelera().parent_path();
    const auto enLaPapelera = apoyo::papelera(datos);
    ASSERT_EQ(enLaPapelera.size(), 1u);
    EXPECT_EQ(enLaPapelera.begin()->first, c.ruta("Documents/grande.bin").string());

    const Resultado& r = *e.resultado();
    EXPECT_GT(r.borrado, 1'000'000'000);
    EXPECT_EQ(r.enPapelera, papelera);
    ASSERT_EQ(r.errores.size(), 1u);
    EXPECT_TRUE(r.errores[0].starts_with("app.tres: ")) << r.errores[0];
    // Deleted and moved both: the first line speaks of what was deleted.
    const std::string linea = "Liberaste " + formatoBytes(r.borrado);
    EXPECT_EQ(v.texto("lineaResultado"), linea);
    EXPECT_EQ(v.texto("lineaEspacio"), "Espacio libre: " + formatoBytes(r.libreAntes) + " → " + formatoBytes(e.libre()));
    EXPECT_EQ(v.texto("lineaPapelera"), formatoBytes(papelera) + " en la Papelera");
    EXPECT_EQ(v.texto("verAvisos"), "1 aviso");
    v.pulsar("verAvisos");
    ASSERT_TRUE(v.visible("avisos"));
    // Its rows are made at the next frame.
    ASSERT_TRUE(hasta([&] { return v.buscar("avisos", "textoAviso") != nullptr; }));
    EXPECT_EQ(v.textoEn("avisos", "textoAviso"), r.errores[0]);
    EXPECT_TRUE(v.buscar("avisos", "textoAviso")->property("selectByMouse").toBool());
    pantallas::capturar(v.ventana(), "limpieza-banner");
    QTest::keyClick(v.ventana(), Qt::Key_Escape);
    v.asentar();

    v.pulsar("seccion-resumen");
    v.asentar(900);
    const auto& registros = HistorialCompartido::shared().historial().registros();
    ASSERT_EQ(registros.size(), 3u);
    EXPECT_EQ(registros.back().tipo, "limpieza");
    EXPECT_EQ(v.texto("esteMes"), formatoBytes(r.borrado + papelera));
    EXPECT_EQ(v.texto("totalHistorial"), formatoBytes(7'005'000'000 + r.borrado + papelera) + " en total con Vorlano");
    EXPECT_EQ(v.texto("tituloPortada"), linea);
    EXPECT_EQ(unidades(v), std::set<std::string>{"GB"});
    pantallas::capturar(v.ventana(), "resumen-historial");

    // A file the system won't let go of keeps the Trash line on, in red;
    // what the cleaning sent there is gone all the same.
    const fs::path fijo = plataforma::carpetaPapelera() / "files/fijo";
    std::ofstream(fijo) << "x";
    const bool inmutable = apoyo::ejecutarPrograma("/usr/bin/chattr", {"+i", fijo.string()}).estado == 0;
    v.pulsar("seccion-limpieza");
    const auto vaciar = [&] {
        v.pulsar("vaciarPapelera");
        ASSERT_TRUE(v.visible("confirmarPapelera"));
        EXPECT_EQ(v.texto("confirmarPapelera", "titulo"), "¿Vaciar la Papelera?");
        QSignalSpy vaciada(&v.estado(), &Estado::papeleraVaciada);
        v.pulsar(v.buscar("confirmarPapelera", "aceptar"));
        ASSERT_TRUE(esperar(vaciada));
        v.asentar();
    };
    if (inmutable) {
        vaciar();
        EXPECT_FALSE(fs::exists(datos / "Trash/files" / enLaPapelera.begin()->second));
        EXPECT_TRUE(v.visible("lineaPapelera"));
        EXPECT_FALSE(v.texto("avisoPapelera").empty());
        pantallas::capturar(v.ventana(), "limpieza-papelera-fallida");
        apoyo::ejecutarPrograma("/usr/bin/chattr", {"-i", fijo.string()});
    }
    vaciar();
    EXPECT_FALSE(fs::exists(fijo));
    EXPECT_FALSE(v.visible("lineaPapelera"));
    EXPECT_FALSE(v.visible("avisoPapelera"));
    EXPECT_EQ(v.texto("lineaResultado"), linea);
}

// 5,000 items unfold as rows made only for what is on screen; the last is
// ticked; odd names show, and reach the file manager as their own bytes.
TEST(PantallaLimpieza, MilesDeElementos)
{
    constexpr int n = 5000;
    const std::string raro = "\xff\xfe.log", largo = std::string(251, 'l') + ".log";
    VentanaPrueba v(true, [&](apoyo::CasaPrueba& casa) {
        for (int i = 0; i < n; ++i)
            casa.reservado("Library/Logs/" + std::to_string(10000 + i) + ".log", 17 * 4096);
        casa.reservado("Library/Logs/" + raro, 17 * 4096);
        casa.reservado("Library/Logs/" + largo, 17 * 4096);
    });
    pantallas::GestorArchivos gestor;
    ASSERT_TRUE(gestor.activo());
    v.pulsar("seccion-limpieza");
    v.analizar();
    const Estado& e = v.estado();
    const size_t logs = categoria(e, "logs");
    const auto& els = e.categorias()[logs].elementos;
    ASSERT_EQ(els.size(), size_t(n + 2));
    auto* lista = qobject_cast<QQuickItem*>(v.buscar("lista"));
    QQuickItem* contenido = lista->property("contentItem").value<QQuickItem*>();

    v.pulsar("categoria-logs");
    v.ventana()->grabWindow();
    EXPECT_EQ(lista->property("count").toInt(), n + 2 + 2);
    EXPECT_LT(contenido->childItems().size(), 80);
    pantallas::capturar(v.ventana(), "limpieza-miles");

    QMetaObject::invokeMethod(lista, "positionViewAtEnd");
    v.asentar();
    const std::string ultima = "elemento-" + std::to_string(logs) + "-" + std::to_string(n + 1);
    ASSERT_TRUE(v.visible(ultima));
    const int64_t antes = e.seleccionado();
    const bool marcada = els[n + 1].seleccionado;
    v.pulsar(v.buscar(ultima, "casillaElemento"));
    EXPECT_EQ(els[n + 1].seleccionado, !marcada);
    EXPECT_EQ(e.seleccionado(), antes + (marcada ? -1 : 1) * els[n + 1].tamano);
    EXPECT_LT(contenido->childItems().size(), 80);

    // The odd names, each brought into view: shown, never empty; the one
    // that isn't UTF-8 shown in the file manager by the bytes of its path.
    auto* filas = v.leer("limpieza", "filas").value<FilasLimpieza*>();
    for (const std::string& nombre : {largo, raro}) {
        const auto i = size_t(std::find_if(els.begin(), els.end(), [&](const Elemento& x) { return x.nombre == nombre; }) - els.begin());
        ASSERT_LT(i, els.size()) << nombre;
        QMetaObject::invokeMethod(lista, "positionViewAtIndex", Q_ARG(int, filas->filaDe(QStringLiteral("logs")) + 1 + int(i)), Q_ARG(int, 1));
        v.asentar();
        const std::string fila = "elemento-" + std::to_string(logs) + "-" + std::to_string(i);
        EXPECT_EQ(v.texto(fila, "nombre"), nombre == raro ? "\uFFFD\uFFFD.log" : nombre);
        if (nombre == raro) {
            v.pulsar(v.buscar(fila, "mostrar"));
            ASSERT_TRUE(hasta([&] { return !gestor.mostrados().empty(); }));
            EXPECT_EQ(gestor.mostrados().back(),
                      QStringList{QString::fromLatin1("file://" + QByteArray::fromStdString(els[i].url.native()).toPercentEncoding("/"))});
        }
    }
}
