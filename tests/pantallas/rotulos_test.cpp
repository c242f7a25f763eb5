// SPDX-License-Identifier: GPL-3.0-or-later
// The texts and figures the main window computes, without a window.
#include "nucleo/formato.h"
#include "pantallas/filas_limpieza.h"
#include "pantallas/grafico.h"
#include "pantallas/rotulos.h"

#include <gtest/gtest.h>

using namespace rotulos;

namespace {

Elemento elemento(int64_t tamano, std::optional<std::string> enUso = {}, bool seleccionado = false)
{
    Elemento e;
    e.nombre = "x";
    e.tamano = tamano;
    e.enUso = std::move(enUso);
    e.seleccionado = seleccionado;
    return e;
}

} // namespace

TEST(Rotulos, Confirmacion)
{
    const std::string borrar = "Se borrarán " + formatoBytes(3'000'000) + " de cachés y temporales. Se regeneran solos.";
    const std::string papelera = formatoBytes(5'000'000) + " se moverán a la Papelera (puedes recuperarlos).";
    EXPECT_EQ(tituloConfirmacion(8'000'000), "¿Limpiar " + formatoBytes(8'000'000) + "?");
    // Only the paragraphs that apply, in order, an empty line between them.
    EXPECT_EQ(mensajeConfirmacion(3'000'000, 0, {}), borrar);
    EXPECT_EQ(mensajeConfirmacion(0, 5'000'000, {}), papelera);
    EXPECT_EQ(mensajeConfirmacion(3'000'000, 5'000'000, {"Safari"}),
              borrar + "\n\n" + papelera + "\n\nOjo: Safari está abierto. Ciérralo antes para evitar problemas.");
    EXPECT_EQ(mensajeConfirmacion(0, 0, {"Mail", "Notas", "Safari"}),
              "Ojo: Mail, Notas, Safari están abiertos. Ciérralos antes para evitar problemas.");
    EXPECT_EQ(mensajeConfirmacion(0, 0, {}), "");
}

TEST(Rotulos, Banner)
{
    // Both above 0: the first line speaks only of what was deleted.
    EXPECT_EQ(lineaResultado(2'000'000, 7'000'000), "Liberaste " + formatoBytes(2'000'000));
    EXPECT_EQ(lineaResultado(0, 7'000'000), "Moviste " + formatoBytes(7'000'000) + " a la Papelera");
    EXPECT_EQ(lineaResultado(-1, 7'000'000), "Moviste " + formatoBytes(7'000'000) + " a la Papelera");
    EXPECT_EQ(lineaResultado(0, 0), "Liberaste " + formatoBytes(0));
    EXPECT_EQ(lineaEspacio(1'000'000'000, 2'000'000'000),
              "Espacio libre: " + formatoBytes(1'000'000'000) + " → " + formatoBytes(2'000'000'000));
    EXPECT_EQ(avisos(1), "1 aviso");
    EXPECT_EQ(avisos(3), "3 avisos");
    EXPECT_EQ(elementos(1), "1 elemento");
    EXPECT_EQ(elementos(5000), "5000 elementos");
    EXPECT_EQ(lineaPapelera(7'000'000), formatoBytes(7'000'000) + " en la Papelera");
}

TEST(Rotulos, LineaCategoriaYTarjeta)
{
    Categoria c;
    c.descripcion = "Cachés de apps.";
    c.elementos = {elemento(1'000'000), elemento(2'000'000, "Safari"), elemento(3'000'000, "Mail"),
                   elemento(4'000'000, "Safari")};
    // Different names once, sorted, in the locale's list format.
    auto l = lineaCategoria(c, "es_ES");
    EXPECT_FALSE(l.todoEnUso);
    EXPECT_EQ(l.texto, "Cachés de apps.");
    EXPECT_EQ(l.enUso, formatoBytes(9'000'000) + " en uso por Mail y Safari, no se marca.");

    c.elementos.erase(c.elementos.begin());
    l = lineaCategoria(c, "es_ES");
    EXPECT_TRUE(l.todoEnUso);
    EXPECT_EQ(l.texto, "En uso por Mail y Safari. Ciérralas y vuelve a analizar para limpiarlo.");
    EXPECT_EQ(l.enUso, "");
    c.elementos = {elemento(1, "Safari")};
    EXPECT_EQ(lineaCategoria(c, "es_ES").texto, "En uso por Safari. Ciérrala y vuelve a analizar para limpiarlo.");
    c.elementos = {elemento(1)};
    EXPECT_EQ(lineaCategoria(c, "es_ES").texto, "Cachés de apps.");
    EXPECT_EQ(unirLista({"A", "B", "C"}, "en_US"), "A, B, and C");

    EXPECT_EQ(estadoTarjeta(5'000'000, true), formatoBytes(5'000'000) + " marcado");
    EXPECT_EQ(estadoTarjeta(0, true), "En uso por apps abiertas");
    EXPECT_EQ(estadoTarjeta(0, false), "Sin marcar");

    // The summary's text after an analysis.
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

// One unit for the whole chart, switching at 1,000,000,000 bytes.
TEST(Rotulos, GraficoUnidad)
{
    const Fecha lunes = std::chrono::sys_days(std::chrono::year{2026} / 11 / 2);
    const auto semanas = [&](int64_t mayor) {
        std::vector<BytesSemana> r;
        for (int i = 0; i < 8; ++i)
            r.push_back({lunes + std::chrono::weeks(i), i == 5 ? mayor : (i == 2 ? 0 : 250'000'000)});
        return r;
    };
    Grafico g = graficoSemanas(semanas(999'999'999), "es_ES");
    EXPECT_FALSE(g.enGigas);
    EXPECT_DOUBLE_EQ(g.barras[5], 999.999999);
    EXPECT_EQ(g.barras[2], 0);
    EXPECT_EQ(g.marcas.front().texto, "0 MB");
    EXPECT_GE(g.tope, 999.999999);
    for (const MarcaEje& m : g.marcas)
        EXPECT_TRUE(m.texto.ends_with(" MB")) << m.texto;

    g = graficoSemanas(semanas(1'000'000'000), "es_ES");
    EXPECT_TRUE(g.enGigas);
    EXPECT_DOUBLE_EQ(g.barras[5], 1.0);
    EXPECT_EQ(g.marcas.front().texto, "0.0 GB");
    for (const MarcaEje& m : g.marcas)
        EXPECT_TRUE(m.texto.ends_with(" GB")) << m.texto;
    // A date under every second week.
    ASSERT_EQ(g.fechas.size(), 8u);
    EXPECT_EQ(g.fechas[0], "2 nov");
    EXPECT_EQ(g.fechas[1], "");
    EXPECT_EQ(g.fechas[2], "16 nov");

    g = graficoSemanas({}, "es_ES");
    EXPECT_FALSE(g.enGigas);
    EXPECT_GT(g.tope, 0);
}
