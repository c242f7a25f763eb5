// SPDX-License-Identifier: GPL-3.0-or-later
// Uninstalling into the real Trash of the test's data home.
#include "desinstalador/desinstalador.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "bundles.h"
#include "nucleo/ejecutar.h"
#include "plataforma/permiso.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <set>

using apoyo::CasaPrueba;

namespace {

fs::path papelera()
{
    return fs::path(std::getenv("XDG_DATA_HOME")) / "Trash";
}

bool existe(const fs::path& p)
{
    return fs::exists(fs::symlink_status(p));
}

// The original paths of what the Trash holds, each with a valid .trashinfo.
std::set<std::string> enPapelera()
{
    std::set<std::string> r;
    for (const auto& [ruta, nombre] : apoyo::papelera(papelera().parent_path())) {
        EXPECT_TRUE(existe(papelera() / "files" / nombre)) << nombre;
        r.insert(ruta);
    }
    return r;
}

class Desinstalar : public ::testing::Test {
protected:
    CasaPrueba casa;
    // The administrator's move reads the test mode from the environment.
    apoyo::Variable modoPrueba{"VORLANO_HOME", casa.raiz().string()};
    Desinstalar() { apoyo::borrarArbol(papelera()); }

    AppInstalada editor()
    {
        crearApp(casa.ruta("Applications/Editor.app"), "com.ej.editor");
        casa.archivo("Applications/Editor.app/Contents/MacOS/Editor", 64 * 1024);
        AppInstalada app = *Desinstalador(casa.entorno()).leer(casa.ruta("Applications/Editor.app"));
        app.tamano = apoyo::du(app.url);
        return app;
    }
};

} // namespace

TEST(GuionFinder, EscapaBarrasYComillasEnEseOrden)
{
    EXPECT_EQ(plataforma::guionPapeleraFinder(R"(/A/Un "raro"\ nombre\".app)"),
              R"(tell application "Finder" to delete (POSIX file "/A/Un \"raro\"\\ nombre\\\".app" as alias))");
}

TEST_F(Desinstalar, AppYRestosElegidosALaPapelera)
{
    const AppInstalada app = editor();
    casa.archivo("Library/Application Support/Editor/datos", 200 * 1024);
    casa.archivo("Library/Caches/com.ej.editor/cache", 100 * 1024);
    casa.archivo("Library/Preferences/com.ej.editor.plist", 4096);
    casa.archivo("Library/Logs/Editor/registro.log", 8192);
    // A link among the leftovers goes as a link; what it points at stays.
    casa.archivo("Datos/editor/importante", 4096);
    casa.enlace("Library/Caches/Editor", casa.ruta("Datos/editor"));
    const Desinstalador d(casa.entorno());
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
    // What the path rule refuses (a root of the Library, a file outside the
    // home) or what can't be moved is reported, and the rest still goes.
    CasaPrueba otra;
    const fs::path ajeno = otra.archivo("ajeno", 4096);
    for (const fs::path& p : {ajeno, casa.ruta("Library/Caches/ya-no-esta"), casa.ruta("Library/Caches")})
        restos.insert(restos.begin(), Elemento{.url = p, .nombre = p.filename(), .tamano = 999, .seleccionado = true});

    const Resultado r = d.desinstalar(app, restos);
    ASSERT_EQ(r.errores.size(), 3u);
    EXPECT_EQ(r.errores[0], "Caches: ruta no permitida, se omitió");
    EXPECT_TRUE(r.errores[1].starts_with("ya-no-esta: ")) << r.errores[1];
    EXPECT_EQ(r.errores[2], "ajeno: ruta no permitida, se omitió");
    EXPECT_EQ(r.enPapelera, esperado);
    EXPECT_EQ(r.borrado, 0);
    EXPECT_TRUE(r.libreAntes > 0 && r.libreDespues > 0);
    EXPECT_EQ(enPapelera(), movidos);
    for (const fs::path& p : {casa.ruta("Datos/editor/importante"), queda, casa.ruta("Library/Caches"), ajeno})
        EXPECT_TRUE(existe(p)) << p;
}

TEST_F(Desinstalar, AppQueNoSeMueveDejaTodoComoEstaba)
{
    AppInstalada app = editor();
    casa.archivo("Library/Caches/com.ej.editor/cache", 100 * 1024);
    const Desinstalador d(casa.entorno());
    const auto restos = d.restos(app);
    ASSERT_EQ(restos.size(), 1u);
    // Not the user's: the administrator says no, or there is no one to ask
    // (with pkexec the system would really ask).
    app.deRoot = true;
    for (const auto& elevador : {std::optional<std::string>("/bin/false"), std::optional<std::string>()}) {
        if (!elevador && buscarPrograma({"/usr/bin/pkexec", "/bin/pkexec"}))
            continue;
        apoyo::Variable v("VORLANO_ELEVADOR", elevador);
        const Resultado r = d.desinstalar(app, restos);
        EXPECT_EQ(r.errores,
                  std::vector<std::string>{"Editor: no se pudo mover a la Papelera (se canceló o falta permiso)"});
        EXPECT_EQ(r.enPapelera, 0);
    }
    EXPECT_TRUE(existe(app.url));
    // The user's own, gone since it was listed.
    app.deRoot = false;
    fs::remove_all(app.url);
    const Resultado r = d.desinstalar(app, restos);
    ASSERT_EQ(r.errores.size(), 1u);
    EXPECT_TRUE(r.errores[0].starts_with("Editor: ")) << r.errores[0];
    EXPECT_EQ(r.enPapelera, 0);
    EXPECT_TRUE(existe(restos[0].url));
    // Nothing in the Trash, not even the name reserved for the bundle.
    EXPECT_TRUE(enPapelera().empty());
}

TEST_F(Desinstalar, AppAjenaConPermisoDelAdministrador)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "un bundle de otro usuario se hace con chown, que necesita root";
    const std::string raro = "Ñu \"comillas\" %20 \xff.app";
    const fs::path bundle = crearApp(casa.ruta("Applications/" + raro), "com.ej.raro");
    ASSERT_EQ(::system(("chown -R 65534:65534 '" + bundle.string() + "'").c_str()), 0);
    const auto app = Desinstalador(casa.entorno()).leer(bundle);
    ASSERT_TRUE(app && app->deRoot);
    // An earlier one of that name in the Trash keeps its name.
    fs::create_directories(papelera() / "files" / raro);

    // Root stands in for the administrator who agreed.
    apoyo::Variable acepta("VORLANO_ELEVADOR", "");
    EXPECT_EQ(Desinstalador(casa.entorno()).desinstalar(*app, {}).errores, std::vector<std::string>{});
    EXPECT_FALSE(existe(bundle));
    struct stat st;
    ASSERT_EQ(::lstat((papelera() / "files" / (raro + ".2")).c_str(), &st), 0);
    EXPECT_EQ(st.st_uid, 65534u) << "se mueve tal cual, con su dueño";
    EXPECT_EQ(enPapelera(), std::set<std::string>{bundle.string()});
}
