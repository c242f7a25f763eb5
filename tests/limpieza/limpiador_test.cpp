// SPDX-License-Identifier: GPL-3.0-or-later
// The cleaner on real scratch homes: emptying in place, the Trash, commands,
// the path rule, and the messages of each way a removal can go wrong.
#include "limpieza/limpiador.h"

#include "apoyo/casa.h"
#include "escaner/medicion.h"
#include "limpieza/comun.h"
#include "nucleo/textos.h"
#include "plataforma/papelera.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

using apoyo::CasaPrueba;
using apoyo::leer;
using prueba::categoria;
using prueba::contiene;
using prueba::elemento;
using prueba::existe;
namespace fs = std::filesystem;

namespace {

// A scratch folder outside the home, removed at the end.
struct Fuera {
    fs::path raiz = apoyo::carpetaTemporal("vorlano-fuera");
    ~Fuera() { apoyo::borrarArbol(raiz); }
    fs::path archivo(const std::string& nombre, const std::string& contenido) const
    {
        fs::create_directories((raiz / nombre).parent_path());
        std::ofstream(raiz / nombre) << contenido;
        return raiz / nombre;
    }
};

bool vacia(const fs::path& carpeta)
{
    return fs::is_directory(fs::symlink_status(carpeta)) && fs::is_empty(carpeta);
}

Resultado limpiar(const CasaPrueba& casa, std::vector<Categoria> cs, std::vector<std::string>* avisos = nullptr)
{
    return Limpiador(casa.entorno()).limpiar(std::move(cs), [&](const std::string& t) {
        if (avisos)
            avisos->push_back(t);
    });
}

} // namespace

TEST(Limpiador, VaciaEnSitioSinSeguirEnlacesNiTocarLoDemas)
{
    CasaPrueba casa;
    Fuera fuera;
    fuera.archivo("f1", "intacto");
    fuera.archivo("duro", "enlazado");
    const fs::path app = casa.crearDir("Library/Caches/app");
    casa.archivo("Library/Caches/app/a.bin", 40960);
    casa.archivo("Library/Caches/app/.oculto", 4096);
    casa.archivo("Library/Caches/app/sub/deep/b.bin", 8192);
    casa.enlace("Library/Caches/app/a-fuera", fuera.raiz);
    casa.enlace("Library/Caches/app/sub/a-archivo", fuera.raiz / "f1");
    casa.enlace("Library/Caches/app/roto", "/no/existe");
    fs::create_hard_link(fuera.raiz / "duro", app / "duro");
    const fs::path log = casa.archivo("Library/Logs/viejo.log", 8192);
    const fs::path otro = casa.archivo("Library/Caches/otro/x", 4096);
    const int64_t tamApp = tamanoEnDisco(app);
    const int64_t tamLog = tamanoEnDisco(log);

    Elemento noSeleccionado = elemento(otro.parent_path(), "otro", 4096);
    noSeleccionado.seleccionado = false;
    std::vector<std::string> avisos;
    const Resultado r = limpiar(casa,
                                {categoria(Modo::borrar, {elemento(app, "app", tamApp), elemento(log, "viejo.log", tamLog)}),
                                 categoria(Modo::borrar, {noSeleccionado})},
                                &avisos);

    EXPECT_TRUE(vacia(app));
    EXPECT_FALSE(existe(log));
    EXPECT_TRUE(existe(otro));
    EXPECT_EQ(leer(fuera.raiz / "f1"), "intacto");
    EXPECT_EQ(leer(fuera.raiz / "duro"), "enlazado");
    EXPECT_EQ(r.errores, std::vector<std::string>{});
    // The folder itself stays, so its own blocks are not freed.
    EXPECT_EQ(r.borrado, tamApp - apoyo::asignado(app) + tamLog);
    EXPECT_EQ(r.enPapelera, 0);
    EXPECT_EQ(avisos, (std::vector<std::string>{"Limpiando app…", "Limpiando viejo.log…"}));
    EXPECT_GT(r.libreAntes, 0);
    EXPECT_GT(r.libreDespues, 0);
}

TEST(Limpiador, SoloCuentaLoQueSeFueYNuncaNegativo)
{
    CasaPrueba casa;
    // Grown since the analysis: the scan saw 1 byte.
    const fs::path crecio = casa.archivo("Library/Caches/crecio/a", 40960).parent_path();
    // Gone since the analysis: no message, counted in full.
    const fs::path ido = casa.ruta("Library/Caches/ido");
    const Resultado r = limpiar(
        casa, {categoria(Modo::borrar, {elemento(crecio, "crecio", 1), elemento(ido, "ido", 50000)})});
    EXPECT_TRUE(vacia(crecio));
    EXPECT_EQ(r.errores, std::vector<std::string>{});
    EXPECT_EQ(r.borrado, 50000);
}

TEST(Limpiador, UnaRutaRechazadaSalvaAlElementoEntero)
{
    CasaPrueba casa;
    Fuera fuera;
    fuera.archivo("x", "fuera");
    const fs::path dentro = casa.archivo("Library/Caches/dentro/a", 4096);
    casa.archivo("Library/Caches/suelto", 4096);
    const fs::path hermana = fs::path(casa.raiz().string() + "2");
    fs::create_directories(hermana / "Library/Caches/x");
    std::ofstream(hermana / "Library/Caches/x/f") << "vecina";

    Elemento mixto = elemento(dentro.parent_path(), "mixto", 4096);
    mixto.extra = {fuera.raiz};
    std::vector<std::string> avisos;
    const Resultado r = limpiar(casa,
                                {categoria(Modo::borrar,
                                           {mixto, elemento(casa.raiz(), "casa"),
                                            elemento(casa.ruta("Library/Caches"), "Caches"),
                                            elemento(casa.ruta("Library/Caches/suelto/.."), "arriba"),
                                            elemento(hermana / "Library/Caches/x", "hermana")}),
                                 categoria(Modo::papelera, {elemento(casa.ruta("Documents"), "Documents")})},
                                &avisos);

    EXPECT_TRUE(existe(dentro));
    EXPECT_EQ(leer(fuera.raiz / "x"), "fuera");
    EXPECT_TRUE(existe(casa.ruta("Library/Caches/suelto")));
    EXPECT_EQ(leer(hermana / "Library/Caches/x/f"), "vecina");
    EXPECT_EQ(r.errores, (std::vector<std::string>{
                             "mixto: ruta no permitida, se omitió", "casa: ruta no permitida, se omitió",
                             "Caches: ruta no permitida, se omitió", "arriba: ruta no permitida, se omitió",
                             "hermana: ruta no permitida, se omitió", "Documents: ruta no permitida, se omitió"}));
    EXPECT_EQ(r.borrado, 0);
    EXPECT_TRUE(avisos.empty());
    apoyo::borrarArbol(hermana);
}

TEST(Limpiador, PuntosPuntosSeResuelvenPorTextoNoPorElDisco)
{
    CasaPrueba casa;
    Fuera fuera;
    // Library/Caches/enlace leads to fuera/a/b, so the disk would read
    // enlace/../victima as fuera/a/victima; the rule read it as
    // Library/Caches/victima, and that is what must be emptied.
    fs::create_directories(fuera.raiz / "a/b");
    fuera.archivo("a/victima/dato", "no se toca");
    casa.enlace("Library/Caches/enlace", fuera.raiz / "a/b");
    const fs::path propia = casa.archivo("Library/Caches/victima/dato", 4096).parent_path();

    const Resultado r = limpiar(
        casa, {categoria(Modo::borrar, {elemento(casa.ruta("Library/Caches/enlace/../victima"), "victima")})});
    EXPECT_TRUE(vacia(propia));
    EXPECT_EQ(leer(fuera.raiz / "a/victima/dato"), "no se toca");
    EXPECT_EQ(r.errores, std::vector<std::string>{});
}

TEST(Limpiador, EnlaceComoElementoOEnElCamino)
{
    CasaPrueba casa;
    Fuera fuera;
    fuera.archivo("app/dato", "intacto");
    const fs::path enlace = casa.enlace("Library/Caches/enlace", fuera.raiz);
    // Library/Logs itself a link: everything below it is reached through it.
    casa.enlace("Library/Logs", fuera.raiz);
    const fs::path porEnlace = casa.ruta("Library/Logs/app");

    const Resultado r = limpiar(casa, {categoria(Modo::borrar, {elemento(enlace, "enlace"), elemento(porEnlace, "app")}),
                                       categoria(Modo::papelera, {elemento(porEnlace, "app-papelera")})});
    EXPECT_EQ(fs::read_symlink(enlace), fuera.raiz);
    EXPECT_EQ(leer(fuera.raiz / "app/dato"), "intacto");
    EXPECT_EQ(r.errores, (std::vector<std::string>{"enlace: es un enlace a otra carpeta, se omitió",
                                                   "app: es un enlace a otra carpeta, se omitió",
                                                   "app-papelera: es un enlace a otra carpeta, se omitió"}));
    EXPECT_EQ(r.borrado, 0);
    EXPECT_EQ(r.enPapelera, 0);
}

TEST(Limpiador, EnlaceEnModoPapeleraVaComoEnlace)
{
    CasaPrueba casa;
    Fuera fuera;
    fuera.archivo("dato", "intacto");
    const fs::path enlace = casa.enlace("Projects/web/dist", fuera.raiz);
    const Resultado r = limpiar(casa, {categoria(Modo::papelera, {elemento(enlace, "dist", 10)})});
    EXPECT_EQ(r.errores, std::vector<std::string>{});
    EXPECT_FALSE(existe(enlace));
    EXPECT_EQ(leer(fuera.raiz / "dato"), "intacto");
    EXPECT_EQ(r.enPapelera, 10);
    EXPECT_TRUE(contiene(prueba::rutasEnPapelera(), enlace.string()));
}

TEST(Limpiador, PapeleraConInfoValidaYElTamanoDelAnalisis)
{
    CasaPrueba casa;
    const fs::path dist = casa.archivo("Projects/web/dist/app.js", 20000).parent_path();
    casa.archivoCon("Projects/web/dist/.mapa", "{}");
    const fs::path dmg = casa.archivoCon("Downloads/Instalador.dmg", "contenido del dmg");
    // The same name twice: the Trash keeps both.
    const fs::path build1 = casa.archivoCon("Projects/uno/build/salida", "uno").parent_path();
    const fs::path build2 = casa.archivoCon("Projects/dos/build/salida", "dos").parent_path();

    const Resultado r = limpiar(casa, {categoria(Modo::papelera, {elemento(dist, "dist", 123), elemento(dmg, "dmg", 456),
                                                                  elemento(build1, "build"), elemento(build2, "build")})});
    EXPECT_EQ(r.errores, std::vector<std::string>{});
    // The figures of the analysis, not a new measurement.
    EXPECT_EQ(r.enPapelera, 579);
    EXPECT_EQ(r.borrado, 0);
    for (const fs::path& p : {dist, dmg, build1, build2})
        EXPECT_FALSE(existe(p)) << p;
    EXPECT_TRUE(existe(casa.ruta("Projects/web")));

    const auto rutas = prueba::rutasEnPapelera();
    for (const fs::path& p : {dist, dmg, build1, build2})
        EXPECT_TRUE(contiene(rutas, p.string())) << p;
    // Both builds are there, each with its own content.
    const fs::path papelera = plataforma::carpetaPapelera();
    std::vector<std::string> contenidos;
    for (const auto& e : fs::directory_iterator(papelera / "info")) {
        const std::string info = leer(e.path());
        if (info.find("Path=" + build1.string() + "\n") != std::string::npos ||
            info.find("Path=" + build2.string() + "\n") != std::string::npos) {
            EXPECT_TRUE(info.starts_with("[Trash Info]\nPath=")) << info;
            EXPECT_NE(info.find("\nDeletionDate="), std::string::npos) << info;
            contenidos.push_back(leer(papelera / "files" / e.path().stem() / "salida"));
        }
    }
    std::sort(contenidos.begin(), contenidos.end());
    EXPECT_EQ(contenidos, (std::vector<std::string>{"dos", "uno"}));
}

TEST(Limpiador, PapeleraSeDetieneEnElPrimerFallo)
{
    CasaPrueba casa;
    const fs::path a = casa.archivoCon("Downloads/a.pkg", "a");
    const fs::path b = casa.ruta("Downloads/b.pkg"); // gone since the analysis
    const fs::path c = casa.archivoCon("Downloads/c.pkg", "c");
    Elemento e = elemento(a, "paquetes", 3000);
    e.extra = {b, c};
    const Resultado r = limpiar(casa, {categoria(Modo::papelera, {e})});
    EXPECT_FALSE(existe(a));
    EXPECT_TRUE(existe(c));
    EXPECT_EQ(r.enPapelera, 0);
    ASSERT_EQ(r.errores.size(), 1u);
    EXPECT_TRUE(r.errores[0].starts_with("paquetes: ")) << r.errores[0];
    EXPECT_GT(r.errores[0].size(), std::string("paquetes: ").size());
    EXPECT_TRUE(contiene(prueba::rutasEnPapelera(), a.string()));
}

TEST(Limpiador, NombresQueNoSonUtf8)
{
    CasaPrueba casa;
    const std::string raro = "cach\xe9-\xff";
    const fs::path carpeta = casa.archivo("Library/Caches/" + raro + "/\xfe\xfd.bin", 8192).parent_path();
    casa.archivo("Library/Caches/" + raro + "/sub\xe9/x", 4096);
    const fs::path informe = casa.archivoCon("Documents/inf\xf3rme.pdf", "pdf");

    const Resultado r = limpiar(casa, {categoria(Modo::borrar, {elemento(carpeta, raro)}),
                                       categoria(Modo::papelera, {elemento(informe, "inf\xf3rme.pdf", 3)})});
    EXPECT_EQ(r.errores, std::vector<std::string>{});
    EXPECT_TRUE(vacia(carpeta));
    EXPECT_FALSE(existe(informe));
    EXPECT_EQ(r.enPapelera, 3);
    // The original path is kept byte for byte, escaped as the standard asks.
    bool hallado = false;
    for (const auto& e : fs::directory_iterator(plataforma::carpetaPapelera() / "info"))
        hallado = hallado || leer(e.path()).find("/Documents/inf%F3rme.pdf\n") != std::string::npos;
    EXPECT_TRUE(hallado);
    // trash-list shows it, the byte it can't print replaced.
    EXPECT_TRUE(contiene(prueba::rutasEnPapelera(), textoVisible(informe.string())));
}

TEST(Limpiador, Acciones)
{
    CasaPrueba casa;
    const fs::path medida = casa.crearDir("Library/Developer/simuladores");
    const fs::path grande = casa.archivo("Library/Developer/simuladores/grande", 81920);
    const int64_t liberado = apoyo::asignado(grande);

    auto conAccion = [](std::string nombre, Accion a) {
        // Its path lies outside the home folder: a command's paths are not judged.
        Elemento e = elemento("/", std::move(nombre));
        e.accion = std::move(a);
        return e;
    };
    Limpiador l(casa.entorno());
    l.limiteAccion = 1;
    std::vector<std::string> avisos;
    const Resultado r = l.limpiar(
        {categoria(Modo::borrar,
                   {conAccion("falla", {"/bin/sh", {"-c", "exit 3"}}), conAccion("no existe", {"/no/existe", {}}),
                    conAccion("cuelga", {"/bin/sleep", {"30"}}), conAccion("sin medir", {"/bin/true", {}}),
                    conAccion("medida", {"/bin/rm", {"-f", grande.string()}, medida})})},
        [&](const std::string& t) { avisos.push_back(t); });

    EXPECT_EQ(r.errores,
              (std::vector<std::string>{"falla: no se pudo completar", "no existe: no se pudo completar",
                                        "cuelga: no se pudo completar"}));
    EXPECT_FALSE(existe(grande));
    EXPECT_EQ(r.borrado, liberado);
    EXPECT_EQ(avisos.size(), 5u);
}

TEST(Limpiador, NadaSeleccionadoDaCerosYLeeElEspacio)
{
    CasaPrueba casa;
    const fs::path x = casa.archivo("Library/Caches/x/a", 4096);
    Elemento e = elemento(x.parent_path(), "x", 4096);
    e.seleccionado = false;
    for (auto cs : {std::vector<Categoria>{}, std::vector<Categoria>{categoria(Modo::borrar, {}),
                                                                      categoria(Modo::borrar, {e})}}) {
        std::vector<std::string> avisos;
        const Resultado r = limpiar(casa, cs, &avisos);
        EXPECT_EQ(r.borrado, 0);
        EXPECT_EQ(r.enPapelera, 0);
        EXPECT_TRUE(r.errores.empty());
        EXPECT_TRUE(avisos.empty());
        EXPECT_GT(r.libreAntes, 0);
        EXPECT_GT(r.libreDespues, 0);
    }
    EXPECT_TRUE(existe(x));
}

TEST(Limpiador, VaciarPorSiSoloTambienAplicaLaRegla)
{
    CasaPrueba casa;
    const fs::path protegida = casa.archivo("Library/Caches/a", 4096);
    std::vector<std::string> errores;
    Limpiador(casa.entorno()).vaciar(casa.ruta("Library/Caches"), "Caches", errores);
    Limpiador(casa.entorno()).vaciar("/tmp", "tmp", errores);
    EXPECT_TRUE(existe(protegida));
    EXPECT_EQ(errores, (std::vector<std::string>{"Caches: ruta no permitida, se omitió",
                                                 "tmp: ruta no permitida, se omitió"}));
}
