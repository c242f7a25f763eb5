// SPDX-License-Identifier: GPL-3.0-or-later
#include "escaner/escaner.h"

#include "apoyo/casa.h"

#include <gtest/gtest.h>

namespace {

Elemento el(const std::filesystem::path& p, int64_t tamano)
{
    return Elemento{.url = p, .nombre = p.filename().string(), .tamano = tamano};
}

std::vector<std::string> nombres(const Categoria& c)
{
    std::vector<std::string> r;
    for (const auto& e : c.elementos)
        r.push_back(e.nombre);
    return r;
}

} // namespace

TEST(Depurar, MismoSitioQuedaEnLaCategoriaMasSegura)
{
    const Escaner esc(Entorno{"/h", true});
    auto r = Escaner::depurar({esc.categoria("apps", {el("/h/a", 100000)}),
                               esc.categoria("dev", {el("/h/a", 100000), el("/h/b", 70000)})});
    ASSERT_EQ(r.size(), 2u);
    EXPECT_EQ(nombres(r[0]), std::vector<std::string>{"a"});
    EXPECT_EQ(nombres(r[1]), std::vector<std::string>{"b"});
    EXPECT_TRUE(Escaner::depurar({}).empty());
}

TEST(Depurar, LoAnidadoSeVaAunqueSuCategoriaSeaAnterior)
{
    const Escaner esc(Entorno{"/h", true});
    auto r = Escaner::depurar({esc.categoria("compilaciones", {el("/h/app/dist", 900000)}),
                               esc.categoria("grandes", {el("/h/app/dist/x.bin", 800000)}),
                               esc.categoria("huerfanos", {el("/h/app", 2000000)})});
    ASSERT_EQ(r.size(), 1u);
    EXPECT_EQ(r[0].id, "huerfanos");
}

TEST(Depurar, ComponentesEnterosYLimiteDeTamano)
{
    const Escaner esc(Entorno{"/h", true});
    auto r = Escaner::depurar({esc.categoria("apps", {el("/h/foo", 70000), el("/h/foo-bar", 70000),
                                                      el("/h/chico", 65535), el("/h/justo", 65536),
                                                      el("/h/cero", 0)}),
                               esc.categoria("logs", {el("/h/l", 65535)})});
    ASSERT_EQ(r.size(), 1u);
    // Equal sizes keep their order; larger first.
    EXPECT_EQ(nombres(r[0]), (std::vector<std::string>{"foo", "foo-bar", "justo"}));
}

TEST(Depurar, OrdenPorTamanoEstable)
{
    const Escaner esc(Entorno{"/h", true});
    auto r = Escaner::depurar({esc.categoria("apps", {el("/h/a", 70000), el("/h/b", 90000), el("/h/c", 70000),
                                                      el("/h/d", 90000)})});
    EXPECT_EQ(nombres(r[0]), (std::vector<std::string>{"b", "d", "a", "c"}));
}

TEST(Depurar, UnEnlaceEnElCaminoEsElMismoSitio)
{
    apoyo::CasaPrueba casa;
    casa.crearDir("real/cache");
    casa.enlace("atajo", casa.ruta("real"));
    const Escaner esc(casa.entorno());
    auto r = Escaner::depurar({esc.categoria("apps", {el(casa.ruta("real/cache"), 100000)}),
                               esc.categoria("dev", {el(casa.ruta("atajo/cache"), 100000)})});
    ASSERT_EQ(r.size(), 1u);
    EXPECT_EQ(r[0].id, "apps");
}
