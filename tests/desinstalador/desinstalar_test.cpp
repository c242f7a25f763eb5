// SPDX-License-Identifier: GPL-3.0-or-later
// Uninstalling into the real Trash of the test's data home, checked with the
// desktop's own Trash reader (trash-list).
#include "desinstalador/desinstalador.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "bundles.h"
#include "plataforma/permiso.h"

#include <glib.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <regex>
#include <set>

using apoyo::CasaPrueba;

namespace {

fs::path papelera()
{
    return fs::path(std::getenv("XDG_DATA_HOME")) / "Trash";
}

// Original paths of what trash-list finds in the Trash, each line checked
// for its date.
std::set<std::string> enPapelera()
{
    const auto s = apoyo::ejecutarPrograma("/usr/bin/trash-list", {});
    std::set<std::string> r;
    const std::regex linea("^[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2} (/.*)$");
    size_t i = 0;
    while (i < s.salida.size()) {
        const size_t fin = s.salida.find('\n', i);
        const std::string l = s.salida.substr(i, fin - i);
        std::smatch m;
        if (std::regex_match(l, m, linea))
            r.insert(m[1]);
        else
            ADD_FAILURE() << "línea de trash-list inesperada: " << l;
        i = fin == std::string::npos ? s.salida.size() : fin + 1;
    }
    return r;
}

const std::string cancelado = "Editor: no se pudo mover a la Papelera (se canceló o falta permiso)";

bool existe(const fs::path& p)
{
    struct stat st;
    return ::lstat(p.c_str(), &st) == 0;
}

class Desinstalar : public ::testing::Test {
protected:
    CasaPrueba casa;
    // The administrator's move reads the test mode from the environment.
    Variable modoPrueba{"VORLANO_HOME", casa.raiz().string()};

    AppInstalada editor()
    {
        crearBundle(casa.ruta("Applications/Editor.app"), clavesDeApp("com.ej.editor", "Editor"));
        casa.archivo("Applications/Editor.app/Contents/MacOS/Editor", 64 * 1024);
        auto app = Desinstalador(casa.entorno()).leer(casa.ruta("Applications/Editor.app"));
        app->tamano = apoyo::du(app->url);
        return *app;
    }
};

} // namespace

TEST(GuionFinder, EscapaBarrasYComillasEnEseOrden)
{
    EXPECT_EQ(plataforma::guionPapeleraFinder("/Applications/Editor.app"),
              "tell application \"Finder\" to delete (POSIX file \"/Applications/Editor.app\" as alias)");
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
    // Unselected: neither looked at nor moved.
    const fs::path queda = casa.ruta("Library/Logs/Editor");
    int64_t esperado = app.tamano;
    std::set<std::string> movidos{app.url};
    for (Elemento& e : restos) {
        e.seleccionado = e.url != queda;
        if (e.seleccionado) {
            esperado += e.tamano;
            movidos.insert(e.url);
        }
    }
    ASSERT_EQ(movidos.size(), 5u);

    const Resultado r = d.desinstalar(app, restos);
    EXPECT_TRUE(r.errores.empty()) << r.errores.front();
    EXPECT_EQ(r.borrado, 0);
    EXPECT_EQ(r.enPapelera, esperado);
    EXPECT_GT(r.libreAntes, 0);
    EXPECT_GT(r.libreDespues, 0);

    EXPECT_EQ(enPapelera(), movidos);
    EXPECT_TRUE(existe(casa.ruta("Datos/editor/importante")));
    EXPECT_FALSE(existe(app.url));
    EXPECT_TRUE(existe(queda));
    for (const char* raiz : {"Library/Application Support", "Library/Caches", "Library/Logs", "Library/Preferences"})
        EXPECT_TRUE(existe(casa.ruta(raiz))) << raiz;
}

TEST_F(Desinstalar, RestosQueFallanNoDetienenALosDemas)
{
    const AppInstalada app = editor();
    casa.archivo("Library/Caches/com.ej.editor/cache", 100 * 1024);
    const Desinstalador d(casa.entorno());
    auto restos = d.restos(app);
    ASSERT_EQ(restos.size(), 1u);
    Elemento raiz{.url = casa.ruta("Library/Caches"), .nombre = "~/Library/Caches", .tamano = 999,
                  .seleccionado = true};
    // A file outside the home folder, as a link may lead to.
    const CasaPrueba otra;
    const fs::path ajeno = otra.ruta("ajeno");
    std::ofstream(ajeno) << "no es de la app";
    Elemento fuera{.url = ajeno, .nombre = "~/" + ajeno.string(), .tamano = 999, .seleccionado = true};
    Elemento ido{.url = casa.ruta("Library/Caches/ya-no-esta"), .nombre = "~/Library/Caches/ya-no-esta",
                 .tamano = 999, .seleccionado = true};
    restos.insert(restos.begin(), {raiz, fuera, ido});

    const Resultado r = d.desinstalar(app, restos);
    ASSERT_EQ(r.errores.size(), 3u);
    EXPECT_EQ(r.errores[0], "~/Library/Caches: ruta no permitida, se omitió");
    EXPECT_EQ(r.errores[1], "~/" + ajeno.string() + ": ruta no permitida, se omitió");
    EXPECT_TRUE(r.errores[2].starts_with("~/Library/Caches/ya-no-esta: ")) << r.errores[2];
    EXPECT_GT(r.errores[2].size(), std::string("~/Library/Caches/ya-no-esta: ").size());
    EXPECT_EQ(r.enPapelera, app.tamano + restos[3].tamano);
    EXPECT_TRUE(existe(casa.ruta("Library/Caches")));
    EXPECT_TRUE(existe(ajeno));

    // Every leftover failing still counts the application.
    crearBundle(casa.ruta("Applications/Otra.app"), clavesDeApp("com.ej.otra"));
    AppInstalada segunda = *d.leer(casa.ruta("Applications/Otra.app"));
    segunda.tamano = 12345;
    const Resultado r2 = d.desinstalar(segunda, {raiz});
    EXPECT_EQ(r2.enPapelera, 12345);
    EXPECT_EQ(r2.errores.size(), 1u);
}

TEST_F(Desinstalar, SinRestosSoloLaApp)
{
    const AppInstalada app = editor();
    const Resultado r = Desinstalador(casa.entorno()).desinstalar(app, {});
    EXPECT_TRUE(r.errores.empty());
    EXPECT_EQ(r.enPapelera, app.tamano);
    EXPECT_EQ(enPapelera(), std::set<std::string>{app.url});
}

TEST_F(Desinstalar, AppQueNoSeMueveDejaTodoComoEstaba)
{
    AppInstalada app = editor();
    casa.archivo("Library/Caches/com.ej.editor/cache", 100 * 1024);
    const Desinstalador d(casa.entorno());
    const auto restos = d.restos(app);

    // The user's own bundle, gone since it was listed.
    AppInstalada ida = app;
    ida.url = casa.ruta("Applications/Ida.app");
    ida.nombre = "Ida";
    Resultado r = d.desinstalar(ida, restos);
    ASSERT_EQ(r.errores.size(), 1u);
    EXPECT_TRUE(r.errores[0].starts_with("Ida: ")) << r.errores[0];
    EXPECT_EQ(r.enPapelera, 0);

    // Not the user's, and the administrator says no.
    Variable rechazo("VORLANO_ELEVADOR", "/bin/false");
    app.deRoot = true;
    r = d.desinstalar(app, restos);
    EXPECT_EQ(r.errores, std::vector<std::string>{cancelado});
    EXPECT_EQ(r.enPapelera, 0);

    EXPECT_TRUE(existe(app.url));
    EXPECT_TRUE(existe(restos[0].url));
    EXPECT_TRUE(enPapelera().empty());
    // The name reserved for the bundle is given back.
    EXPECT_FALSE(existe(papelera() / "info/Editor.app.trashinfo"));
}

TEST_F(Desinstalar, AppAjenaConPermisoDelAdministrador)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "un bundle de otro usuario se hace con chown, que necesita root";
    AppInstalada app = editor();
    ASSERT_EQ(::system(("chown -R 65534:65534 '" + app.url.string() + "'").c_str()), 0);
    app = *Desinstalador(casa.entorno()).leer(app.url);
    ASSERT_TRUE(app.deRoot);
    // An earlier Editor.app already in the Trash keeps its name.
    fs::create_directories(papelera() / "files/Editor.app");

    // Root, standing in for the administrator who agreed.
    Variable acepta("VORLANO_ELEVADOR", "");
    const Resultado r = Desinstalador(casa.entorno()).desinstalar(app, {});
    EXPECT_TRUE(r.errores.empty()) << r.errores.front();
    EXPECT_FALSE(existe(app.url));
    const fs::path dentro = papelera() / "files/Editor.app.2";
    struct stat st;
    ASSERT_EQ(::lstat(dentro.c_str(), &st), 0);
    EXPECT_EQ(st.st_uid, 65534u) << "se mueve tal cual, con su dueño";
    EXPECT_EQ(enPapelera(), std::set<std::string>{app.url});
}

TEST_F(Desinstalar, AppAjenaSinDialogoDeContrasena)
{
    if (existe("/usr/bin/pkexec") || existe("/bin/pkexec"))
        GTEST_SKIP() << "con pkexec, el sistema pediría la contraseña de verdad";
    AppInstalada app = editor();
    app.deRoot = true;
    const Resultado r = Desinstalador(casa.entorno()).desinstalar(app, {});
    EXPECT_EQ(r.errores, std::vector<std::string>{cancelado});
    EXPECT_TRUE(existe(app.url));
}

TEST_F(Desinstalar, NombresRarosLleganIntactosALaPapelera)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "chown necesita root";
    const std::string raro = "Ñu \"comillas\" %20 \xff.app";
    crearBundle(casa.ruta("Applications/" + raro), clavesDeApp("com.ej.raro"));
    ASSERT_EQ(::lchown(casa.ruta("Applications/" + raro).c_str(), 65534, 65534), 0);
    const auto app = Desinstalador(casa.entorno()).leer(casa.ruta("Applications/" + raro));
    ASSERT_TRUE(app && app->deRoot);
    Variable acepta("VORLANO_ELEVADOR", "");
    EXPECT_FALSE(Desinstalador(casa.entorno()).moverAppAPapelera(*app));
    EXPECT_FALSE(existe(app->url));
    EXPECT_TRUE(existe(papelera() / "files" / raro));
    // trash-list shows bytes that aren't text as U+FFFD; GLib's decoder reads
    // the Path= line back to the very bytes.
    EXPECT_EQ(enPapelera().size(), 1u);
    std::ifstream info(papelera() / "info" / (raro + ".trashinfo"));
    std::string linea, ruta;
    while (std::getline(info, linea))
        if (linea.starts_with("Path="))
            ruta = linea.substr(5);
    EXPECT_EQ(ruta.find_first_of(" \"\xff"), std::string::npos) << ruta;
    char* bytes = g_uri_unescape_string(ruta.c_str(), nullptr);
    ASSERT_NE(bytes, nullptr);
    EXPECT_EQ(std::string(bytes), app->url.string());
    g_free(bytes);
}
