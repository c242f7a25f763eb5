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

// The unreadable folders are left to the measurer's own tests.
TEST(InformeMapa, OchoArribaTresDentroLasProtegidasYCasasRaras)
{
    CasaPrueba casa, destino;
    // Nine entries at the top (the smallest file is left out), four inside
    // the folder, one of them a name that isn't UTF-8.
    for (int i = 1; i <= 8; ++i)
        casa.archivo("f" + std::to_string(i), i * 300 * 4096);
    casa.archivo("c9/datos", 2700 * 4096);
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
              "  9.8 MB     f8\n"
              "  8.6 MB     f7\n"
              "  7.4 MB     f6\n"
              "  6.1 MB     f5\n"
              "  4.9 MB     f4\n"
              "  3.7 MB     f3\n"
              "  2.5 MB     f2\n"
              "No medidas (protegidas): .Trash, Mail, Trash\n");

    for (const auto& home : {destino.raiz(), destino.ruta("no-existe")}) {
        const auto vacia = ejecutarVorlano(home, {"--mapa"});
        EXPECT_EQ(vacia.estado, 0);
        EXPECT_EQ(sinCabecera(vacia.salida, "0 KB"), "No medidas (protegidas): \n");
    }
    // A home reached through a link is measured as the folder it leads to.
    destino.archivo("Documents/a/b/c/grande", 600 * 4096);
    const auto enlazada = ejecutarVorlano(casa.enlace("enlace", destino.raiz()), {"--mapa"});
    EXPECT_EQ(sinCabecera(enlazada.salida, "2.5 MB"), "  2.5 MB     Documents\n      2.5 MB     a\nNo medidas (protegidas): \n");
}
