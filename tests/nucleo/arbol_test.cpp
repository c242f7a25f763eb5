// SPDX-License-Identifier: GPL-3.0-or-later
#include "nucleo/arbol.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <map>
#include <set>
#include <sstream>

using apoyo::CasaPrueba;
namespace fs = std::filesystem;

namespace {

// One report as a line: "<kind> <level> <path>", the kind as find's %y
// letters, and "fin"/"ilegible" for a folder's end.
std::string linea(const EntradaArbol& e)
{
    static const std::map<TipoEntrada, std::string> letras{
        {TipoEntrada::carpeta, "d"}, {TipoEntrada::finCarpeta, "fin"}, {TipoEntrada::ilegible, "ilegible"},
        {TipoEntrada::archivo, "f"}, {TipoEntrada::enlace, "l"},       {TipoEntrada::otro, "p"}};
    return letras.at(e.tipo) + " " + std::to_string(e.nivel) + " " + std::string(e.ruta);
}

// Every report of a walk, in order; `paso` decides what follows each.
std::vector<std::string> recorrer(const fs::path& raiz, const VisitaArbol& paso = {})
{
    std::vector<std::string> r;
    recorrerArbol(raiz, [&](const EntradaArbol& e) {
        r.push_back(linea(e));
        return paso ? paso(e) : Paso::seguir;
    });
    return r;
}

// Everything at and below the root as find lists it, links not followed.
std::multiset<std::string> segunFind(const fs::path& raiz)
{
    const auto s = apoyo::ejecutarPrograma("/usr/bin/find", {"-P", raiz.string(), "-printf", "%y %d %p\\0"});
    std::multiset<std::string> r;
    std::istringstream in(s.salida);
    for (std::string l; std::getline(in, l, '\0');)
        r.insert(l);
    return r;
}

} // namespace

// Each entry once, of its kind and level, with views and stat that agree with
// the file system, however long the folder; each folder ends once, after all
// it holds.
TEST(Arbol, CadaEntradaComoFindYCadaCarpetaTerminaTrasLoQueContiene)
{
    CasaPrueba casa;
    casa.archivo("a/b/c/d.txt", 10);
    casa.archivo("a/e.bin", 5000);
    casa.archivo(".oculto/f", 1);
    casa.archivo("a/\xff\xfe raro/g", 1);
    casa.crearDir("vacia");
    casa.enlace("a/enlace-dir", casa.ruta("a/b"));
    casa.enlace("a/enlace-archivo", casa.ruta("a/e.bin"));
    casa.enlace("a/roto", casa.ruta("no-existe"));
    casa.enlaceDuro("a/b/duro", "a/e.bin");
    ASSERT_EQ(::mkfifo(casa.ruta("a/b/tuberia").c_str(), 0644), 0);
    casa.muchos("a/ancha", 3000, 0); // more than one read of the listing

    std::vector<std::string> orden;
    std::multiset<std::string> entradas;
    recorrerArbol(casa.raiz(), [&](const EntradaArbol& e) {
        if (e.nivel > 0) {
            EXPECT_EQ(std::string(e.padre) + "/" + std::string(e.nombre), e.ruta);
        }
        EXPECT_EQ(e.ruta.data()[e.ruta.size()], '\0');
        struct stat st;
        EXPECT_EQ(::lstat(e.ruta.data(), &st), 0);
        EXPECT_EQ(e.st.st_ino, st.st_ino) << e.ruta;
        EXPECT_EQ(e.st.st_blocks, st.st_blocks) << e.ruta;
        orden.push_back(linea(e));
        if (e.tipo != TipoEntrada::finCarpeta)
            entradas.insert(linea(e));
        return Paso::seguir;
    });
    EXPECT_EQ(entradas, segunFind(casa.raiz()));
    EXPECT_EQ(orden.front(), "d 0 " + casa.raiz().string());
    EXPECT_EQ(orden.back(), "fin 0 " + casa.raiz().string());
    // A folder's reports enclose exactly the entries below it.
    for (size_t i = 0; i < orden.size(); ++i) {
        if (!orden[i].starts_with("d "))
            continue;
        const std::string ruta = orden[i].substr(orden[i].find(' ', 2) + 1);
        const std::string fin = "fin " + orden[i].substr(2);
        const auto j = std::find(orden.begin(), orden.end(), fin) - orden.begin();
        ASSERT_LT(size_t(j), orden.size()) << fin;
        EXPECT_EQ(std::count(orden.begin(), orden.end(), fin), 1);
        for (size_t k = 0; k < orden.size(); ++k) {
            const bool dentro = orden[k].find(" " + ruta + "/") != std::string::npos;
            EXPECT_EQ(dentro, k > i && k < size_t(j)) << orden[k] << " / " << ruta;
        }
    }
}

// Stopping at any report leaves exactly the reports up to it; a pruned folder
// is reported, never opened and never ended.
TEST(Arbol, PararEnCualquierEntradaYPodar)
{
    CasaPrueba casa;
    casa.archivo("a/b/c", 1);
    casa.archivo("a/d", 1);
    casa.archivo("e", 1);
    casa.archivo("podada/dentro", 1);
    const auto todo = recorrer(casa.raiz(), [](const EntradaArbol& e) {
        return e.nombre == "podada" ? Paso::podar : Paso::seguir;
    });
    EXPECT_EQ(std::count_if(todo.begin(), todo.end(), [](const auto& l) { return l.ends_with("podada"); }), 1);
    EXPECT_EQ(std::count_if(todo.begin(), todo.end(), [](const auto& l) { return l.ends_with("dentro"); }), 0);
    ASSERT_EQ(todo.size(), 10u);
    for (size_t k = 1; k <= todo.size(); ++k) {
        size_t n = 0;
        const auto hasta = recorrer(casa.raiz(), [&](const EntradaArbol& e) {
            return ++n == k ? Paso::parar : e.nombre == "podada" ? Paso::podar : Paso::seguir;
        });
        EXPECT_EQ(hasta, std::vector<std::string>(todo.begin(), todo.begin() + k));
    }
}

TEST(Arbol, Raices)
{
    CasaPrueba casa;
    casa.archivo("d/f", 1);
    casa.enlace("enlace", casa.ruta("d"));
    const std::string d = casa.ruta("d");
    struct Caso {
        fs::path raiz;
        std::vector<std::string> reportes;
    } casos[] = {
        {fs::path(d + "//"), {"d 0 " + d, "f 1 " + d + "/f", "fin 0 " + d}},
        {casa.ruta("d/f"), {"f 0 " + d + "/f"}},
        {casa.ruta("enlace"), {"l 0 " + casa.ruta("enlace").string()}},
        {casa.ruta("no-existe"), {}},
    };
    for (const Caso& c : casos)
        EXPECT_EQ(recorrer(c.raiz), c.reportes) << c.raiz;

    // Below "/" paths don't begin with "//"; the root is "/" itself.
    std::vector<std::string> padres;
    const auto raiz = recorrer("/", [&](const EntradaArbol& e) {
        padres.emplace_back(e.padre);
        return e.nivel == 0 ? Paso::seguir : Paso::podar;
    });
    EXPECT_EQ(raiz.front(), "d 0 /");
    EXPECT_EQ(raiz.back(), "fin 0 /");
    EXPECT_NE(std::find(raiz.begin(), raiz.end(), "d 1 /tmp"), raiz.end());
    EXPECT_EQ(std::set<std::string>(padres.begin(), padres.end()), std::set<std::string>{""});
}

// A folder that can't be opened, the root included, ends as ilegible right
// after it is reported; the walk goes on beside it.
TEST(Arbol, CarpetaIlegibleTerminaComoIlegible)
{
    CasaPrueba casa;
    casa.archivo("cerrada/dentro", 1);
    casa.archivo("abierta/dentro", 1);
    casa.sinPermisos("cerrada");
    const std::string c = casa.ruta("cerrada"), a = casa.ruta("abierta");
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        const auto r = recorrer(casa.raiz());
        const std::multiset<std::string> vistos(r.begin() + 1, r.end() - 1);
        const auto i = std::find(r.begin(), r.end(), "d 1 " + c);
        return vistos == std::multiset<std::string>{"d 1 " + c, "ilegible 1 " + c, "d 1 " + a,
                                                    "f 2 " + a + "/dentro", "fin 1 " + a} &&
               i != r.end() && *(i + 1) == "ilegible 1 " + c &&
               recorrer(c) == std::vector<std::string>{"d 0 " + c, "ilegible 0 " + c};
    }));
}
