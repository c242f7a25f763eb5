// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/escaner.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <dirent.h>

#include <cstdlib>

using apoyo::CasaPrueba;
namespace fs = std::filesystem;

namespace {

struct GrandeMB {
    explicit GrandeMB(const char* v) { ::setenv("VORLANO_GRANDE_MB", v, 1); }
    ~GrandeMB() { ::unsetenv("VORLANO_GRANDE_MB"); }
};

std::vector<std::string> nombres(const std::vector<Elemento>& es)
{
    std::vector<std::string> r;
    for (const auto& e : es)
        r.push_back(e.nombre);
    return r;
}

std::vector<std::string> ordenados(std::vector<std::string> v)
{
    std::sort(v.begin(), v.end());
    return v;
}

void git(const fs::path& repo, std::vector<std::string> args)
{
    args.insert(args.begin(), {"-C", repo.string(), "-c", "user.name=Prueba", "-c", "user.email=prueba@example.org"});
    const auto s = apoyo::ejecutarPrograma("/usr/bin/git", args);
    ASSERT_EQ(s.estado, 0) << s.errores;
}

// A repository at `carpeta` with the given files committed.
void repositorio(CasaPrueba& casa, std::string_view carpeta, const std::vector<std::string>& versionados)
{
    const fs::path repo = casa.crearDir(carpeta);
    git(repo, {"init", "-q"});
    for (const auto& v : versionados)
        casa.archivoCon(std::string(carpeta) + "/" + v, "x\n");
    git(repo, {"add", "-A"});
    git(repo, {"commit", "-q", "-m", "inicio"});
}

} // namespace

// Every row of the artefact table with and without its marker, the pruned
// places, and a git repository holding one tracked and one untracked dist.
TEST(Recorrido, ProyectosDeCadaClaseConYSinMarcador)
{
    CasaPrueba casa;
    casa.crearDir("p/node/node_modules/left-pad");
    casa.archivoCon("p/py1/pyproject.toml", "");
    casa.crearDir("p/py1/.venv/lib");
    casa.archivoCon("p/py2/requirements.txt", "");
    casa.crearDir("p/py2/venv/bin");
    casa.crearDir("p/py3/venv/bin"); // no marker: an ordinary folder
    for (const char* n : {".next", ".turbo", ".parcel-cache", ".svelte-kit", ".nuxt", "DerivedData"})
        casa.crearDir(std::string("p/web/") + n + "/cache");
    casa.archivoCon("p/js/package.json", "{}");
    casa.crearDir("p/js/dist");
    casa.crearDir("p/js/build");
    casa.crearDir("p/solo/dist");
    casa.archivoCon("p/gradle/build.gradle", "");
    casa.crearDir("p/gradle/build");
    casa.archivoCon("p/kts/build.gradle.kts", "");
    casa.crearDir("p/kts/build");
    casa.archivoCon("p/rust/Cargo.toml", "");
    casa.crearDir("p/rust/target/debug");
    casa.crearDir("p/norust/target");
    casa.crearDir("p/unity/Assets");
    casa.crearDir("p/unity/ProjectSettings");
    casa.crearDir("p/unity/Library/cache");
    casa.crearDir("p/mitad/Assets");
    casa.crearDir("p/mitad/Library/x");
    // Not entered: Library and Applications at the top, hidden folders, Pods, packages.
    casa.crearDir("Library/proyecto/node_modules");
    casa.crearDir("Applications/proyecto/node_modules");
    casa.crearDir(".config/proyecto/node_modules");
    casa.crearDir("p/ios/Pods/Algo/node_modules");
    casa.crearDir("Foo.app/Contents/node_modules");
    casa.crearDir("Doc.RTFD/node_modules");
    // A folder swapped for a link is not followed, nor recognised by its name.
    casa.enlace("p/js2/node_modules", casa.ruta("p/node/node_modules"));
    casa.archivoCon("p/js2/package.json", "{}");
    casa.enlace("p/js2/dist", casa.ruta("p/js/dist"));

    repositorio(casa, "repo", {"package.json", "dist/index.js", "sub/package.json"});
    casa.crearDir("repo/sub/dist"); // untracked, beside a package.json

    const Hallazgos h = Escaner(casa.entorno()).recorrerCarpetaPersonal();
    EXPECT_EQ(ordenados(nombres(h.dependencias)),
              (std::vector<std::string>{"p/node/node_modules", "p/py1/.venv", "p/py2/venv"}));
    EXPECT_EQ(ordenados(nombres(h.compilaciones)),
              (std::vector<std::string>{"p/gradle/build", "p/js/build", "p/js/dist", "p/kts/build", "p/rust/target",
                                        "p/unity/Library", "p/web/.next", "p/web/.nuxt", "p/web/.parcel-cache",
                                        "p/web/.svelte-kit", "p/web/.turbo", "p/web/DerivedData", "repo/sub/dist"}));
    EXPECT_TRUE(h.instaladores.empty());
    EXPECT_TRUE(h.grandes.empty());

    std::map<std::string, std::string> detalle;
    for (const auto* lista : {&h.dependencias, &h.compilaciones})
        for (const auto& e : *lista) {
            EXPECT_EQ(e.url, casa.ruta(e.nombre));
            EXPECT_EQ(e.tamano, 0); // measured later, in one parallel pass
            EXPECT_FALSE(e.seleccionado);
            EXPECT_FALSE(e.revisarUso);
            EXPECT_FALSE(e.enUso);
            const std::string d = e.detalle.value_or("");
            detalle[e.nombre] = d.substr(0, d.find(" · usado "));
        }
    EXPECT_EQ(detalle["p/py2/venv"], "Entorno de Python");
    EXPECT_EQ(detalle["p/kts/build"], "Compilación de Gradle");
    EXPECT_EQ(detalle["p/js/build"], "Compilación (build)");
    EXPECT_EQ(detalle["p/unity/Library"], "Caché de Unity (Library)");
    EXPECT_EQ(detalle["p/web/.parcel-cache"], "Caché de Parcel");
    EXPECT_EQ(detalle["p/node/node_modules"], "Dependencias de Node");

    // Without git nothing can be proved tracked, so the tracked dist stays.
    const Hallazgos sinGit = Escaner(casa.entorno()).recorrerCarpetaPersonal(std::nullopt);
    const auto c = nombres(sinGit.compilaciones);
    EXPECT_NE(std::find(c.begin(), c.end(), "repo/dist"), c.end());
    EXPECT_EQ(c.size(), h.compilaciones.size() + 1);
}

TEST(Recorrido, ActividadEsLaFechaMasRecienteDeCarpetaYPadre)
{
    CasaPrueba casa;
    casa.archivoCon("p/package.json", "{}");
    casa.crearDir("p/dist");
    const auto ahora = std::chrono::system_clock::now();
    casa.fecha("p/dist", ahora - std::chrono::hours(24 * 400));
    casa.fecha("p", ahora - std::chrono::hours(24 * 3 + 1));
    EXPECT_EQ(Escaner::actividad(casa.ruta("p"), casa.ruta("p/dist")), "hace 3 días");
    casa.fecha("p/dist", ahora - std::chrono::hours(2));
    EXPECT_EQ(Escaner::actividad(casa.ruta("p"), casa.ruta("p/dist")), "hace 2 horas");
    EXPECT_EQ(Escaner::actividad(casa.ruta("no"), casa.ruta("no/dist")), "—");
}

// Installers by extension in any case and of any size; large files by
// allocated blocks at or above the floor; nothing through a link.
TEST(Recorrido, InstaladoresYArchivosGrandes)
{
    CasaPrueba casa;
    GrandeMB mb("64"); // 64,000,000 bytes: a whole number of 4 KiB blocks
    const int64_t suelo = 64'000'000;
    for (const char* n : {"Downloads/a.dmg", "Downloads/B.PKG", "Downloads/c.Xip", "Desktop/d.DmG"})
        casa.archivo(n, 5000);
    casa.archivo("x.pkg", 1000);
    casa.archivo("Downloads/.oculto.dmg", 5000);
    casa.archivo("Downloads/sin-extension-dmg", 5000);
    casa.reservado("Downloads/disco.dmg", suelo + 4096 * 10);
    casa.reservado("Movies/justo.mov", suelo);
    casa.reservado("Movies/casi.mov", suelo - 4096);
    casa.reservado("Movies/.oculto.mov", suelo);
    casa.disperso("Movies/disperso.img", 10 * suelo);
    casa.reservado("Library/enorme.bin", suelo);
    casa.reservado("Library/escondido.dmg", 4096);
    casa.reservado("Foo.app/Contents/Resources/grande.bin", suelo);
    casa.reservado("p/build/salida.bin", suelo + 4096); // build without a marker is walked into
    casa.enlace("Movies/enlace.bin", casa.ruta("Library/enorme.bin"));
    casa.enlace("Movies/enlace-dir", casa.ruta("Library"));
    ASSERT_EQ(apoyo::asignado(casa.ruta("Movies/justo.mov")), suelo);

    const Hallazgos h = Escaner(casa.entorno()).recorrerCarpetaPersonal();
    EXPECT_EQ(ordenados(nombres(h.instaladores)),
              (std::vector<std::string>{"B.PKG", "a.dmg", "c.Xip", "d.DmG", "disco.dmg", "x.pkg"}));
    for (const auto& e : h.instaladores) {
        EXPECT_EQ(e.tamano, apoyo::asignado(e.url)) << e.nombre;
        EXPECT_FALSE(e.seleccionado);
    }
    ASSERT_EQ(nombres(h.grandes), (std::vector<std::string>{"p/build/salida.bin", "Movies/justo.mov"}));
    EXPECT_EQ(h.grandes[0].tamano, suelo + 4096);
    EXPECT_EQ(h.grandes[1].tamano, suelo);
    EXPECT_EQ(h.grandes[1].url, casa.ruta("Movies/justo.mov"));
}

TEST(Recorrido, DetalleDeArchivoConTipoOExtension)
{
    CasaPrueba casa;
    GrandeMB mb("0"); // every file is large
    casa.archivo("a/imagen.DMG", 100);
    casa.archivo("a/raro.zzqx", 100);
    casa.archivo("a/sinextension", 100);
    for (const char* n : {"a/imagen.DMG", "a/raro.zzqx", "a/sinextension"})
        casa.fecha(n, std::chrono::system_clock::now() - std::chrono::hours(24 * 3 + 1));
    const Hallazgos h = Escaner(casa.entorno()).recorrerCarpetaPersonal();
    std::map<std::string, std::string> detalle;
    for (const auto* lista : {&h.instaladores, &h.grandes})
        for (const auto& e : *lista)
            detalle[fs::path(e.nombre).filename()] = e.detalle.value_or("");
    EXPECT_EQ(detalle["raro.zzqx"], "zzqx · modificado hace 3 días");
    EXPECT_EQ(detalle["sinextension"], " · modificado hace 3 días");
    // Known to the shared type database: a description, not the extension.
    const std::string& dmg = detalle["imagen.DMG"];
    ASSERT_TRUE(dmg.ends_with(" · modificado hace 3 días")) << dmg;
    EXPECT_GT(dmg.size(), std::string(" · modificado hace 3 días").size() + 3) << dmg;
    EXPECT_FALSE(dmg.starts_with("DMG ")) << dmg;
}

TEST(Recorrido, CuarentaMayoresYEmpatesEnOrdenDelRecorrido)
{
    CasaPrueba casa;
    GrandeMB mb("0");
    for (int i = 1; i <= 41; ++i)
        casa.archivo("m/f" + std::to_string(i), int64_t(i) * 4096);
    for (const char* n : {"iguales/x", "iguales/y", "iguales/z"})
        casa.archivo(n, 100 * 4096);
    const Hallazgos h = Escaner(casa.entorno()).recorrerCarpetaPersonal();
    ASSERT_EQ(h.grandes.size(), 40u);
    // The three of equal size come first, in the order the folder lists them.
    std::vector<std::string> listado;
    DIR* d = ::opendir(casa.ruta("iguales").c_str());
    while (const dirent* e = ::readdir(d))
        if (e->d_name[0] != '.')
            listado.push_back(std::string("iguales/") + e->d_name);
    ::closedir(d);
    const auto n = nombres(h.grandes);
    EXPECT_EQ(std::vector<std::string>(n.begin(), n.begin() + 3), listado);
    for (size_t i = 3; i < 40; ++i)
        EXPECT_EQ(h.grandes[i].nombre, "m/f" + std::to_string(44 - i));
}

// Both resolve links; outside home one gives the last component, the other
// the path unchanged.
TEST(Recorrido, RutasRelativasAUnaCasaEnlazada)
{
    CasaPrueba casa;
    casa.crearDir("real/Documents/x");
    casa.enlace("casa", casa.ruta("real"));
    const Escaner esc(Entorno{casa.ruta("casa"), true});
    for (const char* p : {"real/Documents/x", "casa/Documents/x"}) {
        EXPECT_EQ(esc.rutaRelativa(casa.ruta(p)), "Documents/x");
        EXPECT_EQ(esc.relativa(casa.ruta(p)), "Documents/x");
    }
    EXPECT_EQ(esc.rutaRelativa(casa.ruta("casa")), "casa");
    // A shared prefix of text is not a parent.
    EXPECT_EQ(esc.rutaRelativa(casa.ruta("realidad/x")), "x");
    EXPECT_EQ(esc.relativa(casa.ruta("realidad/x")), casa.ruta("realidad/x").string());
    EXPECT_EQ(esc.rutaRelativa("/etc/hosts"), "hosts");
    EXPECT_EQ(esc.relativa("/etc/hosts"), "/etc/hosts");
}

TEST(Recorrido, GitDecidePorSuCodigoDeSalida)
{
    CasaPrueba casa;
    repositorio(casa, "repo", {"dist/a.js", "Library/x.asset"});
    casa.crearDir("repo/build");
    const fs::path repo = casa.ruta("repo");
    EXPECT_TRUE(Escaner::versionadaEnGit("dist", repo));
    EXPECT_TRUE(Escaner::versionadaEnGit("Library", repo));
    EXPECT_FALSE(Escaner::versionadaEnGit("build", repo));
    EXPECT_FALSE(Escaner::versionadaEnGit("dist", casa.raiz())); // not a repository: git fails
    EXPECT_FALSE(Escaner::versionadaEnGit("dist", repo, std::nullopt));
    EXPECT_FALSE(Escaner::versionadaEnGit("dist", repo, casa.ruta("no-hay-git").string()));
    EXPECT_FALSE(Escaner::versionadaEnGit("dist", repo, "/bin/false"));
    EXPECT_TRUE(Escaner::versionadaEnGit("build", repo, "/bin/true")); // the status is the whole answer
    EXPECT_TRUE(apoyo::hijosVivos().empty());
}

TEST(Recorrido, RepositorioHastaLaCasaYGitComoArchivo)
{
    CasaPrueba casa;
    repositorio(casa, "fuera", {"package.json"});
    casa.crearDir("fuera/casa/p/dist");
    casa.crearDir("otra/p/dist");
    const Escaner esc(Entorno{casa.ruta("fuera/casa"), true});
    // A repository above home isn't looked at.
    EXPECT_FALSE(esc.dentroDeRepositorio(casa.ruta("fuera/casa/p")));
    EXPECT_FALSE(esc.dentroDeRepositorio(casa.ruta("otra/p")));
    EXPECT_TRUE(esc.dentroDeRepositorio(casa.ruta("fuera")));
    // Home's own .git counts.
    EXPECT_TRUE(Escaner(Entorno{casa.ruta("fuera"), true}).dentroDeRepositorio(casa.ruta("fuera/casa/p")));

    // A worktree's .git is a file; git answers there as in any repository.
    repositorio(casa, "casa2/repo", {"package.json", "dist/a.js"});
    git(casa.ruta("casa2/repo"), {"worktree", "add", "-q", casa.ruta("casa2/arbol").string()});
    ASSERT_TRUE(fs::is_regular_file(casa.ruta("casa2/arbol/.git")));
    // A broken .git file: git fails, so the folder stays listed.
    casa.archivoCon("casa2/roto/.git", "gitdir: /no/existe\n");
    casa.archivoCon("casa2/roto/package.json", "{}");
    casa.crearDir("casa2/roto/dist");
    const Hallazgos h = Escaner(Entorno{casa.ruta("casa2"), true}).recorrerCarpetaPersonal();
    EXPECT_EQ(nombres(h.compilaciones), (std::vector<std::string>{"roto/dist"}));
}

TEST(Recorrido, NombresQueNoSonUtf8)
{
    CasaPrueba casa;
    const std::string raro = "proy\xe9\xff";
    casa.archivoCon("p/" + raro + "/package.json", "{}");
    casa.crearDir("p/" + raro + "/dist");
    casa.archivo("Downloads/" + raro + ".dmg", 100);
    const Hallazgos h = Escaner(casa.entorno()).recorrerCarpetaPersonal();
    EXPECT_EQ(nombres(h.compilaciones), (std::vector<std::string>{"p/" + raro + "/dist"}));
    EXPECT_EQ(nombres(h.instaladores), (std::vector<std::string>{raro + ".dmg"}));
    EXPECT_TRUE(fs::exists(h.instaladores[0].url));
}

TEST(Recorrido, CarpetasIlegiblesDanMenosResultados)
{
    CasaPrueba casa;
    casa.archivo("Downloads/a.dmg", 200 * 4096);
    casa.archivo("cerrada/b.dmg", 200 * 4096);
    casa.archivoCon("cerrada/p/package.json", "{}");
    casa.archivo("cerrada/p/dist/x", 200 * 4096);
    casa.archivoCon("abierta/package.json", "{}");
    casa.archivo("abierta/dist/x", 200 * 4096);
    casa.sinPermisos("cerrada");
    const auto s = apoyo::ejecutarVorlanoSinPrivilegios(casa.raiz(), {"--scan"});
    EXPECT_EQ(s.estado, 0) << s.errores;
    EXPECT_NE(s.salida.find("a.dmg"), std::string::npos) << s.salida;
    EXPECT_NE(s.salida.find("abierta/dist"), std::string::npos);
    EXPECT_EQ(s.salida.find("b.dmg"), std::string::npos);
    EXPECT_EQ(s.salida.find("cerrada/p/dist"), std::string::npos);
}

TEST(Recorrido, CategoriasYProgresoEnSuSitio)
{
    CasaPrueba casa;
    GrandeMB mb("1");
    casa.archivoCon("p/package.json", "{}");
    casa.archivo("p/node_modules/x/index.js", 50 * 4096);
    casa.archivo("p/dist/app.js", 50 * 4096);
    casa.archivo("Downloads/app.dmg", 50 * 4096);
    casa.reservado("Movies/peli.mov", 500 * 4096);
    casa.archivo("Documents/a.bin", 80 * 4096);
    casa.archivo("Documents/a (1).bin", 80 * 4096);
    std::vector<std::string> progreso;
    const auto cats = Escaner(casa.entorno()).escanear([&](const std::string& t) { progreso.push_back(t); });
    std::vector<std::string> ids;
    for (const auto& c : cats)
        ids.push_back(c.id);
    EXPECT_EQ(ids, (std::vector<std::string>{"compilaciones", "dependencias", "instaladores", "grandes", "duplicados"}));
    EXPECT_EQ(cats[1].elementos[0].tamano, apoyo::du(casa.ruta("p/node_modules")));
    EXPECT_EQ(cats[4].elementos[0].nombre, "Documents/a (1).bin");

    const auto donde = [&](std::string_view t) { return std::find(progreso.begin(), progreso.end(), t) - progreso.begin(); };
    const auto apps = donde("Revisando cachés de apps…");
    const auto recorrido =
        donde("Buscando proyectos y archivos grandes… (macOS puede pedir permiso para Escritorio, Documentos y Descargas)");
    const auto duplicados = donde("Buscando archivos duplicados…");
    EXPECT_LT(apps, recorrido);
    EXPECT_LT(recorrido, duplicados);
    EXPECT_LT(duplicados, std::ssize(progreso));
}
