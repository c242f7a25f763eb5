// SPDX-License-Identifier: GPL-3.0-or-later
#include "comun.h"

#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace prueba;

namespace {

void git(const fs::path& repo, std::vector<std::string> args)
{
    args.insert(args.begin(), {"-C", repo.string(), "-c", "user.name=P", "-c", "user.email=p@example.org"});
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

// Projects of every kind with and without their markers, places never
// entered, links, a name that isn't UTF-8, a git repository with one tracked
// and one untracked dist; installers of any case, Linux packages and disk
// images named after a system; files at and one block under the large-file
// floor.
TEST(Recorrido, LasCuatroListasYSusCategorias)
{
    CasaPrueba casa;
    apoyo::Variable mb("VORLANO_GRANDE_MB", "64"); // a whole number of 4 KiB blocks
    const int64_t suelo = 64'000'000;
    const std::string raro = "proy\xe9\xff";
    casa.archivo("p/node/node_modules/left-pad/index.js", 50 * 4096);
    casa.archivo("p/js/dist/app.js", 50 * 4096);
    // p/py3, p/solo and p/norust lack their markers; so does half a Unity project.
    for (const char* d : {"p/py1/.venv/lib", "p/py2/venv/bin", "p/py3/venv/bin", "p/js/build", "p/solo/dist",
                          "p/gradle/build", "p/kts/build", "p/rust/target/debug", "p/norust/target", "p/unity/Assets",
                          "p/unity/ProjectSettings", "p/unity/Library/cache", "p/mitad/Assets", "p/mitad/Library",
                          "p/proy\xe9\xff/dist"})
        casa.crearDir(d);
    for (const char* m : {"p/py1/pyproject.toml", "p/py2/requirements.txt", "p/js/package.json",
                          "p/gradle/build.gradle", "p/kts/build.gradle.kts", "p/rust/Cargo.toml",
                          "p/proy\xe9\xff/package.json"})
        casa.archivoCon(m, "");
    for (const char* n : {".next", ".turbo", ".parcel-cache", ".svelte-kit", ".nuxt", "DerivedData"})
        casa.crearDir(std::string("p/web/") + n + "/cache");
    // Not entered: Library and Applications at the top, hidden folders, Pods, packages.
    for (const char* n : {"Library/x", "Applications/x", ".config/x", "p/ios/Pods/Algo", "Foo.app/Contents", "Doc.RTFD"})
        casa.crearDir(std::string(n) + "/node_modules");
    // A folder swapped for a link is not followed, nor recognised by its name.
    casa.enlace("p/js2/node_modules", casa.ruta("p/node/node_modules"));
    casa.archivoCon("p/js2/package.json", "{}");
    casa.enlace("p/js2/dist", casa.ruta("p/js/dist"));
    repositorio(casa, "repo", {"package.json", "dist/index.js", "sub/package.json"});
    casa.crearDir("repo/sub/dist"); // untracked, beside a package.json

    for (const char* n : {"Downloads/a.dmg", "Downloads/B.PKG", "Downloads/c.Xip", "Desktop/d.DmG", "x.pkg",
                          "Downloads/.oculto.dmg", "Downloads/sin-extension-dmg", "Downloads/e.deb", "Downloads/f.RPM",
                          "Downloads/g.flatpakref", "Downloads/h.flatpak", "Downloads/NVIDIA-Linux-x86_64-550.run",
                          "Downloads/ubuntu-24.04-desktop-amd64.iso", "Downloads/Win11_23H2_Spanish_x64.iso",
                          "Downloads/copia del disco.iso", "Downloads/ubuntuesque.iso"})
        casa.archivo(n, 5000);
    // A snap is a SquashFS image; a test runner's snapshot beside the sources isn't one.
    casa.archivoCon("Downloads/editor_12.snap", "hsqs" + std::string(5000, '\0'));
    casa.archivoCon("p/web/__snapshots__/boton.test.js.snap", "// Jest Snapshot v1\n");
    casa.archivo("Downloads/" + raro + ".dmg", 100);
    casa.reservado("Downloads/disco.dmg", suelo + 4096 * 10);
    for (const char* n :
         {"Movies/justo.mov", "Movies/.oculto.mov", "Library/enorme.bin", "Foo.app/Contents/Resources/grande.bin"})
        casa.reservado(n, suelo);
    casa.reservado("Movies/casi.mov", suelo - 4096);
    casa.disperso("Movies/disperso.img", 10 * suelo);
    casa.reservado("Library/escondido.dmg", 4096);
    casa.reservado("p/build/salida.bin", suelo + 4096); // build without a marker is walked into
    casa.enlace("Movies/enlace.bin", casa.ruta("Library/enorme.bin"));
    casa.enlace("Movies/enlace-dir", casa.ruta("Library"));
    ASSERT_EQ(apoyo::asignado(casa.ruta("Movies/justo.mov")), suelo);
    casa.archivo("Documents/a.bin", 80 * 4096);
    casa.archivo("Documents/a (1).bin", 80 * 4096);

    const Hallazgos h = Escaner(casa.entorno()).recorrerCarpetaPersonal();
    EXPECT_EQ(nombres(h.dependencias), (Nombres{"p/node/node_modules", "p/py1/.venv", "p/py2/venv"}));
    EXPECT_EQ(nombres(h.compilaciones),
              (Nombres{"p/gradle/build", "p/js/build", "p/js/dist", "p/kts/build", "p/rust/target", "p/unity/Library",
                       "p/web/.next", "p/web/.nuxt", "p/web/.parcel-cache", "p/web/.svelte-kit", "p/web/.turbo",
                       "p/web/DerivedData", "repo/sub/dist", "p/" + raro + "/dist"}));
    EXPECT_EQ(nombres(h.instaladores),
              (Nombres{"B.PKG", "a.dmg", "c.Xip", "d.DmG", "disco.dmg", "x.pkg", raro + ".dmg", "e.deb", "f.RPM",
                       "g.flatpakref", "h.flatpak", "NVIDIA-Linux-x86_64-550.run", "ubuntu-24.04-desktop-amd64.iso",
                       "Win11_23H2_Spanish_x64.iso", "editor_12.snap"}));
    ASSERT_EQ(h.grandes.size(), 2u);
    EXPECT_EQ(h.grandes[0].nombre, "p/build/salida.bin"); // larger first
    EXPECT_EQ(h.grandes[1].url, casa.ruta("Movies/justo.mov"));
    EXPECT_EQ(h.grandes[1].tamano, suelo);
    for (const auto* lista : {&h.dependencias, &h.compilaciones, &h.instaladores})
        for (const auto& e : *lista) {
            EXPECT_TRUE(fs::exists(fs::symlink_status(e.url))) << e.nombre;
            EXPECT_FALSE(e.seleccionado);
        }
    for (const auto& e : h.instaladores)
        EXPECT_EQ(e.tamano, apoyo::asignado(e.url)) << e.nombre;

    // Without git nothing can be proved tracked, so the tracked dist stays.
    auto c = nombres(Escaner(casa.entorno()).recorrerCarpetaPersonal(std::nullopt).compilaciones);
    EXPECT_EQ(c.erase("repo/dist"), 1u);
    EXPECT_EQ(c, nombres(h.compilaciones));

    // The whole scan: the walk's categories in their order, measured as du does.
    std::vector<std::string> ids;
    const auto cats = escanear(casa.entorno());
    for (const auto& cat : cats)
        ids.push_back(cat.id);
    ASSERT_EQ(ids, (std::vector<std::string>{"compilaciones", "dependencias", "instaladores", "grandes", "duplicados"}));
    EXPECT_EQ(cats[1].elementos[0].tamano, apoyo::du(casa.ruta("p/node/node_modules")));
}

// Only the forty largest files are kept.
TEST(Recorrido, CuarentaMayores)
{
    CasaPrueba casa;
    apoyo::Variable mb("VORLANO_GRANDE_MB", "0");
    for (int i = 1; i <= 41; ++i)
        casa.archivo("m/f" + std::to_string(i), int64_t(i) * 4096);
    const Hallazgos h = Escaner(casa.entorno()).recorrerCarpetaPersonal();
    ASSERT_EQ(h.grandes.size(), 40u);
    EXPECT_EQ(h.grandes.front().nombre, "m/f41");
    EXPECT_EQ(h.grandes.back().nombre, "m/f2");
}

TEST(Recorrido, RutasRelativasYActividad)
{
    CasaPrueba casa;
    casa.crearDir("real/Documents/x");
    casa.enlace("casa", casa.ruta("real"));
    // Both resolve links; outside home one gives the last component, the
    // other the path unchanged. A shared prefix of text is not a parent.
    const Escaner esc(Entorno{casa.ruta("casa"), true});
    for (const char* p : {"real/Documents/x", "casa/Documents/x"}) {
        EXPECT_EQ(esc.rutaRelativa(casa.ruta(p)), "Documents/x");
        EXPECT_EQ(esc.relativa(casa.ruta(p)), "Documents/x");
    }
    EXPECT_EQ(esc.rutaRelativa(casa.ruta("realidad/x")), "x");
    EXPECT_EQ(esc.relativa(casa.ruta("realidad/x")), casa.ruta("realidad/x").string());

    // A project's activity is the later date of the folder and its parent.
    const auto ahora = std::chrono::system_clock::now();
    casa.fecha("real/Documents/x", ahora - std::chrono::hours(24 * 400));
    casa.fecha("real/Documents", ahora - std::chrono::hours(24 * 3 + 1));
    EXPECT_EQ(Escaner::actividad(casa.ruta("real/Documents"), casa.ruta("real/Documents/x")), "hace 3 días");
    casa.fecha("real/Documents/x", ahora - std::chrono::hours(2));
    EXPECT_EQ(Escaner::actividad(casa.ruta("real/Documents"), casa.ruta("real/Documents/x")), "hace 2 horas");
}

// git's exit status is the whole answer; a failing, missing or absent git
// proves nothing tracked. Repositories above home are not looked at.
TEST(Recorrido, GitYRepositorios)
{
    CasaPrueba casa;
    repositorio(casa, "repo", {"dist/a.js", "Library/x.asset"});
    casa.crearDir("repo/build");
    const fs::path repo = casa.ruta("repo");
    EXPECT_TRUE(Escaner::versionadaEnGit("dist", repo));
    EXPECT_TRUE(Escaner::versionadaEnGit("Library", repo));
    EXPECT_FALSE(Escaner::versionadaEnGit("build", repo));
    EXPECT_FALSE(Escaner::versionadaEnGit("dist", casa.raiz())); // not a repository
    EXPECT_FALSE(Escaner::versionadaEnGit("dist", repo, std::nullopt));
    EXPECT_FALSE(Escaner::versionadaEnGit("dist", repo, casa.ruta("no-hay-git").string()));
    EXPECT_FALSE(Escaner::versionadaEnGit("dist", repo, "/bin/false"));
    EXPECT_TRUE(Escaner::versionadaEnGit("build", repo, "/bin/true"));
    EXPECT_TRUE(apoyo::hijosVivos().empty());

    casa.crearDir("repo/casa/p");
    EXPECT_FALSE(Escaner(Entorno{casa.ruta("repo/casa"), true}).dentroDeRepositorio(casa.ruta("repo/casa/p")));
    EXPECT_TRUE(Escaner(Entorno{repo, true}).dentroDeRepositorio(casa.ruta("repo/casa/p")));

    // A worktree's .git is a file and git answers there; a broken .git file
    // makes git fail, so its folder stays listed.
    repositorio(casa, "casa2/repo", {"package.json", "dist/a.js"});
    git(casa.ruta("casa2/repo"), {"worktree", "add", "-q", casa.ruta("casa2/arbol").string()});
    ASSERT_TRUE(fs::is_regular_file(casa.ruta("casa2/arbol/.git")));
    casa.archivoCon("casa2/roto/.git", "gitdir: /no/existe\n");
    casa.archivoCon("casa2/roto/package.json", "{}");
    casa.crearDir("casa2/roto/dist");
    const Hallazgos h = Escaner(Entorno{casa.ruta("casa2"), true}).recorrerCarpetaPersonal();
    EXPECT_EQ(nombres(h.compilaciones), Nombres{"roto/dist"});
}

// What can't be read is left out without an error: projects, installers,
// duplicates and a category's root alike. The home is given as a link: the walk sees the same
// folder as every other stage, and the report names the folder itself.
TEST(Recorrido, LoIlegibleDaMenosResultadosEnUnaCasaEnlazada)
{
    CasaPrueba casa, otra;
    casa.archivo("Downloads/a.dmg", 200 * 4096);
    casa.archivo("Library/Caches/org.x/d", 300000);
    casa.archivo("Library/Logs/cerrado.log", 300000);
    casa.archivo("cerrada/b.dmg", 200 * 4096);
    casa.archivoCon("cerrada/p/package.json", "{}");
    casa.archivo("cerrada/p/dist/x", 200 * 4096);
    casa.archivoCon("abierta/package.json", "{}");
    casa.archivo("abierta/dist/x", 200 * 4096);
    for (const char* n : {"Documents/u1", "Documents/u2", "Documents/u3", "Documents/cerrada/u4"})
        casa.archivo(n, 200'000, 'u');
    casa.archivo("Downloads/v1", 300'000, 'v');
    casa.archivo("Downloads/v2", 300'000, 'v');
    for (const char* n : {"cerrada", "Documents/u3", "Documents/cerrada", "Downloads/v2", "Library/Logs"})
        casa.sinPermisos(n);
    ::chmod(otra.raiz().c_str(), 0755);
    const auto s = apoyo::ejecutarVorlanoSinPrivilegios(otra.enlace("casa", casa.raiz()), {"--scan"});
    EXPECT_EQ(s.estado, 0) << s.errores;
    EXPECT_TRUE(s.salida.starts_with("Carpeta: " + casa.raiz().string() + " (PRUEBA)\n")) << s.salida;
    for (const char* visto : {"a.dmg", "org.x", "abierta/dist"})
        EXPECT_NE(s.salida.find(visto), std::string::npos) << visto;
    for (const char* oculto : {"b.dmg", "cerrada/p/dist", "v1", "cerrado.log"})
        EXPECT_EQ(s.salida.find(oculto), std::string::npos) << oculto;
    const size_t igual = s.salida.find("Igual a Documents/u");
    ASSERT_NE(igual, std::string::npos);
    EXPECT_EQ(s.salida.find("Igual a", igual + 1), std::string::npos); // one pair: u1 and u2
}
