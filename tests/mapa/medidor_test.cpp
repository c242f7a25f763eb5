// SPDX-License-Identifier: GPL-3.0-or-later
// The disk tree on real scratch homes, checked against du and against the
// sizes the file system reports for every node.
#include "mapa/medidor.h"

#include "apoyo/casa.h"

#include <gtest/gtest.h>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <mutex>
#include <set>

using apoyo::asignado;
using apoyo::CasaPrueba;
using apoyo::du;
namespace fs = std::filesystem;

namespace {

constexpr int64_t bloques(int64_t n) { return n * 4096; }
// Around the million: 999,424 and 1,003,520 allocated bytes.
constexpr int64_t bajoElMinimo = bloques(244);
constexpr int64_t sobreElMinimo = bloques(245);

// What the root should weigh: du of the home less its own blocks.
int64_t contenido(const CasaPrueba& casa) { return du(casa.raiz()) - asignado(casa.raiz()); }

// A folder outside the home, named long enough that a link to it holds a
// data block of its own.
fs::path destinoLargo(CasaPrueba& fuera)
{
    return fuera.reservado("una-carpeta-con-un-nombre-bastante-largo-para-que-el-enlace-ocupe-un-bloque/g", bloques(9))
        .parent_path();
}

// Checks every node of the tree against the disk: a folder is its own bytes
// (none for the root) + its children + resto; a file is its allocated bytes;
// children are linked back, sorted, capped and above the minimum.
void revisar(const NodoDisco& n, bool raiz = true)
{
    SCOPED_TRACE(n.ruta);
    if (n.protegido || !n.esCarpeta) {
        EXPECT_EQ(n.tamano, n.protegido ? 0 : asignado(n.ruta));
        EXPECT_TRUE(n.hijos.empty());
        return;
    }
    int64_t suma = (raiz ? 0 : asignado(n.ruta)) + n.resto;
    for (size_t i = 0; i < n.hijos.size(); ++i) {
        const NodoDisco& h = *n.hijos[i];
        suma += h.tamano;
        EXPECT_EQ(h.padre.lock().get(), &n);
        EXPECT_EQ(h.ruta, n.ruta + "/" + h.nombre);
        EXPECT_TRUE(h.protegido || h.tamano >= MedidorMapa::minimoCarpeta);
        EXPECT_TRUE(i == 0 || n.hijos[i - 1]->tamano >= h.tamano);
        revisar(h, false);
    }
    EXPECT_LE(n.hijos.size(), MedidorMapa::maxHijos);
    EXPECT_EQ(n.tamano, suma);
}

// The node at a path relative to the root, or null.
const NodoDisco* buscar(const NodoDisco& raiz, const fs::path& relativa)
{
    const NodoDisco* n = &raiz;
    for (const auto& parte : relativa) {
        const auto h = std::ranges::find(n->hijos, parte.native(), [](const auto& h) { return h->nombre; });
        if (h == n->hijos.end())
            return nullptr;
        n = h->get();
    }
    return n;
}

std::vector<std::string> nombres(const NodoDisco& n)
{
    std::vector<std::string> r;
    for (const auto& h : n.hijos)
        r.push_back(h->nombre);
    return r;
}

} // namespace

// Deep trees of small files in every corner, large files here and there,
// links out of the home, a sparse file, a name that is not UTF-8 and the
// protected places, at levels 1 to 4.
TEST(MedidorMapa, CadaCarpetaIgualADu)
{
    CasaPrueba casa, fuera;
    for (const char* r : {"Library/Caches/org.uno", "Library/Caches/org.dos/x", "Documents", "Projects/web/m", "Music"})
        for (int i = 0; i < 120; ++i) {
            std::string dir = r;
            for (int k = 0; k < i % 7; ++k)
                dir += "/d" + std::to_string((i / 7 + k) % 3);
            casa.reservado(dir + "/f" + std::to_string(i), bloques(1 + i % 3));
            if (i % 9 == 0)
                casa.reservado(dir + "/g" + std::to_string(i), bloques(240 + i));
        }
    const char* protegidas[] = {"Library/Mail", "Library/Application Support/MobileSync", "Pictures/A.photoslibrary",
                                "Documents/x/y/A.photoslibrary", ".Trash"};
    for (const char* p : protegidas)
        casa.reservado(std::string(p) + "/dentro", bloques(500));
    casa.reservado("Library/Application Support/Otra/datos", bloques(400));
    casa.disperso("Movies/largo.mov", 3'000'000'000);
    const fs::path destino = destinoLargo(fuera);
    casa.enlace("Enlace", destino);
    casa.enlace("Documents/a/b/c/enlace", destino / "g");
    casa.archivo("Documents/\xff\xfe.bin", bloques(300));
    ASSERT_GT(asignado(casa.ruta("Enlace")), 0);

    // du of a folder less the protected places in it.
    auto esperado = [&](const fs::path& carpeta) {
        int64_t r = du(carpeta);
        for (const char* p : protegidas)
            if (casa.ruta(p).native().starts_with(carpeta.native() + "/"))
                r -= du(casa.ruta(p));
        return r;
    };
    const auto raiz = MedidorMapa(casa.entorno()).medir();
    revisar(*raiz);
    EXPECT_EQ(raiz->nombre, casa.raiz().filename());
    EXPECT_EQ(raiz->tamano, esperado(casa.raiz()) - asignado(casa.raiz()));
    // Every folder that kept a node, at any level.
    int comparadas = 0;
    std::function<void(const NodoDisco&)> comparar = [&](const NodoDisco& n) {
        for (const auto& h : n.hijos)
            if (h->esCarpeta && !h->protegido) {
                EXPECT_EQ(h->tamano, esperado(h->ruta)) << h->ruta;
                ++comparadas;
                comparar(*h);
            }
    };
    comparar(*raiz);
    EXPECT_GE(comparadas, 8);

    // Protected places keep a node down to level 3, sorted last; deeper ones
    // only leave their name.
    EXPECT_EQ(MedidorMapa::protegidasEncontradas(*raiz),
              (std::vector<std::string>{".Trash", "A.photoslibrary", "Mail", "MobileSync"}));
    for (const char* p : {"Library/Mail", "Library/Application Support/MobileSync", ".Trash"}) {
        const NodoDisco* n = buscar(*raiz, p);
        ASSERT_NE(n, nullptr) << p;
        EXPECT_TRUE(n->protegido);
        EXPECT_EQ(n->padre.lock()->hijos.back().get(), n);
    }
    EXPECT_EQ(buscar(*raiz, "Documents/x"), nullptr);
    EXPECT_NE(buscar(*raiz, "Documents/\xff\xfe.bin"), nullptr);
    EXPECT_EQ(buscar(*raiz, "Movies"), nullptr);
}

// The same cases in a listed folder (level 1) and deep in a walk (level 4).
TEST(MedidorMapa, MinimoDelMillonTopeDeSesentaYOrdenDeLosIguales)
{
    for (const std::string base : {"Nivel1", "a/b/c/Nivel4"}) {
        SCOPED_TRACE(base);
        CasaPrueba casa;
        casa.reservado(base + "/umbral/bajo", bajoElMinimo);
        casa.reservado(base + "/umbral/sobre", sobreElMinimo);
        casa.reservado(base + "/umbral/casi/f", bajoElMinimo - bloques(1));
        casa.reservado(base + "/umbral/justo/f", bajoElMinimo);
        casa.reservado(base + "/umbral/justo/g", bloques(10));
        // One smaller child and 60 equal ones, enough that an unstable sort
        // would shuffle them.
        casa.reservado(base + "/sesenta/menor", sobreElMinimo);
        for (int i = 0; i < 60; ++i)
            casa.reservado(base + "/sesenta/" + std::to_string(i * 7919 % 60), sobreElMinimo + bloques(1));
        const auto raiz = MedidorMapa(casa.entorno()).medir();
        revisar(*raiz);

        const NodoDisco* umbral = buscar(*raiz, base + "/umbral");
        ASSERT_NE(umbral, nullptr);
        EXPECT_EQ(nombres(*umbral), (std::vector<std::string>{"justo", "sobre"}));
        EXPECT_EQ(umbral->resto, bajoElMinimo + du(casa.ruta(base + "/umbral/casi")));
        EXPECT_EQ(buscar(*raiz, base + "/umbral/justo")->resto, bajoElMinimo + bloques(10));

        const NodoDisco* sesenta = buscar(*raiz, base + "/sesenta");
        ASSERT_NE(sesenta, nullptr);
        std::vector<std::string> listado;
        for (const auto& e : fs::directory_iterator(casa.ruta(base + "/sesenta")))
            if (e.path().filename() != "menor")
                listado.push_back(e.path().filename());
        EXPECT_EQ(nombres(*sesenta), listado);
        EXPECT_EQ(sesenta->resto, sobreElMinimo);
    }
}

TEST(MedidorMapa, ProgresoCadaVeinteTareas)
{
    auto avisos = [](int tareas) {
        CasaPrueba casa;
        for (int i = 0; i < tareas; ++i)
            casa.crearDir("a/b/c" + std::to_string(i));
        std::mutex m;
        std::multiset<int> vistos;
        MedidorMapa(casa.entorno()).medir([&](int p) {
            std::lock_guard g(m);
            vistos.insert(p);
        });
        return vistos;
    };
    EXPECT_EQ(avisos(19), std::multiset<int>{});
    EXPECT_EQ(avisos(119), (std::multiset<int>{16, 33, 50, 67, 84}));
    EXPECT_EQ(avisos(120), (std::multiset<int>{16, 33, 50, 66, 83, 100}));
}

// Cancelling after any number of questions leaves a smaller tree that still
// adds up and counts what the stopped walk had seen: its open folders are
// folded into their parents. Cancelled from the start, only the listed levels
// remain, with the level-3 folders unmeasured. A level-3 folder swapped for a
// link after the listing saw it is not followed.
TEST(MedidorMapa, CancelarOCambiarUnaCarpetaPorEnlaceDejaUnArbolCoherente)
{
    CasaPrueba casa;
    for (int d = 0; d < 24; ++d)
        casa.muchos("a/b/t/x/d" + std::to_string(d), 500, 10);
    casa.reservado("a/b/t/x/d23/grande", sobreElMinimo);
    casa.reservado("a/b/grande", sobreElMinimo);
    // The one task asks as it starts and at its 4096th and 8192nd entries.
    std::vector<int64_t> tamanos;
    for (int tras = 0; tras <= 3; ++tras) {
        SCOPED_TRACE(tras);
        int preguntas = 0;
        const auto raiz = MedidorMapa(casa.entorno()).medir({}, [&] { return ++preguntas > tras; });
        EXPECT_EQ(preguntas, std::min(tras + 1, 3));
        revisar(*raiz);
        tamanos.push_back(raiz->tamano);
    }
    const int64_t listado = asignado(casa.ruta("a")) + asignado(casa.ruta("a/b")) + sobreElMinimo;
    EXPECT_EQ(tamanos[0], listado);
    EXPECT_GE(tamanos[1], listado + 4000 * 4096);
    EXPECT_GE(tamanos[2], tamanos[1] + 4000 * 4096);
    EXPECT_EQ(tamanos[3], contenido(casa));

    CasaPrueba fuera;
    const fs::path destino = destinoLargo(fuera);
    std::once_flag una;
    const auto raiz = MedidorMapa(casa.entorno()).medir({}, [&] {
        std::call_once(una, [&] {
            apoyo::borrarArbol(casa.ruta("a/b/t"));
            casa.enlace("a/b/t", destino);
        });
        return false;
    });
    revisar(*raiz);
    ASSERT_GT(asignado(casa.ruta("a/b/t")), 0);
    EXPECT_EQ(raiz->tamano, contenido(casa));
}

// Runs the measurement as the unprivileged user when the tests run as root,
// so that mode 000 really hides a folder. Threads follow the effective ids.
TEST(MedidorMapa, CarpetasIlegiblesEnCadaNivel)
{
    CasaPrueba casa;
    const char* cerradas[] = {"Cerrada1", "Documents/Cerrada2", "Documents/a/Cerrada3", "Documents/a/b/c/Cerrada5"};
    int64_t ocultos = 0;
    for (const char* c : cerradas) {
        casa.reservado(std::string(c) + "/dentro/f", sobreElMinimo);
        ocultos += du(casa.ruta(c)) - asignado(casa.ruta(c));
    }
    casa.reservado("Documents/a/b/c/grande", bloques(600));
    for (const char* c : cerradas)
        casa.sinPermisos(c);
    const int64_t esperado = contenido(casa) - ocultos;

    auto medirSinPrivilegios = [&] {
        const bool root = ::geteuid() == 0;
        EXPECT_TRUE(!root || (::setegid(65534) == 0 && ::seteuid(65534) == 0));
        auto raiz = MedidorMapa(casa.entorno()).medir();
        EXPECT_TRUE(!root || (::seteuid(0) == 0 && ::setegid(0) == 0));
        return raiz;
    };
    ::chmod(casa.raiz().c_str(), 0755);
    auto raiz = medirSinPrivilegios();
    revisar(*raiz);
    EXPECT_EQ(raiz->tamano, esperado);
    ASSERT_NE(buscar(*raiz, "Documents/a/b/c/grande"), nullptr);

    ::chmod(casa.raiz().c_str(), 0311);
    raiz = medirSinPrivilegios();
    EXPECT_EQ(raiz->tamano, 0);
    EXPECT_TRUE(raiz->hijos.empty());
}

// A file system mounted below the level-3 folders is not entered: only the
// mount point's own blocks count.
TEST(MedidorMapa, PuntoDeMontajeNoSeRecorre)
{
    if (::geteuid() != 0 || ::unshare(CLONE_NEWNS) != 0 ||
        ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        GTEST_SKIP() << "hace falta poder montar (root en un espacio de montajes propio)";
    CasaPrueba casa;
    casa.reservado("a/b/c/d/propio", sobreElMinimo);
    const fs::path punto = casa.crearDir("a/b/c/d/montado");
    ASSERT_EQ(::mount("vorlano", punto.c_str(), "tmpfs", 0, "size=16m"), 0);
    casa.reservado("a/b/c/d/montado/grande", bloques(1000));
    const int64_t fueraDelMontaje = contenido(casa) - du(punto) + asignado(punto);

    const auto raiz = MedidorMapa(casa.entorno()).medir();
    EXPECT_EQ(raiz->tamano, fueraDelMontaje);
    EXPECT_EQ(nombres(*buscar(*raiz, "a/b/c/d")), std::vector<std::string>{"propio"});
    ::umount2(punto.c_str(), MNT_DETACH);
}
