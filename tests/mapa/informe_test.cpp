// SPDX-License-Identifier: GPL-3.0-or-later
// The map report of the terminal, end to end through the real binary.
#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <regex>

using apoyo::CasaPrueba;
using apoyo::ejecutarVorlano;

namespace {

// Everything after the header, whose time varies.
std::string sinCabecera(const std::string& salida, const std::string& total)
{
    const std::regex cabecera("^Mapa en [0-9]+\\.[0-9] s · total " + total + "\n");
    std::smatch m;
    if (!std::regex_search(salida, m, cabecera))
        return "sin cabecera: " + salida;
    return m.suffix();
}

} // namespace

TEST(InformeMapa, OchoCarpetasConTresHijosYLasProtegidas)
{
    CasaPrueba casa;
    for (int i = 1; i <= 9; ++i)
        casa.archivo("c" + std::to_string(i) + "/datos", i * 300 * 4096);
    for (int i = 1; i <= 4; ++i)
        casa.archivo("c9/s" + std::to_string(i) + "/datos", i * 250 * 4096);
    casa.archivo("c9/\xff\x1b[2J" "raro", 1200 * 4096);
    casa.archivo("Library/Mail/V10/buzon", 300 * 4096);
    casa.archivo(".Trash/viejo", 300 * 4096);
    casa.archivo(".local/share/Trash/files/viejo", 300 * 4096);

    const auto s = ejecutarVorlano(casa.raiz(), {"--mapa", "--scan"});
    EXPECT_EQ(s.estado, 0);
    EXPECT_EQ(sinCabecera(s.salida, "70.5 MB"),
              "  26.2 MB    c9\n"
              "      11.1 MB    datos\n"
              "      4.9 MB     \uFFFD\u241B[2Jraro\n"
              "      4.1 MB     s4\n"
              "  9.8 MB     c8\n"
              "      9.8 MB     datos\n"
              "  8.6 MB     c7\n"
              "      8.6 MB     datos\n"
              "  7.4 MB     c6\n"
              "      7.4 MB     datos\n"
              "  6.1 MB     c5\n"
              "      6.1 MB     datos\n"
              "  4.9 MB     c4\n"
              "      4.9 MB     datos\n"
              "  3.7 MB     c3\n"
              "      3.7 MB     datos\n"
              "  2.5 MB     c2\n"
              "      2.5 MB     datos\n"
              "No medidas (protegidas): .Trash, Mail, Trash\n");
}

// The unreadable folders are left to the measurer's own tests.
TEST(InformeMapa, CasaVaciaInexistenteOEnlazada)
{
    CasaPrueba casa, destino;
    for (const auto& home : {casa.raiz(), casa.ruta("no-existe")}) {
        const auto s = ejecutarVorlano(home, {"--mapa"});
        EXPECT_EQ(s.estado, 0);
        EXPECT_EQ(sinCabecera(s.salida, "0 KB"), "No medidas (protegidas): \n");
    }
    // A home reached through a link is measured as the folder it leads to.
    destino.archivo("Documents/a/b/c/grande", 600 * 4096);
    const auto s = ejecutarVorlano(casa.enlace("enlace", destino.raiz()), {"--mapa"});
    EXPECT_EQ(sinCabecera(s.salida, "2.5 MB"), "  2.5 MB     Documents\n      2.5 MB     a\nNo medidas (protegidas): \n");
}
