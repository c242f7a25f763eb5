// SPDX-License-Identifier: GPL-3.0-or-later
// Cleaning from the terminal, end to end, on the demo home plus decoys: what
// the scan of the same home selects is gone (emptied in place or in the Trash
// under its original path), and every other byte in and outside it is intact.
#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "escaner/escaner.h"
#include "nucleo/formato.h"
#include "nucleo/textos.h"

#include <gtest/gtest.h>

#include <set>

using apoyo::CasaPrueba;
namespace fs = std::filesystem;

namespace {

constexpr const char* grandeMB = "20";

// The demo home, Mac and Linux places together, with decoys: links from
// selected cache folders and beside the caches to a folder outside the home
// full of files, and files in the protected roots themselves. The demo's
// Trash, keyring and autostart entry must come through untouched.
struct Escenario {
    CasaPrueba casa;
    CasaPrueba fuera;

    Escenario()
    {
        apoyo::crearCasaDemo(casa.raiz());
        for (int i = 0; i < 20; ++i)
            fuera.archivoCon("ajeno" + std::to_string(i), std::string(70000, char('a' + i)));
        for (const char* enlace : {"Library/Caches/org.videolan.vlc/atajo", "Library/Caches/enlace-fuera",
                                   "Library/Logs/enlace-fuera", ".cache/enlace-fuera",
                                   ".var/app/org.gimp.GIMP/cache/atajo", ".config/discord/logs/atajo"})
            casa.enlace(enlace, fuera.raiz());
        for (std::string_view raiz : {"Library", "Library/Caches", "Library/Logs", "Library/Application Support",
                                      "Descargas", "Documentos", "Escritorio", "Projects", "Vídeos", "Música",
                                      ".config", ".local/share", ".local/state", ".var/app", ".config/discord"})
            casa.archivoCon(std::string(raiz) + "/.intocable", "raíz protegida");
    }
};

bool bajo(const std::string& clave, const std::string& prefijo)
{
    return clave == prefijo || clave.starts_with(prefijo + "/");
}

// Runs one cleaning flag, first outside test mode, where it must refuse, then
// in it, and checks the whole outcome against the scan.
void comprobarLimpieza(const std::string& flag)
{
    Escenario e;
    const fs::path raiz = e.casa.raiz();
    std::vector<Categoria> categorias;
    {
        apoyo::Variable grande("VORLANO_GRANDE_MB", grandeMB);
        categorias = Escaner(e.casa.entorno()).escanear([](const std::string&) {});
    }
    const bool todo = flag == "--clean-all";
    const auto antes = apoyo::huellas(raiz);
    const auto fueraAntes = apoyo::huellas(e.fuera.raiz());
    const auto homeAntes = apoyo::huellas(std::getenv("HOME"));
    const auto papeleraAntes = apoyo::papelera(raiz / ".local/share");

    // Without VORLANO_HOME the home is HOME, here the same scratch home: the
    // report, then the refusal, and nothing touched.
    auto s = apoyo::ejecutarVorlano(raiz, {flag}, {{"VORLANO_HOME", std::nullopt}, {"HOME", raiz.string()}});
    EXPECT_EQ(s.estado, 0);
    EXPECT_NE(s.salida.find("\n■ "), std::string::npos);
    EXPECT_TRUE(s.salida.ends_with("\n\nLimpiar desde la terminal solo funciona con VORLANO_HOME (carpeta de prueba). "
                                   "Usa la app para limpiar.\n"));
    ASSERT_EQ(apoyo::huellas(raiz), antes);

    s = apoyo::ejecutarVorlano(raiz, {flag}, {{"VORLANO_GRANDE_MB", grandeMB}});
    ASSERT_EQ(s.estado, 0);

    // What must have gone, and what the Trash must now hold.
    auto esperado = antes;
    std::set<std::string> aPapelera;
    int64_t enPapelera = 0;
    size_t elementos = 0;
    size_t sinTocar = 0;
    for (const Categoria& c : categorias)
        for (const Elemento& el : c.elementos) {
            if (!todo && !el.seleccionado) {
                ++sinTocar;
                continue;
            }
            ++elementos;
            if (c.modo == Modo::papelera)
                enPapelera += el.tamano;
            for (const fs::path& u : el.urls()) {
                const std::string r = u.lexically_relative(raiz).string();
                ASSERT_FALSE(r.starts_with("..")) << u;
                const bool quedaLaCarpeta = c.modo == Modo::borrar && antes.at(r).starts_with("carpeta");
                std::erase_if(esperado, [&](const auto& par) {
                    return bajo(par.first, r) && !(quedaLaCarpeta && par.first == r);
                });
                if (c.modo == Modo::papelera)
                    aPapelera.insert(u.string());
            }
        }
    // The demo home offers plenty of both kinds, and by default not everything.
    ASSERT_GT(elementos, 5u);
    ASSERT_GT(todo ? aPapelera.size() : sinTocar, 5u);

    // The home: exactly what was selected went, nothing else changed, and
    // nothing was added but the Trash; outside it, nothing at all.
    auto despues = apoyo::huellas(raiz);
    std::erase_if(despues, [&](const auto& par) {
        return !antes.contains(par.first) && (bajo(par.first, ".local/share/Trash") || par.first == ".local" ||
                                              par.first == ".local/share");
    });
    EXPECT_EQ(despues, esperado);
    EXPECT_EQ(apoyo::huellas(e.fuera.raiz()), fueraAntes);
    EXPECT_EQ(apoyo::huellas(std::getenv("HOME")), homeAntes);

    // The trashed items with valid .trashinfo entries, as the standard reader lists them.
    std::set<std::string> originales;
    for (const auto& [original, nombre] : apoyo::papelera(raiz / ".local/share"))
        if (!papeleraAntes.contains(original))
            originales.insert(original);
    EXPECT_EQ(originales, aPapelera);
    const auto lista = apoyo::ejecutarPrograma("/usr/bin/trash-list", {},
                                               {{"XDG_DATA_HOME", (raiz / ".local/share").string()}});
    for (const std::string& original : aPapelera)
        EXPECT_NE(lista.salida.find(" " + textoVisible(original) + "\n"), std::string::npos) << original;

    // The report ends with the totals and no error line.
    const size_t totales = s.salida.rfind("\nBorrado: ");
    ASSERT_NE(totales, std::string::npos) << s.salida;
    const std::string cola = s.salida.substr(totales);
    EXPECT_TRUE(cola.ends_with(" · A la Papelera: " + formatoBytes(enPapelera) + "\n")) << cola;
    EXPECT_EQ(cola.find("error:"), std::string::npos) << cola;
}

} // namespace

TEST(Limpieza, CleanAllQuitaExactamenteLoSeleccionado)
{
    comprobarLimpieza("--clean-all");
}

TEST(Limpieza, CleanDefaultsQuitaSoloLoPreseleccionado)
{
    comprobarLimpieza("--clean-defaults");
}

TEST(Limpieza, ErroresEnLaSalida)
{
    CasaPrueba casa;
    // A cache folder with a child that can't be read, so can't be emptied,
    // named with an escape sequence that would clear the terminal.
    casa.archivo("Library/Caches/org.uno\x1b[2J/a", 100 * 4096);
    casa.archivo("Library/Caches/org.uno\x1b[2J/fija/b", 4096);
    if (::geteuid() == 0)
        for (const auto& p : fs::recursive_directory_iterator(casa.ruta("Library/Caches")))
            ::lchown(p.path().c_str(), 65534, 65534);
    ::chmod(casa.ruta("Library/Caches/org.uno\x1b[2J/fija").c_str(), 0);
    const auto s = apoyo::ejecutarVorlanoSinPrivilegios(casa.raiz(), {"--clean-defaults"});
    EXPECT_EQ(s.estado, 0);
    const size_t totales = s.salida.rfind("\nBorrado: ");
    ASSERT_NE(totales, std::string::npos) << s.salida << s.errores;
    EXPECT_EQ(s.salida.substr(totales),
              "\nBorrado: 410 KB · A la Papelera: 0 KB\n"
              "  error: org.uno\u241B[2J: 1 de 2 elementos no se pudieron borrar (en uso o protegidos)\n");
    EXPECT_TRUE(fs::exists(casa.ruta("Library/Caches/org.uno\x1b[2J/fija/b")));
}
