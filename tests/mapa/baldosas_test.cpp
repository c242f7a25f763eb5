// SPDX-License-Identifier: GPL-3.0-or-later
#include "mapa/baldosas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

// A folder whose children alternate folder, file, folder...
std::shared_ptr<NodoDisco> carpeta(int64_t tamano, const std::vector<int64_t>& hijos)
{
    auto n = std::make_shared<NodoDisco>("c", "/h/c", true);
    n->tamano = tamano;
    for (size_t i = 0; i < hijos.size(); ++i) {
        auto h = std::make_shared<NodoDisco>("h" + std::to_string(i), "/h/c/h" + std::to_string(i), i % 2 == 0);
        h->tamano = hijos[i];
        n->hijos.push_back(h);
    }
    return n;
}

std::vector<std::string> ids(const std::vector<Baldosa>& b)
{
    std::vector<std::string> r;
    for (const auto& x : b)
        r.push_back(x.id);
    return r;
}

// The largest difference between the fields of two rectangles or colours.
double distancia(const Rectangulo& a, const Rectangulo& b)
{
    return std::max({std::abs(a.x - b.x), std::abs(a.y - b.y), std::abs(a.ancho - b.ancho), std::abs(a.alto - b.alto)});
}
double distancia(const Color& a, const Color& b)
{
    return std::max({std::abs(a.rojo - b.rojo), std::abs(a.verde - b.verde), std::abs(a.azul - b.azul)});
}

} // namespace

TEST(Baldosas, UmbralDelDosPorMilTopeDeCuarentaYOtros)
{
    // 0.2 % of 1,000,000 is 2,000: a child of exactly that is shown.
    auto n = carpeta(1'000'000, {990'000, 2'000, 1'999});
    auto b = baldosas(*n);
    EXPECT_EQ(ids(b), (std::vector<std::string>{"/h/c/h0", "/h/c/h1", "otros"}));
    EXPECT_EQ(b.back().nombre, "Otros");
    EXPECT_EQ(b.back().tamano, 8'000);
    EXPECT_EQ(b.back().nodo, nullptr);
    EXPECT_EQ(b.front().nodo, n->hijos.front());
    // Children that fill the folder leave no remainder tile.
    EXPECT_EQ(ids(baldosas(*carpeta(30, {20, 10}))), (std::vector<std::string>{"/h/c/h0", "/h/c/h1"}));
    // Nothing measured: one empty "Otros"; a protected child (size 0) is no tile.
    n = carpeta(0, {0});
    n->hijos[0]->protegido = true;
    EXPECT_EQ(ids(baldosas(*n)), std::vector<std::string>{"otros"});

    b = baldosas(*carpeta(41'000, std::vector<int64_t>(41, 1000)));
    ASSERT_EQ(b.size(), 41u);
    EXPECT_EQ(b[39].id, "/h/c/h39");
    EXPECT_EQ(b[40].id, "otros");
    EXPECT_EQ(b[40].tamano, 1000);
    // Folders and files differ in saturation; the hue steps along the list
    // and wraps around.
    EXPECT_LT(distancia(b[0].color, desdeHsb(0.47, 0.62, 0.82)), 1e-9);
    EXPECT_LT(distancia(b[1].color, desdeHsb(0.553, 0.25, 0.62)), 1e-9);
    EXPECT_LT(distancia(b[7].color, desdeHsb(0.051, 0.25, 0.62)), 1e-9);
    EXPECT_EQ(b[40].color, Colores::gris);
}

TEST(Cuadricular, EjemplosConocidosYEntradasDegeneradas)
{
    const struct {
        std::vector<double> valores;
        Rectangulo area;
        std::vector<Rectangulo> esperados;
    } casos[] = {
        // Height not above width: the first row is a column on the left.
        {{6, 6, 4, 3, 2, 2, 1},
         {0, 0, 6, 4},
         {{0, 0, 3, 2}, {0, 2, 3, 2}, {3, 0, 12.0 / 7, 7.0 / 3}, {3 + 12.0 / 7, 0, 9.0 / 7, 7.0 / 3},
          {3, 7.0 / 3, 1.2, 5.0 / 3}, {4.2, 7.0 / 3, 1.2, 5.0 / 3}, {5.4, 7.0 / 3, 0.6, 5.0 / 3}}},
        {{5}, {0, 0, 300, 200}, {{0, 0, 300, 200}}},
        // In a square the two halves tie, join one column and stack.
        {{1, 1}, {10, 20, 10, 10}, {{10, 20, 10, 5}, {10, 25, 10, 5}}},
        // Taller than wide: strips along the top.
        {{3, 1}, {0, 0, 4, 8}, {{0, 0, 4, 6}, {0, 6, 4, 2}}},
        {{}, {0, 0, 10, 10}, {}},
        {{0, 0}, {0, 0, 10, 10}, {{}, {}}},
        {{3}, {0, 0, 0, 10}, {{}}},
        {{-1, 1}, {0, 0, 10, 10}, {{}, {}}},
    };
    for (const auto& c : casos) {
        const auto r = cuadricular(c.valores, c.area);
        ASSERT_EQ(r.size(), c.esperados.size());
        for (size_t i = 0; i < r.size(); ++i)
            EXPECT_LT(distancia(r[i], c.esperados[i]), 1e-9) << c.valores.size() << " valores, rectángulo " << i;
    }
}

TEST(Colores, UmbralesDelDiscoYHsb)
{
    const struct {
        double usado;
        Degradado degradado;
        Color color;
    } casos[] = {
        {0.8999, Marca::degradado, Marca::principal},
        {0.9, {Colores::amarillo, Colores::naranja}, Colores::naranja},
        {0.95, {Colores::naranja, Colores::rojo}, Colores::rojo},
        {1.0, {Colores::naranja, Colores::rojo}, Colores::rojo},
    };
    for (const auto& c : casos) {
        EXPECT_EQ(coloresDisco(c.usado), c.degradado) << c.usado;
        EXPECT_EQ(colorDisco(c.usado), c.color) << c.usado;
    }
    EXPECT_EQ(desdeHsb(0, 1, 1), (Color{1, 0, 0}));
    EXPECT_EQ(desdeHsb(1.0 / 3, 1, 1), (Color{0, 1, 0}));
    EXPECT_EQ(desdeHsb(1.5, 0.5, 1), (Color{0.5, 1, 1}));
    EXPECT_EQ(desdeHsb(0.7, 0, 0.4), (Color{0.4, 0.4, 0.4}));
}
