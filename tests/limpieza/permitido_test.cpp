// SPDX-License-Identifier: GPL-3.0-or-later
// The path rule that guards every removal: named cases, then a property over
// many generated paths checked against an independent reading of the rule.
#include "limpieza/limpiador.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

// The roots of a Linux home follow where the desktop put them: the user's
// folders from user-dirs.dirs, the base folders from the environment
// (outside test mode), and the Trash of the data home with all it holds.
TEST(Permitido, RaicesDeUnaCasaLinux)
{
    apoyo::CasaPrueba casa;
    casa.archivoCon(".config/user-dirs.dirs", "XDG_DOWNLOAD_DIR=\"$HOME/Descargas\"\n");
    apoyo::Variable cache("XDG_CACHE_HOME", (casa.raiz() / "var/cachés").string());
    apoyo::Variable datos("XDG_DATA_HOME", (casa.raiz() / "var/datos").string());
    apoyo::Variable config("XDG_CONFIG_HOME", (casa.raiz() / ".config").string());
    const Limpiador real(Entorno{casa.raiz(), false}), prueba(casa.entorno());
    const std::tuple<const char*, bool, bool> casos[] = {
        {"Descargas", false, false}, {"Descargas/x.iso", true, true}, {"Downloads/x.iso", true, true},
        {"var/cachés", false, true}, {"var/cachés/pip", true, true}, {"var/datos/Trash/files/x", false, true},
        {".local/share/Trash", false, false}, {".local/share/Trash/info/x.trashinfo", false, false},
        {".local/share/Trashcan/x", true, true}, {".local/share/keyrings", false, false},
        {".local/share/keyrings/login.keyring", true, true}, {".config/autostart", false, false},
        {".config/dconf", false, false}, {".local/share/icons", false, false}, {".var/app", false, false},
        {".var/app/org.x.App", true, true}, {".cache/x", true, true},
    };
    for (const auto& [ruta, enReal, enPrueba] : casos) {
        EXPECT_EQ(real.permitido(casa.ruta(ruta)), enReal) << ruta;
        EXPECT_EQ(prueba.permitido(casa.ruta(ruta)), enPrueba) << ruta;
    }
}

namespace {

// "." and ".." resolved on a stack of components, without std::filesystem.
std::vector<std::string> componentes(const std::string& ruta)
{
    std::vector<std::string> pila;
    for (size_t i = 0; i <= ruta.size();) {
        const size_t fin = std::min(ruta.find('/', i), ruta.size());
        const std::string parte = ruta.substr(i, fin - i);
        if (parte == ".." && !pila.empty())
            pila.pop_back();
        else if (!parte.empty() && parte != "." && parte != "..")
            pila.push_back(parte);
        i = fin + 1;
    }
    return pila;
}

} // namespace

// Allowed exactly when, after resolving "." and "..", the path lies strictly
// inside the home folder, at least two components deep, isn't a protected
// root and isn't in a Trash. Paths are built from pieces chosen to hit every
// edge, after a few named cases they never reach.
TEST(Permitido, PropiedadSobreRutasGeneradas)
{
    const std::tuple<const char*, const char*, bool> casos[] = {
        {"/Users/ana", "/Users/ana/library/caches", true}, // roots compare exactly
        {"/Users/ana", "Library/Caches/x", false},          // relative: from the working folder, not home
        {"/Users/ana/", "/Users/ana/Library/Caches/x", true},
        {"/", "/usr/lib/x", false}, // no path lies below "//"
    };
    for (const auto& [casa, ruta, permitido] : casos)
        EXPECT_EQ(Limpiador(Entorno{casa, true}).permitido(ruta), permitido) << casa << " " << ruta;

    const Limpiador ana(Entorno{"/Users/ana", true});
    std::vector<std::string> piezas{".", "..", "", "Users", "ana", "ana2", "an", "Users/ana", "x", "ñandú", "Caches",
                                    "...", ".local/share/Trash2"};
    const std::vector<std::string>& raices = ana.raices();
    for (const std::string& r : raices) {
        piezas.push_back(r);
        piezas.push_back(r + "/hijo");
    }
    const auto enPapelera = [&](const std::string& r) {
        return std::any_of(ana.papeleras().begin(), ana.papeleras().end(),
                           [&](const std::string& p) { return r == p || r.starts_with(p + "/"); });
    };
    const char* comienzos[] = {"/Users/ana", "/Users/ana/", "/", "/Users/"};
    std::mt19937 azar(20240611);
    size_t permitidas = 0;
    for (int n = 0; n < 100000; ++n) {
        std::string ruta = comienzos[azar() % 4];
        for (int i = int(azar() % 6); i > 0; --i) {
            if (ruta.back() != '/')
                ruta += azar() % 5 == 0 ? "//" : "/";
            ruta += piezas[azar() % piezas.size()];
        }
        if (azar() % 4 == 0)
            ruta += "/";

        const auto c = componentes(ruta);
        std::string relativa;
        for (size_t i = 2; i < c.size(); ++i)
            relativa += (i > 2 ? "/" : "") + c[i];
        const bool esperado = c.size() >= 4 && c[0] == "Users" && c[1] == "ana" &&
                              std::find(raices.begin(), raices.end(), relativa) == raices.end() &&
                              !enPapelera(relativa);
        ASSERT_EQ(ana.permitido(ruta), esperado) << ruta;
        permitidas += esperado;
    }
    // The generator reaches both answers often.
    EXPECT_GT(permitidas, 10000u);
    EXPECT_LT(permitidas, 90000u);
}
