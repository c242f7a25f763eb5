// SPDX-License-Identifier: GPL-3.0-or-later
// The disk tree on real scratch homes, checked against du and against the
// sizes the file system reports for every node.
#include "mapa/medidor.h"

#include "apoyo/casa.h"

#include <gtest/gtest.h>

#include <dirent.h>
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <algorithm>
#include <mutex>
#include <set>

using apoyo::asignado;
using apoyo::CasaPrueba;
using apoyo::du;
namespace fs = std::filesystem;

namespace {

// A file with exactly that many allocated bytes (a multiple of 4096) and no
// data written: quick even for many large files.
void reservar(CasaPrueba& casa, const std::string& relativa, int64_t bytes)
{
    const fs::path p = casa.ruta(relativa);
    fs::create_directories(p.parent_path());
    const int fd = ::open(p.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    ASSERT_GE(fd, 0) << p;
    ASSERT_EQ(::posix_fallocate(fd, 0, bytes), 0);
    ::close(fd);
}

constexpr int64_t bloques(int64_t n) { return n * 4096; }

// A folder outside the home with a large file, under a name long enough that
// a link to it holds a data block of its own.
fs::path destinoLargo(CasaPrueba& fuera)
{
    const std::string carpeta = "una-carpeta-con-un-nombre-bastante-largo-para-que-el-enlace-ocupe-un-bloque";
    reservar(fuera, carpeta + "/grande", 1000 * 4096);
    return fuera.ruta(carpeta);
}

// Around the million: 999,424 and 1,003,520 allocated bytes.
constexpr int64_t bajoElMinimo = bloques(244);
constexpr int64_t sobreElMinimo = bloques(245);

// Checks every node of the tree against the disk: a folder is its own bytes
// (none for the root) + its children + resto; a file is its allocated bytes;
// children are linked back, sorted, capped and above the minimum.
void revisar(const NodoDisco& n, bool raiz = true)
{
    SCOPED_TRACE(n.ruta);
    if (n.protegido) {
        EXPECT_EQ(n.tamano, 0);
        EXPECT_TRUE(n.hijos.empty());
        return;
    }
    if (!n.esCarpeta) {
        EXPECT_EQ(n.tamano, asignado(n.ruta));
        return;
    }
    int64_t suma = (raiz ? 0 : asignado(n.ruta)) + n.resto;
    for (size_t i = 0; i < n.hijos.size(); ++i) {
        const NodoDisco& h = *n.hijos[i];
        suma += h.tamano;
        EXPECT_EQ(h.padre.lock().get(), &n);
        EXPECT_EQ(h.ruta, n.ruta + "/" + h.nombre);
        EXPECT_TRUE(h.protegido || h.tamano >= MedidorMapa::minimoCarpeta);
        if (i > 0) {
            EXPECT_GE(n.hijos[i - 1]->tamano, h.tamano);
        }
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

// The folder's entries in the order the directory gives them.
std::vector<std::string> listado(const fs::path& carpeta)
{
    std::vector<std::string> r;
    DIR* d = ::opendir(carpeta.c_str());
    while (const dirent* e = ::readdir(d))
        if (e->d_name[0] != '.')
            r.emplace_back(e->d_name);
    ::closedir(d);
    return r;
}

// A home with deep trees of small files in every corner, large files here
// and there, links out of it, a sparse file, and the protected places.
void poblar(CasaPrueba& casa, const fs::path& fuera)
{
    uint64_t s = 12345;
    auto azar = [&](uint64_t n) { return ((s = s * 6364136223846793005ULL + 1442695040888963407ULL) >> 33) % n; };
    const char* raices[] = {"Library/Caches/org.uno", "Library/Caches/org.dos/x", "Library/Logs",
                            "Documents",              "Projects/web/node_modules", "Pictures/2023", "Music"};
    for (const char* r : raices)
        for (int i = 0; i < 120; ++i) {
            std::string dir = r;
            for (uint64_t k = 0, n = azar(7); k < n; ++k)
                dir += "/d" + std::to_string(azar(3));
            reservar(casa, dir + "/f" + std::to_string(i), bloques(1 + int64_t(azar(3))));
            if (azar(9) == 0)
                reservar(casa, dir + "/g" + std::to_string(i), bloques(240 + int64_t(azar(200))));
        }
    reservar(casa, "Library/Mail/V10/INBOX", bloques(500));
    reservar(casa, "Library/Application Support/MobileSync/Backup/b", bloques(500));
    reservar(casa, "Library/Application Support/Otra/datos", bloques(400));
    reservar(casa, "Pictures/A.photoslibrary/originals/1", bloques(500));
    reservar(casa, "Documents/x/y/A.photoslibrary/originals/1", bloques(500));
    reservar(casa, ".Trash/viejo", bloques(500));
    reservar(casa, "Documents/suelto.pdf", bloques(300));
    casa.disperso("Movies/largo.mov", 3'000'000'000);
    casa.enlace("Enlace", fuera);
    casa.enlace("Documents/a/b/c/enlace", fuera);
    casa.enlace("Documents/roto", casa.ruta("no-existe"));
    casa.archivo(std::string("Documents/\xff\xfe.bin"), bloques(300));
}

int64_t protegidoDentro(const CasaPrueba& casa, const fs::path& carpeta)
{
    int64_t r = 0;
    for (const char* p : {"Library/Mail", "Library/Application Support/MobileSync", "Pictures/A.photoslibrary",
                          "Documents/x/y/A.photoslibrary", ".Trash"})
        if (casa.ruta(p).native().starts_with(carpeta.native() + "/") || casa.ruta(p) == carpeta)
            r += du(casa.ruta(p));
    return r;
}

} // namespace

TEST(MedidorMapa, CarpetasDeNivelUnoYDosIgualesADu)
{
    CasaPrueba casa, fuera;
    poblar(casa, destinoLargo(fuera));
    ASSERT_GT(asignado(casa.ruta("Enlace")), 0);
    const auto raiz = MedidorMapa(casa.entorno()).medir();

    revisar(*raiz);
    EXPECT_EQ(raiz->nombre, casa.raiz().filename());
    EXPECT_EQ(raiz->tamano, du(casa.raiz()) - asignado(casa.raiz()) - protegidoDentro(casa, casa.raiz()));
    int comparadas = 0;
    auto comparar = [&](const NodoDisco& n) {
        if (n.esCarpeta && !n.protegido) {
            EXPECT_EQ(n.tamano, du(n.ruta) - protegidoDentro(casa, n.ruta)) << n.ruta;
            ++comparadas;
        }
    };
    for (const auto& h : raiz->hijos) {
        comparar(*h);
        for (const auto& n : h->hijos)
            comparar(*n);
    }
    EXPECT_GE(comparadas, 10);

    // Protected places keep a node down to level 3, sorted last; deeper ones
    // only leave their name. Links count their own blocks.
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

TEST(MedidorMapa, MinimoDelMillonYTopeDeSesenta)
{
    // The same cases in a listed folder (level 1) and deep in a walk (level 5).
    for (const std::string base : {"Nivel1", "a/b/c/Nivel4"}) {
        SCOPED_TRACE(base);
        CasaPrueba casa;
        reservar(casa, base + "/umbral/bajo", bajoElMinimo);
        reservar(casa, base + "/umbral/sobre", sobreElMinimo);
        reservar(casa, base + "/umbral/casi/f", bajoElMinimo - bloques(1));
        reservar(casa, base + "/umbral/justo/f", bajoElMinimo);
        reservar(casa, base + "/umbral/justo/g", bloques(10));
        for (int i = 0; i < 61; ++i)
            reservar(casa, base + "/sesenta/f" + std::to_string(i), sobreElMinimo + bloques(i));
        const auto raiz = MedidorMapa(casa.entorno()).medir();
        revisar(*raiz);

        const NodoDisco* umbral = buscar(*raiz, base + "/umbral");
        ASSERT_NE(umbral, nullptr);
        EXPECT_EQ(nombres(*umbral), (std::vector<std::string>{"justo", "sobre"}));
        EXPECT_EQ(umbral->resto, bajoElMinimo + asignado(casa.ruta(base + "/umbral/casi")) + bajoElMinimo -
                                     bloques(1));
        EXPECT_EQ(buscar(*raiz, base + "/umbral/justo")->resto, bajoElMinimo + bloques(10));

        const NodoDisco* sesenta = buscar(*raiz, base + "/sesenta");
        ASSERT_NE(sesenta, nullptr);
        ASSERT_EQ(sesenta->hijos.size(), 60u);
        EXPECT_EQ(sesenta->hijos.front()->nombre, "f60");
        EXPECT_EQ(sesenta->hijos.back()->nombre, "f1");
        EXPECT_EQ(sesenta->resto, sobreElMinimo);
        EXPECT_EQ(sesenta->tamano, du(casa.ruta(base + "/sesenta")));
    }
}

TEST(MedidorMapa, TamanosIgualesGuardanElOrdenDelListado)
{
    CasaPrueba casa;
    // Enough of them that an unstable sort would shuffle them.
    for (const std::string base : {"Iguales", "a/b/c/Iguales"})
        for (int i = 0; i < 40; ++i)
            reservar(casa, base + "/" + std::to_string(i * 7919 % 40), sobreElMinimo);
    const auto raiz = MedidorMapa(casa.entorno()).medir();
    for (const std::string base : {"Iguales", "a/b/c/Iguales"})
        EXPECT_EQ(nombres(*buscar(*raiz, base)), listado(casa.ruta(base))) << base;
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
// remain, with the level-3 folders unmeasured.
TEST(MedidorMapa, CancelarEnCualquierMomentoDejaUnArbolCoherente)
{
    CasaPrueba casa;
    for (int d = 0; d < 24; ++d)
        casa.muchos("a/b/t/x/d" + std::to_string(d), 500, 10);
    reservar(casa, "a/b/t/x/d23/grande", sobreElMinimo);
    reservar(casa, "a/b/grande", sobreElMinimo);
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
    EXPECT_EQ(tamanos[3], du(casa.raiz()) - asignado(casa.raiz()));
}

TEST(MedidorMapa, CarpetaCambiadaPorEnlaceAntesDeRecorrerla)
{
    CasaPrueba casa, fuera;
    const fs::path destino = destinoLargo(fuera);
    reservar(casa, "a/b/c/d/f", bloques(400));
    reservar(casa, "a/b/propio", bloques(400));
    // The one task asks first, after the listing saw a folder there.
    std::once_flag una;
    const auto raiz = MedidorMapa(casa.entorno()).medir({}, [&] {
        std::call_once(una, [&] {
            apoyo::borrarArbol(casa.ruta("a/b/c"));
            casa.enlace("a/b/c", destino);
        });
        return false;
    });
    revisar(*raiz);
    ASSERT_GT(asignado(casa.ruta("a/b/c")), 0);
    EXPECT_EQ(raiz->tamano, du(casa.raiz()) - asignado(casa.raiz()));
}

// Runs the measurement as the unprivileged user when the tests run as root,
// so that mode 000 really hides a folder. Threads follow the effective ids.
TEST(MedidorMapa, CarpetasIlegiblesEnCadaNivel)
{
    CasaPrueba casa;
    const char* cerradas[] = {"Cerrada1", "Documents/Cerrada2", "Documents/a/Cerrada3", "Documents/a/b/c/Cerrada5"};
    int64_t ocultos = 0;
    for (const char* c : cerradas) {
        reservar(casa, std::string(c) + "/dentro/f", sobreElMinimo);
        ocultos += du(casa.ruta(c)) - asignado(casa.ruta(c));
    }
    reservar(casa, "Documents/a/b/c/grande", bloques(600));
    for (const char* c : cerradas)
        casa.sinPermisos(c);
    const int64_t esperado = du(casa.raiz()) - asignado(casa.raiz()) - ocultos;

    auto medirSinPrivilegios = [&] {
        if (::geteuid() != 0)
            return MedidorMapa(casa.entorno()).medir();
        EXPECT_EQ(::setegid(65534), 0);
        EXPECT_EQ(::seteuid(65534), 0);
        auto raiz = MedidorMapa(casa.entorno()).medir();
        EXPECT_EQ(::seteuid(0), 0);
        EXPECT_EQ(::setegid(0), 0);
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
    reservar(casa, "a/b/c/d/propio", sobreElMinimo);
    const fs::path punto = casa.crearDir("a/b/c/d/montado");
    ASSERT_EQ(::mount("vorlano", punto.c_str(), "tmpfs", 0, "size=16m"), 0);
    reservar(casa, "a/b/c/d/montado/grande", bloques(1000));
    const int64_t fueraDelMontaje = du(casa.raiz()) - asignado(casa.raiz()) - du(punto) + asignado(punto);

    const auto raiz = MedidorMapa(casa.entorno()).medir();
    EXPECT_EQ(raiz->tamano, fueraDelMontaje);
    EXPECT_EQ(nombres(*buscar(*raiz, "a/b/c/d")), std::vector<std::string>{"propio"});
    ::umount2(punto.c_str(), MNT_DETACH);
}
