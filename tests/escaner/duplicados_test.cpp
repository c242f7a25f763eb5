// SPDX-License-Identifier: GPL-3.0-or-later
#include "comun.h"

#include "apoyo/proceso.h"
#include "plataforma/archivos.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <sstream>
#include <thread>

using namespace prueba;

namespace {

// Listed name -> the name of the copy kept, from "Igual a {conservado}".
std::map<std::string, std::string> listados(const std::vector<Elemento>& es)
{
    std::map<std::string, std::string> r;
    for (const auto& e : es) {
        const std::string d = e.detalle.value_or("");
        EXPECT_TRUE(d.starts_with("Igual a ")) << d;
        r[e.nombre] = d.substr(std::string("Igual a ").size());
    }
    return r;
}

// Each set of identical files found, as relative names, kept copy included.
std::set<Nombres> grupos(const std::vector<Elemento>& es)
{
    std::map<std::string, Nombres> porConservado;
    for (const auto& [listado, conservado] : listados(es))
        porConservado[conservado].insert({conservado, listado});
    std::set<Nombres> r;
    for (auto& [k, g] : porConservado)
        r.insert(g);
    return r;
}

// Content of `n` bytes that depends on the seed at every position.
std::string contenido(size_t n, unsigned semilla)
{
    std::string s(n, '\0');
    uint32_t x = semilla * 2654435761u + 1;
    for (char& c : s)
        c = char((x = x * 1664525u + 1013904223u) >> 24);
    return s;
}

int64_t segundoDeCreacion(const fs::path& p)
{
    const auto f = plataforma::fechaCreacion(p);
    return f ? std::chrono::floor<std::chrono::seconds>(f->time_since_epoch()).count() : 0;
}

} // namespace

// The same sets whether the search walks its folders itself or takes the
// candidates of the scan's walk of the home, wherever those folders lie (the
// home itself, under folders the walk doesn't enter, outside home).
TEST(Duplicados, TamanoEnlacesDurosContenidoYCandidatosDelRecorrido)
{
    CasaPrueba casa, fuera;
    const std::string raro = "Pictures/\xff\xfe copia";
    const std::tuple<std::string, int64_t, char> archivos[] = {
        {"Documents/t99a", 99'999, 'a'}, {"Downloads/t99b", 99'999, 'a'}, {"Documents/t100a", 100'000, 'b'},
        {"Pictures/t100b", 100'000, 'b'}, {"Documents/duro1", 150'000, 'c'}, {"Documents/p1a", 250'000, 'e'},
        {"Documents/p1b", 250'000, 'e'}, {"Documents/p2a", 250'000, 'f'}, {"Downloads/p2b", 250'000, 'f'},
        {"Pictures/original", 300'000, 'j'}, {raro, 300'000, 'j'}};
    for (const auto& [ruta, bytes, relleno] : archivos)
        casa.archivo(ruta, bytes, relleno);
    // Copies of one file, most where nobody looks.
    for (const char* ruta : {"Desktop/tres1", "Documents/tres2", "Movies/tres3", "Music/tres4", "Documents/.tres5",
                             "Documents/.oculta/tres6", "Documents/proy/node_modules/tres7",
                             "Documents/Foo.app/Contents/tres8", "Documents/web/dist/tres9", "Documents/Pods/tres10",
                             "Library/Docs/tres11", "Pods/tres12", ".oculta/dl/tres13"})
        casa.archivo(ruta, 200'000, 'd');
    fuera.archivo("tres14", 200'000, 'd');
    casa.enlaceDuro("Pictures/duro2", "Documents/duro1");
    casa.archivoCon("Documents/web/package.json", "{}");
    // Links, to a copy and to a folder of copies, are not followed.
    casa.enlace("Documents/enlace", casa.ruta("Desktop/tres1"));
    casa.enlace("Downloads/musica", casa.ruta("Music"));
    // Equal in the first and last 64 KiB, different in between.
    std::string medio = std::string(65536, 'g') + std::string(200'000, 'h') + std::string(65536, 'g');
    casa.archivoCon("Documents/m1", medio);
    medio[100'000] = 'i';
    casa.archivoCon("Documents/m2", medio);

    const auto es = Escaner(casa.entorno()).duplicados();
    EXPECT_EQ(grupos(es), (std::set<Nombres>{{"Documents/t100a", "Pictures/t100b"},
                                             {"Desktop/tres1", "Documents/tres2", "Movies/tres3", "Documents/Pods/tres10"},
                                             {"Documents/p1a", "Documents/p1b"},
                                             {"Documents/p2a", "Downloads/p2b"},
                                             {"Pictures/original", raro}}));
    for (const auto& e : es) {
        EXPECT_EQ(e.url, casa.ruta(e.nombre));
        EXPECT_EQ(e.tamano, apoyo::asignado(e.url)); // allocated bytes, not the length
    }

    using plataforma::Personal;
    const std::vector<std::vector<std::pair<Personal, fs::path>>> disposiciones{
        {},
        {{Personal::escritorio, casa.raiz()}},
        {{Personal::descargas, casa.ruta(".oculta/dl")}, {Personal::imagenes, fuera.raiz()},
         {Personal::videos, casa.ruta("Pods")}, {Personal::documentos, casa.ruta("Library/Docs")}},
    };
    const auto vistos = [](const std::vector<Elemento>& es) {
        std::vector<std::tuple<fs::path, std::string, std::string, int64_t>> r;
        for (const auto& e : es)
            r.emplace_back(e.url, e.nombre, e.detalle.value_or(""), e.tamano);
        return r;
    };
    for (size_t i = 0; i < disposiciones.size(); ++i) {
        Escaner escaner(casa.entorno());
        for (const auto& [p, ruta] : disposiciones[i])
            escaner.personales.rutas[size_t(p)] = ruta;
        const auto esperado = vistos(escaner.duplicados());
        EXPECT_GE(esperado.size(), 2u) << i;
        EXPECT_EQ(vistos(escaner.duplicados(escaner.recorrerCarpetaPersonal(std::nullopt).candidatos)), esperado) << i;
    }
}

// The oldest by creation time is kept, whatever its modification time; among
// equal creation times Downloads weighs more than a copy-like name, a
// copy-like name more than length, length (in characters) more than the path.
TEST(Duplicados, LaCopiaQueSeConserva)
{
    for (const char* si : {"/h/informe (2).pdf", "foto_copia.jpg", "FOTO COPY 3.JPG", "foto-clone.png"})
        EXPECT_TRUE(Escaner::pareceCopia(si)) << si;
    for (const char* no : {"copia.pdf", "fotocopia.jpg", "informe (2) final.pdf", "foto copy3.jpg", "(2)/nota.txt"})
        EXPECT_FALSE(Escaner::pareceCopia(no)) << no;

    CasaPrueba casa;
    const std::string datos = contenido(100'000, 9);
    const int64_t primero = segundoDeCreacion(casa.archivoCon("Downloads/viejo copy.bin", datos));
    if (primero == 0)
        GTEST_SKIP() << "este sistema de archivos no guarda la fecha de creación";
    // The file system's clock is coarser than the system's: ask the file.
    do {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        fs::remove(casa.ruta("Documents/a.bin"));
    } while (segundoDeCreacion(casa.archivoCon("Documents/a.bin", datos)) <= primero);
    casa.fecha("Documents/a.bin", std::chrono::system_clock::now() - std::chrono::hours(1000));
    // Made again until all were born in one second, so that the creation
    // time can't decide among them.
    const std::pair<const char*, int> iguales[] = {
        {"Downloads/d.bin", 1}, {"Documents/d copy.bin", 1}, {"Documents/zz copy.pdf", 2},
        {"Documents/abcdefghijklmnop.pdf", 2}, {"Documents/a.pdf", 3}, {"Documents/a (1).pdf", 3},
        {"Documents/abc.pdf", 4}, {"Documents/ññ.pdf", 4}, {"Documents/x/f.bin", 5}, {"Desktop/y/f.bin", 5}};
    for (int intento = 0;; ++intento) {
        ASSERT_LT(intento, 5) << "no se pudieron crear los archivos en un mismo segundo";
        std::set<int64_t> segundos;
        for (const auto& [ruta, semilla] : iguales) {
            fs::remove(casa.ruta(ruta));
            segundos.insert(segundoDeCreacion(
                casa.archivoCon(ruta, contenido(100'000 + 10'000 * size_t(semilla), unsigned(semilla)))));
        }
        if (segundos.size() == 1)
            break;
    }
    EXPECT_EQ(listados(Escaner(casa.entorno()).duplicados()),
              (std::map<std::string, std::string>{
                  {"Documents/a.bin", "Downloads/viejo copy.bin"},
                  {"Downloads/d.bin", "Documents/d copy.bin"},
                  {"Documents/zz copy.pdf", "Documents/abcdefghijklmnop.pdf"},
                  {"Documents/a (1).pdf", "Documents/a.pdf"},
                  {"Documents/abc.pdf", "Documents/ññ.pdf"},
                  {"Documents/x/f.bin", "Desktop/y/f.bin"},
              }));
}

// The hashes are SHA-256 as sha256sum gives it, of the whole file or of its
// first and last 64 KiB; agrupar leaves out what can't be read any more.
TEST(Duplicados, HuellasYAgrupar)
{
    CasaPrueba casa;
    const auto sha256sum = [](const fs::path& p) {
        return apoyo::ejecutarPrograma("/usr/bin/sha256sum", {p.string()}).salida.substr(0, 64);
    };
    for (size_t n : {size_t(0), size_t(65536), size_t(65537), size_t(3 << 20) + 5}) {
        const std::string datos = contenido(n, unsigned(n));
        const fs::path p = casa.archivoCon("f" + std::to_string(n), datos);
        EXPECT_EQ(Escaner::huellaCompleta(p), sha256sum(p)) << n;
        const std::string extremos = datos.substr(0, 65536) + (n > 65536 ? datos.substr(n - 65536) : "");
        EXPECT_EQ(Escaner::huellaParcial(p), sha256sum(casa.archivoCon("e" + std::to_string(n), extremos))) << n;
    }
    // Nothing of what is missing, through a link, or from a FIFO that would block the read.
    ASSERT_EQ(::mkfifo(casa.ruta("fifo").c_str(), 0644), 0);
    for (const fs::path& p : {casa.ruta("no-existe"), casa.ruta("fifo")}) {
        EXPECT_FALSE(Escaner::huellaParcial(p)) << p;
        EXPECT_FALSE(Escaner::huellaCompleta(p)) << p;
    }
    EXPECT_FALSE(Escaner::huellaCompleta(casa.enlace("enlace", casa.ruta("f65536"))));

    // Files of a terabyte that are almost all holes: the holes aren't read
    // (the kernel's count of what this process read, where it keeps one,
    // stays far below their length), and where the data lies tells them apart.
    const auto leidos = [] {
        std::ifstream io("/proc/self/io");
        std::string clave;
        int64_t n = -1;
        while (io >> clave >> n && clave != "rchar:")
            n = -1;
        return n;
    };
    auto disperso = [&](const std::string& nombre, off_t donde) {
        const fs::path p = casa.disperso(nombre, int64_t(1) << 40);
        const int fd = ::open(p.c_str(), O_WRONLY);
        EXPECT_EQ(::pwrite(fd, "datos", 5, donde), 5);
        ::close(fd);
        return Escaner::huellaCompleta(p);
    };
    const int64_t antes = leidos();
    const auto a = disperso("a", off_t(1) << 39);
    EXPECT_EQ(a, disperso("b", off_t(1) << 39));
    EXPECT_NE(a, disperso("c", off_t(1) << 38));
    EXPECT_TRUE(antes < 0 || leidos() - antes < 64 << 20);

    // Files that changed or vanished after the walk.
    std::vector<Candidato> cs;
    for (const char* n : {"a", "b", "c", "d", "e", "f"})
        cs.push_back(Candidato{.ruta = casa.archivo(std::string("g/") + n, 100'000, 'x').string()});
    casa.archivo("g/b", 100'000, 'y');
    fs::remove(casa.ruta("g/c"));
    casa.archivo("g/e", 100'000, 'y');
    std::vector<std::string> vistos;
    for (const auto& g : Escaner::agrupar(cs, Escaner::huellaCompleta)) {
        vistos.emplace_back();
        for (const auto& c : g)
            vistos.back() += fs::path(c.ruta).filename().string();
    }
    EXPECT_EQ(vistos, (std::vector<std::string>{"adf", "be"}));
}

// A copy that shares its blocks with the kept one (a reflink clone) is
// flagged, since removing it may free nothing. ext4 can't clone, so where the
// tests run as root the personal folder becomes a small XFS file system on a
// loop device, mounted in a namespace of the test's own.
TEST(Duplicados, CopiaClonadaAvisaQuePuedeNoLiberar)
{
    if (::geteuid() != 0 || !fs::exists("/sbin/mkfs.xfs"))
        GTEST_SKIP() << "hace falta root y mkfs.xfs para un sistema de archivos con clones";
    CasaPrueba casa;
    const fs::path imagen = casa.disperso(".clones.img", 320 << 20);
    casa.crearDir("Documents");
    ASSERT_EQ(apoyo::ejecutarPrograma("/sbin/mkfs.xfs", {"-q", "-m", "reflink=1", imagen.string()}).estado, 0);
    const fs::path a = casa.ruta("Documents/a.bin"), b = casa.ruta("Documents/b.bin");
    const int r = apoyo::conMontajesPropios([&] {
        if (apoyo::ejecutarPrograma("/bin/mount", {"-o", "loop", imagen.string(), casa.ruta("Documents").string()})
                .estado != 0)
            return apoyo::sinMontajes;
        std::ofstream(a, std::ios::binary) << contenido(10'000'000, 7);
        if (apoyo::ejecutarPrograma("/bin/cp", {"--reflink=always", a.string(), b.string()}).estado != 0)
            return 2;
        const auto es = Escaner(casa.entorno()).duplicados();
        const bool bien = es.size() == 1 && es[0].tamano == apoyo::asignado(es[0].url) &&
                          es[0].detalle.value_or("").ends_with(" · copia clonada: puede no liberar espacio");
        if (!bien)
            std::cerr << (es.empty() ? "ninguno" : es[0].detalle.value_or("sin detalle")) << "\n";
        return bien ? 0 : 3;
    });
    if (r == apoyo::sinMontajes)
        GTEST_SKIP() << "no se pudo montar una imagen XFS";
    EXPECT_EQ(r, 0);
}

// jdupes on the same folders finds the same sets of identical files, once
// its answer is limited to what the search takes in: files of at least
// 100,000 bytes. The home holds no hidden, package or artefact folders and no
// hard links, which the two treat differently by design.
TEST(Duplicados, CoincideConJdupes)
{
    if (!fs::exists("/usr/bin/jdupes"))
        GTEST_SKIP() << "jdupes no está instalado";
    CasaPrueba casa;
    const char* carpetas[] = {"Desktop", "Documents", "Downloads", "Pictures", "Movies"};
    for (unsigned g = 0; g < 30; ++g) {
        const size_t n = g % 4 == 0 ? 60'000 + g : 99'990 + g * 977; // some below the floor
        for (unsigned c = 0; c < 2 + g % 2; ++c)
            casa.archivoCon(std::string(carpetas[(g + c) % 5]) + "/g" + std::to_string(g) + "/c" + std::to_string(c),
                            contenido(n, g));
        casa.archivoCon(std::string(carpetas[g % 5]) + "/unico" + std::to_string(g), contenido(n, 1000 + g));
    }
    std::vector<std::string> args{"-r", "-q"};
    for (const char* c : carpetas)
        args.push_back(casa.ruta(c).string());
    const auto s = apoyo::ejecutarPrograma("/usr/bin/jdupes", args);
    ASSERT_EQ(s.estado, 0) << s.errores;
    // One path per line, a blank line between sets.
    std::set<Nombres> esperado;
    Nombres grupo;
    std::istringstream lineas(s.salida + "\n");
    for (std::string l; std::getline(lineas, l);)
        if (!l.empty())
            grupo.insert(Escaner(casa.entorno()).relativa(l));
        else if (fs::file_size(casa.ruta(*grupo.begin())) >= uint64_t(Escaner::minimoDuplicado))
            esperado.insert(std::exchange(grupo, {}));
        else
            grupo.clear();
    ASSERT_FALSE(esperado.empty());
    EXPECT_EQ(grupos(Escaner(casa.entorno()).duplicados()), esperado);
}
