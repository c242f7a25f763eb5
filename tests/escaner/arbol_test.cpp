// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/arbol.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

using apoyo::CasaPrueba;

namespace {

struct Visto {
    int nivel;
    bool carpeta;
    int64_t tamano;
};

// Every folder and regular file below the root as find lists it, links not followed.
std::set<std::string> segunFind(const std::filesystem::path& raiz)
{
    const auto s = apoyo::ejecutarPrograma("/usr/bin/find", {"-P", raiz.string(), "-mindepth", "1", "(", "-type", "d",
                                                             "-o", "-type", "f", ")", "-print0"});
    std::set<std::string> r;
    std::istringstream in(s.salida);
    for (std::string l; std::getline(in, l, '\0');)
        r.insert(l);
    return r;
}

} // namespace

TEST(Arbol, LoMismoQueFindEnPreordenSinSeguirEnlaces)
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

    std::vector<std::string> orden;
    std::map<std::string, Visto> vistos;
    recorrerArbol(casa.raiz(), [&](const EntradaArbol& e) {
        EXPECT_EQ(std::string(e.padre) + "/" + std::string(e.nombre), e.ruta);
        EXPECT_EQ(e.ruta.data()[e.ruta.size()], '\0');
        orden.emplace_back(e.ruta);
        vistos[std::string(e.ruta)] = {e.nivel, e.carpeta, int64_t(e.st.st_size)};
        return true;
    });
    const auto esperado = segunFind(casa.raiz());
    EXPECT_EQ(std::set<std::string>(orden.begin(), orden.end()), esperado);
    EXPECT_EQ(orden.size(), esperado.size()); // each once
    for (size_t i = 0; i < orden.size(); ++i) {
        const auto padre = std::filesystem::path(orden[i]).parent_path();
        if (padre != casa.raiz()) { // a folder comes before what it holds
            EXPECT_LT(std::find(orden.begin(), orden.end(), padre.string()) - orden.begin(), std::ptrdiff_t(i));
        }
    }
    EXPECT_EQ(vistos[casa.ruta("a/b/c/d.txt")].nivel, 4);
    EXPECT_TRUE(vistos[casa.ruta("a/b/c").string()].carpeta);
    EXPECT_EQ(vistos[casa.ruta("a/b/duro").string()].tamano, 5000);
}

TEST(Arbol, PodaYRaices)
{
    CasaPrueba casa;
    casa.archivo("podada/dentro", 1);
    casa.archivo("sigue/dentro", 1);
    std::set<std::string> vistos;
    recorrerArbol(casa.ruta("") / "", [&](const EntradaArbol& e) {
        vistos.insert(std::string(e.ruta));
        return e.nombre != "podada";
    });
    // A trailing "/" on the root doesn't double.
    EXPECT_EQ(vistos, (std::set<std::string>{casa.ruta("podada"), casa.ruta("sigue"), casa.ruta("sigue/dentro")}));

    // A root that is a link, or isn't there, yields nothing.
    casa.enlace("enlace", casa.ruta("sigue"));
    int n = 0;
    recorrerArbol(casa.ruta("enlace"), [&](const EntradaArbol&) { return ++n, true; });
    recorrerArbol(casa.ruta("no-existe"), [&](const EntradaArbol&) { return ++n, true; });
    recorrerArbol(casa.ruta("sigue/dentro"), [&](const EntradaArbol&) { return ++n, true; });
    EXPECT_EQ(n, 0);
}

TEST(Arbol, CarpetaIlegibleSeVePeroNoSeEntra)
{
    CasaPrueba casa;
    casa.archivo("cerrada/dentro", 1);
    casa.archivo("abierta/dentro", 1);
    casa.sinPermisos("cerrada");
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        std::set<std::string> vistos;
        recorrerArbol(casa.raiz(), [&](const EntradaArbol& e) {
            vistos.insert(std::string(e.nombre));
            return true;
        });
        return vistos == std::set<std::string>{"cerrada", "abierta", "dentro"};
    }));
}
