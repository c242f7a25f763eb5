// SPDX-License-Identifier: GPL-3.0-or-later
// The main window as a whole, the settings window, and the icon table.
#include "pantallas/comun.h"

#include "escaner/escaner.h"
#include "estado/navegacion.h"
#include "estado/preferencias.h"
#include "pantallas/iconos.h"
#include "plataforma/escritorio.h"

#include <QFile>
#include <QRawFont>
#include <QTranslator>

#include <fstream>

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

// A damaged settings file: values that mean nothing count as defaults (the
// welcome not seen, 20 GB), the sensible one (tray item off) is read. The
// welcome, then the sections by the sidebar with the window's title, the
// test-mode mark and the disk line; links: each shows its section,
// "analizar" starts an analysis only when none runs, "mapa" starts
// measuring. Then each control of the settings window stores what it shows.
TEST(Principal, BienvenidaSeccionesEnlacesYAjustes)
{
    VentanaPrueba v(std::nullopt, [](apoyo::CasaPrueba&) {
        const std::filesystem::path conf = std::filesystem::path(std::getenv("XDG_CONFIG_HOME")) / "Vorlano/Vorlano.conf";
        std::filesystem::create_directories(conf.parent_path());
        std::ofstream(conf) << "[General]\nbarraMenu=false\navisoGB=muchos\nbienvenidaVista=7\n\x01\xff=\x02\n[[roto\n=\n";
    });
    Preferencias& p = Preferencias::shared();
    ASSERT_TRUE(hasta([&] { return v.visible("bienvenida"); }));
    v.asentar(300);
    pantallas::capturar(v.ventana(), "bienvenida");
    v.pulsar("empezar");
    EXPECT_TRUE(p.bienvenidaVista());
    EXPECT_TRUE(hasta([&] { return !v.visible("bienvenida"); }));

    EXPECT_EQ(v.ventana()->title().toStdString(), "Resumen");
    EXPECT_TRUE(v.visible("modoPrueba"));
    EXPECT_EQ(v.texto("libres"), formatoBytes(v.estado().libre()) + " libres de " + formatoBytes(v.estado().total()));
    EXPECT_FALSE(v.visible("insignia"));
    pantallas::capturar(v.ventana(), "inicio");
    const std::pair<const char*, const char*> secciones[] = {
        {"limpieza", "Limpieza"}, {"mapa", "Mapa del disco"}, {"desinstalar", "Desinstalar apps"}, {"resumen", "Resumen"}};
    for (const auto& [valor, titulo] : secciones) {
        v.pulsar("seccion-" + std::string(valor));
        EXPECT_EQ(v.seccion(), valor);
        EXPECT_EQ(v.ventana()->title().toStdString(), titulo);
        EXPECT_TRUE(v.visible(valor));
    }

    v.casa.archivo("Library/Caches/una.app/datos", 100 * 4096);
    Navegacion::shared().ir(Enlace::limpieza);
    EXPECT_EQ(v.seccion(), "limpieza");
    EXPECT_FALSE(Navegacion::shared().pendiente());
    QSignalSpy fin(&v.estado(), &Estado::analisisTerminado);
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
    Navegacion::shared().ir(Enlace::mapa);
    EXPECT_EQ(v.seccion(), "mapa");
    EXPECT_TRUE(v.leer("mapa", "estado").value<QObject*>()->property("midiendo").toBool());
    Navegacion::shared().ir(Enlace::desinstalar);
    EXPECT_EQ(v.seccion(), "desinstalar");

    v.app().abrirAjustes();
    ASSERT_NE(v.app().ajustes(), nullptr);
    v.asentar();
    pantallas::capturar(v.app().ajustes(), "ajustes");
    EXPECT_EQ(v.texto("aviso", "displayText"), "20 GB");
    QObject* aviso = v.buscar("aviso");
    QMetaObject::invokeMethod(aviso, "activated", Q_ARG(int, 0));
    EXPECT_EQ(p.avisoGB(), 0);
    EXPECT_EQ(v.texto("aviso", "displayText"), "Nunca");
    QMetaObject::invokeMethod(aviso, "activated", Q_ARG(int, 3));
    EXPECT_EQ(p.avisoGB(), 50);
    p.ponerAvisoGB(37);
    v.asentar(50);
    EXPECT_EQ(v.texto("aviso", "displayText"), "37 GB");

    EXPECT_FALSE(v.leer("barraMenu", "checked").toBool());
    v.pulsar("barraMenu");
    EXPECT_TRUE(p.conBarraMenu());
    EXPECT_TRUE(v.leer("barraMenu", "checked").toBool());
    // The login switch shows what the system holds: an autostart entry that
    // starts this very program.
    const auto entrada = std::filesystem::path(std::getenv("XDG_CONFIG_HOME")) / "autostart/vorlano.desktop";
    for (const bool activo : {true, false}) {
        v.pulsar("inicioSesion");
        EXPECT_EQ(v.leer("inicioSesion", "checked").toBool(), activo);
        EXPECT_EQ(apoyo::leer(entrada).find("Exec=\"" + std::filesystem::read_symlink("/proc/self/exe").string() + "\"\n") !=
                      std::string::npos,
                  activo);
    }
    // Outside a sandbox the home is fully ours.
    EXPECT_TRUE(v.visible("activado"));
    EXPECT_FALSE(v.texto("version").empty());

    v.pulsar("verBienvenida");
    EXPECT_FALSE(p.bienvenidaVista());
    EXPECT_TRUE(hasta([&] { return v.visible("bienvenida"); }));
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
        EXPECT_EQ(v.texto("libres"), formatoBytes(v.estado().libre()) + " free of " + formatoBytes(v.estado().total()));
        pantallas::capturar(v.ventana(), "ingles");
        v.pulsar("seccion-mapa");
        EXPECT_EQ(v.ventana()->title().toStdString(), "Disk map");
    }
    QCoreApplication::removeTranslator(&ingles);
}
