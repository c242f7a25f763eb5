// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/escaner.h"

#include "apoyo/casa.h"

#include <gtest/gtest.h>

namespace {

Elemento el(const std::filesystem::path& p, int64_t tamano)
{
    return Elemento{.url = p, .nombre = p.filename().string(), .tamano = tamano};
}

} // namespace

// One place (a link on the way included) stays in the earliest, safest
// category; what lies inside another item goes whatever its category; paths
// nest by whole components; items under 64 KiB and emptied categories go;
// larger first, equal sizes in their order.
TEST(Depurar, UnSitioUnaVezEnSuCategoriaMasSegura)
{
    apoyo::CasaPrueba casa;
    casa.crearDir("real/cache");
    casa.enlace("atajo", casa.ruta("real"));
    const Escaner esc(casa.entorno());
    const auto r = Escaner::depurar({
        esc.categoria("apps", {el("/h/a", 70000), el("/h/b", 90000), el("/h/foo", 70000), el("/h/foo-bar", 70000),
                               el("/h/chico", 65535), el("/h/justo", 65536), el("/h/d", 90000),
                               el(casa.ruta("real/cache"), 100000)}),
        esc.categoria("dev", {el("/h/a", 100000), el("/h/e", 70000), el(casa.ruta("atajo/cache"), 100000)}),
        esc.categoria("compilaciones", {el("/h/app/dist", 900000)}),
        esc.categoria("grandes", {el("/h/app/dist/x.bin", 800000)}),
        esc.categoria("logs", {el("/h/l", 65535)}),
        esc.categoria("huerfanos", {el("/h/app", 2000000)}),
    });
    std::vector<std::pair<std::string, std::vector<std::string>>> vistas;
    for (const auto& c : r) {
        vistas.push_back({c.id, {}});
        for (const auto& e : c.elementos)
            vistas.back().second.push_back(e.nombre);
    }
    EXPECT_EQ(vistas, (decltype(vistas){{"apps", {"cache", "b", "d", "a", "foo", "foo-bar", "justo"}},
                                        {"dev", {"e"}},
                                        {"huerfanos", {"app"}}}));
    EXPECT_TRUE(Escaner::depurar({}).empty());
}
