// SPDX-License-Identifier: GPL-3.0-or-later
// Atomic writes: every step's failure, injected into a child run of this
// test, is reported, and none before the rename touches the old file.
#include "plataforma/escritura.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <set>

namespace fs = std::filesystem;

TEST(Escritura, CadaFalloSeInformaYElArchivoViejoQueda)
{
    if (const char* archivo = std::getenv("VORLANO_HIJO_ESCRITURA"))
        std::exit(plataforma::escribirAtomico(archivo, "nuevo") ? 0 : 3);

    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    const std::string filtro = std::string("--gtest_filter=") + info->test_suite_name() + "." + info->name();
    struct Caso {
        const char* fallo;
        int estado;
        const char* queda;
    };
    // The folder's flush comes after the rename: the new content stands, but
    // the write is not reported as done.
    for (const Caso& c : {Caso{"", 0, "nuevo"}, Caso{"fsync", 3, "viejo"}, Caso{"rename", 3, "viejo"},
                          Caso{"fsync-carpeta", 3, "nuevo"}}) {
        apoyo::CasaPrueba casa;
        const fs::path archivo = casa.archivoCon("datos.json", "viejo");
        const auto s = apoyo::ejecutarPrograma(fs::read_symlink("/proc/self/exe"), {filtro},
                                               {{"VORLANO_HIJO_ESCRITURA", archivo.string()},
                                                {"LD_PRELOAD", VORLANO_FALLOS},
                                                {"VORLANO_FALLO", c.fallo}});
        EXPECT_EQ(s.estado, c.estado) << c.fallo;
        EXPECT_EQ(apoyo::leer(archivo), c.queda) << c.fallo;
        // No temporary file left behind.
        EXPECT_EQ(std::distance(fs::directory_iterator(casa.raiz()), fs::directory_iterator()), 1) << c.fallo;
    }
    // What a killed writer left goes at the next write once it is hours old;
    // one of minutes may be another writer's, under way.
    apoyo::CasaPrueba casa;
    for (const auto& [nombre, edad] : {std::pair{".datos.json.Zz99Yy", 120}, {".datos.json.Ab12Cd", 5}}) {
        casa.archivoCon(nombre, "[");
        casa.fecha(nombre, std::chrono::system_clock::now() - std::chrono::minutes(edad));
    }
    ASSERT_TRUE(plataforma::escribirAtomico(casa.ruta("datos.json"), "nuevo"));
    std::set<std::string> quedan;
    for (const auto& e : fs::directory_iterator(casa.raiz()))
        quedan.insert(e.path().filename());
    EXPECT_EQ(quedan, (std::set<std::string>{".datos.json.Ab12Cd", "datos.json"}));
}
