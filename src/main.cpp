// SPDX-License-Identifier: GPL-3.0-or-later
// The one entry point: a terminal flag runs one job and ends with status 0;
// without one the desktop application starts.
#include "app/vorlano_app.h"
#include "consola.h"
#include "nucleo/entorno.h"
#include "nucleo/textos.h"
#include "plataforma/sistema.h"
#include "widget/anfitrion.h"
#include "widget/imagenes.h"

#include <QCoreApplication>
#include <QtQml/qqmlextensionplugin.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string_view>

namespace {

bool tiene(int argc, char** argv, std::string_view flag)
{
    return std::any_of(argv + 1, argv + argc, [&](const char* a) { return flag == a; });
}

void imprimir(const std::string& s)
{
    std::fwrite(s.data(), 1, s.size(), stdout);
}

std::string ayuda()
{
    return tr("Vorlano analiza tu carpeta personal, ordena lo que se puede borrar por lo seguro que es "
              "y no borra nada sin tu confirmación.\n"
              "\n"
              "Uso: vorlano [opción]\n"
              "     vorlano [vorlano://enlace]\n"
              "\n"
              "Sin opciones, abre la aplicación de escritorio; con un enlace vorlano:// (resumen, analizar,\n"
              "limpieza, mapa o desinstalar), la lleva a esa sección, y si ya está abierta se lo pasa a ella.\n"
              "\n"
              "  --mapa            mide la carpeta personal y muestra sus carpetas más grandes\n"
              "  --scan            analiza y muestra el informe; no cambia nada\n"
              "  --clean-defaults  analiza, muestra el informe y limpia lo seleccionado por defecto\n"
              "  --clean-all       analiza, muestra el informe, selecciona todo y limpia\n"
              "  --widget-png CARPETA [--ejemplo]\n"
              "                    guarda el widget en sus tres tamaños, claro y oscuro, como PNG en\n"
              "                    CARPETA; con --ejemplo, con cifras de muestra en vez de las del disco\n"
              "  --widget [chico|mediano|grande]\n"
              "                    pone el widget en el escritorio, con el tamaño dado o el de la última vez\n"
              "  --help            muestra esta ayuda\n"
              "  --version         muestra la versión\n"
              "\n"
              "Limpiar desde la terminal solo funciona en modo de prueba: con VORLANO_HOME apuntando a una\n"
              "carpeta, Vorlano trabaja allí como si fuera tu carpeta personal y no toca nada más.\n"
              "VORLANO_TIEMPOS muestra en la salida de errores cuánto tarda cada etapa del análisis.\n");
}

// The folder after the first --widget-png; none when it is the last argument.
std::optional<std::filesystem::path> carpetaImagenes(int argc, char** argv)
{
    const auto f = std::find_if(argv + 1, argv + argc, [](const char* a) { return std::string_view(a) == "--widget-png"; });
    if (f == argv + argc || f + 1 == argv + argc)
        return std::nullopt;
    return std::filesystem::path(*(f + 1));
}

bool esTerminal(int argc, char** argv)
{
    for (const char* flag : {"--help", "--version", "--mapa", "--scan", "--clean-defaults", "--clean-all"})
        if (tiene(argc, argv, flag))
            return true;
    return false;
}

} // namespace

// The screens' QML module, compiled into the program.
Q_IMPORT_QML_PLUGIN(VorlanoPlugin)

int main(int argc, char** argv)
{
    // Test mode is hermetic: whatever the program writes stays in the scratch home.
    if (const Entorno e = Entorno::actual(); e.prueba)
        plataforma::aislarEnCarpeta(e.home);

    if (const auto carpeta = carpetaImagenes(argc, argv))
        return ejecutarImagenesWidget(argc, argv, *carpeta, tiene(argc, argv, "--ejemplo"));

    if (!esTerminal(argc, argv)) {
        if (tiene(argc, argv, "--widget"))
            return ejecutarAnfitrionWidget(argc, argv);
        VorlanoApp::main(argc, argv);
    }

    QCoreApplication app(argc, argv);
    // Qt sets the C locale from the environment; numbers we print with printf
    // keep the point.
    std::setlocale(LC_NUMERIC, "C");
    instalarTraducciones();

    int estado = 0;
    if (tiene(argc, argv, "--help")) {
        imprimir(ayuda());
    } else if (tiene(argc, argv, "--version")) {
        imprimir(std::string("vorlano ") + VORLANO_VERSION + "\n");
    } else if (tiene(argc, argv, "--mapa")) {
        Consola::mapa();
    } else if (tiene(argc, argv, "--scan") || tiene(argc, argv, "--clean-defaults") ||
               tiene(argc, argv, "--clean-all")) {
        Consola::ejecutar(!tiene(argc, argv, "--scan"), tiene(argc, argv, "--clean-all"));
    }
    std::fflush(stdout);
    return estado;
}
