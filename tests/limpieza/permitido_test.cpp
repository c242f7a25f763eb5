// SPDX-License-Identifier: GPL-3.0-or-later
// The path rule that guards every removal: named cases, then a property over
// many generated paths checked against an independent reading of the rule.
#include "limpieza/limpiador.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <random>

namespace {

const Limpiador ana(Entorno{"/Users/ana", true});

struct Caso {
    const char* ruta;
    bool permitido;
};

// Resolves "." and ".." on a stack of components, independently of
// std::filesystem; relative paths start at the working directory.
std::vector<std::string> componentes(const std::string& ruta)
{
    std::string completa = ruta;
    if (ruta.empty() || ruta[0] != '/') {
        char cwd[4096];
        completa = std::string(::getcwd(cwd, sizeof cwd)) + "/" + ruta;
    }
    std::vector<std::string> pila;
    size_t i = 0;
    while (i <= completa.size()) {
        const size_t fin = std::min(completa.find('/', i), completa.size());
        const std::string parte = completa.substr(i, fin - i);
        if (parte == "..") {
            if (!pila.empty())
                pila.pop_back();
        } else if (!parte.empty() && parte != ".") {
            pila.push_back(parte);
        }
        i = fin + 1;
    }
    return pila;
}

bool esRaizIntocable(const std::vector<std::string>& relativa)
{
    std::string r;
    for (const auto& p : relativa)
        r += (r.empty() ? "" : "/") + p;
    return std::find(std::begin(Limpiador::raicesIntocables), std::end(Limpiador::raicesIntocables), r) !=
           std::end(Limpiador::raicesIntocables);
}

} // namespace

TEST(Permitido, CasosConNombre)
{
    const Caso casos[] = {
        {"/Users/ana", false},                         // the home folder itself
        {"/Users/ana/", false},                        //   with a trailing slash
        {"/Users", false},                             // above it
        {"/etc/passwd", false},                        // outside
        {"/Users/ana2/Library/Caches/x", false},       // a sibling that shares the prefix
        {"/Users/anab", false},                        //
        {"/Users/ana/Notas.txt", false},               // a direct child, whatever its name
        {"/Users/ana/.cache", false},                  //
        {"/Users/ana/Library/Caches", false},          // protected roots
        {"/Users/ana/Library/Application Support", false},
        {"/Users/ana/Library", false},
        {"/Users/ana/Library/Caches/", false},         //   with a trailing slash
        {"/Users/ana//Library///Caches", false},       //   with doubled slashes
        {"/Users/ana/Library/Caches/.", false},        //   through "."
        {"/Users/ana/Documents/x/..", false},          //   through ".."
        {"/Users/ana/Library/Caches/x", true},         // below them
        {"/Users/ana/Library/Caches/org.ejemplo", true},
        {"/Users/ana/Documents/informe.pdf", true},
        {"/Users/ana/Library/Caches/x/y/z", true},
        {"/Users/ana/Library/Caches/x/../y", true},    // judged as Library/Caches/y
        {"/Users/ana/Library/Caches/../../..", false}, // leaves the home folder
        {"/Users/ana/Library/Caches/../../../ana/Documents/a", true},
        {"/Users/ana/../ana2/Documents/a", false},
        {"/Users/ana/Library/Mail", true},             // not a listed root: only two deep is needed
        {"/Users/ana/library/caches", true},           // roots compare exactly, case included
        {"/Users/ana/Library/Caches/Library", true},
    };
    for (const Caso& c : casos)
        EXPECT_EQ(ana.permitido(c.ruta), c.permitido) << c.ruta;
}

TEST(Permitido, CasaConBarraFinalYCasaRaiz)
{
    // A home given with a trailing slash means the same folder.
    const Limpiador barra(Entorno{"/Users/ana/", true});
    EXPECT_TRUE(barra.permitido("/Users/ana/Library/Caches/x"));
    EXPECT_FALSE(barra.permitido("/Users/ana/Library/Caches"));
    // With "/" as home nothing passes: no path begins with "//".
    const Limpiador raiz(Entorno{"/", true});
    EXPECT_FALSE(raiz.permitido("/usr/lib/x"));
    EXPECT_FALSE(raiz.permitido("//usr/lib/x"));
}

TEST(Permitido, RutaRelativaSeJuzgaDesdeLaCarpetaActual)
{
    char cwd[4096];
    ASSERT_NE(::getcwd(cwd, sizeof cwd), nullptr);
    const Limpiador aqui(Entorno{cwd, true});
    EXPECT_TRUE(aqui.permitido("a/b"));
    EXPECT_FALSE(aqui.permitido("a"));
    EXPECT_FALSE(aqui.permitido("Library/Caches"));
    EXPECT_FALSE(aqui.permitido("a/../../x/y"));
}

// Allowed exactly when, after resolving "." and "..", the path lies strictly
// inside the home folder, at least two components deep, and isn't a
// protected root. Paths are built from pieces chosen to hit every edge.
TEST(Permitido, PropiedadSobreRutasGeneradas)
{
    const std::vector<std::string> casa{"Users", "ana"};
    std::vector<std::string> piezas{".",       "..",    "",      "Users", "ana", "ana2", "an",  "anab",
                                    "Users/ana", "x",   "y",     ".oculto", "ñandú", "Caches", "Library/Caches/x",
                                    "..."};
    for (std::string_view r : Limpiador::raicesIntocables) {
        piezas.emplace_back(r);
        piezas.push_back(std::string(r) + "/hijo");
    }
    std::mt19937 azar(20240611);
    size_t permitidas = 0;
    for (int n = 0; n < 100000; ++n) {
        std::string ruta;
        switch (azar() % 4) {
        case 0: ruta = "/Users/ana"; break;
        case 1: ruta = "/Users/ana/"; break;
        case 2: ruta = "/"; break;
        default: ruta = "/Users/"; break;
        }
        const int cuantas = int(azar() % 6);
        for (int i = 0; i < cuantas; ++i) {
            if (!ruta.empty() && ruta.back() != '/')
                ruta += azar() % 5 == 0 ? "//" : "/";
            ruta += piezas[azar() % piezas.size()];
        }
        if (azar() % 4 == 0)
            ruta += "/";

        const auto c = componentes(ruta);
        const bool dentro = c.size() >= casa.size() + 2 && std::equal(casa.begin(), casa.end(), c.begin());
        const std::vector<std::string> relativa(c.begin() + std::min(c.size(), casa.size()), c.end());
        const bool esperado = dentro && !esRaizIntocable(relativa);
        ASSERT_EQ(ana.permitido(ruta), esperado) << ruta;
        permitidas += esperado;
    }
    // The generator reaches both answers often.
    EXPECT_GT(permitidas, 10000u);
    EXPECT_LT(permitidas, 90000u);
}
