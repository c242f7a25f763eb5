// SPDX-License-Identifier: GPL-3.0-or-later
// The widget's content: its rules and texts without a window, then the real
// views on the offscreen platform, the ring's colours read off its pixels.
#include "widget/entrada_disco.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "mapa/baldosas.h"
#include "pantallas/tema.h"
#include "plataforma/sistema.h"
#include "widget/comun.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <cmath>
#include <memory>

namespace {

EntradaDisco entrada(int64_t libre, int64_t total)
{
    return {std::chrono::system_clock::now(), libre, total};
}

} // namespace

TEST(EntradaDisco, ReglasYTextos)
{
    struct Caso {
        int64_t libre, total;
        double usado;
        bool poco;
        const char* linea;
        const char* deTotal;
    };
    const Caso casos[] = {
        {0, 0, 0, false, "0 % usado · de 0 GB", "de 0 GB"},
        {5, 0, 0, false, "0 % usado · de 0 GB", "de 0 GB"},
        {10, 100, 0.9, true, "Queda poco espacio", "de 0 GB"},
        {11, 100, 0.89, false, "89 % usado · de 0 GB", "de 0 GB"},
        {46'000'000'000, 245'000'000'000, 199.0 / 245, false, "81 % usado · de 245 GB", "de 245 GB"},
        {12'250'000'000, 245'000'000'000, 0.95, true, "Queda poco espacio", "de 245 GB"},
        {1'500'000'000, 1'500'000'000, 0, false, "0 % usado · de 2 GB", "de 2 GB"},
    };
    for (const Caso& c : casos) {
        const EntradaDisco e = entrada(c.libre, c.total);
        SCOPED_TRACE(std::to_string(c.libre) + " de " + std::to_string(c.total));
        EXPECT_DOUBLE_EQ(e.usado(), c.usado);
        EXPECT_EQ(e.poco(), c.poco);
        EXPECT_EQ(e.lineaEstado(), c.linea);
        EXPECT_EQ(e.deTotal(), c.deTotal);
    }
    // Hours and minutes, whatever the locale's short format adds.
    const std::string hora = EntradaDisco::ejemplo().hora();
    EXPECT_EQ(std::count(hora.begin(), hora.end(), ':'), 1) << hora;

    for (const auto& [nombreFamilia, familia] : {std::pair{"chico", Familia::chico}, {"mediano", Familia::mediano},
                                                 {"grande", Familia::grande}, {"enorme", Familia::chico},
                                                 {"Mediano", Familia::chico}, {"", Familia::chico}})
        EXPECT_EQ(familiaDe(nombreFamilia), familia) << nombreFamilia;
}

// The disk of the user's home, not of the scratch home of test mode; a
// volume that can't be read gives zeros.
TEST(EntradaDisco, ActualMideLaCasaReal)
{
    apoyo::CasaPrueba enMemoria(true), enDisco;
    apoyo::Variable prueba("VORLANO_HOME", enDisco.raiz().string());
    const auto memoria = plataforma::espacioDisco(enMemoria.raiz());
    if (memoria.total == plataforma::espacioDisco(enDisco.raiz()).total)
        GTEST_SKIP() << "/dev/shm and the temporary folder are one volume here";
    {
        apoyo::Variable home("HOME", enMemoria.raiz().string());
        EXPECT_EQ(EntradaDisco::actual().total, memoria.total);
    }
    apoyo::Variable home("HOME", (enDisco.raiz() / "no-existe").string());
    const EntradaDisco e = EntradaDisco::actual();
    EXPECT_EQ(e.libre, 0);
    EXPECT_EQ(e.total, 0);
    EXPECT_EQ(e.lineaEstado(), "0 % usado · de 0 GB");
}

namespace {

// A view of the module in a window of its own, at the size given.
class Vista {
public:
    Vista(const char* qml, std::initializer_list<std::pair<const char*, QVariant>> valores, QSize tamano)
    {
        QVariantMap propiedades;
        for (const auto& [nombre, valor] : valores)
            propiedades.insert(QString::fromUtf8(nombre), valor);
        motor_.addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlComponent c(&motor_);
        c.setData(QByteArray("import QtQuick\nimport Vorlano\n") + qml, QUrl());
        objeto_.reset(c.createWithInitialProperties(propiedades));
        auto* raiz = qobject_cast<QQuickItem*>(objeto_.get());
        EXPECT_NE(raiz, nullptr) << c.errorString().toStdString();
        if (raiz == nullptr)
            return;
        ventana_.resize(tamano);
        raiz->setParentItem(ventana_.contentItem());
        raiz->setSize(tamano);
        ventana_.show();
        QCoreApplication::processEvents();
    }

    QImage imagen()
    {
        ventana_.grabWindow();
        QCoreApplication::processEvents();
        return ventana_.grabWindow();
    }

    QString texto(const char* nombre) const
    {
        const QQuickItem* i = ::buscar(ventana_.contentItem(), QLatin1String(nombre));
        return i != nullptr ? i->property("text").toString() : QString();
    }
    bool visible(const char* nombre) const
    {
        const QQuickItem* i = ::buscar(ventana_.contentItem(), QLatin1String(nombre));
        return i != nullptr && i->isVisible();
    }

private:
    QQmlEngine motor_;
    QQuickWindow ventana_;
    std::unique_ptr<QObject> objeto_;
};

QVariant v(const EntradaDisco& e)
{
    return QVariant::fromValue(e);
}

} // namespace

// Each family draws its own layout and a name the widget doesn't know draws
// the small one; the status line warns from 0.9 in use.
TEST(VistaWidget, FamiliasYEstado)
{
    const std::pair<const char*, const char*> familias[] = {
        {"chico", "chico"}, {"mediano", "mediano"}, {"grande", "grande"}, {"systemExtraLarge", "chico"}};
    for (const auto& [familia, dibujada] : familias) {
        Vista vista("VistaWidget {}", {{"entrada", v(entrada(10, 100))}, {"familia", QString::fromUtf8(familia)}}, {332, 350});
        for (const char* f : {"chico", "mediano", "grande"})
            EXPECT_EQ(vista.visible(f), std::string_view(f) == dibujada) << familia << " " << f;
        // The small one has no status line; the others warn.
        if (std::string_view(dibujada) != "chico") {
            EXPECT_TRUE(vista.visible("avisoPoco")) << familia;
            EXPECT_FALSE(vista.visible("puntoVerde")) << familia;
        }
    }
    Vista bien("EstadoWidget {}", {{"entrada", v(entrada(11, 100))}}, {300, 20});
    EXPECT_FALSE(bien.visible("avisoPoco"));
    EXPECT_TRUE(bien.visible("puntoVerde"));
    EXPECT_EQ(bien.texto("lineaEstado"), QStringLiteral("89 % usado · de 0 GB"));
    // The ring's figure in whole gigabytes.
    Vista anillo("AnilloWidget {}", {{"entrada", v(EntradaDisco::ejemplo())}}, {100, 100});
    EXPECT_EQ(anillo.texto("numero"), QStringLiteral("46"));
    EXPECT_EQ(anillo.texto("unidad"), QStringLiteral("GB"));
}

namespace {

double distancia(QColor a, QColor b)
{
    return std::max({std::abs(a.redF() - b.redF()), std::abs(a.greenF() - b.greenF()), std::abs(a.blueF() - b.blueF())});
}

QColor mezcla(const Color& a, const Color& b, double t)
{
    return QColor::fromRgbF(float(a.rojo + (b.rojo - a.rojo) * t), float(a.verde + (b.verde - a.verde) * t),
                            float(a.azul + (b.azul - a.azul) * t));
}

} // namespace

// The arc runs clockwise from the top through the two colours of the disk
// for the share in use, round the whole circle, with a glow outside it;
// tinted, it is the plain text colour without a glow. The track beyond the
// arc is never the arc's colour.
TEST(AnilloWidget, ColoresDelArco)
{
    constexpr double lado = 200, grosor = 20, borde = 30;
    const char* qml = "Item { id: r; required property entradaDisco entrada; property bool tintado\n"
                      "  AnilloWidget { x: 30; y: 30; width: 200; height: 200; grosor: 20\n"
                      "                 entrada: r.entrada; tintado: r.tintado } }";
    for (const double usado : {0.81, 0.92, 0.96}) {
        const auto total = int64_t(1'000'000'000'000);
        const EntradaDisco e = entrada(int64_t(std::llround(double(total) * (1 - usado))), total);
        const Degradado d = coloresDisco(usado);
        for (const bool tintado : {false, true}) {
            Vista vista(qml, {{"entrada", v(e)}, {"tintado", tintado}}, QSize(260, 260));
            const QImage img = vista.imagen();
            const double escala = img.devicePixelRatio();
            auto pixel = [&](double fraccion, double radio) {
                const double a = fraccion * 2 * M_PI, c = borde + lado / 2;
                return img.pixelColor(int((c + radio * std::sin(a)) * escala), int((c - radio * std::cos(a)) * escala));
            };
            const double r = (lado - grosor) / 2;
            SCOPED_TRACE(std::to_string(usado) + (tintado ? " tintado" : ""));
            const QColor texto = Tema::shared().texto();
            for (const double f : {0.1, 0.4, 0.7}) {
                const QColor esperado = tintado ? texto : mezcla(d.inicio, d.fin, f);
                EXPECT_LT(distancia(pixel(f, r), esperado), 0.08) << f << " " << pixel(f, r).name().toStdString();
                const double brillo = distancia(pixel(f, r + grosor * 0.8), Qt::white);
                if (tintado)
                    EXPECT_LT(brillo, 0.01) << f;
                else
                    EXPECT_GT(brillo, 0.03) << f;
            }
            if (usado < 0.95) {
                EXPECT_GT(distancia(pixel(usado + 0.04, r), tintado ? texto : mezcla(d.inicio, d.fin, 0.9)), 0.2);
            }
        }
    }
}
