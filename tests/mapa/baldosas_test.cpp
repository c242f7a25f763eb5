// SPDX-License-Identifier: GPL-3.0-or-later
#include "mapa/baldosas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

std::shared_ptr<NodoDisco> carpeta(int64_t tamano, const std::vector<int64_t>& hijos, int64_t resto = 0)
{
    auto n = std::make_shared<NodoDisco>("c", "/h/c", true);
    n->tamano = tamano;
    n->resto = resto;
    for (size_t i = 0; i < hijos.size(); ++i) {
        auto h = std::make_shared<NodoDisco>("h" + std::to_string(i), "/h/c/h" + std::to_string(i), i % 2 == 0);
        h->tamano = hijos[i];
        h->padre = n;
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

// The rectangles lie inside the area, don't overlap, and cover it.
void llenaSinSolaparse(const std::vector<Rectangulo>& r, const Rectangulo& area)
{
    double suma = 0;
    for (size_t i = 0; i < r.size(); ++i) {
        const Rectangulo& a = r[i];
        suma += a.ancho * a.alto;
        EXPECT_GE(a.x, area.x - 1e-9);
        EXPECT_GE(a.y, area.y - 1e-9);
        EXPECT_LE(a.x + a.ancho, area.x + area.ancho + 1e-9);
        EXPECT_LE(a.y + a.alto, area.y + area.alto + 1e-9);
        for (size_t j = 0; j < i; ++j) {
            const Rectangulo& b = r[j];
            const double w = std::min(a.x + a.ancho, b.x + b.ancho) - std::max(a.x, b.x);
            const double h = std::min(a.y + a.alto, b.y + b.alto) - std::max(a.y, b.y);
            EXPECT_FALSE(w > 1e-9 && h > 1e-9) << i << " y " << j << " se solapan";
        }
    }
    EXPECT_NEAR(suma, area.ancho * area.alto, 1e-6 * area.ancho * area.alto);
}

void cerca(const Color& a, const Color& b)
{
    EXPECT_NEAR(a.rojo, b.rojo, 1e-9);
    EXPECT_NEAR(a.verde, b.verde, 1e-9);
    EXPECT_NEAR(a.azul, b.azul, 1e-9);
}

void igual(const Rectangulo& a, const Rectangulo& b)
{
    EXPECT_NEAR(a.x, b.x, 1e-9);
    EXPECT_NEAR(a.y, b.y, 1e-9);
    EXPECT_NEAR(a.ancho, b.ancho, 1e-9);
    EXPECT_NEAR(a.alto, b.alto, 1e-9);
}

} // namespace

TEST(Baldosas, UmbralDelDosPorMilYRestoEnOtros)
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
    b = baldosas(*n);
    ASSERT_EQ(b.size(), 1u);
    EXPECT_EQ(b[0].id, "otros");
    EXPECT_EQ(b[0].tamano, 0);
}

TEST(Baldosas, CuarentaComoMuchoYElRestoAlFinal)
{
    const auto b = baldosas(*carpeta(41'000, std::vector<int64_t>(41, 1000)));
    ASSERT_EQ(b.size(), 41u);
    EXPECT_EQ(b[39].id, "/h/c/h39");
    EXPECT_EQ(b[40].id, "otros");
    EXPECT_EQ(b[40].tamano, 1000);
    // Folders and files differ in saturation; the hue steps along the list
    // and wraps around.
    cerca(b[0].color, desdeHsb(0.47, 0.62, 0.82));
    cerca(b[1].color, desdeHsb(0.553, 0.25, 0.62));
    cerca(b[7].color, desdeHsb(0.051, 0.25, 0.62));
    EXPECT_EQ(b[40].color, Colores::gris);
}

TEST(Cuadricular, EjemplosConocidos)
{
    const Rectangulo area{0, 0, 6, 4};
    const auto r = cuadricular({6, 6, 4, 3, 2, 2, 1}, area);
    ASSERT_EQ(r.size(), 7u);
    llenaSinSolaparse(r, area);
    // Height below width: the first row is a column on the left.
    igual(r[0], {0, 0, 3, 2});
    igual(r[1], {0, 2, 3, 2});
    igual(r[2], {3, 0, 12.0 / 7, 7.0 / 3});
    igual(r[3], {3 + 12.0 / 7, 0, 9.0 / 7, 7.0 / 3});
    igual(r[6], {5.4, 7.0 / 3, 0.6, 5.0 / 3});

    igual(cuadricular({5}, {0, 0, 300, 200}).at(0), {0, 0, 300, 200});
    // In a square the two halves tie, join one column and stack.
    const auto c = cuadricular({1, 1}, {10, 20, 10, 10});
    igual(c.at(0), {10, 20, 10, 5});
    igual(c.at(1), {10, 25, 10, 5});
    // Taller than wide: strips along the top.
    igual(cuadricular({3, 1}, {0, 0, 4, 8}).at(0), {0, 0, 4, 6});
}

TEST(Cuadricular, EntradasDegeneradasDanRectangulosVacios)
{
    EXPECT_TRUE(cuadricular({}, {0, 0, 10, 10}).empty());
    EXPECT_EQ(cuadricular({0, 0}, {0, 0, 10, 10}), std::vector<Rectangulo>(2));
    EXPECT_EQ(cuadricular({3}, {0, 0, 0, 10}), std::vector<Rectangulo>(1));
    EXPECT_EQ(cuadricular({-1, 1}, {0, 0, 10, 10}), std::vector<Rectangulo>(2));
}

TEST(Cuadricular, CualquierListaLlenaElAreaEnSuOrden)
{
    std::mt19937 azar(7);
    for (int vuelta = 0; vuelta < 200; ++vuelta) {
        std::vector<double> v(1 + azar() % 41);
        for (auto& x : v)
            x = 1 + azar() % 100000;
        const Rectangulo area{double(azar() % 50), double(azar() % 50), 1 + double(azar() % 900),
                              1 + double(azar() % 600)};
        const auto r = cuadricular(v, area);
        ASSERT_EQ(r.size(), v.size());
        llenaSinSolaparse(r, area);
        double total = 0;
        for (double x : v)
            total += x;
        for (size_t i = 0; i < v.size(); ++i)
            EXPECT_NEAR(r[i].ancho * r[i].alto, v[i] / total * area.ancho * area.alto, 1e-6 * area.ancho * area.alto);
    }
}

TEST(Colores, UmbralesDelDisco)
{
    EXPECT_EQ(coloresDisco(0.8999), Marca::degradado);
    EXPECT_EQ(colorDisco(0.8999), Marca::principal);
    EXPECT_EQ(coloresDisco(0.9), (Degradado{Colores::amarillo, Colores::naranja}));
    EXPECT_EQ(colorDisco(0.9), Colores::naranja);
    EXPECT_EQ(coloresDisco(0.95), (Degradado{Colores::naranja, Colores::rojo}));
    EXPECT_EQ(colorDisco(0.95), Colores::rojo);
    EXPECT_EQ(colorDisco(1.0), Colores::rojo);
}

TEST(Colores, DesdeHsb)
{
    EXPECT_EQ(desdeHsb(0, 1, 1), (Color{1, 0, 0}));
    EXPECT_EQ(desdeHsb(1.0 / 3, 1, 1), (Color{0, 1, 0}));
    EXPECT_EQ(desdeHsb(1.5, 0.5, 1), (Color{0.5, 1, 1}));
    EXPECT_EQ(desdeHsb(0.7, 0, 0.4), (Color{0.4, 0.4, 0.4}));
}
