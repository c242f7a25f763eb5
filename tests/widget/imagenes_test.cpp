// SPDX-License-Identifier: GPL-3.0-or-later
// --widget-png as a user runs it, without a display: the six pictures, their
// sizes, transparent corners, the background's colours, and what the run
// does with a folder it can't use.
#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>

#include <cmath>

namespace fs = std::filesystem;

namespace {

const char* const nombres[] = {"widget-chico-claro.png",   "widget-chico-oscuro.png",  "widget-mediano-claro.png",
                               "widget-mediano-oscuro.png", "widget-grande-claro.png", "widget-grande-oscuro.png"};

// The run's output: one full path a line.
std::string lineas(const fs::path& carpeta)
{
    std::string r;
    for (const char* n : nombres)
        r += (carpeta / n).string() + "\n";
    return r;
}

apoyo::Salida exportar(const apoyo::CasaPrueba& casa, const std::vector<std::string>& args)
{
    // No display at all: the run must not need one.
    return apoyo::ejecutarVorlano(casa.raiz(), args,
                                  {{"DISPLAY", std::nullopt}, {"WAYLAND_DISPLAY", std::nullopt},
                                   {"QT_QPA_PLATFORM", std::nullopt}, {"QT_QUICK_BACKEND", std::nullopt}});
}

QImage abrir(const fs::path& p)
{
    return QImage(QString::fromStdString(p.string()));
}

int diferencia(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)),
                     std::abs(qAlpha(a) - qAlpha(b))});
}

} // namespace

TEST(ImagenesWidget, SeisImagenesSinPantalla)
{
    apoyo::CasaPrueba casa;
    const fs::path carpeta = casa.ruta("fotos/nuevas");
    const auto r = exportar(casa, {"--widget-png", carpeta.string(), "--ejemplo"});
    EXPECT_EQ(r.estado, 0);
    EXPECT_EQ(r.salida, lineas(carpeta));
    EXPECT_EQ(r.errores, "");

    const std::pair<int, int> tamanos[] = {{420, 420}, {808, 420}, {808, 844}};
    // Top and bottom of the background's gradient, light then dark.
    const QColor arriba[] = {QColor::fromRgbF(0.95f, 0.98f, 0.99f), QColor::fromRgbF(0.07f, 0.11f, 0.16f)};
    const QColor abajo[] = {QColor::fromRgbF(0.9f, 0.94f, 0.99f), QColor::fromRgbF(0.05f, 0.07f, 0.12f)};
    for (int i = 0; i < 6; ++i) {
        SCOPED_TRACE(nombres[i]);
        const QImage img = abrir(carpeta / nombres[i]);
        ASSERT_FALSE(img.isNull());
        const auto [ancho, alto] = tamanos[i / 2];
        EXPECT_EQ(img.width(), ancho);
        EXPECT_EQ(img.height(), alto);
        ASSERT_TRUE(img.hasAlphaChannel());
        // The margin and the rounded corners are see-through.
        for (const QPoint p : {QPoint(0, 0), QPoint(ancho - 1, alto - 1), QPoint(41, 41), QPoint(ancho - 42, 41),
                               QPoint(41, alto - 42), QPoint(20, alto / 2)})
            EXPECT_EQ(qAlpha(img.pixel(p)), 0) << p.x() << "," << p.y();
        // Two points of the large picture's padding, far from both glows and
        // from the content and its glows: the gradient alone.
        for (const QPoint p : {QPoint(6, 40), QPoint(356, 360)}) {
            if (i / 2 != 2)
                break;
            const double t = p.y() / 382.0;
            const QColor a = arriba[i % 2], b = abajo[i % 2];
            const QColor esperado = QColor::fromRgbF(float(a.redF() + (b.redF() - a.redF()) * t),
                                                     float(a.greenF() + (b.greenF() - a.greenF()) * t),
                                                     float(a.blueF() + (b.blueF() - a.blueF()) * t));
            EXPECT_LE(diferencia(img.pixel((20 + p.x()) * 2, (20 + p.y()) * 2), esperado.rgba()), 2) << p.y();
        }
    }

    // The example's figures are fixed: a second run draws the same pictures
    // but for the clock of the two larger sizes (top right, inside the
    // 16-point padding), an existing picture replaced.
    const fs::path otra = casa.archivoCon("otra/widget-chico-claro.png", "viejo").parent_path();
    ASSERT_EQ(exportar(casa, {"--ejemplo", "--widget-png", otra.string()}).salida, lineas(otra));
    for (const char* n : nombres) {
        const QImage a = abrir(carpeta / n), b = abrir(otra / n);
        ASSERT_EQ(a.size(), b.size());
        const QRect reloj((20 + 16 + 332 - 70) * 2, (20 + 16) * 2, 70 * 2, 18 * 2);
        int distintos = 0;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x)
                distintos += !reloj.contains(x, y) && a.pixel(x, y) != b.pixel(x, y);
        EXPECT_EQ(distintos, 0) << n;
    }
}

// A folder that can't be made or written gets nothing, the paths are still
// printed, and the run ends well; a file in the way is left as it was. A
// last --widget-png is no option at all.
TEST(ImagenesWidget, CarpetasInservibles)
{
    apoyo::CasaPrueba casa;
    const fs::path archivo = casa.archivoCon("archivo", "no es una carpeta");
    for (const fs::path& carpeta : {archivo, archivo / "dentro"}) {
        const auto r = exportar(casa, {"--widget-png", carpeta.string()});
        EXPECT_EQ(r.estado, 0) << carpeta;
        EXPECT_EQ(r.salida, lineas(carpeta));
        EXPECT_EQ(r.errores, "");
    }
    EXPECT_EQ(apoyo::leer(archivo), "no es una carpeta");
    EXPECT_EQ(apoyo::huellas(casa.raiz()).size(), 2u);

    // As the last argument it is ignored: --version runs; alone, the
    // application starts and says it has no display.
    const auto version = exportar(casa, {"--version", "--widget-png"});
    EXPECT_EQ(version.estado, 0);
    EXPECT_EQ(version.salida.rfind("vorlano ", 0), 0u) << version.salida;
    const auto sola = exportar(casa, {"--widget-png"});
    EXPECT_EQ(sola.estado, 1);
    EXPECT_NE(sola.errores.find("no hay escritorio"), std::string::npos) << sola.errores;
}
