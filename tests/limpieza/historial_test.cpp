// SPDX-License-Identifier: GPL-3.0-or-later
// The history: its file format, the cap, damaged files, the calendar of weeks
// and months, and writes that fail or are cut short.
#include "limpieza/historial.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <random>
#include <sstream>

using apoyo::CasaPrueba;
using apoyo::leer;
namespace fs = std::filesystem;
using namespace std::chrono;

namespace {

// A UTC instant.
Fecha utc(int anio, unsigned mes, unsigned dia, int hora = 0, int minuto = 0, double segundo = 0)
{
    const sys_days d = year{anio} / month{mes} / day{dia};
    return Fecha(duration_cast<system_clock::duration>(d.time_since_epoch() + hours(hora) + minutes(minuto) +
                                                        duration<double>(segundo)));
}

// A clock that reads what the test sets.
struct Reloj {
    Fecha ahora;
    std::function<Fecha()> funcion()
    {
        return [this] { return ahora; };
    }
};

void escribir(const fs::path& p, const std::string& contenido)
{
    fs::create_directories(p.parent_path());
    std::ofstream(p) << contenido;
}

Resultado liberado(int64_t borrado, int64_t papelera = 0)
{
    Resultado r;
    r.borrado = borrado;
    r.enPapelera = papelera;
    return r;
}

const Calendario madridLunes{"es_ES", "Europe/Madrid"};
const Calendario madridDomingo{"en_US", "Europe/Madrid"};

std::vector<int64_t> bytes(const std::vector<BytesSemana>& semanas)
{
    std::vector<int64_t> r;
    for (const auto& s : semanas)
        r.push_back(s.bytes);
    return r;
}

} // namespace

TEST(Historial, FormatoExactoYLecturaDeVuelta)
{
    CasaPrueba casa;
    const fs::path archivo = Historial::archivoDe(casa.entorno());
    EXPECT_EQ(archivo, casa.ruta("Library/Application Support/Vorlano/historial.json"));
    Reloj reloj{utc(2025, 11, 16, 22, 0, 0.5)}; // 785023200.5 s after 2001-01-01
    Historial h(archivo, reloj.funcion());
    // The folder doesn't exist yet: the first entry creates it.
    EXPECT_TRUE(h.anotar(liberado(1048576), "limpieza"));
    EXPECT_EQ(leer(archivo), R"([{"fecha":785023200.5,"borrado":1048576,"papelera":0,"tipo":"limpieza"}])");

    // Instants with odd fractions read back as they were kept.
    reloj.ahora = system_clock::now();
    h.anotar(liberado(0, 5), "mapa");
    reloj.ahora = utc(1999, 3, 4, 5, 6, 7.123457);
    h.anotar(liberado(-3, 4), "desinstalacion");
    std::mt19937_64 azar(11);
    for (int i = 0; i < 40; ++i) {
        reloj.ahora = utc(2030, 1, 1) + microseconds(azar() % 10'000'000'000'000);
        h.anotar(liberado(i + 1), "limpieza");
    }
    const Historial leido(archivo);
    ASSERT_EQ(leido.registros().size(), 43u);
    EXPECT_EQ(leido.registros(), h.registros());
    EXPECT_EQ(leido.registros()[1].papelera, 5);
    EXPECT_EQ(leido.registros()[2].tipo, "desinstalacion");
    EXPECT_LE(system_clock::now() - leido.registros()[1].fecha, minutes(1));
}

TEST(Historial, SinBytesNoDejaRastro)
{
    CasaPrueba casa;
    const fs::path archivo = casa.ruta("h/historial.json");
    Historial h(archivo);
    EXPECT_FALSE(h.anotar(liberado(0, 0), "limpieza"));
    EXPECT_FALSE(h.anotar(liberado(5, -5), "limpieza"));
    EXPECT_TRUE(h.registros().empty());
    EXPECT_FALSE(fs::exists(archivo));
    EXPECT_TRUE(h.anotar(liberado(0, 5), "limpieza"));
    EXPECT_EQ(h.registros().size(), 1u);
    EXPECT_TRUE(fs::exists(archivo));
}

TEST(Historial, LaEntrada501DescartaLaMasAntigua)
{
    CasaPrueba casa;
    const fs::path archivo = casa.ruta("historial.json");
    // 500 entries written by hand: entry i freed i bytes, i minutes after 2001.
    std::string lista = "[";
    for (int i = 1; i <= 500; ++i)
        lista += (i > 1 ? "," : "") + std::string(R"({"fecha":)") + std::to_string(i * 60) +
                 R"(,"borrado":)" + std::to_string(i) + R"(,"papelera":0,"tipo":"limpieza"})";
    escribir(archivo, lista + "]");
    Reloj reloj{utc(2025, 1, 1)};
    Historial h(archivo, reloj.funcion());
    ASSERT_EQ(h.registros().size(), 500u);
    EXPECT_EQ(h.registros().front(), (Registro{utc(2001, 1, 1, 0, 1), 1, 0, "limpieza"}));

    h.anotar(liberado(501), "limpieza");
    const Historial leido(archivo);
    ASSERT_EQ(leido.registros().size(), 500u);
    EXPECT_EQ(leido.registros().front().borrado, 2);
    EXPECT_EQ(leido.registros().back().borrado, 501);
    EXPECT_EQ(leido.registros().back().fecha, utc(2025, 1, 1));
    EXPECT_EQ(h.total(), (2 + 501) * 500 / 2);
}

TEST(Historial, ArchivoDanadoEsHistorialVacio)
{
    const std::string danados[] = {
        "",
        "[",
        "no es json",
        "{}",
        R"({"fecha":1,"borrado":1,"papelera":0,"tipo":"limpieza"})",
        R"([{"fecha":1,"borrado":1,"papelera":0}])",
        R"([{"fecha":1,"borrado":1,"papelera":0,"tipo":"limpieza"},{"fecha":2,"borrado":1,"tipo":"limpieza"}])",
        R"([{"fecha":"ayer","borrado":1,"papelera":0,"tipo":"limpieza"}])",
        R"([{"fecha":1,"borrado":"1","papelera":0,"tipo":"limpieza"}])",
        R"([{"fecha":1,"borrado":1.5,"papelera":0,"tipo":"limpieza"}])",
        R"([{"fecha":1,"borrado":1,"papelera":0,"tipo":7}])",
        R"([{"fecha":1,"borrado":18446744073709551615,"papelera":0,"tipo":"limpieza"}])",
        R"([{"fecha":1e300,"borrado":1,"papelera":0,"tipo":"limpieza"}])",
        R"([{"fecha":true,"borrado":1,"papelera":0,"tipo":"limpieza"}])",
        R"([null])",
        R"([[1,2]])",
        "[{\"fecha\":1,\"borrado\":1,\"papelera\":0,\"tipo\":\"limp\xff\"}]",
        std::string(100000, '['),
        R"([{"fecha":1,"borrado":1,"papelera":0,"tipo":"limpieza"}] basura)",
    };
    for (const std::string& contenido : danados) {
        CasaPrueba casa;
        const fs::path archivo = casa.ruta("historial.json");
        escribir(archivo, contenido);
        Historial h(archivo);
        EXPECT_TRUE(h.registros().empty()) << contenido.substr(0, 80);
        EXPECT_EQ(h.total(), 0);
        // Left as it is until the next entry replaces it whole.
        EXPECT_EQ(leer(archivo), contenido);
        h.anotar(liberado(9), "limpieza");
        EXPECT_EQ(Historial(archivo).registros().size(), 1u) << contenido.substr(0, 80);
    }
}

TEST(Historial, ValidoConClavesEnOtroOrdenFechaEnteraYCifrasExtremas)
{
    CasaPrueba casa;
    const fs::path archivo = casa.ruta("historial.json");
    escribir(archivo, R"( [ {"tipo":"mapa","papelera":2,"borrado":1,"fecha":0} ] )");
    const Historial h(archivo);
    ASSERT_EQ(h.registros().size(), 1u);
    EXPECT_EQ(h.registros()[0], (Registro{utc(2001, 1, 1), 1, 2, "mapa"}));

    // Figures no cleaning produces still add up without overflowing.
    escribir(archivo, R"([{"fecha":0,"borrado":9223372036854775807,"papelera":9223372036854775807,"tipo":"x"},)"
                      R"({"fecha":1,"borrado":5,"papelera":0,"tipo":"x"}])");
    EXPECT_EQ(Historial(archivo).total(), INT64_MAX);
}

TEST(Historial, CarpetaEnLugarDelArchivoOSinPermiso)
{
    CasaPrueba casa;
    // A folder where the file should be: nothing read, nothing written, the
    // entry kept in memory.
    const fs::path carpeta = casa.crearDir("Vorlano/historial.json");
    casa.archivoCon("Vorlano/historial.json/dentro", "x");
    Historial h(carpeta);
    EXPECT_TRUE(h.registros().empty());
    EXPECT_TRUE(h.anotar(liberado(4), "limpieza"));
    EXPECT_EQ(h.total(), 4);
    EXPECT_TRUE(fs::is_directory(carpeta));
    EXPECT_EQ(leer(carpeta / "dentro"), "x");

    // A folder we may not write in: the old file stays, the memory has both.
    const fs::path archivo = casa.ruta("ajeno/historial.json");
    Historial(archivo).anotar(liberado(1), "limpieza");
    const std::string antes = leer(archivo);
    ::chmod(archivo.c_str(), 0644);
    ::chmod(archivo.parent_path().c_str(), 0755);
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] {
        Historial ajeno(archivo);
        return ajeno.registros().size() == 1 && ajeno.anotar(liberado(2), "limpieza") && ajeno.total() == 3 &&
               leer(archivo) == antes;
    }));
    // An unreadable file reads as empty.
    ::chmod(archivo.c_str(), 0);
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(casa.raiz(), [&] { return Historial(archivo).total() == 0; }));
}

TEST(Historial, EsteMesYTotalSegunElCalendario)
{
    CasaPrueba casa;
    const fs::path archivo = casa.ruta("historial.json");
    Reloj reloj;
    Historial h(archivo, reloj.funcion(), madridLunes);
    EXPECT_EQ(h.esteMes(), 0);
    EXPECT_EQ(h.total(), 0);
    reloj.ahora = utc(2024, 12, 10);
    h.anotar(liberado(1), "limpieza"); // December, a year earlier
    reloj.ahora = utc(2025, 11, 30, 22, 30);
    h.anotar(liberado(10), "limpieza"); // 23:30 on 30 November in Madrid
    reloj.ahora = utc(2025, 11, 30, 23, 30);
    h.anotar(liberado(100, 1000), "limpieza"); // 00:30 on 1 December in Madrid
    reloj.ahora = utc(2025, 12, 15, 12);
    EXPECT_EQ(h.esteMes(), 1100);
    EXPECT_EQ(h.total(), 1111);
    // The same instants seen from New York all fall in November or earlier.
    EXPECT_EQ(Historial(archivo, reloj.funcion(), {"es_ES", "America/New_York"}).esteMes(), 0);
}

TEST(Historial, SemanasEmpiezanSegunElLocale)
{
    CasaPrueba casa;
    const fs::path archivo = casa.ruta("historial.json");
    Reloj reloj;
    // Madrid is UTC+1 in November.
    reloj.ahora = utc(2025, 11, 16, 9); // Sunday 10:00
    Historial(archivo, reloj.funcion()).anotar(liberado(5), "limpieza");
    reloj.ahora = utc(2025, 11, 19, 11); // Wednesday noon

    const Historial lunes(archivo, reloj.funcion(), madridLunes);
    const auto sl = lunes.porSemana();
    ASSERT_EQ(sl.size(), 8u);
    EXPECT_EQ(sl.back().inicio, utc(2025, 11, 16, 23)); // Monday 17, 00:00
    EXPECT_EQ(sl.front().inicio, utc(2025, 9, 28, 22)); // Monday 29 September, 00:00 summer time
    EXPECT_EQ(bytes(sl), (std::vector<int64_t>{0, 0, 0, 0, 0, 0, 5, 0}));

    const Historial domingo(archivo, reloj.funcion(), madridDomingo);
    const auto sd = domingo.porSemana();
    ASSERT_EQ(sd.size(), 8u);
    EXPECT_EQ(sd.back().inicio, utc(2025, 11, 15, 23)); // Sunday 16, 00:00
    EXPECT_EQ(bytes(sd), (std::vector<int64_t>{0, 0, 0, 0, 0, 0, 0, 5}));

    // No entries: still 8 weeks, each of 0.
    CasaPrueba otra;
    const auto vacias = Historial(otra.ruta("h.json"), reloj.funcion(), madridLunes).porSemana();
    EXPECT_EQ(bytes(vacias), std::vector<int64_t>(8, 0));
}

TEST(Historial, LimitesDeSemanaYCambioDeHora)
{
    CasaPrueba casa;
    const fs::path archivo = casa.ruta("historial.json");
    Reloj reloj;
    Historial h(archivo, reloj.funcion(), madridLunes);
    // Summer time began on Sunday 30 March 2025: the week from Monday 24
    // March lasted 167 hours, from 23:00 UTC on the 23rd to 22:00 UTC on the 30th.
    const Fecha inicioMarzo24 = utc(2025, 3, 23, 23);
    const Fecha inicioMarzo31 = utc(2025, 3, 30, 22);
    for (auto [cuando, b] : {std::pair{inicioMarzo24, 1}, // exactly at a week's start: that week
                             std::pair{inicioMarzo31 - microseconds(1), 10},
                             std::pair{inicioMarzo31, 100}, // exactly at its end: the next
                             std::pair{utc(2025, 3, 30, 22, 30), 1000}}) {
        reloj.ahora = cuando;
        h.anotar(liberado(b), "limpieza");
    }
    reloj.ahora = utc(2025, 4, 2, 10); // Wednesday 2 April
    const auto s = h.porSemana();
    ASSERT_EQ(s.size(), 8u);
    EXPECT_EQ(s[6].inicio, inicioMarzo24);
    EXPECT_EQ(s[7].inicio, inicioMarzo31);
    EXPECT_EQ(s[6].bytes, 11);
    EXPECT_EQ(s[7].bytes, 1100);
    EXPECT_EQ(s[5].inicio, utc(2025, 3, 16, 23));
}

// The write goes through a temporary file that is flushed and renamed; a
// failure of either leaves the old file as it was and no temporary file
// behind. The failures are injected into a child run of this same test.
TEST(HistorialEscritura, UnFalloDeDiscoDejaElArchivoAnterior)
{
    if (const char* archivo = std::getenv("VORLANO_HIJO_HISTORIAL")) {
        Historial h(archivo);
        h.anotar(liberado(2), "limpieza");
        h.anotar(liberado(3), "limpieza");
        return;
    }
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    const std::string filtro = std::string("--gtest_filter=") + info->test_suite_name() + "." + info->name();
    const std::string yo = fs::read_symlink("/proc/self/exe");
    auto hijo = [&](const fs::path& archivo, std::map<std::string, std::optional<std::string>> fallo) {
        fallo["VORLANO_HIJO_HISTORIAL"] = archivo.string();
        fallo["LD_PRELOAD"] = VORLANO_FALLOS;
        return apoyo::ejecutarPrograma(yo, {filtro}, fallo).estado;
    };
    auto temporales = [](const fs::path& carpeta) {
        int n = 0;
        for (const auto& e : fs::directory_iterator(carpeta))
            n += e.path().filename() != "historial.json";
        return n;
    };

    for (const char* llamada : {"fsync", "rename"}) {
        CasaPrueba casa;
        const fs::path archivo = casa.ruta("Vorlano/historial.json");
        Historial(archivo).anotar(liberado(1), "limpieza");
        const std::string antes = leer(archivo);
        EXPECT_EQ(hijo(archivo, {{"VORLANO_FALLO", llamada}, {"VORLANO_FALLO_EN", "historial.json"}}), 0);
        EXPECT_EQ(leer(archivo), antes) << llamada;
        EXPECT_EQ(temporales(archivo.parent_path()), 0) << llamada;

        // Only the first write fails: the next writes the whole list again.
        EXPECT_EQ(hijo(archivo, {{"VORLANO_FALLO", llamada},
                                 {"VORLANO_FALLO_EN", "historial.json"},
                                 {"VORLANO_FALLO_VECES", "1"}}),
                  0);
        EXPECT_EQ(Historial(archivo).total(), 1 + 2 + 3) << llamada;
        EXPECT_EQ(temporales(archivo.parent_path()), 0) << llamada;
    }
    // Without a failure the child writes: the shim isn't what kept the file.
    CasaPrueba casa;
    const fs::path archivo = casa.ruta("historial.json");
    EXPECT_EQ(hijo(archivo, {}), 0);
    EXPECT_EQ(Historial(archivo).total(), 5);
}

// A process killed at any moment of a write leaves the old list or the new
// one, never a mix: each entry i holds i bytes, so a whole list is 1..k (or
// its last 500) in order.
TEST(HistorialEscritura, MatarElProcesoNuncaDejaUnaMezcla)
{
    CasaPrueba casa;
    const fs::path archivo = casa.ruta("Vorlano/historial.json");
    std::mt19937 azar(7);
    int64_t visto = 0;
    for (int vuelta = 0; vuelta < 150; ++vuelta) {
        std::fflush(nullptr);
        const pid_t pid = ::fork();
        if (pid == 0) {
            Historial h(archivo);
            int64_t n = h.registros().empty() ? 0 : h.registros().back().borrado;
            for (;;)
                h.anotar(liberado(++n), "limpieza");
        }
        ::usleep(useconds_t(azar() % 20000));
        ::kill(pid, SIGKILL);
        ::waitpid(pid, nullptr, 0);

        const Historial h(archivo);
        const auto& r = h.registros();
        if (fs::exists(archivo)) {
            ASSERT_FALSE(r.empty()) << "archivo dañado en la vuelta " << vuelta;
        }
        for (size_t i = 1; i < r.size(); ++i)
            ASSERT_EQ(r[i].borrado, r[i - 1].borrado + 1) << "vuelta " << vuelta;
        if (!r.empty()) {
            ASSERT_GE(r.back().borrado, visto);
            ASSERT_EQ(r.size(), size_t(std::min<int64_t>(r.back().borrado, 500)));
            visto = r.back().borrado;
        }
    }
}
