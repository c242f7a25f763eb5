// SPDX-License-Identifier: GPL-3.0-or-later
// The texts and figures the screens compute, without a window.
#include "pantallas/filas_limpieza.h"
#include "pantallas/grafico.h"
#include "pantallas/rotulos.h"
#include "pantallas/textos_apps.h"

#include <gtest/gtest.h>

using namespace rotulos;

namespace {

Elemento elemento(int64_t tamano, std::optional<std::string> enUso = {}, bool seleccionado = false)
{
    return Elemento{.nombre = "x", .tamano = tamano, .enUso = std::move(enUso), .seleccionado = seleccionado};
}

Categoria categoria(std::vector<Elemento> elementos)
{
    Categoria c;
    c.descripcion = "Cachés de apps.";
    c.elementos = std::move(elementos);
    return c;
}

AppInstalada app(TipoApp tipo, bool deRoot = false, std::string id = {}, std::string version = {})
{
    return {.url = "/x/Editor.app", .nombre = "Editor", .bundleID = std::move(id), .version = std::move(version),
            .deRoot = deRoot, .tamano = 1'000'000, .tipo = tipo};
}

std::vector<Elemento> restos(std::initializer_list<std::pair<int64_t, bool>> filas)
{
    std::vector<Elemento> r;
    for (const auto& [tamano, marcado] : filas)
        r.push_back(Elemento{.url = "/x/r" + std::to_string(r.size()), .tamano = tamano, .seleccionado = marcado});
    return r;
}

} // namespace

// Each row: a text as computed, and as it must read.
TEST(Rotulos, Textos)
{
    const std::string borrar = "Se borrarán 3 MB de cachés y temporales. Se regeneran solos.";
    const std::string papelera = "5 MB se moverán a la Papelera (puedes recuperarlos).";
    const LineaCategoria dosApps = lineaCategoria(categoria({elemento(1'000'000), elemento(2'000'000, "Safari"),
                                                             elemento(3'000'000, "Mail"), elemento(4'000'000, "Safari")}),
                                                  "es_ES");
    const LineaCategoria todoEnUso = lineaCategoria(categoria({elemento(1, "Safari"), elemento(1, "Mail")}), "es_ES");
    const std::pair<std::string, std::string> casos[] = {
        // Only the paragraphs that apply, in order, an empty line between them.
        {mensajeConfirmacion(3'000'000, 0, {}), borrar},
        {mensajeConfirmacion(0, 5'000'000, {}), papelera},
        {mensajeConfirmacion(3'000'000, 5'000'000, {"Safari"}),
         borrar + "\n\n" + papelera + "\n\nOjo: Safari está abierto. Ciérralo antes para evitar problemas."},
        {mensajeConfirmacion(0, 0, {"Mail", "Notas", "Safari"}),
         "Ojo: Mail, Notas, Safari están abiertos. Ciérralos antes para evitar problemas."},
        {mensajeConfirmacion(0, 0, {}), ""},
        // Both above 0: the first line speaks only of what was deleted.
        {lineaResultado(2'000'000, 7'000'000), "Liberaste 2 MB"},
        {lineaResultado(0, 7'000'000), "Moviste 7 MB a la Papelera"},
        {lineaResultado(-1, 7'000'000), "Moviste 7 MB a la Papelera"},
        {lineaResultado(0, 0), "Liberaste 0 KB"},
        {avisos(3), "3 avisos"},
        {elementos(1), "1 elemento"},
        {elementos(5000), "5000 elementos"},
        // Different names once, sorted, in the locale's list format.
        {dosApps.texto, "Cachés de apps."},
        {dosApps.enUso, "9 MB en uso por Mail y Safari, no se marca."},
        {todoEnUso.texto, "En uso por Mail y Safari. Ciérralas y vuelve a analizar para limpiarlo."},
        {todoEnUso.enUso, ""},
        {lineaCategoria(categoria({elemento(1, "Safari")}), "es_ES").texto,
         "En uso por Safari. Ciérrala y vuelve a analizar para limpiarlo."},
        {lineaCategoria(categoria({elemento(1)}), "es_ES").texto, "Cachés de apps."},
        {unirLista({"A", "B", "C"}, "en_US"), "A, B, and C"},
        {estadoTarjeta(5'000'000, true), "5 MB marcado"},
    };
    for (const auto& [texto, esperado] : casos)
        EXPECT_EQ(texto, esperado);
    EXPECT_FALSE(dosApps.todoEnUso);
    EXPECT_TRUE(todoEnUso.todoEnUso);
    // The summary's text after an analysis: what was freed, what can be, or
    // all clean.
    EXPECT_EQ(casoListo(true, 1, 0, 9), 1);
    EXPECT_EQ(casoListo(true, 0, 1, 9), 1);
    EXPECT_EQ(casoListo(true, 0, 0, 9), 2);
    EXPECT_EQ(casoListo(false, 5, 5, 0), 3);
}

// The category checkbox: items in use are never ticked by it, and a row
// ticked by hand while in use is cleared.
TEST(Rotulos, CasillaDeCategoria)
{
    using V = std::vector<bool>;
    EXPECT_EQ(seleccionAlPulsar({elemento(1), elemento(1, "A"), elemento(1, {}, true)}), (V{true, false, true}));
    EXPECT_EQ(seleccionAlPulsar({elemento(1, {}, true), elemento(1, "A", true)}), (V{false, false}));
    EXPECT_EQ(seleccionAlPulsar({elemento(1, "A"), elemento(1, "B")}), (V{false, false}));
    EXPECT_EQ(seleccionAlPulsar({elemento(1, "A", true), elemento(1)}), (V{false, true}));
    EXPECT_EQ(seleccionAlPulsar({}), V{});
}

// One unit for the whole chart, switching at 1,000,000,000 bytes; a date
// under every second week.
TEST(Rotulos, GraficoUnidad)
{
    const Fecha lunes = std::chrono::sys_days(std::chrono::year{2026} / 11 / 2);
    const auto semanas = [&](int64_t mayor) {
        std::vector<BytesSemana> r;
        for (int i = 0; i < 8; ++i)
            r.push_back({lunes + std::chrono::weeks(i), i == 5 ? mayor : (i == 2 ? 0 : 250'000'000)});
        return r;
    };
    for (const auto& [mayor, gigas, barra] : {std::tuple{999'999'999, false, 999.999999}, std::tuple{1'000'000'000, true, 1.0}}) {
        const Grafico g = graficoSemanas(semanas(mayor), "es_ES");
        EXPECT_EQ(g.enGigas, gigas);
        EXPECT_DOUBLE_EQ(g.barras[5], barra);
        EXPECT_EQ(g.barras[2], 0);
        EXPECT_GE(g.tope, barra);
        EXPECT_EQ(g.marcas.front().texto, gigas ? "0.0 GB" : "0 MB");
        for (const MarcaEje& m : g.marcas)
            EXPECT_TRUE(m.texto.ends_with(gigas ? " GB" : " MB")) << m.texto;
        EXPECT_EQ(g.fechas, (std::vector<std::string>{"2 nov", "", "16 nov", "", "30 nov", "", "14 dic", ""}));
    }
    const Grafico vacio = graficoSemanas({}, "es_ES");
    EXPECT_FALSE(vacio.enGigas);
    EXPECT_GT(vacio.tope, 0);
}

// The uninstall screen's texts, for every kind of application.
TEST(TextosApps, ConfirmacionNotaYExito)
{
    using namespace textosApps;
    const std::string papelera = " irán a la Papelera. Puedes recuperarlos desde ahí.";
    const std::string sistema = "\n\nEl sistema te pedirá tu contraseña para desinstalarla.";
    const struct {
        AppInstalada app;
        std::vector<Elemento> restos;
        std::string mensaje, nota;
    } casos[] = {
        // Nothing ticked is still the plural, with the application's bytes alone.
        {app(TipoApp::bundle), restos({{500'000, false}}), "La app y 0 archivos más (1 MB)" + papelera, "La app"},
        {app(TipoApp::bundle), restos({{2'000'000, true}, {7, false}}), "La app y 1 archivo más (3 MB)" + papelera, "La app"},
        {app(TipoApp::bundle, true), restos({{1'000'000, true}, {1'000'000, true}}),
         "La app y 2 archivos más (3 MB)" + papelera + "\n\nmacOS te pedirá tu contraseña para mover la app.",
         "La app · macOS te pedirá tu contraseña"},
        {app(TipoApp::appImage), {}, "La app y 0 archivos más (1 MB)" + papelera, "La app · AppImage"},
        // A package tool deletes the application: only the leftovers can come back.
        {app(TipoApp::flatpak), restos({{1'000'000, true}}),
         "Flatpak desinstalará la app; 1 archivo más irá a la Papelera, de donde puedes recuperarlo. En total, 2 MB.",
         "La app · Flatpak"},
        {app(TipoApp::flatpak, true), {},
         "Flatpak desinstalará la app; 0 archivos más irán a la Papelera, de donde puedes recuperarlos. En total, 1 MB." + sistema,
         "La app · Flatpak del sistema · el sistema te pedirá tu contraseña"},
        {app(TipoApp::snap), {},
         "Snap desinstalará la app; 0 archivos más irán a la Papelera, de donde puedes recuperarlos. En total, 1 MB." + sistema,
         "La app · Snap · el sistema te pedirá tu contraseña"},
    };
    for (const auto& c : casos) {
        EXPECT_EQ(mensajeConfirmacion(c.app, c.restos), c.mensaje);
        EXPECT_EQ(nota(c.app), c.nota);
    }
    EXPECT_EQ(mensajeConfirmacion(std::nullopt, restos({{4'000'000, true}})), "La app y 1 archivo más (4 MB)" + papelera);
    EXPECT_EQ(tituloConfirmacion(app(TipoApp::bundle)), "¿Desinstalar Editor?");
    EXPECT_EQ(tituloConfirmacion(std::nullopt), "¿Desinstalar ?");

    for (const auto& [version, id, esperado] : {std::tuple{"", "", ""}, {"", "org.p", "org.p"}, {"2.1", "org.p", "2.1 · org.p"}, {"2.1", "", "2.1"}})
        EXPECT_EQ(encabezado(app(TipoApp::bundle, false, id, version)), esperado);
    EXPECT_EQ(tituloExito("Editor", Resultado{.enPapelera = 5}), "Editor está en la Papelera");
    EXPECT_EQ(detalleExito(Resultado{.enPapelera = 3'000'000}),
              "Movido a la Papelera: 3 MB. Si te arrepientes, puedes recuperarla desde ahí.");
    // Removed by its package tool, it is not in the Trash.
    EXPECT_EQ(tituloExito("Editor", Resultado{.borrado = 9, .enPapelera = 5}), "Editor se desinstaló");
    EXPECT_EQ(detalleExito(Resultado{.borrado = 2'000'000}),
              "Desinstalada: 2 MB. Movido a la Papelera: 0 KB; eso puedes recuperarlo desde ahí.");
}
