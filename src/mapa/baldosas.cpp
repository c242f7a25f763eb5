// SPDX-License-Identifier: GPL-3.0-or-later
#include "mapa/baldosas.h"

#include "nucleo/textos.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double umbralBaldosa = 0.002;
constexpr size_t maxBaldosas = 40;

// The worst aspect ratio of a row of areas laid along a side of length lado.
double peorRazon(const double* areas, size_t n, double lado)
{
    double s = 0;
    for (size_t i = 0; i < n; ++i)
        s += areas[i];
    if (!(s > 0) || !(lado > 0))
        return std::numeric_limits<double>::infinity();
    const double l2 = lado * lado;
    const double s2 = s * s;
    double peor = 0;
    for (size_t i = 0; i < n; ++i)
        peor = std::max({peor, l2 * areas[i] / s2, s2 / (l2 * std::max(areas[i], 0.0001))});
    return peor;
}

} // namespace

std::vector<Baldosa> baldosas(const NodoDisco& n)
{
    const double umbral = double(n.tamano) * umbralBaldosa;
    std::vector<Baldosa> r;
    int64_t mostrado = 0;
    for (const auto& h : n.hijos) {
        if (r.size() == maxBaldosas)
            break;
        if (double(h->tamano) < umbral || h->tamano < 1)
            continue;
        const double i = double(r.size());
        const double tono = i * 0.083 + 0.47;
        const Color color = h->esCarpeta ? desdeHsb(tono, 0.62, 0.82) : desdeHsb(tono, 0.25, 0.62);
        r.push_back({h->ruta, h, h->nombre, h->tamano, color});
        mostrado += h->tamano;
    }
    const int64_t resto = n.tamano - mostrado;
    if (double(resto) >= umbral)
        r.push_back({"otros", nullptr, tr(QT_TRANSLATE_NOOP("Vorlano", "Otros")), resto, Colores::gris});
    return r;
}

std::vector<Rectangulo> cuadricular(const std::vector<double>& valores, const Rectangulo& en)
{
    if (valores.empty())
        return {};
    double total = 0;
    for (double v : valores)
        total += v;
    if (!(total > 0) || !(en.ancho > 0) || !(en.alto > 0))
        return std::vector<Rectangulo>(valores.size());

    const double escala = en.ancho * en.alto / total;
    std::vector<double> areas;
    areas.reserve(valores.size());
    for (double v : valores)
        areas.push_back(v * escala);

    std::vector<Rectangulo> r;
    r.reserve(areas.size());
    Rectangulo libre = en;
    for (size_t i = 0; i < areas.size();) {
        const double lado = std::min(libre.ancho, libre.alto);
        // The row grows while adding the next area doesn't worsen its worst
        // ratio; a tie joins.
        size_t fin = i + 1;
        while (fin < areas.size()) {
            const double candidata = peorRazon(&areas[i], fin + 1 - i, lado);
            if (std::isnan(candidata) || candidata > peorRazon(&areas[i], fin - i, lado))
                break;
            ++fin;
        }
        double s = 0;
        for (size_t k = i; k < fin; ++k)
            s += areas[k];
        if (libre.alto <= libre.ancho) {
            // A column on the left edge, filled from the top down.
            const double ancho = s / libre.alto;
            double y = libre.y;
            for (size_t k = i; k < fin; ++k) {
                const double alto = areas[k] / ancho;
                r.push_back({libre.x, y, ancho, alto});
                y += alto;
            }
            libre.x += ancho;
            libre.ancho = libre.ancho - ancho > 0 ? libre.ancho - ancho : 0;
        } else {
            // A strip on the top edge, filled from the left.
            const double alto = s / libre.ancho;
            double x = libre.x;
            for (size_t k = i; k < fin; ++k) {
                const double ancho = areas[k] / alto;
                r.push_back({x, libre.y, ancho, alto});
                x += ancho;
            }
            libre.y += alto;
            libre.alto = libre.alto - alto > 0 ? libre.alto - alto : 0;
        }
        i = fin;
    }
    return r;
}

Degradado coloresDisco(double usado)
{
    if (usado >= 0.95)
        return {Colores::naranja, Colores::rojo};
    if (usado >= 0.9)
        return {Colores::amarillo, Colores::naranja};
    return Marca::degradado;
}

Color colorDisco(double usado)
{
    if (usado >= 0.95)
        return Colores::rojo;
    if (usado >= 0.9)
        return Colores::naranja;
    return Marca::principal;
}
