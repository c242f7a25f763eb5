// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/ejecutar.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <thread>

namespace {

std::optional<plataforma::SalidaPrograma> sh(const std::string& guion, double limite = 15)
{
    return plataforma::ejecutar("/bin/sh", {"-c", guion}, limite);
}

// Running (a zombie of someone else's runs nothing).
bool vivo(const std::string& pid)
{
    const std::string stat = apoyo::leer("/proc/" + pid + "/stat");
    return !stat.empty() && stat.substr(stat.rfind(')') + 2, 1) != "Z";
}

class Ejecutar : public apoyo::SinHijos {
protected:
    apoyo::CasaPrueba casa;
};

} // namespace

TEST_F(Ejecutar, EstadoYSalidaDeCadaPrograma)
{
    struct Caso {
        std::string programa, guion;
        std::optional<int> codigo; // absent: nothing started
        std::string salida;
    } casos[] = {
        {"/bin/sh", "head -c 10000000 /dev/zero | tr '\\0' a; head -c 10000000 /dev/zero >&2", 0,
         std::string(10'000'000, 'a')},
        {"/bin/sh", "printf a; exit 3", 3, "a"},
        {"/bin/sh", "printf 'a\\377b'", 0, ""}, // not UTF-8
        {"/bin/sh", "kill -9 $$", SIGKILL, ""},
        {casa.ruta("falta").string(), "", std::nullopt, ""},
        {casa.archivoCon("no-ejecutable", "#!/bin/sh\n").string(), "", std::nullopt, ""},
        {casa.raiz().string(), "", std::nullopt, ""},
    };
    for (const Caso& c : casos) {
        const auto r = plataforma::ejecutar(c.programa, {"-c", c.guion});
        EXPECT_EQ(r.has_value(), c.codigo.has_value()) << c.guion;
        EXPECT_TRUE(!r || (r->codigo == c.codigo && r->salida == c.salida)) << c.guion;
        // The status alone: the output nobody reads must go nowhere.
        EXPECT_EQ(plataforma::codigoDeSalida(c.programa, {"-c", c.guion}), c.codigo == SIGKILL ? std::nullopt : c.codigo);
    }
    // Several threads at once, each with its own output.
    std::vector<std::string> salidas(8);
    std::vector<std::thread> hilos;
    for (size_t i = 0; i < salidas.size(); ++i)
        hilos.emplace_back([&, i] {
            const auto r = sh("echo " + std::to_string(i));
            salidas[i] = r ? r->salida : "";
        });
    for (size_t i = 0; i < salidas.size(); ++i) {
        hilos[i].join();
        EXPECT_EQ(salidas[i], std::to_string(i) + "\n");
    }
}

TEST_F(Ejecutar, SoloDescriptoresCeroADosEntradaNulaYGrupoPropio)
{
    const int suelto = ::open(casa.archivoCon("abierto", "x").c_str(), O_RDONLY); // no close-on-exec
    ASSERT_GE(suelto, 3);
    // ls opens one descriptor itself, to list the folder.
    EXPECT_EQ(plataforma::ejecutar("/bin/ls", {"/proc/self/fd"})->salida, "0\n1\n2\n3\n");
    const std::string fd = "/proc/self/fd/" + std::to_string(suelto);
    EXPECT_EQ(plataforma::codigoDeSalida("/bin/sh", {"-c", "read x; r=$?; [ -e " + fd + " ] && exit 9; exit $r"}), 1);
    ::close(suelto);
    EXPECT_EQ(sh("read x; echo \"[$x]\"; [ $(ps -o pgid= -p $$) = $$ ] && echo grupo")->salida, "[]\ngrupo\n");
}

TEST_F(Ejecutar, LimiteVencidoTerminaElGrupoEntero)
{
    // The handler writes with a builtin: a program started there could
    // outlast the grace on a busy machine and be killed first.
    const auto marca = casa.ruta("terminado");
    EXPECT_FALSE(sh("trap ': > \"" + marca.string() + "\"; exit 0' TERM; sleep 30 & wait", 1));
    EXPECT_TRUE(apoyo::alFin([&] { return std::filesystem::exists(marca); }));

    // A group deaf to the request is killed after the grace, grandchildren too.
    const auto pids = casa.ruta("pids").string();
    EXPECT_FALSE(sh("trap '' TERM; sleep 30 & echo $! $$ > " + pids + "; sleep 30", 0.5));
    std::ifstream f(pids);
    std::string nieto, hijo;
    ASSERT_TRUE(f >> nieto >> hijo);
    EXPECT_TRUE(apoyo::alFin([&] { return !vivo(nieto) && !vivo(hijo); }));

    // The program ended but a descendant keeps the pipe: the status and the
    // output come at the limit, without what it writes later.
    const auto r = sh("(sleep 20; echo tarde) & echo hola", 1);
    ASSERT_TRUE(r);
    EXPECT_EQ(r->codigo, 0);
    EXPECT_EQ(r->salida, "hola\n");
}

TEST(BuscarPrograma, PrimerEjecutableDeLaLista)
{
    apoyo::CasaPrueba casa;
    const auto no = casa.archivoCon("no", "#!/bin/sh\n").string();
    const auto si = casa.archivoCon("si", "#!/bin/sh\n").string();
    ::chmod(si.c_str(), 0755);
    EXPECT_EQ(plataforma::buscarPrograma({casa.ruta("falta").string(), no, casa.raiz().string(), si, "/bin/sh"}), si);
    EXPECT_EQ(plataforma::buscarPrograma({no}), std::nullopt);
}
