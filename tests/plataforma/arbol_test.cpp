// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/arbol.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <dirent.h>
#include <dlfcn.h>
#include <sys/stat.h>

#include <cerrno>
#include <set>
#include <sstream>

using apoyo::CasaPrueba;
namespace fs = std::filesystem;

namespace {

// The folder whose listing fails from its second read on, and its reads.
std::string carpetaQueFalla;
int lecturas = 0;

// One report as a line: "<kind> <level> <path>", the kind as find's %y
// letters, and "fin"/"ilegible" for a folder's end.
std::string linea(const plataforma::EntradaArbol& e)
{
    static const char* const letras[] = {"d", "fin", "ilegible", "f", "l", "p"}; // plataforma::TipoEntrada's order
    return letras[int(e.tipo)] + (" " + std::to_string(e.nivel)) + " " + std::string(e.ruta);
}

// Every report of a walk, in order; `paso` decides what follows each.
std::vector<std::string> recorrer(const fs::path& raiz, const plataforma::VisitaArbol& paso = {})
{
    std::vector<std::string> r;
    plataforma::recorrerArbol(raiz, [&](const plataforma::EntradaArbol& e) {
        r.push_back(linea(e));
        return paso ? paso(e) : plataforma::Paso::seguir;
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

// Linked into this program, it comes before the C library's for the walker.
extern "C" ssize_t getdents64(int fd, void* buffer, size_t tamano) noexcept
{
    if (!carpetaQueFalla.empty() && fs::read_symlink("/proc/self/fd/" + std::to_string(fd)) == carpetaQueFalla &&
        ++lecturas > 1) {
        errno = EIO;
        return -1;
    }
    static const auto real = reinterpret_cast<ssize_t (*)(int, void*, size_t)>(::dlsym(RTLD_NEXT, "getdents64"));
    return real(fd, buffer, tamano);
}

// Each entry once, as find sees it, however long the folder; each folder
// ends once, after all it holds.
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

    std::multiset<std::string> entradas;
    std::vector<std::string> abiertas; // folders begun and not yet ended
    size_t reportes = 0;
    plataforma::recorrerArbol(casa.raiz(), [&](const plataforma::EntradaArbol& e) {
        ++reportes;
        EXPECT_EQ(e.ruta.data()[e.ruta.size()], '\0');
        struct stat st;
        EXPECT_TRUE(::lstat(e.ruta.data(), &st) == 0 && st.st_ino == e.st.st_ino && st.st_blocks == e.st.st_blocks)
            << e.ruta;
        const std::string arriba = abiertas.empty() ? "" : abiertas.back();
        if (e.tipo == plataforma::TipoEntrada::finCarpeta) {
            EXPECT_EQ(arriba, e.ruta);
            abiertas.pop_back();
            return plataforma::Paso::seguir;
        }
        EXPECT_EQ(e.nivel, int(abiertas.size())) << e.ruta;
        if (e.nivel > 0) {
            EXPECT_EQ(arriba, e.padre);
            EXPECT_EQ(std::string(e.padre) + "/" + std::string(e.nombre), e.ruta);
        }
        entradas.insert(linea(e));
        if (e.tipo == plataforma::TipoEntrada::carpeta)
            abiertas.emplace_back(e.ruta);
        return plataforma::Paso::seguir;
    });
    EXPECT_TRUE(abiertas.empty());
    EXPECT_EQ(entradas, segunFind(casa.raiz()));

    // A listing that fails after its first read ends its folder there, with
    // what it gave, and the walk goes on beside it.
    const std::string ancha = casa.ruta("a/ancha");
    carpetaQueFalla = ancha;
    const auto r = recorrer(casa.raiz());
    const auto leidos = std::count_if(r.begin(), r.end(), [&](const auto& l) { return l.starts_with("f 3 " + ancha + "/"); });
    EXPECT_TRUE(leidos > 0 && leidos < 3000) << leidos;
    EXPECT_EQ(lecturas, 2);
    EXPECT_EQ(r.size(), reportes - 3000 + size_t(leidos));
    EXPECT_EQ(std::count(r.begin(), r.end(), "fin 2 " + ancha), 1);
    EXPECT_EQ(r.back(), "fin 0 " + casa.raiz().string());
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
    const auto todo = recorrer(casa.raiz(), [](const plataforma::EntradaArbol& e) {
        return e.nombre == "podada" ? plataforma::Paso::podar : plataforma::Paso::seguir;
    });
    // Nothing in podada, and no end for it.
    ASSERT_EQ(todo.size(), 10u);
    for (size_t k = 1; k <= todo.size(); ++k) {
        size_t n = 0;
        const auto hasta = recorrer(casa.raiz(), [&](const plataforma::EntradaArbol& e) {
            return ++n == k ? plataforma::Paso::parar : e.nombre == "podada" ? plataforma::Paso::podar : plataforma::Paso::seguir;
        });
        EXPECT_EQ(hasta, std::vector<std::string>(todo.begin(), todo.begin() + k));
    }
}

// Roots of every kind; a folder that can't be opened, the root included,
// ends as ilegible right after it is reported, and the walk goes on beside it.
TEST(Arbol, RaicesYCarpetasIlegibles)
{
    CasaPrueba casa;
    casa.archivo("d/f", 1);
    casa.enlace("enlace", casa.ruta("d"));
    const std::string d = casa.ruta("d");
    const std::pair<fs::path, std::vector<std::string>> casos[] = {
        {fs::path(d + "//"), {"d 0 " + d, "f 1 " + d + "/f", "fin 0 " + d}},
        {casa.ruta("d/f"), {"f 0 " + d + "/f"}},
        {casa.ruta("enlace"), {"l 0 " + casa.ruta("enlace").string()}},
        {casa.ruta("no-existe"), {}},
    };
    for (const auto& [raiz, reportes] : casos)
        EXPECT_EQ(recorrer(raiz), reportes) << raiz;

    // Below "/" paths don't begin with "//"; the root is "/" itself.
    std::vector<std::string> padres;
    const auto raiz = recorrer("/", [&](const plataforma::EntradaArbol& e) {
        padres.emplace_back(e.padre);
        return e.nivel == 0 ? plataforma::Paso::seguir : plataforma::Paso::podar;
    });
    EXPECT_EQ(raiz.front(), "d 0 /");
    EXPECT_EQ(raiz.back(), "fin 0 /");
    EXPECT_NE(std::find(raiz.begin(), raiz.end(), "d 1 /tmp"), raiz.end());
    EXPECT_EQ(std::set<std::string>(padres.begin(), padres.end()), std::set<std::string>{""});

    casa.archivo("x/cerrada/dentro", 1);
    casa.archivo("x/abierta/dentro", 1);
    casa.sinPermisos("x/cerrada");
    const std::string x = casa.ruta("x"), c = x + "/cerrada", a = x + "/abierta";
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        const auto r = recorrer(x);
        const std::multiset<std::string> vistos(r.begin() + 1, r.end() - 1);
        const auto i = std::find(r.begin(), r.end(), "d 1 " + c);
        return vistos == std::multiset<std::string>{"d 1 " + c, "ilegible 1 " + c, "d 1 " + a,
                                                    "f 2 " + a + "/dentro", "fin 1 " + a} &&
               i != r.end() && *(i + 1) == "ilegible 1 " + c &&
               recorrer(c) == std::vector<std::string>{"d 0 " + c, "ilegible 0 " + c};
    }));
}
