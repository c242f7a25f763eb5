// SPDX-License-Identifier: GPL-3.0-or-later
// The terminal runs, end to end: the real binary on real scratch homes.
#include "consola.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <regex>

using apoyo::CasaPrueba;
using apoyo::ejecutarVorlano;

namespace {

// Everything after the timing line, which varies from run to run.
std::string cuerpo(const std::string& salida)
{
    const size_t i = salida.find("\n\n");
    return i == std::string::npos ? salida : salida.substr(i + 2);
}

} // namespace

TEST(Informe, FormatoExactoTiemposYCasaQueNoExiste)
{
    CasaPrueba casa;
    // Plain files as items, so each size is exactly the data written.
    casa.archivo("Library/Caches/blob.bin", 366 * 4096);   // 1,499,136 bytes
    // A name that isn't UTF-8, and control characters that would clear the
    // terminal and print a line of their own.
    casa.archivo("Library/Caches/ca\xff\x1b[2J\r\nSeleccionado por defecto: 0 KB\xc2\x9b", 100 * 4096);
    casa.archivo("Library/Caches/com.apple.x", 100 * 4096); // never listed
    casa.archivo("Library/Caches/pequeno", 4096);           // under 65,536 bytes
    for (int i = 0; i < 9; ++i)
        casa.archivo("Library/Logs/r" + std::to_string(i) + ".log", (20 + i) * 4096);

    auto s = ejecutarVorlano(casa.raiz(), {"--scan"});
    EXPECT_EQ(s.estado, 0);
    EXPECT_EQ(s.errores, "");
    EXPECT_TRUE(std::regex_search(s.salida, std::regex("^Carpeta: .* \\(PRUEBA\\)\nAnálisis en [0-9]+\\.[0-9] s\n\n")));
    EXPECT_TRUE(s.salida.starts_with("Carpeta: " + casa.raiz().string() + " (PRUEBA)\n"));
    EXPECT_EQ(cuerpo(s.salida),
              "■ Cachés de aplicaciones — 1.9 MB [Seguro] seleccionado: 1.9 MB\n"
              "   [x] 1.5 MB     blob.bin\n"
              "   [x] 410 KB     ca\uFFFD\u241B[2J\u240D\u240ASeleccionado por defecto: 0 KB\uFFFD\n"
              "■ Registros (logs) — 885 KB [Seguro] seleccionado: 885 KB\n"
              "   [x] 115 KB     r8.log\n"
              "   [x] 111 KB     r7.log\n"
              "   [x] 106 KB     r6.log\n"
              "   [x] 102 KB     r5.log\n"
              "   [x] 98 KB      r4.log\n"
              "   [x] 94 KB      r3.log\n"
              "   [x] 90 KB      r2.log\n"
              "   [x] 86 KB      r1.log\n"
              "   … y 1 más\n"
              "\n"
              "Seleccionado por defecto: 2.8 MB\n");

    // The timing report, to standard error and only when asked for. The label
    // field is 28 characters and std::regex counts bytes, so each character
    // becomes one byte first; the seconds field is 6 wide.
    s = ejecutarVorlano(casa.raiz(), {"--scan"}, {{"VORLANO_TIEMPOS", ""}});
    std::string unoPorCaracter;
    for (const unsigned char c : s.errores)
        if ((c & 0xC0) != 0x80)
            unoPorCaracter += c < 0x80 ? char(c) : '?';
    EXPECT_TRUE(std::regex_match(unoPorCaracter, std::regex("(  .{28} [ 0-9]{2}[0-9]\\.[0-9]{2} s\n)+"))) << s.errores;
    EXPECT_NE(s.errores.find("  cachés de apps + logs        "), std::string::npos);

    // Eight items: no line for the rest.
    std::filesystem::remove(casa.ruta("Library/Logs/r0.log"));
    EXPECT_EQ(ejecutarVorlano(casa.raiz(), {"--scan"}).salida.find("… y"), std::string::npos);

    // A missing home gives an empty report.
    s = ejecutarVorlano(casa.ruta("no-existe"), {"--scan"});
    EXPECT_EQ(s.estado, 0);
    EXPECT_EQ(cuerpo(s.salida), "\nSeleccionado por defecto: 0 KB\n");
}

TEST(Informe, DetalleEnUsoYColumnaDeDiezCaracteres)
{
    Categoria c{.id = "dev", .titulo = "Cachés de programación", .nivel = Nivel::seguro};
    c.elementos.push_back(Elemento{.url = "/h/x", .nombre = "npm", .detalle = "~/.npm/_cacache", .tamano = 2'000'000,
                                   .enUso = "Code", .seleccionado = false});
    EXPECT_EQ(Consola::informe({c}, Entorno{"/h", false}, 1.25),
              "Carpeta: /h\nAnálisis en 1.2 s\n\n"
              "■ Cachés de programación — 2 MB [Seguro] seleccionado: 0 KB\n"
              "   [ ] 2 MB       npm — ~/.npm/_cacache ⚠︎ abierto: Code\n"
              "\nSeleccionado por defecto: 0 KB\n");
    // Characters, not bytes.
    EXPECT_EQ(Consola::columna("1,5 MB\u00a0ñ"), "1,5 MB\u00a0ñ  ");
}

// A scan flag beside a cleaning one gives only the report; --help wins over
// the rest; without a flag the desktop application starts, and with no
// desktop to reach it says so and ends. The user's language picks the
// catalogue: English for an English locale, Spanish with the Linux wording
// for any other, and LANGUAGE before LANG.
TEST(Main, FlagsEIdiomaDelUsuario)
{
    CasaPrueba casa;
    casa.archivo("Library/Logs/a.log", 100 * 4096);
    EXPECT_TRUE(ejecutarVorlano(casa.raiz(), {"--clean-all", "--scan"}).salida.ends_with("por defecto: 410 KB\n"));
    EXPECT_TRUE(std::filesystem::exists(casa.ruta("Library/Logs/a.log")));
    for (const auto& args : {std::vector<std::string>{"--help"}, {"--scan", "--help"}}) {
        const auto s = ejecutarVorlano(casa.raiz(), args);
        EXPECT_EQ(s.estado, 0);
        EXPECT_NE(s.salida.find("Uso: vorlano"), std::string::npos);
        EXPECT_NE(s.salida.find("vorlano://"), std::string::npos);
    }
    const std::map<std::string, std::optional<std::string>> sinEscritorio{
        {"DISPLAY", std::nullopt}, {"WAYLAND_DISPLAY", std::nullopt}, {"QT_QPA_PLATFORM", std::nullopt}};
    for (const auto& args : {std::vector<std::string>{}, {"--desconocido"}}) {
        const auto s = ejecutarVorlano(casa.raiz(), args, sinEscritorio);
        EXPECT_EQ(s.estado, 1);
        EXPECT_NE(s.errores.find("--help"), std::string::npos);
    }
    EXPECT_TRUE(ejecutarVorlano(casa.raiz(), {"--version"}).salida.starts_with("vorlano "));

    const std::tuple<const char*, std::optional<std::string>, const char*, const char*> casos[] = {
        {"en_US.UTF-8", std::nullopt, "■ Logs — 410 KB [Safe] selected: 410 KB\n", "Usage: vorlano"},
        {"en_GB.UTF-8", std::nullopt, "\nSelected by default: 410 KB\n", "--scan            scan and print"},
        {"es_ES.UTF-8", std::nullopt, "■ Registros (logs) — 410 KB [Seguro] seleccionado: 410 KB\n", "Uso: vorlano"},
        {"fr_FR.UTF-8", std::nullopt, "\nSeleccionado por defecto: 410 KB\n", "Uso: vorlano"},
        {"es_ES.UTF-8", "en_US:es", "\nSelected by default: 410 KB\n", "Usage: vorlano"},
    };
    for (const auto& [lang, language, informe, ayuda] : casos) {
        const std::map<std::string, std::optional<std::string>> entorno{{"LANG", lang}, {"LANGUAGE", language}};
        const auto s = ejecutarVorlano(casa.raiz(), {"--scan"}, entorno).salida;
        EXPECT_NE(s.find(informe), std::string::npos) << lang << "\n" << s;
        EXPECT_NE(ejecutarVorlano(casa.raiz(), {"--help"}, entorno).salida.find(ayuda), std::string::npos) << lang;
    }
}
