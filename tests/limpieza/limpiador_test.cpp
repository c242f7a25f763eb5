// SPDX-License-Identifier: GPL-3.0-or-later
// The cleaner on real scratch homes: what goes, what stays, what is counted,
// and the message for each item that is spared.
#include "limpieza/comun.h"

#include "escaner/medicion.h"
#include "plataforma/borrado.h"
#include "plataforma/papelera.h"

#include <cstring>

using namespace prueba;

TEST(Limpiador, VaciaEnSitioSinSeguirEnlacesYCuentaLoQueSeFue)
{
    CasaPrueba casa;
    Fuera fuera;
    const fs::path app = casa.crearDir("Library/Caches/cach\xe9-\xff");
    casa.archivo("Library/Caches/cach\xe9-\xff/a.bin", 40960);
    casa.archivo("Library/Caches/cach\xe9-\xff/.oculto", 4096);
    casa.archivo("Library/Caches/cach\xe9-\xff/sub\xe9/\xfe\xfd.bin", 8192);
    casa.enlace("Library/Caches/cach\xe9-\xff/a-fuera", fuera.raiz);
    casa.enlace("Library/Caches/cach\xe9-\xff/sub\xe9/a-archivo", fuera.raiz / "dato");
    casa.enlace("Library/Caches/cach\xe9-\xff/roto", "/no/existe");
    fs::create_hard_link(fuera.raiz / "dato", app / "duro");
    // Two names of one file, both inside: the scan counts it twice, and it
    // is given back once.
    casa.archivo("Library/Caches/cach\xe9-\xff/par-a", 8192);
    casa.enlaceDuro("Library/Caches/cach\xe9-\xff/sub\xe9/par-b", "Library/Caches/cach\xe9-\xff/par-a");
    const fs::path log = casa.archivo("Library/Logs/viejo.log", 8192);
    const fs::path otro = casa.archivo("Library/Caches/otro/x", 4096);
    // Static, for the pause below, which captures nothing.
    static fs::path crecio;
    crecio = casa.archivo("Library/Caches/crecio/a", 40960).parent_path();
    const int64_t tamApp = tamanoEnDisco(app);
    const int64_t tamLog = tamanoEnDisco(log);
    Elemento noSeleccionado = elemento(otro.parent_path(), "otro", 4096);
    noSeleccionado.seleccionado = false;
    // Spared whole: one refused path, a link as the item or on its way.
    const fs::path dentro = casa.archivo("Library/Caches/dentro/a", 4096);
    Elemento mixto = elemento(dentro.parent_path(), "mixto", 4096);
    mixto.extra = {fuera.raiz / "dato"};
    const fs::path enlace = casa.enlace("Library/Caches/enlace", fuera.raiz / "sub");
    casa.enlace("Library/Cookies", fuera.raiz);
    // On disk enlace/../victima is outside; the rule read it as Library/Caches/victima.
    const fs::path victima = casa.archivo("Library/Caches/victima/dato", 4096).parent_path();
    // An application writing into its cache while it is emptied.
    plataforma::pruebas::pausaTrasListar = [](const char* nombre) {
        if (std::string_view(nombre) == "a")
            std::ofstream(crecio / "nuevo") << "n";
    };

    std::vector<std::string> avisos;
    const Resultado r =
        limpiar(casa.entorno(),
                {categoria(Modo::borrar, {elemento(app, "app", tamApp), elemento(log, "log", tamLog), noSeleccionado,
                                          // grown since the analysis, and gone since
                                          elemento(crecio, "crecio", 1),
                                          elemento(casa.ruta("Library/Caches/ido"), "ido", 50000), mixto,
                                          // a link now, where the analysis measured a folder
                                          elemento(enlace, "enlace", 50000),
                                          elemento(casa.ruta("Library/Cookies/sub"), "por-enlace", 50000),
                                          elemento(casa.ruta("Library/Caches/enlace/../victima"), "victima")})},
                &avisos);
    plataforma::pruebas::pausaTrasListar = nullptr;
    EXPECT_EQ(r.errores, (Lineas{"mixto: ruta no permitida, se omitió",
                                 "enlace: es un enlace a otra carpeta, se omitió",
                                 "por-enlace: es un enlace a otra carpeta, se omitió"}));
    EXPECT_TRUE(vacia(app));
    EXPECT_TRUE(vacia(crecio));
    EXPECT_TRUE(vacia(victima));
    EXPECT_FALSE(existe(log));
    EXPECT_TRUE(existe(otro));
    EXPECT_TRUE(existe(dentro));
    EXPECT_TRUE(fuera.intacto());
    // The folder's own blocks stay; what grew frees nothing, what is gone
    // counts in full, a hard link's data stays with its other name, and a
    // refused place frees nothing.
    EXPECT_EQ(r.borrado,
              tamApp - apoyo::asignado(app) - apoyo::asignado(fuera.raiz / "dato") - 8192 + tamLog + 50000);
    EXPECT_EQ(r.enPapelera, 0);
    EXPECT_EQ(avisos, (Lineas{"Limpiando app…", "Limpiando log…", "Limpiando crecio…", "Limpiando ido…",
                              "Limpiando enlace…", "Limpiando por-enlace…", "Limpiando victima…"}));
    EXPECT_GT(r.libreAntes, 0);
    EXPECT_GT(r.libreDespues, 0);

    // Emptying one path on its own follows the same rule.
    std::vector<std::string> errores;
    Limpiador(casa.entorno()).vaciar(casa.ruta("Library/Caches"), "Caches", errores);
    EXPECT_EQ(errores, Lineas{"Caches: ruta no permitida, se omitió"});
    EXPECT_TRUE(existe(dentro));
}

TEST(Limpiador, PapeleraGuardaCadaElementoBajoSuRutaOriginal)
{
    apoyo::borrarArbol(plataforma::carpetaPapelera());
    CasaPrueba casa;
    Fuera fuera;
    const fs::path dist = casa.archivo("Projects/web/dist/app.js", 20000).parent_path();
    const fs::path enlace = casa.enlace("Projects/web/enlace", fuera.raiz);
    casa.enlace("Library/Cookies", fuera.raiz);
    const fs::path informe = casa.archivoCon("Documents/inf\xf3rme.pdf", "pdf");
    // The same name twice.
    const fs::path uno = casa.archivoCon("Projects/uno/build/salida", "uno").parent_path();
    const fs::path dos = casa.archivoCon("Projects/dos/build/salida", "dos").parent_path();
    // b is gone: the item stops there and c is not tried.
    const fs::path a = casa.archivoCon("Downloads/a.pkg", "a");
    const fs::path c = casa.archivoCon("Downloads/c.pkg", "c");
    Elemento paquetes = elemento(a, "paquetes", 1000);
    paquetes.extra = {casa.ruta("Downloads/b.pkg"), c};

    const Resultado r =
        limpiar(casa.entorno(),
                {categoria(Modo::papelera, {elemento(dist, "dist", 100), elemento(enlace, "enlace", 20),
                                            elemento(informe, "informe", 3), elemento(uno, "build"),
                                            elemento(dos, "build"), paquetes,
                                            // refused, as when emptying in place
                                            elemento(casa.ruta("Documents"), "Documents", 1000),
                                            elemento(casa.ruta("Library/Cookies/dato"), "por-enlace", 1000)})});
    EXPECT_EQ(r.errores, (Lineas{"paquetes: " + std::string(std::strerror(ENOENT)),
                                 "Documents: ruta no permitida, se omitió",
                                 "por-enlace: es un enlace a otra carpeta, se omitió"}));
    // The figures of the analysis, not a new measurement.
    EXPECT_EQ(r.enPapelera, 123);
    EXPECT_EQ(r.borrado, 0);
    EXPECT_TRUE(existe(c));
    EXPECT_TRUE(fuera.intacto());
    // Each is there whole, under its original path byte for byte; the link as a link.
    const fs::path papelera = plataforma::carpetaPapelera();
    const auto enPapelera = apoyo::papelera(papelera.parent_path());
    EXPECT_EQ(enPapelera.size(), 6u);
    for (const fs::path& p : {dist, enlace, informe, uno, dos, a}) {
        EXPECT_FALSE(existe(p)) << p;
        EXPECT_TRUE(enPapelera.contains(p)) << p;
    }
    EXPECT_EQ(apoyo::leer(papelera / "files" / enPapelera.at(uno) / "salida"), "uno");
    EXPECT_EQ(apoyo::leer(papelera / "files" / enPapelera.at(dos) / "salida"), "dos");
    EXPECT_TRUE(fs::is_symlink(papelera / "files" / enPapelera.at(enlace)));
}

TEST(Limpiador, Acciones)
{
    CasaPrueba casa;
    const fs::path medida = casa.crearDir("Library/Developer/simuladores");
    const fs::path grande = casa.archivo("Library/Developer/simuladores/grande", 81920);
    const int64_t liberado = apoyo::asignado(grande);
    auto conAccion = [](std::string nombre, Accion a) {
        // A command's own paths are not judged: this one lies outside home.
        Elemento e = elemento("/", std::move(nombre));
        e.accion = std::move(a);
        return e;
    };
    Limpiador l(casa.entorno());
    l.limiteAccion = 1;
    const Resultado r = l.limpiar(
        {categoria(Modo::borrar,
                   {conAccion("falla", {"/bin/sh", {"-c", "exit 3"}}), conAccion("cuelga", {"/bin/sleep", {"30"}}),
                    conAccion("sin medir", {"/bin/true", {}}),
                    conAccion("medida", {"/bin/rm", {"-f", grande.string()}, medida})})},
        [](const std::string&) {});
    EXPECT_EQ(r.errores, (Lineas{"falla: no se pudo completar", "cuelga: no se pudo completar"}));
    EXPECT_FALSE(existe(grande));
    EXPECT_EQ(r.borrado, liberado);
}
