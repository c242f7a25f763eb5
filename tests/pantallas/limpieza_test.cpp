// SPDX-License-Identifier: GPL-3.0-or-later
// The cleaning list and the summary, driven through the window over a
// scratch home: what each state shows, the category checkbox beside an open
// application, and a cleaning from the first click to the files gone from
// disk, the banner and the history.
#include "pantallas/comun.h"

#include "desinstalador/fixturas.h"
#include "estado/comun.h"
#include "estado/historial_compartido.h"
#include "nucleo/formato.h"
#include "pantallas/filas_limpieza.h"

#include <QElapsedTimer>
#include <QTest>

#include <cstdio>
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

int marcados(VentanaPrueba& v, const char* fila)
{
    return v.buscar(fila, "casillaCategoria")->property("marca").toInt();
}

// The vertical place of a row in the list's content.
double altura(VentanaPrueba& v, const char* fila)
{
    auto* item = qobject_cast<QQuickItem*>(v.buscar(fila));
    return item ? item->mapToItem(nullptr, QPointF()).y() : -1;
}

} // namespace

// Before, during and after an analysis that finds nothing, then one that
// finds only what to review: the invitation, the progress in both sections,
// "Todo limpio" without footer or cards, and the green header alone with
// the footer's button off at 0.
TEST(PantallaLimpieza, EstadosDeLaSeccion)
{
    apoyo::Variable grande("VORLANO_GRANDE_MB", "1");
    VentanaPrueba v;
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
    v.asentar();
    EXPECT_FALSE(v.visible("tituloTarjetas"));
    EXPECT_FALSE(v.visible("acceso-mapa"));
    EXPECT_EQ(v.texto("tituloPortada"), "Lo seguro ya está limpio");
    v.pulsar("seccion-limpieza");
    EXPECT_TRUE(v.visible("todoLimpio"));
    EXPECT_FALSE(v.visible("lista"));
    EXPECT_FALSE(v.visible("pie"));
    pantallas::capturar(v.ventana(), "limpieza-todo-limpio");

    v.casa.reservado("Documents/grande.bin", 3'000'000);
    v.pulsar("volverAnalizar");
    ASSERT_TRUE(esperar(fin, 2));
    v.asentar();
    EXPECT_TRUE(v.visible("cabecera-otrasSolas"));
    EXPECT_EQ(v.buscar("cabecera-listas"), nullptr);
    EXPECT_TRUE(v.visible("pie"));
    EXPECT_FALSE(v.leer("limpiar", "enabled").toBool());
    v.pulsar("limpiar");
    EXPECT_FALSE(v.visible("confirmar"));
}

// The caches of an open application: the rows that name it, the category
// checkbox that never ticks them and clears one ticked by hand, the split
// that stays while ticking, the question's three paragraphs, and a category
// whose every item is in use.
TEST(PantallaLimpieza, CasillaYAppsAbiertas)
{
    apoyo::Variable grande("VORLANO_GRANDE_MB", "1");
    const std::string id = "org.prueba" + std::to_string(::getpid()) + ".pincel";
    VentanaPrueba v(true, [&](apoyo::CasaPrueba& casa) {
        casa.reservado("Library/Caches/" + id + "/datos", 400 * 4096);
        casa.reservado("Library/Caches/" + id + ".ayudante/datos", 100 * 4096);
        casa.reservado("Library/Caches/otra.cosa/datos", 200 * 4096);
        casa.reservado("Documents/grande.bin", 3'000'000);
        crearBundle(casa.ruta("Applications/Pincel.app"), {{"CFBundleIdentifier", id}, {"CFBundleName", "Pincel Prueba"}});
    });
    apoyo::ProgramaEnMarcha pincel(v.casa.ruta("Applications/Pincel.app/Contents/MacOS/pincel"));
    v.pulsar("seccion-limpieza");
    v.analizar();
    v.ventana()->setProperty("abiertas", QStringList{QStringLiteral("apps"), QStringLiteral("grandes")});
    v.asentar();
    const Estado& e = v.estado();
    const auto& caches = e.categorias()[categoria(e, "apps")].elementos;
    ASSERT_EQ(caches.size(), 3u);
    int64_t enUso = 0, libre = 0;
    for (const Elemento& el : caches)
        (el.enUso ? enUso : libre) += el.tamano;
    EXPECT_EQ(v.buscar("categoria-apps", "lineaEnUso")->property("text").toString().toStdString(),
              formatoBytes(enUso) + " en uso por Pincel Prueba, no se marca.");
    EXPECT_EQ(v.buscar(filaDe(e, "apps", id).c_str(), "enUso")->property("text").toString().toStdString(),
              "Pincel Prueba está abierto");
    EXPECT_EQ(marcados(v, "categoria-apps"), 2);
    pantallas::capturar(v.ventana(), "limpieza-lista");

    // Everything free is ticked, so the checkbox unticks all; then it
    // ticks the free one alone.
    v.pulsar(v.buscar("categoria-apps", "casillaCategoria"));
    EXPECT_EQ(marcados(v, "categoria-apps"), 0);
    EXPECT_EQ(e.seleccionado(), 0);
    EXPECT_TRUE(v.visible("cabecera-listas"));
    EXPECT_FALSE(v.leer("limpiar", "enabled").toBool());
    EXPECT_FALSE(v.visible("insignia"));
    v.pulsar(v.buscar("categoria-apps", "casillaCategoria"));
    EXPECT_EQ(e.seleccionado(), libre);
    EXPECT_TRUE(e.appsAbiertasSeleccionadas().empty());

    // Ticking by hand: an item in use, and the large file under the other
    // header, which stays there with its header though now ticked.
    const double antes = altura(v, "categoria-grandes");
    v.pulsar(v.buscar(filaDe(e, "apps", id).c_str(), "casillaElemento"));
    v.pulsar(v.buscar(filaDe(e, "grandes", "Documents/grande.bin").c_str(), "casillaElemento"));
    EXPECT_EQ(marcados(v, "categoria-apps"), 2);
    EXPECT_TRUE(v.visible("cabecera-listas"));
    EXPECT_TRUE(v.visible("cabecera-otras"));
    EXPECT_EQ(altura(v, "categoria-grandes"), antes);
    EXPECT_GT(altura(v, "categoria-grandes"), altura(v, "cabecera-otras"));

    v.pulsar("limpiar");
    QObject* dialogo = v.buscar("confirmar");
    ASSERT_TRUE(dialogo->property("visible").toBool());
    EXPECT_EQ(dialogo->property("titulo").toString().toStdString(), "¿Limpiar " + formatoBytes(e.seleccionado()) + "?");
    EXPECT_EQ(dialogo->property("mensaje").toString().toStdString(),
              "Se borrarán " + formatoBytes(e.aBorrar()) + " de cachés y temporales. Se regeneran solos.\n\n" +
                  formatoBytes(e.aPapelera()) + " se moverán a la Papelera (puedes recuperarlos).\n\n" +
                  "Ojo: Pincel Prueba está abierto. Ciérralo antes para evitar problemas.");
    pantallas::capturar(v.ventana(), "limpieza-confirmar");
    v.pulsar(dialogo->findChild<QQuickItem*>(QStringLiteral("cancelar")));
    EXPECT_FALSE(dialogo->property("visible").toBool());

    // The checkbox clears the item ticked by hand.
    v.pulsar(v.buscar("categoria-apps", "casillaCategoria"));
    EXPECT_EQ(marcados(v, "categoria-apps"), 0);
    EXPECT_TRUE(e.appsAbiertasSeleccionadas().empty());

    // Only its caches left: the whole category is in use and stays unticked.
    apoyo::borrarArbol(v.casa.ruta("Library/Caches/otra.cosa"));
    v.analizar();
    EXPECT_TRUE(v.visible("cabecera-otrasSolas"));
    EXPECT_EQ(v.buscar("categoria-apps", "linea")->property("text").toString().toStdString(), "En uso por Pincel Prueba. Ciérrala y vuelve a analizar para limpiarlo.");
    v.pulsar(v.buscar("categoria-apps", "casillaCategoria"));
    EXPECT_EQ(marcados(v, "categoria-apps"), 0);
    v.pulsar("seccion-resumen");
    EXPECT_EQ(v.buscar("tarjeta-apps", "estadoTarjeta")->property("text").toString().toStdString(),
              "En uso por apps abiertas");
}

// From the first click to the disk: an analysis through the window, one
// row unticked and one ticked, the question accepted; exactly the ticked
// items went, emptied in place or to the Trash by their category, names
// that aren't UTF-8 or are 255 bytes long included; the banner and the
// history card show what was freed, a failure sits behind the banner's
// link, and a Trash that can't be emptied says so in red.
TEST(PantallaLimpieza, DeLaVentanaAlDisco)
{
    apoyo::Variable grande("VORLANO_GRANDE_MB", "1");
    const std::string largo(255, 'n'), raro = "\xff\xfe-viejo.log";
    VentanaPrueba v;
    apoyo::CasaPrueba& c = v.casa;
    c.reservado("Library/Caches/app.uno/datos", 300 * 4096);
    c.reservado("Library/Caches/app.uno/sub/mas", 100 * 4096);
    c.reservado("Library/Caches/" + largo + "/datos", 200 * 4096);
    c.reservado("Library/Caches/app.tres/datos", 100 * 4096);
    // Enough of the disk for the ring's green end, and weeks in gigabytes.
    c.reservado("Library/Caches/grande.cache/datos", 1'500'000'000);
    c.reservado("Library/Logs/a.log", 100 * 4096);
    c.reservado("Library/Logs/b.log", 150 * 4096);
    c.reservado("Library/Logs/" + raro, 120 * 4096);
    c.reservado("Documents/grande.bin", 3'000'000);

    v.pulsar("seccion-limpieza");
    QSignalSpy analisis(&v.estado(), &Estado::analisisTerminado);
    v.pulsar(v.buscar("vacioInicio", "botonVacio"));
    ASSERT_TRUE(esperar(analisis));
    v.asentar();
    const Estado& e = v.estado();
    v.pulsar("categoria-logs");
    v.pulsar("categoria-grandes");
    v.pulsar(v.buscar(filaDe(e, "logs", "b.log").c_str(), "casillaElemento"));
    v.pulsar(v.buscar(filaDe(e, "grandes", "Documents/grande.bin").c_str(), "casillaElemento"));
    // What is ticked: its size, by where it goes.
    std::vector<std::pair<fs::path, int64_t>> aBorrar;
    int64_t papelera = 0;
    for (const Categoria& cat : e.categorias())
        for (const Elemento& el : cat.elementos)
            if (el.seleccionado && cat.modo == Modo::borrar)
                aBorrar.emplace_back(el.url, el.tamano);
            else if (el.seleccionado)
                papelera += el.tamano;
    EXPECT_EQ(aBorrar.size(), 6u);
    EXPECT_EQ(papelera, apoyo::asignado(c.ruta("Documents/grande.bin")));
    pantallas::capturar(v.ventana(), "limpieza-marcada");
    v.pulsar("seccion-resumen");
    EXPECT_EQ(v.leer("anillo", "liberable").toLongLong(), e.seleccionado());
    pantallas::capturar(v.ventana(), "resumen-liberable");
    v.pulsar("seccion-limpieza");

    // Swapped for a link after the analysis: refused, and said so.
    fs::rename(c.ruta("Library/Caches/app.tres"), c.crearDir("Otra") / "app.tres");
    fs::create_symlink("../../Otra/app.tres", c.ruta("Library/Caches/app.tres"));

    QSignalSpy limpieza(&v.estado(), &Estado::limpiezaTerminada);
    v.pulsar("limpiar");
    v.pulsar(v.buscar("confirmar", "aceptar"));
    ASSERT_TRUE(esperar(limpieza));
    v.asentar(400);

    EXPECT_TRUE(fs::exists(c.ruta("Library/Logs/b.log")));
    for (const std::string& p : {std::string("Library/Logs/a.log"), "Library/Logs/" + raro, std::string("Documents/grande.bin")})
        EXPECT_FALSE(fs::exists(fs::symlink_status(c.ruta(p)))) << p;
    for (const std::string& p : {std::string("app.uno"), largo, std::string("grande.cache")})
        EXPECT_TRUE(fs::is_directory(c.ruta("Library/Caches/" + p)) && fs::is_empty(c.ruta("Library/Caches/" + p))) << p;
    EXPECT_TRUE(fs::exists(c.ruta("Otra/app.tres/datos")));
    EXPECT_TRUE(fs::is_symlink(c.ruta("Library/Caches/app.tres")));
    const fs::path datos = plataforma::carpetaPapelera().parent_path();
    const auto enLaPapelera = apoyo::papelera(datos);
    ASSERT_EQ(enLaPapelera.size(), 1u);
    EXPECT_EQ(enLaPapelera.begin()->first, c.ruta("Documents/grande.bin").string());

    // Freed is what the analysis measured less what is left at each path:
    // an emptied folder keeps its own block, and a path swapped for a link
    // frees nothing.
    int64_t borrado = 0;
    for (const auto& [url, tamano] : aBorrar)
        if (!fs::is_symlink(url))
            borrado += tamano - (fs::exists(url) ? apoyo::du(url) : 0);
    const Resultado& r = *e.resultado();
    EXPECT_EQ(r.borrado, borrado);
    EXPECT_EQ(r.enPapelera, papelera);
    ASSERT_EQ(r.errores.size(), 1u);
    EXPECT_TRUE(r.errores[0].starts_with("app.tres: ")) << r.errores[0];
    // Deleted and moved both: the first line speaks of what was deleted.
    EXPECT_EQ(v.texto("lineaResultado"), "Liberaste " + formatoBytes(borrado));
    EXPECT_EQ(v.texto("lineaEspacio"),
              "Espacio libre: " + formatoBytes(r.libreAntes) + " → " + formatoBytes(e.libre()));
    EXPECT_EQ(v.texto("lineaPapelera"), formatoBytes(papelera) + " en la Papelera");
    EXPECT_EQ(v.texto("verAvisos"), "1 aviso");
    v.pulsar("verAvisos");
    ASSERT_TRUE(v.leer("avisos", "visible").toBool());
    // Its rows are made at the next frame.
    ASSERT_TRUE(hasta([&] { return v.buscar("avisos", "textoAviso") != nullptr; }));
    auto* aviso = v.buscar("avisos", "textoAviso");
    EXPECT_EQ(aviso->property("text").toString().toStdString(), r.errores[0]);
    EXPECT_TRUE(aviso->property("selectByMouse").toBool());
    pantallas::capturar(v.ventana(), "limpieza-banner");
    QTest::keyClick(v.ventana(), Qt::Key_Escape);
    v.asentar();

    v.pulsar("seccion-resumen");
    v.asentar(900);
    EXPECT_TRUE(v.visible("historial"));
    EXPECT_EQ(v.texto("esteMes"), formatoBytes(borrado + papelera));
    EXPECT_EQ(v.texto("totalHistorial"), formatoBytes(borrado + papelera) + " en total con Vorlano");
    EXPECT_EQ(v.texto("tituloPortada"), "Liberaste " + formatoBytes(borrado));
    // Above 1,000,000,000 bytes in a week, the whole axis is in gigabytes.
    const auto marcas = v.todos("grafico", "marca");
    ASSERT_FALSE(marcas.empty());
    for (const QQuickItem* m : marcas)
        EXPECT_TRUE(m->property("text").toString().endsWith(QLatin1String(" GB")));
    pantallas::capturar(v.ventana(), "resumen-historial");

    // A file the system won't let go of keeps the Trash from emptying.
    const fs::path fijo = plataforma::carpetaPapelera() / "files/fijo";
    std::ofstream(fijo) << "x";
    const bool inmutable = apoyo::ejecutarPrograma("/usr/bin/chattr", {"+i", fijo.string()}).estado == 0;
    v.pulsar("seccion-limpieza");
    v.pulsar("vaciarPapelera");
    QObject* pregunta = v.buscar("confirmarPapelera");
    ASSERT_TRUE(pregunta->property("visible").toBool());
    EXPECT_EQ(pregunta->property("titulo").toString().toStdString(), "¿Vaciar la Papelera?");
    QSignalSpy vaciada(&v.estado(), &Estado::papeleraVaciada);
    v.pulsar(v.buscar("confirmarPapelera", "aceptar"));
    ASSERT_TRUE(esperar(vaciada));
    v.asentar();
    EXPECT_FALSE(fs::exists(datos / "Trash/files" / enLaPapelera.begin()->second));
    // Emptied or not, what the cleaning sent there is gone; only a failure
    // keeps the Trash line.
    EXPECT_EQ(v.visible("lineaPapelera"), inmutable);
    if (inmutable) {
        EXPECT_TRUE(v.visible("avisoPapelera"));
        EXPECT_FALSE(v.texto("avisoPapelera").empty());
        pantallas::capturar(v.ventana(), "limpieza-papelera-fallida");
        apoyo::ejecutarPrograma("/usr/bin/chattr", {"-i", fijo.string()});
    }
}

// A category of 5,000 items unfolds as rows made only for what is on
// screen, scrolls to its last item and ticks it; a name that isn't UTF-8
// and one of 255 bytes show among them, and the first is shown in the file
// manager by its own bytes.
TEST(PantallaLimpieza, MilesDeElementos)
{
    constexpr int n = 5000;
    VentanaPrueba v(true, [](apoyo::CasaPrueba& casa) {
        for (int i = 0; i < n; ++i)
            casa.reservado("Library/Logs/" + std::to_string(10000 + i) + ".log", 17 * 4096);
        casa.reservado("Library/Logs/\xff\xfe.log", 17 * 4096);
        casa.reservado("Library/Logs/" + std::string(251, 'l') + ".log", 17 * 4096);
    });
    pantallas::GestorArchivos gestor;
    ASSERT_TRUE(gestor.activo());
    v.pulsar("seccion-limpieza");
    v.analizar();
    const Estado& e = v.estado();
    const size_t logs = categoria(e, "logs");
    ASSERT_EQ(e.categorias()[logs].elementos.size(), size_t(n + 2));
    auto* lista = qobject_cast<QQuickItem*>(v.buscar("lista"));
    QQuickItem* contenido = lista->property("contentItem").value<QQuickItem*>();

    QElapsedTimer reloj;
    reloj.start();
    v.pulsar("categoria-logs");
    v.ventana()->grabWindow();
    const qint64 ms = reloj.elapsed();
    RecordProperty("desplegar_5000_ms", int(ms));
    std::printf("Desplegar %d elementos y dibujar: %lld ms\n", n + 2, static_cast<long long>(ms));
    EXPECT_EQ(lista->property("count").toInt(), n + 2 + 2);
    EXPECT_LT(contenido->childItems().size(), 80);
    pantallas::capturar(v.ventana(), "limpieza-miles");

    QMetaObject::invokeMethod(lista, "positionViewAtEnd");
    v.asentar();
    const std::string ultima = "elemento-" + std::to_string(logs) + "-" + std::to_string(n + 1);
    ASSERT_TRUE(v.visible(ultima.c_str()));
    const int64_t antes = e.seleccionado();
    const bool marcada = e.categorias()[logs].elementos[n + 1].seleccionado;
    v.pulsar(v.buscar(ultima.c_str(), "casillaElemento"));
    EXPECT_EQ(e.categorias()[logs].elementos[n + 1].seleccionado, !marcada);
    EXPECT_EQ(e.seleccionado(), antes + (marcada ? -1 : 1) * e.categorias()[logs].elementos[n + 1].tamano);
    EXPECT_LT(contenido->childItems().size(), 80);

    // The odd names, each brought into view: shown, never empty.
    auto* filas = v.buscar("limpieza")->property("filas").value<FilasLimpieza*>();
    const auto& els = e.categorias()[logs].elementos;
    int vistos = 0;
    for (size_t i = 0; i < els.size(); ++i) {
        const bool largo = els[i].nombre.size() == 255, raro = els[i].nombre == "\xff\xfe.log";
        if (!largo && !raro)
            continue;
        ++vistos;
        QMetaObject::invokeMethod(lista, "positionViewAtIndex", Q_ARG(int, filas->filaDe(QStringLiteral("logs")) + 1 + int(i)),
                                  Q_ARG(int, 1));
        v.asentar();
        const std::string fila = "elemento-" + std::to_string(logs) + "-" + std::to_string(i);
        EXPECT_EQ(v.leer(fila.c_str(), "nombre").toString().toStdString(),
                  largo ? els[i].nombre : "\uFFFD\uFFFD.log");
        // Shown in the file manager by the bytes of its path.
        if (raro) {
            v.pulsar(v.buscar(fila.c_str(), "mostrar"));
            ASSERT_TRUE(hasta([&] { return !gestor.mostrados().empty(); }));
            EXPECT_EQ(gestor.mostrados().back(),
                      QStringList{QString::fromLatin1("file://" + QByteArray::fromStdString(els[i].url.native())
                                                                      .toPercentEncoding("/"))});
        }
    }
    EXPECT_EQ(vistos, 2);
}

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
    EXPECT_EQ(v.buscar("tarjeta-grandes", "estadoTarjeta")->property("text").toString().toStdString(), "Sin marcar");
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

// A history written by someone else: an entry two years ahead and one
// eight years old show the card with empty weeks and count in the total
// only; the chart's axis turns from megabytes to gigabytes between
// 999,999,999 and 1,000,000,000 bytes in a week.
TEST(Resumen, HistorialRaroYUnidad)
{
    using namespace std::chrono;
    const auto segundos = [](system_clock::time_point t) {
        return std::to_string(duration_cast<seconds>(t.time_since_epoch()).count() - 978'307'200);
    };
    VentanaPrueba v(true, [&](apoyo::CasaPrueba& casa) {
        const auto ahora = system_clock::now();
        casa.archivoCon("Library/Application Support/Vorlano/historial.json",
                        "[{\"fecha\": " + segundos(ahora + days(730)) +
                            ", \"borrado\": 7000000000, \"papelera\": 0, \"tipo\": \"limpieza\"},"
                            " {\"fecha\": " + segundos(ahora - days(8 * 365)) +
                            ", \"borrado\": 0, \"papelera\": 5000000, \"tipo\": \"mapa\"}]");
    });
    const auto unidades = [&] {
        std::set<std::string> r;
        for (const QQuickItem* m : v.todos("grafico", "marca"))
            r.insert(m->property("text").toString().section(QLatin1Char(' '), 1).toStdString());
        return r;
    };
    EXPECT_TRUE(v.visible("historial"));
    EXPECT_EQ(v.texto("esteMes"), formatoBytes(0));
    EXPECT_EQ(v.texto("totalHistorial"), formatoBytes(7'005'000'000) + " en total con Vorlano");
    EXPECT_EQ(unidades(), std::set<std::string>{"MB"});
    pantallas::capturar(v.ventana(), "resumen-historial-raro");

    auto& historial = HistorialCompartido::shared();
    historial.anotar({.borrado = 999'999'999}, "limpieza");
    v.asentar(800);
    EXPECT_EQ(v.texto("esteMes"), formatoBytes(999'999'999));
    EXPECT_EQ(unidades(), std::set<std::string>{"MB"});
    historial.anotar({.enPapelera = 1}, "mapa");
    v.asentar();
    EXPECT_EQ(unidades(), std::set<std::string>{"GB"});
}
