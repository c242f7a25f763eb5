// SPDX-License-Identifier: GPL-3.0-or-later
// The history: its format, the cap, damaged files, weeks and months, and
// writes that fail or are cut short.
#include "limpieza/historial.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <random>

using apoyo::leer;
namespace fs = std::filesystem;
using namespace std::chrono;

namespace {

Fecha utc(int anio, unsigned mes, unsigned dia, int hora = 0, int minuto = 0, double segundo = 0)
{
    const sys_days d = year{anio} / month{mes} / day{dia};
    return Fecha(duration_cast<system_clock::duration>(d.time_since_epoch() + hours(hora) + minutes(minuto) +
                                                        duration<double>(segundo)));
}

// The history of a scratch home, on a clock that reads `ahora`.
struct Prueba {
    apoyo::CasaPrueba casa;
    fs::path archivo = Historial::archivoDe(casa.entorno());
    Fecha ahora;
    Historial abrir(Calendario calendario = {"es_ES", "Europe/Madrid"})
    {
        return Historial(archivo, [this] { return ahora; }, std::move(calendario));
    }
    void escribir(const std::string& contenido)
    {
        fs::create_directories(archivo.parent_path());
        std::ofstream(archivo) << contenido;
    }
};

Resultado liberado(int64_t borrado, int64_t papelera = 0)
{
    return Resultado{.borrado = borrado, .enPapelera = papelera};
}

} // namespace

TEST(Historial, FormatoExactoTopeYLecturaDeVuelta)
{
    Prueba p;
    EXPECT_EQ(p.archivo, p.casa.ruta("Library/Application Support/Vorlano/historial.json"));
    // Entry i freed i bytes, i minutes after 2001.
    std::string lista = "[";
    for (int i = 1; i <= 500; ++i)
        lista += (i > 1 ? "," : "") + std::string(R"({"fecha":)") + std::to_string(i * 60) + R"(,"borrado":)" +
                 std::to_string(i) + R"(,"papelera":0,"tipo":"limpieza"})";
    p.escribir(lista + "]");
    Historial h = p.abrir();
    ASSERT_EQ(h.registros().size(), 500u);
    EXPECT_EQ(h.registros().front(), (Registro{utc(2001, 1, 1, 0, 1), 1, 0, "limpieza"}));
    // Nothing freed leaves no trace.
    EXPECT_FALSE(h.anotar(liberado(5, -5), "limpieza"));
    EXPECT_EQ(leer(p.archivo), lista + "]");

    // Entry 501 drops the oldest.
    p.ahora = utc(2025, 11, 16, 22, 0, 0.5); // 785023200.5 s after 2001-01-01
    EXPECT_TRUE(h.anotar(liberado(1048576), "limpieza"));
    const std::string texto = leer(p.archivo);
    EXPECT_TRUE(texto.starts_with(R"([{"fecha":120.0,"borrado":2,"papelera":0,"tipo":"limpieza"},)")) << texto;
    EXPECT_TRUE(texto.ends_with(R"(},{"fecha":785023200.5,"borrado":1048576,"papelera":0,"tipo":"limpieza"}])"));

    // Odd fractions, and dates before 2001, read back as they were kept.
    p.ahora = utc(1999, 3, 4, 5, 6, 7.123457);
    h.anotar(liberado(-3, 4), "desinstalacion");
    std::mt19937_64 azar(11);
    for (int i = 0; i < 40; ++i) {
        p.ahora = utc(2030, 1, 1) + microseconds(azar() % 10'000'000'000'000);
        h.anotar(liberado(i + 1, i), "mapa");
    }
    EXPECT_EQ(Historial(p.archivo).registros(), h.registros());
    EXPECT_EQ(h.registros().size(), 500u);
}

TEST(Historial, ArchivoDanadoIlegibleOCarpetaEsHistorialVacio)
{
    // Whole files, and single entries put after a good one: one damaged entry
    // spoils the whole list.
    const std::string bien = R"({"fecha":1,"borrado":1,"papelera":0,"tipo":"limpieza"})";
    std::vector<std::string> danados{"", "[", bien, std::string(100000, '['), "[" + bien + "] basura",
                                     // larger than any history of 500 entries
                                     "[" + bien + "]" + std::string(8 << 20, ' ')};
    for (const char* entrada : {
             R"(null)",
             R"({"fecha":1,"borrado":1,"papelera":0})",
             R"({"fecha":"ayer","borrado":1,"papelera":0,"tipo":"limpieza"})",
             R"({"fecha":1e300,"borrado":1,"papelera":0,"tipo":"limpieza"})",
             // beyond what the clock holds
             R"({"fecha":9e11,"borrado":1,"papelera":0,"tipo":"limpieza"})",
             R"({"fecha":1,"borrado":"1","papelera":0,"tipo":"limpieza"})",
             R"({"fecha":1,"borrado":1.5,"papelera":0,"tipo":"limpieza"})",
             R"({"fecha":1,"borrado":1,"papelera":18446744073709551615,"tipo":"limpieza"})",
             R"({"fecha":1,"borrado":1,"papelera":0,"tipo":7})",
             "{\"fecha\":1,\"borrado\":1,\"papelera\":0,\"tipo\":\"limp\xff\"}",
         })
        danados.push_back("[" + bien + "," + entrada + "]");
    for (const std::string& contenido : danados) {
        Prueba p;
        p.escribir(contenido);
        Historial h = p.abrir();
        EXPECT_EQ(h.total(), 0) << contenido.substr(0, 80);
        // Left as it is until the next entry replaces it whole.
        EXPECT_EQ(leer(p.archivo), contenido);
        h.anotar(liberado(9), "limpieza");
        EXPECT_EQ(Historial(p.archivo).total(), 9) << contenido.substr(0, 80);
    }
    // Keys in any order, a whole date and a whole count written as a float
    // are fine; figures no cleaning makes add up without overflowing.
    Prueba p;
    p.escribir(R"([{"tipo":"x","papelera":9223372036854775807,"borrado":9223372036854775807,"fecha":0},)"
               R"({"fecha":1,"borrado":1048576.0,"papelera":0,"tipo":"x"}])");
    ASSERT_EQ(p.abrir().registros().size(), 2u);
    EXPECT_EQ(p.abrir().registros().front().fecha, utc(2001, 1, 1));
    EXPECT_EQ(p.abrir().registros().back().borrado, 1048576);
    EXPECT_EQ(p.abrir().total(), INT64_MAX);

    // A FIFO in place of the file is not waited on.
    Prueba fifo;
    fs::create_directories(fifo.archivo.parent_path());
    ASSERT_EQ(::mkfifo(fifo.archivo.c_str(), 0600), 0);
    EXPECT_EQ(fifo.abrir().total(), 0);

    // A folder the user may not write in: the old file stays, the memory has both.
    const fs::path archivo = p.casa.ruta("ajeno/historial.json");
    Historial(archivo).anotar(liberado(1), "limpieza");
    const std::string antes = leer(archivo);
    ::chmod(archivo.c_str(), 0644);
    ::chmod(archivo.parent_path().c_str(), 0755);
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(p.casa.raiz(), [&] {
        Historial ajeno(archivo);
        return ajeno.anotar(liberado(2), "limpieza") && ajeno.total() == 3 && leer(archivo) == antes;
    }));
    // An unreadable file reads as empty.
    ::chmod(archivo.c_str(), 0);
    EXPECT_TRUE(apoyo::comoUsuarioSinPrivilegios(p.casa.raiz(), [&] { return Historial(archivo).total() == 0; }));
}

// Summer time began in Madrid on Sunday 30 March 2025: the week from Monday
// 24 March lasted 167 hours.
TEST(Historial, SemanasYMesesSegunElCalendario)
{
    Prueba p;
    const Fecha lunes24 = utc(2025, 3, 23, 23);
    const Fecha lunes31 = utc(2025, 3, 30, 22);
    Historial h = p.abrir();
    for (auto [cuando, bytes] : {std::pair{utc(2024, 4, 10), 10000}, // April, a year earlier
                                 {lunes24, 1},                        // exactly at a week's start: that week
                                 {lunes31 - microseconds(1), 10},
                                 {lunes31, 100},                      // exactly at its end: the next
                                 {utc(2025, 3, 31, 22, 30), 1000}}) { // 00:30 on 1 April in Madrid
        p.ahora = cuando;
        h.anotar(liberado(bytes / 2, bytes - bytes / 2), "limpieza");
    }
    p.ahora = utc(2025, 4, 2, 10); // Wednesday
    EXPECT_EQ(h.esteMes(), 1000);
    EXPECT_EQ(h.total(), 11111);
    EXPECT_EQ(p.abrir({"es_ES", "America/New_York"}).esteMes(), 0);

    std::vector<Fecha> inicios;
    std::vector<int64_t> semanas;
    for (const Calendario& c : {Calendario{"es_ES", "Europe/Madrid"}, Calendario{"en_US", "Europe/Madrid"}})
        for (const BytesSemana& s : p.abrir(c).porSemana()) {
            inicios.push_back(s.inicio);
            semanas.push_back(s.bytes);
        }
    ASSERT_EQ(inicios.size(), 16u);
    // Monday weeks in Spain, Sunday weeks in the United States.
    EXPECT_EQ(std::vector(inicios.begin() + 5, inicios.begin() + 8),
              (std::vector<Fecha>{utc(2025, 3, 16, 23), lunes24, lunes31}));
    EXPECT_EQ(inicios[15], utc(2025, 3, 29, 23));
    EXPECT_EQ(semanas, (std::vector<int64_t>{0, 0, 0, 0, 0, 0, 11, 1100, 0, 0, 0, 0, 0, 0, 1, 1110}));
}

// A process killed at any moment of a write leaves the old list or the new
// one, never a mix: entry i holds i bytes, so a whole list is 1..k (or its
// last 500) in order.
TEST(HistorialEscritura, MatarElProcesoNuncaDejaUnaMezcla)
{
    Prueba p;
    std::mt19937 azar(7);
    int64_t visto = 0;
    for (int vuelta = 0; vuelta < 150; ++vuelta) {
        std::fflush(nullptr);
        const pid_t pid = ::fork();
        if (pid == 0)
            for (Historial h(p.archivo);;)
                h.anotar(liberado(++visto), "limpieza");
        ::usleep(useconds_t(azar() % 20000));
        ::kill(pid, SIGKILL);
        ::waitpid(pid, nullptr, 0);

        const auto r = Historial(p.archivo).registros();
        ASSERT_EQ(r.empty(), !fs::exists(p.archivo)) << "archivo dañado en la vuelta " << vuelta;
        for (size_t i = 1; i < r.size(); ++i)
            ASSERT_EQ(r[i].borrado, r[i - 1].borrado + 1) << "vuelta " << vuelta;
        if (!r.empty()) {
            ASSERT_GE(r.back().borrado, visto);
            ASSERT_EQ(r.size(), size_t(std::min<int64_t>(r.back().borrado, 500)));
            visto = r.back().borrado;
        }
    }
}
