// SPDX-License-Identifier: GPL-3.0-or-later
#include "nucleo/ejecutar.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <thread>

using namespace std::chrono_literals;
using Reloj = std::chrono::steady_clock;

namespace {

std::optional<SalidaPrograma> sh(const std::string& guion, double limite = 15)
{
    return ejecutar("/bin/sh", {"-c", guion}, limite);
}

bool vivo(pid_t pid)
{
    // A zombie of someone else's counts as gone: it runs nothing.
    std::ifstream f("/proc/" + std::to_string(pid) + "/stat");
    std::string linea;
    if (!std::getline(f, linea))
        return false;
    const size_t cierre = linea.rfind(')');
    return cierre != std::string::npos && linea.substr(cierre + 2, 1) != "Z";
}

// Every test ends with no child of this process left, alive or zombie; the
// background reaper gets its grace to finish.
class Ejecutar : public ::testing::Test {
protected:
    void TearDown() override
    {
        const auto hasta = Reloj::now() + 6s;
        while (!apoyo::hijosVivos().empty() && Reloj::now() < hasta)
            std::this_thread::sleep_for(50ms);
        EXPECT_TRUE(apoyo::hijosVivos().empty());
    }
};

} // namespace

TEST_F(Ejecutar, SalidaMayorQueElTuboSeLeeEntera)
{
    const auto r = sh("head -c 10000000 /dev/zero | tr '\\0' a");
    ASSERT_TRUE(r);
    EXPECT_EQ(r->codigo, 0);
    EXPECT_EQ(r->salida.size(), 10'000'000u);
    EXPECT_EQ(r->salida.find_first_not_of('a'), std::string::npos);
}

TEST_F(Ejecutar, CodigoYSalidaSinInterpretar)
{
    auto r = sh("printf a; exit 3");
    ASSERT_TRUE(r);
    EXPECT_EQ(r->codigo, 3);
    EXPECT_EQ(r->salida, "a");

    r = sh("echo solo-errores >&2");
    ASSERT_TRUE(r);
    EXPECT_EQ(r->salida, "");

    r = sh("printf 'a\\377b'"); // not UTF-8
    ASSERT_TRUE(r);
    EXPECT_EQ(r->salida, "");

    r = sh("kill -9 $$");
    ASSERT_TRUE(r);
    EXPECT_EQ(r->codigo, SIGKILL);
}

TEST_F(Ejecutar, ProgramaQueFaltaNoArrancaNada)
{
    apoyo::CasaPrueba casa;
    const auto noEjecutable = casa.archivoCon("guion.sh", "#!/bin/sh\necho hola\n");
    EXPECT_FALSE(ejecutar(casa.ruta("no-existe").string(), {}));
    EXPECT_FALSE(ejecutar(noEjecutable.string(), {}));
    EXPECT_FALSE(ejecutar(casa.raiz().string(), {}));
    EXPECT_TRUE(apoyo::hijosVivos().empty());
}

TEST_F(Ejecutar, LimiteVencidoPideTerminarYDevuelveAusente)
{
    apoyo::CasaPrueba casa;
    const auto marca = casa.ruta("terminado");
    const auto inicio = Reloj::now();
    // The handler writes with a builtin: starting a program there could outlast
    // the grace on a busy machine and be killed first.
    const auto r = sh("trap ': > \"" + marca.string() + "\"; exit 0' TERM; sleep 30 & wait", 1);
    const auto tardo = Reloj::now() - inicio;
    EXPECT_FALSE(r);
    EXPECT_GE(tardo, 1s);
    EXPECT_LT(tardo, 10s); // it didn't wait for the program
    for (int i = 0; i < 100 && !std::filesystem::exists(marca); ++i)
        std::this_thread::sleep_for(20ms);
    EXPECT_TRUE(std::filesystem::exists(marca));
}

// A group that ignores the termination request is killed after the grace,
// grandchildren included, and reaped.
TEST_F(Ejecutar, NadaQuedaVivoTrasElLimite)
{
    apoyo::CasaPrueba casa;
    const auto pids = casa.ruta("pids");
    EXPECT_FALSE(sh("trap '' TERM; sleep 30 & echo $! > \"" + pids.string() + "\"; echo $$ >> \"" +
                        pids.string() + "\"; sleep 30",
                    0.5));
    std::ifstream f(pids);
    std::vector<pid_t> vistos;
    for (pid_t p; f >> p;)
        vistos.push_back(p);
    ASSERT_EQ(vistos.size(), 2u);
    const auto hasta = Reloj::now() + 6s;
    while ((vivo(vistos[0]) || vivo(vistos[1])) && Reloj::now() < hasta)
        std::this_thread::sleep_for(50ms);
    EXPECT_FALSE(vivo(vistos[0]));
    EXPECT_FALSE(vivo(vistos[1]));
}

// The program ends but leaves behind something that keeps the pipe open: the
// answer comes at the limit, with the status and what was written.
TEST_F(Ejecutar, DescendienteQueRetieneElTubo)
{
    const auto r = sh("sleep 30 & echo hola", 1);
    ASSERT_TRUE(r);
    EXPECT_EQ(r->codigo, 0);
    EXPECT_EQ(r->salida, "hola\n");
}

TEST_F(Ejecutar, SoloHeredaLosDescriptoresCeroADos)
{
    apoyo::CasaPrueba casa;
    const int suelto = ::open(casa.archivoCon("abierto", "x").c_str(), O_RDONLY); // no close-on-exec
    ASSERT_GE(suelto, 3);
    const auto r = ejecutar("/bin/ls", {"/proc/self/fd"});
    ::close(suelto);
    ASSERT_TRUE(r);
    // ls itself opens one descriptor to list the folder.
    EXPECT_EQ(r->salida, "0\n1\n2\n3\n");
    // Standard input is the null device and the program leads its own group.
    const auto g = sh("read x; echo \"[$x]\"; ps -o pgid= -p $$ | tr -d ' '; echo $$");
    ASSERT_TRUE(g);
    const auto salto = g->salida.find('\n');
    EXPECT_EQ(g->salida.substr(0, salto), "[]");
    std::istringstream resto(g->salida.substr(salto + 1));
    std::string grupo, pid;
    resto >> grupo >> pid;
    EXPECT_EQ(grupo, pid);
}

TEST_F(Ejecutar, VariosHilosALaVez)
{
    std::vector<std::thread> hilos;
    std::vector<std::string> salidas(8);
    for (int i = 0; i < 8; ++i)
        hilos.emplace_back([&, i] {
            const auto r = sh("echo " + std::to_string(i));
            salidas[size_t(i)] = r ? r->salida : "?";
        });
    for (auto& h : hilos)
        h.join();
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(salidas[size_t(i)], std::to_string(i) + "\n");
}

// The exit status alone: no time limit, nothing read, nothing left behind.
TEST_F(Ejecutar, CodigoDeSalidaSinLimiteNiSalida)
{
    apoyo::CasaPrueba casa;
    EXPECT_EQ(codigoDeSalida("/bin/sh", {"-c", "exit 0"}), 0);
    EXPECT_EQ(codigoDeSalida("/bin/sh", {"-c", "exit 7"}), 7);
    EXPECT_EQ(codigoDeSalida("/bin/sh", {"-c", "kill -9 $$"}), std::nullopt);
    EXPECT_EQ(codigoDeSalida(casa.ruta("falta").string(), {}), std::nullopt);
    EXPECT_EQ(codigoDeSalida(casa.archivoCon("no-ejecutable", "#!/bin/sh\n").string(), {}), std::nullopt);
    // Far more output than a pipe holds: nobody reads it, so it must go nowhere.
    EXPECT_EQ(codigoDeSalida("/bin/sh", {"-c", "head -c 10000000 /dev/zero; head -c 10000000 /dev/zero >&2"}), 0);
    // Standard input is the null device, and no descriptor beyond 2 is inherited.
    const int suelto = ::open(casa.archivoCon("abierto", "x").c_str(), O_RDONLY);
    ASSERT_GE(suelto, 3);
    const std::string fd = "/proc/self/fd/" + std::to_string(suelto);
    EXPECT_EQ(codigoDeSalida("/bin/sh", {"-c", "read x; r=$?; [ -e " + fd + " ] && exit 9; exit $r"}), 1);
    ::close(suelto);
}

TEST(BuscarPrograma, PrimerEjecutableDeLaLista)
{
    apoyo::CasaPrueba casa;
    const auto uno = casa.archivoCon("uno", "#!/bin/sh\n");
    const auto dos = casa.archivoCon("dos", "#!/bin/sh\n");
    const auto tres = casa.archivoCon("tres", "#!/bin/sh\n");
    ::chmod(dos.c_str(), 0755);
    ::chmod(tres.c_str(), 0755);
    EXPECT_EQ(buscarPrograma({casa.ruta("falta").string(), dos.string(), tres.string()}), dos.string());
    EXPECT_EQ(buscarPrograma({uno.string(), tres.string()}), tres.string());
    EXPECT_EQ(buscarPrograma({}), std::nullopt);
    EXPECT_EQ(buscarPrograma({uno.string()}), std::nullopt);
}
