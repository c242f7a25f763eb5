// SPDX-License-Identifier: GPL-3.0-or-later
// The map state over real measurements of a scratch home: cancelling, the
// move to the Trash with the tree corrected in place, and what may be moved.
#include "estado/estado_mapa.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"
#include "estado/comun.h"
#include "estado/historial_compartido.h"
#include "nucleo/textos.h"

#include <unistd.h>

using apoyo::CasaPrueba;

namespace {

// The node at a path below home, walking the tree by names.
std::shared_ptr<NodoDisco> buscar(const std::shared_ptr<NodoDisco>& raiz, const std::string& relativa)
{
    auto n = raiz;
    for (const auto pieza : trozos(relativa, '/')) {
        const auto it = std::find_if(n->hijos.begin(), n->hijos.end(), [&](const auto& h) { return h->nombre == pieza; });
        if (it == n->hijos.end())
            return nullptr;
        n = *it;
    }
    return n;
}

} // namespace

// A cancelled first measurement leaves no map; the next one runs in full.
TEST(EstadoMapa, CancelarLaPrimeraMedicion)
{
    CasaPrueba casa;
    casa.reservado("Documents/a/b", 5'000'000);
    EstadoMapa m(casa.entorno());
    QSignalSpy fin(&m, &EstadoMapa::medicionTerminada);
    m.medir();
    m.detener();
    EXPECT_TRUE(m.midiendo());
    ASSERT_TRUE(esperar(fin));
    EXPECT_FALSE(m.midiendo());
    EXPECT_EQ(m.raiz(), nullptr);
    EXPECT_EQ(m.actual(), nullptr);
    EXPECT_TRUE(m.camino().empty());

    m.medir();
    ASSERT_TRUE(esperar(fin, 2));
    ASSERT_NE(m.raiz(), nullptr);
    EXPECT_EQ(m.actual(), m.raiz());
    EXPECT_NE(buscar(m.raiz(), "Documents/a/b"), nullptr);
}

// Moving a folder lowers every ancestor by its bytes, writes a "mapa" entry
// beside the uninstaller's, keeps the map on screen while measuring again,
// and a move the Trash refuses leaves the tree and says why.
TEST(EstadoMapa, MoverCorrigeElArbol)
{
    CasaPrueba casa;
    apoyo::Variable home("VORLANO_HOME", casa.raiz().string());
    casa.reservado("Documents/a/b/datos", 5'000'000);
    casa.reservado("Documents/a/c", 3'000'000);
    EstadoMapa m(casa.entorno());
    m.medir();
    ASSERT_TRUE(esperar(&m, &EstadoMapa::medicionTerminada));
    const auto raiz = m.raiz();
    const auto docs = buscar(raiz, "Documents"), a = buscar(raiz, "Documents/a"), b = buscar(raiz, "Documents/a/b");
    ASSERT_TRUE(docs && a && b);
    m.entrar(Nodo(a));
    EXPECT_EQ(m.camino(), (std::vector{raiz, docs, a}));
    // A file isn't entered.
    m.entrar(Nodo(buscar(raiz, "Documents/a/c")));
    EXPECT_EQ(m.actual(), a);

    const int64_t antes[] = {raiz->tamano, docs->tamano, a->tamano};
    const int64_t movido = b->tamano;
    m.seleccionar(Nodo(b));
    QSignalSpy version(&m, &EstadoMapa::versionChanged);
    m.moverAPapelera(Nodo(b));
    EXPECT_EQ(version.count(), 1);
    EXPECT_FALSE(std::filesystem::exists(casa.ruta("Documents/a/b")));
    EXPECT_EQ(raiz->tamano, antes[0] - movido);
    EXPECT_EQ(docs->tamano, antes[1] - movido);
    EXPECT_EQ(a->tamano, antes[2] - movido);
    EXPECT_EQ(buscar(raiz, "Documents/a/b"), nullptr);
    EXPECT_EQ(m.seleccion(), nullptr);
    // Two writers of one process: an entry written beside the map's stays.
    HistorialCompartido::shared().anotar(Resultado{.borrado = 7}, "desinstalacion");
    const auto registros = Historial(Historial::archivoDe(casa.entorno())).registros();
    ASSERT_EQ(registros.size(), 2u);
    EXPECT_EQ(registros[0].tipo, "mapa");
    EXPECT_EQ(registros[0].papelera, movido);

    // The Trash refuses a node whose file is already gone.
    const auto c = buscar(raiz, "Documents/a/c");
    std::filesystem::remove(casa.ruta("Documents/a/c"));
    m.moverAPapelera(Nodo(c));
    EXPECT_TRUE(m.aviso().has_value() && m.aviso()->starts_with("c: "));
    EXPECT_EQ(buscar(raiz, "Documents/a/c"), c);
    EXPECT_EQ(version.count(), 1);

    // Measuring again keeps the old map until the new one is there, and
    // clears the message.
    m.medir();
    EXPECT_EQ(m.raiz(), raiz);
    EXPECT_FALSE(m.aviso());
    ASSERT_TRUE(esperar(&m, &EstadoMapa::medicionTerminada));
    EXPECT_NE(m.raiz(), raiz);
}

// What may be moved, and what the user is warned of, by where the node lies.
TEST(EstadoMapa, ImpedimentoYAdvertencia)
{
    CasaPrueba casa;
    const std::string app = "Visor" + std::to_string(::getpid());
    casa.archivoCon("Applications/" + app + ".app/Contents/Info.plist",
                    "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>org.prueba." + app +
                        "</string></dict></plist>");
    apoyo::ProgramaEnMarcha visor(casa.ruta("Applications/" + app + ".app/Contents/MacOS/visor"));
    EstadoMapa m(casa.entorno());
    const std::string sistema = "Carpeta del sistema o de tu cuenta: no se puede mover desde aquí";
    const std::string datos = "Son datos de una app: puede perder ajustes o archivos guardados.";
    const std::string abierta = "Son datos de " + app + ", que está abierta. Ciérrala antes.";
    struct Caso {
        std::string relativa;
        std::optional<std::string> impedimento;
        std::optional<std::string> advertencia;
    };
    const Caso casos[] = {
        {"", sistema, std::nullopt},
        {"Library", sistema, datos},
        {"Library/Caches", sistema, datos},
        {"Library/Caches/otra", std::nullopt, datos},
        {"Library/Application Support/" + app, std::nullopt, abierta},
        {"Library/Application Support/" + app + "/x", std::nullopt, abierta},
        {"Documents", sistema, std::nullopt},
        {"Documents/x", std::nullopt, std::nullopt},
        {".config", sistema, datos},
        {".config/" + app, sistema, abierta},
        {".config/" + app + "/perfil", std::nullopt, abierta},
        {".config/otra/perfil", std::nullopt, datos},
        {".local/share", sistema, datos},
        {".local/share/otra", sistema, datos},
        {".local/share/" + app + "/x", std::nullopt, abierta},
        {".local/otra", std::nullopt, std::nullopt},
    };
    for (const Caso& c : casos) {
        NodoDisco n(std::string(std::filesystem::path(c.relativa).filename()), casa.ruta(c.relativa).string(), true);
        EXPECT_EQ(m.impedimento(n), c.impedimento) << c.relativa;
        EXPECT_EQ(m.advertencia(n), c.advertencia) << c.relativa;
    }
    // Protected places are never moved, whatever the path rule says.
    NodoDisco protegido("x", casa.ruta("Documents/x").string(), true);
    protegido.protegido = true;
    EXPECT_EQ(m.impedimento(protegido), "Protegida por macOS");
    EXPECT_EQ(m.relativa(NodoDisco("y", "/otro/sitio/y", false)), "/otro/sitio/y");
}
