// SPDX-License-Identifier: GPL-3.0-or-later
// The applications of a Linux home: listed, their leftovers, each kind
// uninstalled, and what gone ones left.
#include "fixturas.h"
#include "nucleo/textos.h"
#include "plataforma/apps.h"

using CasaLinux = CasaApps;
using Hallados = std::map<std::string, std::string>;

TEST_F(CasaLinux, ListaRestosYDesinstalaCadaTipo)
{
    // A Flatpak application of the user's installation.
    const fs::path notas = flatpak(datos / "flatpak", "org.ejemplo.Notas", "Notas", "2.1", 96 * 1024);
    // An AppImage integrated into the menu, with its icon.
    const fs::path lienzo = archivoModo(casa.ruta("Applications/Lienzo-3.0-x86_64.AppImage"), std::string(40000, 'a'));
    entrada(aplicaciones / "appimagekit_ab12-Lienzo.desktop",
            "Name=Lienzo\nExec=\"" + lienzo.string() + "\" %U\nIcon=appimagekit_ab12_lienzo\nX-AppImage-Version=3.0\n");
    casa.archivo(".local/share/icons/hicolor/256x256/apps/appimagekit_ab12_lienzo.png", 4096);
    casa.archivo(".config/Lienzo/ajustes", 4096);
    casa.archivo(".cache/lienzo/miniaturas", 8192);
    // A program unpacked into ~/opt, started by the user's entry and at login.
    const fs::path programa = archivoModo(casa.ruta("opt/Cartografo/bin/cartografo"), std::string(20000, 'c'));
    casa.archivo("opt/Cartografo/lib/mapas.dat", 65536);
    entrada(aplicaciones / "cartografo.desktop", "Name=Cartógrafo\nExec=env LANG=C " + programa.string() +
                                                     " %f\nStartupWMClass=cartografo-main\nIcon=cartografo\n");
    entrada(casa.ruta(".config/autostart/cartografo-inicio.desktop"), "Name=Mapas\nExec=" + programa.string() + " --fondo\n");
    casa.archivo(".local/share/icons/hicolor/48x48/apps/cartografo.png", 4096);
    casa.archivo(".config/cartografo-main/ajustes", 4096);
    casa.archivo(".local/state/cartografo/historial", 4096);
    // Not theirs: another program's entry, a longer name.
    entrada(aplicaciones / "otro.desktop", "Name=Otro\nExec=/usr/bin/env\nIcon=otro\n");
    for (const char* ajena : {".config/lienzo-beta/x", ".cache/cartografo-main.log"})
        casa.archivo(ajena, 4096);
    // Data of Flatpak and reverse-domain applications that are gone.
    casa.archivo(".var/app/org.viejo.Ido/data/x", 100 * 1024);
    casa.archivo(".config/net.viejo.Otro/x", 100 * 1024);

    const Desinstalador d(casa.entorno());
    const auto apps = d.apps();
    std::vector<std::tuple<std::string, TipoApp, std::string, std::string, fs::path>> lista;
    for (const AppInstalada& a : apps) {
        lista.emplace_back(a.nombre, a.tipo, a.bundleID, a.version, a.url);
        EXPECT_FALSE(a.deRoot);
        EXPECT_FALSE(a.icono.empty()) << a.nombre;
    }
    EXPECT_EQ(lista, (decltype(lista){
                         {"Cartógrafo", TipoApp::enCasa, "cartografo", "", casa.ruta("opt/Cartografo")},
                         {"Lienzo", TipoApp::appImage, "appimagekit_ab12-Lienzo", "3.0", lienzo},
                         {"Notas", TipoApp::flatpak, "org.ejemplo.Notas", "2.1", notas},
                     }));

    const std::map<std::string, Hallados> restos{
        {"Cartógrafo",
         {{".config/cartografo-main", "Configuración"},
          {".local/state/cartografo", "Estado de la app"},
          {".config/autostart/cartografo-inicio.desktop", "Inicio automático"},
          {".local/share/applications/cartografo.desktop", "Acceso en el menú de aplicaciones"},
          {".local/share/icons/hicolor/48x48/apps/cartografo.png", "Icono"}}},
        {"Lienzo",
         {{".config/Lienzo", "Configuración"},
          {".cache/lienzo", "Cachés"},
          {".local/share/applications/appimagekit_ab12-Lienzo.desktop", "Acceso en el menú de aplicaciones"},
          {".local/share/icons/hicolor/256x256/apps/appimagekit_ab12_lienzo.png", "Icono"}}},
    };
    for (const auto& [nombre, esperado] : restos)
        EXPECT_EQ(hallados(d.restos(app(apps, nombre))), esperado) << nombre;

    // The scan offers what gone applications left, never an installed one's.
    EXPECT_EQ(huerfanosDelInforme(casa.raiz()),
              (std::set<std::string>{"[ ] org.viejo.Ido — 1 carpeta o archivo de una app que ya no está instalada",
                                     "[ ] net.viejo.Otro — 1 carpeta o archivo de una app que ya no está instalada"}));

    // An AppImage (a file) and a home program (a folder) go to the Trash with
    // their leftovers, which the path rule lets through.
    std::set<std::string> movidos;
    for (const char* nombre : {"Lienzo", "Cartógrafo"}) {
        const AppInstalada& a = app(apps, nombre);
        const auto es = d.restos(a);
        movidos.insert(a.url);
        for (const Elemento& e : es)
            movidos.insert(e.url);
        EXPECT_EQ(d.desinstalar(a, es).errores, std::vector<std::string>{}) << nombre;
    }
    EXPECT_EQ(enPapelera(), movidos);
}

TEST_F(CasaLinux, EntradasYCarpetasDanadasDanMenos)
{
    // One entry each, and the url listed below the home ("": none).
    struct Fila {
        const char* id;
        std::string lineas;
        const char* url;
    };
    auto prog = [&](const std::string& carpeta) {
        return archivoModo(casa.ruta(carpeta + "/bin/run"), "#!/bin/sh\n").string();
    };
    const std::vector<Fila> filas{
        {"sinexec", "Name=SinExec\n", ""},
        {"tryexec", "Name=T\nTryExec=/no/existe\nExec=" + prog("opt/tryexec"), ""},
        {"nodisplay", "Name=N\nNoDisplay=true\nExec=" + prog("opt/nodisplay"), ""},
        {"oculta", "Name=O\nHidden=true\nExec=" + prog("opt/oculta"), ""},
        {"enlace", "Name=E\nType=Link\nURL=http://x\nExec=" + prog("opt/enlace"), ""},
        {"fuera", "Name=Fuera\nExec=/bin/true\n", ""},
        {"noutf8", "Name=\xff\xfe\nExec=" + prog("opt/noutf8"), "opt/noutf8"},
        {"comillas", "Name=C\nExec=\"" + casa.ruta("opt/Con \\\\\"Comillas\\\\\" y espacio/run").string() + "\" --abrir %U %%\n",
         "opt/Con \"Comillas\" y espacio"},
        // Where the program sits among other things, only the program goes.
        {"suelto", "Name=S\nExec=" + archivoModo(casa.ruta(".local/bin/suelto"), "").string(), ".local/bin/suelto"},
        {"descarga", "Name=D\nExec=" + archivoModo(casa.ruta("Downloads/instalar.sh"), "").string(), "Downloads/instalar.sh"},
        // Two entries of one suite are one application; a folder holding
        // another application's isn't offered whole.
        {"suite-a", "Name=Suite\nExec=" + prog("opt/suite"), "opt/suite"},
        {"suite-b", "Name=Suite B\nExec=" + archivoModo(casa.ruta("opt/suite/bin/b"), "").string(), ""},
        {"madre", "Name=Madre\nExec=" + prog("apps2/madre"), "apps2/madre/bin/run"},
        {"hija", "Name=Hija\nExec=" + prog("apps2/madre/hija"), "apps2/madre/hija"},
    };
    archivoModo(casa.ruta("opt/Con \"Comillas\" y espacio/run"), "");
    for (const Fila& f : filas)
        entrada(aplicaciones / (std::string(f.id) + ".desktop"), f.lineas + "\n");
    // Too large to be an entry (sparse: nothing is written).
    casa.disperso(".local/share/applications/enorme.desktop", 8LL << 30);
    // AppImages, and a link, a folder, a file not executable that only look like one.
    archivoModo(casa.ruta("Applications/Mayus.APPIMAGE"), "ai");
    archivoModo(casa.ruta("Downloads/Otra-2.0.AppImage"), "ai");
    casa.enlace("Applications/Enlace.AppImage", casa.ruta("Downloads/Otra-2.0.AppImage"));
    casa.crearDir("Applications/Carpeta.AppImage");
    archivoModo(casa.ruta(".local/bin/Quieta.AppImage"), "ai", fs::perms::owner_read);
    // The AppImage this program runs from is never offered.
    apoyo::Variable propia("APPIMAGE", archivoModo(casa.ruta("Applications/Vorlano-1.0.AppImage"), "ai").string());
    // Flatpak folders half removed or not what they seem.
    const fs::path inst = datos / "flatpak";
    flatpak(inst, "org.ej.Bien", "Bien", "1", 4096);
    fs::remove(flatpak(inst, "org.ej.SinMetadatos", "X", "1", 4096) / "x86_64/stable/0123abcd/metadata");
    fs::remove(flatpak(inst, "org.ej.SinActiva", "X", "1", 4096) / "x86_64/stable/active");
    flatpak(inst, "org.ej.Otra", "X", "1", 4096);
    fs::rename(inst / "app/org.ej.Otra", inst / "app/org.ej.Disfrazada");
    archivoModo(inst / "app/org.ej.Archivo", "");
    archivoModo(flatpak(inst, "org.ej.DespliegueRoto", "Roto", "1", 4096) / "current/active/deploy", "\x01\x02\x03");
    // The system's installation and snaps.
    flatpak(sistema.ruta("flatpak"), "org.ej.Sistema", "Del sistema", "5", 4096);
    snap(sistema.ruta("snap"), sistema.ruta("snaps"), "editor", "version: '1.5'\ntitle: \"Editor\"\ntype: app\napps:\n  editor:\n    command: x\n");
    snap(sistema.ruta("snap"), sistema.ruta("snaps"), "core22", "version: 1\ntype: base\n");
    snap(sistema.ruta("snap"), sistema.ruta("snaps"), "sinpaquete", "version: 1\n");
    fs::remove(sistema.ruta("snaps/sinpaquete_7.snap"));
    snap(sistema.ruta("snap"), sistema.ruta("snaps"), "otronombre", "version: 1\n");
    archivoModo(sistema.ruta("snap/otronombre/7/meta/snap.yaml"), "name: distinto\n");

    const Desinstalador d = conSistema();
    const auto apps = d.apps();
    std::map<std::string, std::string> hallados;
    for (const AppInstalada& a : apps)
        hallados[a.bundleID.empty() ? a.nombre : a.bundleID] =
            dentroDe(a.url, casa.raiz()) ? a.url.lexically_relative(casa.raiz()).string() : a.url.string();
    std::map<std::string, std::string> esperado{
        {"Mayus", "Applications/Mayus.APPIMAGE"},
        {"Otra-2.0", "Downloads/Otra-2.0.AppImage"},
        {"org.ej.Bien", ".local/share/flatpak/app/org.ej.Bien"},
        {"org.ej.DespliegueRoto", ".local/share/flatpak/app/org.ej.DespliegueRoto"},
        {"org.ej.Sistema", sistema.ruta("flatpak/app/org.ej.Sistema")},
        {"editor", sistema.ruta("snaps/editor_7.snap")},
    };
    for (const Fila& f : filas)
        if (*f.url)
            esperado[f.id] = f.url;
    EXPECT_EQ(hallados, esperado);
    EXPECT_EQ(app(apps, "noutf8").tipo, TipoApp::enCasa);
    EXPECT_EQ(app(apps, "Editor").version, "1.5");
    EXPECT_EQ(app(apps, "Del sistema").version, "5");
    EXPECT_EQ(app(apps, "Del sistema").icono.filename(), "org.ej.Sistema.png");
    EXPECT_EQ(app(apps, "Roto").version, "");
}

TEST_F(CasaLinux, RestosDudososNoSeOfrecen)
{
    // Two applications called Lienzo: whose ~/.config/lienzo is, nobody knows.
    const fs::path lienzo = archivoModo(casa.ruta("Applications/Lienzo.AppImage"), "ai");
    entrada(aplicaciones / "lienzo.desktop", "Name=Lienzo\nIcon=comun\nExec=" +
                                                 archivoModo(casa.ruta("opt/lienzo/run"), "").string() + "\n");
    casa.archivo(".config/lienzo/x", 4096);
    // Programs inside the data home, one beside a folder of its name.
    entrada(aplicaciones / "fonts.desktop",
            "Name=Fonts\nIcon=comun\nExec=" + archivoModo(datos / "Fonts/app/bin/fonts", "").string() + "\n");
    casa.archivo(".local/share/fonts/mia.ttf", 4096);
    entrada(aplicaciones / "taller.desktop",
            "Name=Taller\nExec=" + archivoModo(casa.ruta(".local/share/Taller/bin/taller"), "").string() + "\n");
    entrada(aplicaciones / "herramienta.desktop", "Name=Herramienta\nIcon=herramienta\nExec=" +
                                                      archivoModo(datos / "Taller/herramienta/run", "").string() + "\n");
    entrada(aplicaciones / "pincel.desktop",
            "Name=Pincel\nExec=" + archivoModo(datos / "Pincel/bin/pincel", "").string() + "\n");
    // An icon two entries name stays; one that only its own names goes.
    for (const char* i : {"comun", "herramienta"})
        casa.archivo(std::string(".local/share/icons/hicolor/64x64/apps/") + i + ".png", 4096);

    // Each keeps only its own entry (the AppImage has none), and Herramienta
    // its icon: Pincel's folder is the application, Taller's holds another.
    const Desinstalador d(casa.entorno());
    const auto apps = d.apps();
    ASSERT_EQ(apps.size(), 6u);
    for (const AppInstalada& a : apps) {
        Hallados esperado;
        if (a.tipo == TipoApp::enCasa)
            esperado[".local/share/applications/" + minusculas(a.nombre) + ".desktop"] = "Acceso en el menú de aplicaciones";
        if (a.nombre == "Herramienta")
            esperado[".local/share/icons/hicolor/64x64/apps/herramienta.png"] = "Icono";
        EXPECT_EQ(hallados(d.restos(a)), esperado) << a.url;
    }
    EXPECT_EQ(app(apps, "Taller").url, datos / "Taller/bin/taller") << "holds Herramienta";
}

TEST_F(CasaLinux, HerramientasDePaquetes)
{
    flatpak(datos / "flatpak", "org.ejemplo.Notas", "Notas", "1", 8192);
    casa.archivo(".var/app/org.ejemplo.Notas/data/x", 8192);
    casa.archivo(".config/Notas/ajustes", 4096); // not the sandboxed Flatpak's
    flatpak(sistema.ruta("flatpak"), "org.ej.Sistema", "Sistema", "1", 8192);
    flatpak(sistema.ruta("extra"), "org.ej.Extra", "Extra", "1", 8192);
    casa.archivo(".var/app/org.ej.Extra/data/x", 4096);
    snap(sistema.ruta("snap"), sistema.ruta("snaps"), "editor", "title: Editor\n");
    casa.archivo("snap/editor/7/x", 4096);
    Desinstalador d = conSistema();
    d.limitePaquetes = 2;
    const auto apps = d.apps();
    EXPECT_EQ(hallados(d.restos(app(apps, "Editor"))), (Hallados{{"snap/editor", "Datos de la app (Snap)"}}));
    // An application of a declared installation is installed, not an orphan.
    EXPECT_TRUE(plataforma::AppsConocidas().existe("org.ej.Extra"));

    // Whatever way the tool fails, the application and its leftovers stay.
    const auto antes = apoyo::huellas(casa.raiz());
    const struct {
        const char* herramienta; // the stand-in's script; null: there is none
        const char* elevador;
        const char* app;
        std::string error;
    } fallos[] = {
        {nullptr, "", "Notas", "Notas: no se encontró el programa flatpak"},
        {"echo progreso; echo 'error: Sin espacio en \\033[2Jel disco' >&2; exit 1", "", "Notas",
         "Notas: Sin espacio en [2Jel disco"},
        {"exit 3", "", "Notas", "Notas: flatpak terminó con el código 3"},
        {"exec sleep 30", "", "Notas", "Notas: flatpak no terminó a tiempo"},
        {"exit 0", "exit 126", "Sistema", "Sistema: no se pudo desinstalar (se canceló o falta permiso)"},
        {"exit 0", "exit 127", "Editor", "Editor: no se pudo desinstalar (se canceló o falta permiso)"},
    };
    for (const auto& f : fallos) {
        const fs::path falsa = f.herramienta ? guion(sistema.ruta("herramienta"), f.herramienta) : casa.ruta("no-existe");
        apoyo::Variable flatpak("VORLANO_FLATPAK", falsa.string()), snap("VORLANO_SNAP", falsa.string());
        apoyo::Variable elevador("VORLANO_ELEVADOR",
                                 *f.elevador ? guion(sistema.ruta("elevador"), f.elevador).string() : std::string());
        const AppInstalada& a = app(apps, f.app);
        const Resultado r = d.desinstalar(a, d.restos(a));
        EXPECT_EQ(r.errores, std::vector<std::string>{f.error});
        EXPECT_EQ(r.borrado + r.enPapelera, 0);
    }
    EXPECT_EQ(apoyo::huellas(casa.raiz()), antes);
    EXPECT_TRUE(enPapelera().empty());

    // Each tool is told exactly what to remove, the system's through the
    // administrator's prompt; the leftovers go to the Trash.
    const fs::path argumentos = sistema.ruta("argumentos");
    const std::string anotar = "echo \"$@\" >> '" + argumentos.string() + "'";
    apoyo::Variable elevador("VORLANO_ELEVADOR", guion(sistema.ruta("elevador"), anotar).string());
    apoyo::Variable flatpak("VORLANO_FLATPAK", guion(sistema.ruta("bin/flatpak"), anotar).string());
    apoyo::Variable snap("VORLANO_SNAP", "/bin/false");
    for (const char* n : {"Notas", "Sistema", "Extra", "Editor"}) {
        AppInstalada a = app(apps, n);
        a.tamano = 1000;
        const auto es = d.restos(a);
        int64_t restos = 0;
        for (const Elemento& e : es)
            restos += e.tamano;
        const Resultado r = d.desinstalar(a, es);
        EXPECT_EQ(r.errores, std::vector<std::string>{}) << n;
        EXPECT_EQ(r.borrado, 1000) << n;
        EXPECT_EQ(r.enPapelera, restos) << n;
    }
    EXPECT_EQ(enPapelera(), (std::set<std::string>{casa.ruta(".var/app/org.ejemplo.Notas"),
                                                    casa.ruta(".var/app/org.ej.Extra"), casa.ruta("snap/editor")}));
    EXPECT_EQ(apoyo::leer(argumentos), "uninstall --user --noninteractive -y app/org.ejemplo.Notas/x86_64/stable\n" +
                                           sistema.ruta("bin/flatpak").string() +
                                           " uninstall --system --noninteractive -y app/org.ej.Sistema/x86_64/stable\n" +
                                           sistema.ruta("bin/flatpak").string() +
                                           " uninstall --installation=extra --noninteractive -y app/org.ej.Extra/x86_64/stable\n"
                                           "/bin/false remove editor\n");
}
