// SPDX-License-Identifier: GPL-3.0-or-later
// The main window as a whole: its sections, the sidebar, the welcome, the
// links it serves, and the icon table every screen draws with.
#include "pantallas/comun.h"

#include "escaner/escaner.h"
#include "estado/comun.h"
#include "estado/navegacion.h"
#include "estado/preferencias.h"
#include "pantallas/iconos.h"
#include "plataforma/escritorio.h"

#include <QFile>
#include <QRawFont>
#include <QTranslator>

using pantallas::VentanaPrueba;

// Every symbol the program names has a glyph that the font really holds,
// and every category and section names a symbol of the table.
TEST(Iconos, TablaCompleta)
{
    const auto archivo = plataforma::fuenteIconos();
    ASSERT_FALSE(archivo.empty());
    const QRawFont fuente(QFile::decodeName(archivo.c_str()), 24);
    ASSERT_TRUE(fuente.isValid());
    std::set<std::string_view> nombres;
    for (const Simbolo& s : tablaDeSimbolos()) {
        EXPECT_TRUE(fuente.supportsCharacter(QChar(s.glifo))) << s.nombre;
        EXPECT_TRUE(nombres.insert(s.nombre).second) << "twice: " << s.nombre;
    }
    apoyo::CasaPrueba casa;
    const Escaner escaner(casa.entorno());
    for (const char* id : {"apps", "logs", "dev", "redescarga", "compilaciones", "dependencias", "instaladores",
                           "grandes", "huerfanos", "duplicados", "descargas"})
        EXPECT_TRUE(nombres.contains(escaner.categoria(id, {}).icono)) << id;
    for (const Seccion s : todasLasSecciones)
        EXPECT_TRUE(nombres.contains(icono(s))) << valor(s);
    EXPECT_TRUE(fuente.supportsCharacter(QChar(glifoDe("no.existe"))));
}

// The sections by the sidebar, the window's title, the test-mode mark, and
// the disk line of the sidebar.
TEST(Principal, SeccionesYBarraLateral)
{
    VentanaPrueba v;
    EXPECT_EQ(v.ventana()->objectName().toStdString(), "principal");
    EXPECT_EQ(v.ventana()->title().toStdString(), "Resumen");
    EXPECT_FALSE(v.visible("bienvenida"));
    EXPECT_TRUE(v.visible("modoPrueba"));
    EXPECT_EQ(v.texto("libres"),
              formatoBytes(v.estado().libre()) + " libres de " + formatoBytes(v.estado().total()));
    EXPECT_FALSE(v.visible("insignia"));
    pantallas::capturar(v.ventana(), "inicio");

    const std::pair<const char*, const char*> secciones[] = {
        {"limpieza", "Limpieza"}, {"mapa", "Mapa del disco"}, {"desinstalar", "Desinstalar apps"}, {"resumen", "Resumen"}};
    for (const auto& [valor, titulo] : secciones) {
        v.pulsar("seccion-" + std::string(valor));
        EXPECT_EQ(v.seccion(), valor);
        EXPECT_EQ(v.ventana()->title().toStdString(), titulo);
        EXPECT_TRUE(v.visible(QLatin1String(valor)));
    }
}

// With the English catalogue installed, the window and the texts computed
// in C++ for it speak English.
TEST(Principal, EnIngles)
{
    QTranslator ingles;
    ASSERT_TRUE(ingles.load(QStringLiteral("vorlano_en"), QStringLiteral(":/i18n")));
    QCoreApplication::installTranslator(&ingles);
    {
        VentanaPrueba v;
        EXPECT_EQ(v.ventana()->title().toStdString(), "Overview");
        EXPECT_EQ(v.texto("libres"),
                  formatoBytes(v.estado().libre()) + " free of " + formatoBytes(v.estado().total()));
        pantallas::capturar(v.ventana(), "ingles");
        v.pulsar("seccion-mapa");
        EXPECT_EQ(v.ventana()->title().toStdString(), "Disk map");
    }
    QCoreApplication::removeTranslator(&ingles);
}

// A first start shows the welcome over the window; "Empezar" stores that it
// was seen, and the settings' "see it again" brings it back.
TEST(Principal, Bienvenida)
{
    VentanaPrueba v(false);
    ASSERT_TRUE(v.visible("bienvenida"));
    pantallas::capturar(v.ventana(), "bienvenida");
    v.pulsar("empezar");
    EXPECT_TRUE(Preferencias::shared().bienvenidaVista());
    EXPECT_TRUE(pantallas::hasta([&] { return !v.visible("bienvenida"); }));
    Preferencias::shared().ponerBienvenidaVista(false);
    v.asentar();
    EXPECT_TRUE(v.visible("bienvenida"));
}

// Links: each shows its section; "analizar" starts an analysis only when
// none runs; "mapa" starts measuring once.
TEST(Principal, Enlaces)
{
    VentanaPrueba v;
    v.casa.archivo("Library/Caches/una.app/datos", 100 * 4096);
    Navegacion::shared().ir(Enlace::limpieza);
    EXPECT_EQ(v.seccion(), "limpieza");
    EXPECT_FALSE(Navegacion::shared().pendiente());

    QSignalSpy fin(&v.estado(), &Estado::analisisTerminado);
    QSignalSpy fases(&v.estado(), &Estado::faseChanged);
    Navegacion::shared().ir(Enlace::analizar);
    EXPECT_EQ(v.seccion(), "resumen");
    EXPECT_TRUE(v.estado().estaTrabajando());
    // A second one while it runs changes the section and starts nothing.
    Navegacion::shared().ir(Enlace::limpieza);
    Navegacion::shared().ir(Enlace::analizar);
    ASSERT_TRUE(esperar(fin));
    v.asentar(300);
    EXPECT_EQ(fin.count(), 1);
    EXPECT_EQ(v.estado().analisisID(), 1);

    auto* mapa = v.buscar("mapa")->property("estado").value<QObject*>();
    ASSERT_NE(mapa, nullptr);
    Navegacion::shared().ir(Enlace::mapa);
    EXPECT_EQ(v.seccion(), "mapa");
    EXPECT_TRUE(mapa->property("midiendo").toBool());
    Navegacion::shared().ir(Enlace::desinstalar);
    EXPECT_EQ(v.seccion(), "desinstalar");
}
