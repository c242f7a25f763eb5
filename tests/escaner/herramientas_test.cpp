// SPDX-License-Identifier: GPL-3.0-or-later
// The simulator and Docker finders against small programs that stand in for
// simctl, xcode-select and docker: they print a chosen answer, exit with a
// chosen status, hang, or flood their output.
#include "comun.h"

#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace prueba;

namespace {

// An executable shell script in the scratch home.
std::string guion(CasaPrueba& casa, const std::string& nombre, const std::string& cuerpo)
{
    const auto p = casa.archivoCon(nombre, "#!/bin/sh\n" + cuerpo + "\n");
    ::chmod(p.c_str(), 0755);
    return p.string();
}

// A program that records its arguments in `nombre`.args, prints `salida`
// (kept in a file beside it) and exits with `codigo`.
std::string programa(CasaPrueba& casa, const std::string& nombre, const std::string& salida, int codigo = 0)
{
    const auto datos = casa.archivoCon(nombre + ".salida", salida);
    return guion(casa, nombre,
                 "printf '%s\\n' \"$@\" > '" + casa.ruta(nombre + ".args").string() + "'\ncat '" + datos.string() +
                     "'\nexit " + std::to_string(codigo));
}

// A program that fails, one that prints `salida` and hangs, and none at all.
std::vector<std::string> malos(CasaPrueba& casa, const std::string& salida)
{
    return {programa(casa, "falla", salida, 1), guion(casa, "cuelga", "echo '" + salida + "'; sleep 30"),
            casa.ruta("no-existe").string()};
}

class Herramientas : public apoyo::SinHijos {};

} // namespace

TEST(BytesDeDocker, UnidadesDecimalesYTextosRaros)
{
    const std::pair<const char*, int64_t> casos[] = {
        {"512kB", 512'000}, {"1.5GB (10%)", 1'500'000'000}, {"  4MB  (1%)", 4'000'000}, {"1.999B", 1},
        {"12", 0},          {"", 0},                        {"1.5gb", 0},               {"1.5.3GB", 0},
        {"infGB", 0},       {"9000000TB", 9'000'000'000'000'000'000}, {"9300000TB", 0}, {"1e300GB", 0},
    };
    for (const auto& [texto, bytes] : casos)
        EXPECT_EQ(Escaner::bytesDeDocker(texto), bytes) << '"' << texto << '"';
}

TEST_F(Herramientas, Docker)
{
    CasaPrueba casa;
    const auto docker = programa(casa, "docker",
                                 "{\"Type\":\"Images\",\"TotalCount\":\"5\",\"Reclaimable\":\"1.5GB (10%)\"}\n"
                                 "{\"Type\":\"Local Volumes\",\"Reclaimable\":\"2GB\"}\n"
                                 "{\"Type\":\"Build Cache\",\"Reclaimable\":\"500MB\"}\n"
                                 "no es json\n[1,2]\n\n{\"Type\":\"Otro\"}\n"
                                 "{\"Type\":\"Numero\",\"Reclaimable\":123}\n"
                                 "{\"Reclaimable\":\"250kB\"}");
    const Escaner esc(casa.entorno());
    auto r = esc.dockerCon(docker);
    EXPECT_EQ(apoyo::leer(casa.ruta("docker.args")), "system\ndf\n--format\n{{json .}}\n");
    ASSERT_EQ(r.size(), 1u);
    EXPECT_EQ(r[0].tamano, 2'000'250'000);
    EXPECT_EQ(r[0].url, casa.ruta(".docker"));
    EXPECT_FALSE(r[0].seleccionado);
    ASSERT_TRUE(r[0].accion);
    EXPECT_EQ(r[0].accion->ejecutable, docker);
    EXPECT_EQ(r[0].accion->argumentos, (std::vector<std::string>{"system", "prune", "-af"}));
    EXPECT_EQ(r[0].accion->medir, std::nullopt);
    // With Colima, its virtual disks measure what the command freed.
    casa.crearDir(".colima/_lima/_disks");
    r = esc.dockerCon(docker);
    ASSERT_EQ(r.size(), 1u);
    EXPECT_EQ(r[0].accion->medir, casa.ruta(".colima/_lima/_disks"));

    // Nothing from zeros, a failure, a hang or no program at all.
    const std::string linea = "{\"Type\":\"Images\",\"Reclaimable\":\"1GB\"}";
    EXPECT_TRUE(esc.dockerCon(programa(casa, "ceros", "{\"Reclaimable\":\"0B (0%)\"}\n{\"Reclaimable\":\"0B\"}")).empty());
    for (const std::string& p : malos(casa, linea))
        EXPECT_TRUE(esc.dockerCon(p, 1).empty()) << p;
    // Megabytes of noise before a good line don't hide it, and a figure that
    // would take the total past 64 bits counts for nothing.
    const std::pair<std::string, int64_t> casos[] = {
        {guion(casa, "ruido", "head -c 8000000 /dev/zero | tr '\\0' x; echo; echo '" + linea + "'"), 1'000'000'000},
        {programa(casa, "grande", "{\"Reclaimable\":\"9000000TB\"}\n{\"Reclaimable\":\"9000000TB\"}"),
         9'000'000'000'000'000'000}};
    for (const auto& [p, bytes] : casos) {
        r = esc.dockerCon(p);
        ASSERT_EQ(r.size(), 1u) << p;
        EXPECT_EQ(r[0].tamano, bytes);
    }
}

TEST_F(Herramientas, SimuladoresYSimctl)
{
    CasaPrueba casa;
    for (const char* d : {"W1", "A1", "A2"})
        casa.crearDir(std::string("sim/") + d);
    const std::string sim = casa.ruta("sim").string();
    const auto simctl = programa(
        casa, "simctl",
        "{\"devices\":{"
        "\"com.apple.CoreSimulator.SimRuntime.watchOS-10-0\":["
        "{\"udid\":\"W1\",\"name\":\"Apple Watch\",\"dataPath\":\"" + sim + "/W1\",\"state\":1}],"
        "\"com.apple.CoreSimulator.SimRuntime.iOS-17-2\":["
        "{\"udid\":\"A1\",\"name\":\"iPhone 15\",\"dataPath\":\"" + sim + "/A1\",\"state\":\"Booted\"},"
        "{\"udid\":\"A2\",\"name\":\"iPad\",\"dataPath\":\"" + sim + "/A2\",\"state\":\"Shutdown\"},"
        "{\"udid\":\"A3\",\"name\":\"Fantasma\",\"dataPath\":\"" + sim + "/no-existe\",\"state\":\"Booted\"},"
        "{\"name\":\"Sin udid\",\"dataPath\":\"" + sim + "/A2\"},"
        "{\"udid\":\"A4\",\"name\":5,\"dataPath\":\"" + sim + "/A2\"}]"
        "}}");
    const Escaner esc(casa.entorno());
    // Without the devices folder simctl isn't even asked.
    EXPECT_TRUE(esc.simuladoresCon(simctl).empty());
    EXPECT_FALSE(fs::exists(casa.ruta("simctl.args")));

    casa.crearDir("Library/Developer/CoreSimulator/Devices");
    const auto r = esc.simuladoresCon(simctl);
    EXPECT_EQ(apoyo::leer(casa.ruta("simctl.args")), "list\ndevices\n-j\n");
    ASSERT_EQ(r.size(), 3u);
    // Runtimes in simctl's order; a booted one is listed, in use.
    EXPECT_TRUE(r[0].detalle->starts_with("watchOS 10.0 · ")) << *r[0].detalle;
    EXPECT_EQ(r[2].nombre, "Simulador: iPad");
    EXPECT_EQ(r[0].enUso, std::nullopt);
    EXPECT_EQ(r[1].enUso, "Simulator");
    EXPECT_EQ(r[1].url, casa.ruta("sim/A1"));
    EXPECT_FALSE(r[1].seleccionado);
    ASSERT_TRUE(r[1].accion);
    EXPECT_EQ(r[1].accion->ejecutable, simctl);
    EXPECT_EQ(r[1].accion->argumentos, (std::vector<std::string>{"erase", "A1"}));
    EXPECT_EQ(r[1].accion->medir, casa.ruta("sim/A1"));

    // Odd answers, a failure, a hang or no program: nothing.
    const std::string bueno = "[{\"udid\":\"A1\",\"name\":\"iPhone\",\"dataPath\":\"" + sim + "/A1\"}]";
    const std::string json = "{\"devices\":{\"iOS-17\":" + bueno + "}}";
    ASSERT_EQ(esc.simuladoresCon(programa(casa, "bueno", json)).size(), 1u);
    std::vector<std::string> programas = malos(casa, json);
    for (const std::string& salida : {std::string("basura"), "[" + json + "]", std::string("{\"devices\":[]}"),
                                      "{\"devices\":{\"iOS-17\":" + bueno + ",\"iOS-16\":[1]}}"})
        programas.push_back(programa(casa, "raro" + std::to_string(programas.size()), salida));
    for (const std::string& p : programas)
        EXPECT_TRUE(esc.simuladoresCon(p, 1).empty()) << p;

    // simctl is found beside the folder xcode-select names, when it can be run.
    const auto junto = guion(casa, "Developer/usr/bin/simctl", "");
    const std::string carpeta = casa.ruta("Developer").string();
    EXPECT_EQ(Escaner::buscarSimctl(programa(casa, "xcode-select", "  " + carpeta + "\n\n")), junto);
    EXPECT_EQ(apoyo::leer(casa.ruta("xcode-select.args")), "-p\n");
    EXPECT_EQ(Escaner::buscarSimctl(programa(casa, "falla-xcode", carpeta, 2)), std::nullopt);
    EXPECT_EQ(Escaner::buscarSimctl(programa(casa, "otra", casa.ruta("otra").string())), std::nullopt);
    ::chmod(junto.c_str(), 0644);
    EXPECT_EQ(Escaner::buscarSimctl(programa(casa, "xcode-select", carpeta)), std::nullopt);
}
