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

TEST(Informe, FormatoExacto)
{
    CasaPrueba casa;
    // Plain files as items, so each size is exactly the data written.
    casa.archivo("Library/Caches/blob.bin", 366 * 4096);     // 1,499,136 bytes
    casa.archivo("Library/Caches/com.apple.x", 100 * 4096);   // never listed
    casa.archivo("Library/Caches/pequeno", 4096);             // under 65,536: dropped
    for (int i = 0; i < 9; ++i)
        casa.archivo("Library/Logs/r" + std::to_string(i) + ".log", (20 + i) * 4096);

    const auto s = ejecutarVorlano(casa.raiz(), {"--scan"});
    EXPECT_EQ(s.estado, 0);
    EXPECT_EQ(s.errores, "");
    EXPECT_TRUE(s.salida.starts_with("Carpeta: " + casa.raiz().string() + " (PRUEBA)\nAnálisis en "));
    EXPECT_TRUE(std::regex_search(s.salida, std::regex("^Carpeta: .*\nAnálisis en [0-9]+\\.[0-9] s\n\n")));
    EXPECT_EQ(cuerpo(s.salida),
              "■ Cachés de aplicaciones — 1.5 MB [Seguro] seleccionado: 1.5 MB\n"
              "   [x] 1.5 MB     blob.bin\n"
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
              "Seleccionado por defecto: 2.4 MB\n");
}

TEST(Informe, OchoElementosSinLineaDeMasYCasaVacia)
{
    CasaPrueba casa;
    for (int i = 0; i < 8; ++i)
        casa.archivo("Library/Logs/r" + std::to_string(i) + ".log", 20 * 4096);
    auto s = ejecutarVorlano(casa.raiz(), {"--scan"});
    EXPECT_EQ(s.salida.find("… y"), std::string::npos);

    CasaPrueba vacia;
    s = ejecutarVorlano(vacia.raiz(), {"--scan"});
    EXPECT_EQ(cuerpo(s.salida), "\nSeleccionado por defecto: 0 KB\n");
}

TEST(Informe, ColumnaDeDiezCaracteres)
{
    EXPECT_EQ(Consola::columna("1.5 MB"), "1.5 MB    ");
    EXPECT_EQ(Consola::columna("123456789012"), "1234567890");
    EXPECT_EQ(Consola::columna("1,5 MB\u00a0ñ"), "1,5 MB\u00a0ñ  ");
}

TEST(Informe, EnUsoYDetalle)
{
    Categoria c{.id = "dev", .titulo = "Cachés de programación", .nivel = Nivel::seguro};
    c.elementos.push_back(Elemento{.url = "/h/x", .nombre = "npm", .detalle = "~/.npm/_cacache", .tamano = 2'000'000,
                                   .enUso = "Code", .seleccionado = false});
    const std::string r = Consola::informe({c}, Entorno{"/h", false}, 1.25);
    EXPECT_EQ(r, "Carpeta: /h\nAnálisis en 1.2 s\n\n"
                 "■ Cachés de programación — 2 MB [Seguro] seleccionado: 0 KB\n"
                 "   [ ] 2 MB       npm — ~/.npm/_cacache ⚠︎ abierto: Code\n"
                 "\nSeleccionado por defecto: 0 KB\n");
}

TEST(Informe, NombreQueNoEsUtf8SeMuestraConSustitutos)
{
    CasaPrueba casa;
    casa.archivo(std::string("Library/Caches/ca\xff"), 100 * 4096);
    const auto s = ejecutarVorlano(casa.raiz(), {"--scan"});
    EXPECT_NE(s.salida.find("ca\uFFFD\n"), std::string::npos) << s.salida;
}

TEST(Informe, TiemposSoloConLaVariable)
{
    CasaPrueba casa;
    casa.archivo("Library/Logs/a.log", 100 * 4096);
    auto s = ejecutarVorlano(casa.raiz(), {"--scan"}, {{"VORLANO_TIEMPOS", ""}});
    // The label field is 28 characters; std::regex counts bytes, so each
    // character becomes one byte first. The seconds field is 6 wide.
    std::string unoPorCaracter;
    for (const unsigned char c : s.errores)
        if ((c & 0xC0) != 0x80)
            unoPorCaracter += c < 0x80 ? char(c) : '?';
    const std::regex todo("(  .{28} [ 0-9]{2}[0-9]\\.[0-9]{2} s\n)+");
    EXPECT_TRUE(std::regex_match(unoPorCaracter, todo)) << s.errores;
    EXPECT_NE(s.errores.find("  cachés de apps + logs        "), std::string::npos);
    EXPECT_NE(s.errores.find("  medir tamaños (1 elementos)  "), std::string::npos);
    s = ejecutarVorlano(casa.raiz(), {"--scan"});
    EXPECT_EQ(s.errores, "");
}

TEST(Informe, CarpetaIlegibleOCasaInexistente)
{
    CasaPrueba casa;
    casa.archivo("Library/Caches/org.x/f", 100 * 4096);
    casa.archivo("Library/Logs/a.log", 100 * 4096);
    casa.sinPermisos("Library/Caches");
    auto s = apoyo::ejecutarVorlanoSinPrivilegios(casa.raiz(), {"--scan"});
    EXPECT_EQ(s.estado, 0);
    EXPECT_NE(s.salida.find("■ Registros (logs)"), std::string::npos) << s.salida << s.errores;
    EXPECT_EQ(s.salida.find("■ Cachés de aplicaciones"), std::string::npos);

    s = ejecutarVorlano(casa.ruta("no-existe"), {"--scan"});
    EXPECT_EQ(s.estado, 0);
    EXPECT_EQ(cuerpo(s.salida), "\nSeleccionado por defecto: 0 KB\n");
}

TEST(Main, LimpiarSinModoPruebaSeNiega)
{
    // Without VORLANO_HOME the home is HOME, which the test main pointed at a
    // scratch folder; put a cache there to see that nothing goes.
    const std::filesystem::path home = std::getenv("HOME");
    CasaPrueba marca;
    std::filesystem::create_directories(home / "Library/Caches/org.x");
    std::filesystem::copy_file(marca.archivo("f", 100 * 4096), home / "Library/Caches/org.x/f");
    const auto s = ejecutarVorlano(home, {"--clean-defaults"}, {{"VORLANO_HOME", std::nullopt}});
    EXPECT_EQ(s.estado, 0);
    EXPECT_NE(s.salida.find("■ Cachés de aplicaciones"), std::string::npos);
    EXPECT_TRUE(s.salida.ends_with(
        "\n\nLimpiar desde la terminal solo funciona con VORLANO_HOME (carpeta de prueba). Usa la app para limpiar.\n"));
    EXPECT_TRUE(std::filesystem::exists(home / "Library/Caches/org.x/f"));
}

TEST(Main, ScanGanaALosFlagsDeLimpieza)
{
    CasaPrueba casa;
    casa.archivo("Library/Logs/a.log", 100 * 4096);
    const auto s = ejecutarVorlano(casa.raiz(), {"--clean-all", "--scan"});
    EXPECT_EQ(s.estado, 0);
    EXPECT_TRUE(s.salida.ends_with("Seleccionado por defecto: 410 KB\n")) << s.salida;
    EXPECT_TRUE(std::filesystem::exists(casa.ruta("Library/Logs/a.log")));
}

TEST(Main, AyudaYVersion)
{
    CasaPrueba casa;
    for (const auto& args : {std::vector<std::string>{}, {"--help"}, {"--scan", "--help"}, {"--desconocido"}}) {
        const auto s = ejecutarVorlano(casa.raiz(), args);
        EXPECT_EQ(s.estado, 0);
        EXPECT_NE(s.salida.find("Uso: vorlano"), std::string::npos);
        EXPECT_NE(s.salida.find("--clean-defaults"), std::string::npos);
    }
    const auto v = ejecutarVorlano(casa.raiz(), {"--version"});
    EXPECT_TRUE(v.salida.starts_with("vorlano ")) << v.salida;
}
