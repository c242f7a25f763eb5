// SPDX-License-Identifier: GPL-3.0-or-later
// Uninstalling into the real Trash of the test's data home.
#include "fixturas.h"
#include "plataforma/permiso.h"

#include <sys/stat.h>
#include <unistd.h>

using Desinstalar = CasaApps;

TEST_F(Desinstalar, AppYRestosElegidosSoloSiLaAppSeMueve)
{
    casa.archivo("Applications/Editor.app/Contents/MacOS/Editor", 64 * 1024);
    const Desinstalador d(casa.entorno());
    AppInstalada app = *d.leer(crearApp(casa.ruta("Applications/Editor.app"), "com.ej.editor"));
    app.tamano = apoyo::du(app.url);
    casa.archivo("Library/Application Support/Editor/datos", 200 * 1024);
    casa.archivo("Library/Caches/com.ej.editor/cache", 100 * 1024);
    casa.archivo("Library/Preferences/com.ej.editor.plist", 4096);
    casa.archivo("Library/Logs/Editor/registro.log", 8192);
    // A link among the leftovers goes as a link; what it points at stays.
    casa.archivo("Datos/editor/importante", 4096);
    casa.enlace("Library/Caches/Editor", casa.ruta("Datos/editor"));
    auto restos = d.restos(app);
    ASSERT_EQ(restos.size(), 5u);
    const fs::path queda = casa.ruta("Library/Logs/Editor");
    int64_t esperado = app.tamano;
    std::set<std::string> movidos{app.url};
    for (Elemento& e : restos)
        if ((e.seleccionado = e.url != queda)) {
            esperado += e.tamano;
            movidos.insert(e.url);
        }
    // What the path rule refuses and what is gone are reported; the rest goes.
    for (const fs::path& p : {casa.ruta("Library/Caches/ya-no-esta"), casa.ruta("Library/Caches")})
        restos.insert(restos.begin(), Elemento{.url = p, .nombre = p.filename(), .tamano = 999, .seleccionado = true});

    // Not the user's, and the administrator says no: nothing is touched.
    const auto antes = apoyo::huellas(casa.raiz());
    app.deRoot = true;
    {
        apoyo::Variable niega("VORLANO_ELEVADOR", "/bin/false");
        const Resultado r = d.desinstalar(app, restos);
        EXPECT_EQ(r.errores,
                  std::vector<std::string>{"Editor: no se pudo mover a la Papelera (se canceló o falta permiso)"});
        EXPECT_EQ(r.enPapelera, 0);
    }
    EXPECT_EQ(apoyo::huellas(casa.raiz()), antes);
    EXPECT_TRUE(enPapelera().empty());

    app.deRoot = false;
    const Resultado r = d.desinstalar(app, restos);
    ASSERT_EQ(r.errores.size(), 2u);
    EXPECT_EQ(r.errores[0], "Caches: ruta no permitida, se omitió");
    EXPECT_TRUE(r.errores[1].starts_with("ya-no-esta: ")) << r.errores[1];
    EXPECT_EQ(r.enPapelera, esperado);
    EXPECT_EQ(enPapelera(), movidos);
    for (const fs::path& p : {casa.ruta("Datos/editor/importante"), queda, casa.ruta("Library/Caches")})
        EXPECT_TRUE(fs::exists(p)) << p;

    // The bundle gone since it was listed: the leftovers stay, even selected.
    for (Elemento& e : restos)
        e.seleccionado = true;
    const Resultado otraVez = d.desinstalar(app, restos);
    ASSERT_EQ(otraVez.errores.size(), 1u);
    EXPECT_TRUE(otraVez.errores[0].starts_with("Editor: ")) << otraVez.errores[0];
    EXPECT_TRUE(fs::exists(queda));
}

TEST_F(Desinstalar, AppAjenaConPermisoDelAdministrador)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "un bundle de otro usuario se hace con chown, que necesita root";
    const Desinstalador d(casa.entorno());
    const std::string raro = "Ñu \"comillas\" %20 \xff.app";
    const fs::path bundle = crearApp(casa.ruta("Applications/" + raro), "com.ej.raro");
    ASSERT_EQ(::system(("chown -R 65534:65534 '" + bundle.string() + "'").c_str()), 0);
    AppInstalada app = *d.leer(bundle);
    ASSERT_TRUE(app.deRoot);
    // An earlier one of that name in the Trash keeps its name.
    fs::create_directories(plataforma::carpetaPapelera() / "files" / raro);

    // The prompt's stand-in records each question; root agrees.
    const fs::path preguntas = sistema.ruta("preguntas");
    apoyo::Variable elevador("VORLANO_ELEVADOR",
                             guion(sistema.ruta("elevador"), "echo x >> '" + preguntas.string() + "'\nexec \"$@\"").string());
    // With a trailing "/", as a dropped bundle comes: its own name and path.
    app.url = bundle.string() + "/";
    EXPECT_EQ(d.desinstalar(app, {}).errores, std::vector<std::string>{});
    EXPECT_FALSE(fs::exists(bundle));
    struct stat st;
    ASSERT_EQ(::lstat((plataforma::carpetaPapelera() / "files" / (raro + ".2")).c_str(), &st), 0);
    EXPECT_EQ(st.st_uid, 65534u) << "se mueve tal cual, con su dueño";
    EXPECT_EQ(enPapelera(), std::set<std::string>{bundle.string()});
    EXPECT_EQ(apoyo::leer(preguntas), "x\n");

    // On another file system than the Trash nobody is asked, and it says why.
    const fs::path shm = "/dev/shm";
    struct stat a, b;
    if (::stat(shm.c_str(), &a) != 0 || ::stat(plataforma::carpetaPapelera().c_str(), &b) != 0 || a.st_dev == b.st_dev ||
        ::access(shm.c_str(), W_OK) != 0)
        GTEST_SKIP() << "no hay otro sistema de archivos en /dev/shm";
    char plantilla[] = "/dev/shm/vorlano-XXXXXX";
    ASSERT_NE(::mkdtemp(plantilla), nullptr);
    AppInstalada lejos = *d.leer(crearApp(fs::path(plantilla) / "Lejos.app", "com.ej.lejos"));
    lejos.deRoot = true;
    EXPECT_EQ(d.desinstalar(lejos, {}).errores,
              std::vector<std::string>{"Lejos: No se puede mover a la Papelera porque está en otro sistema de archivos"});
    EXPECT_EQ(apoyo::leer(preguntas), "x\n");
    EXPECT_TRUE(fs::exists(lejos.url));
    apoyo::borrarArbol(plantilla);
}
