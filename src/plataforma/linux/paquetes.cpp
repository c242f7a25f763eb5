// SPDX-License-Identifier: GPL-3.0-or-later
// Removing Flatpak and Snap applications through their own tools, which keep
// their installations consistent; we never delete inside them ourselves.
#include "plataforma/paquetes.h"

#include "plataforma/ejecutar.h"
#include "plataforma/idioma.h"
#include "plataforma/lectura.h"

#include <sys/stat.h>

#include <string_view>

namespace fs = std::filesystem;

namespace plataforma {
namespace {

// pkexec's exit status when the prompt was dismissed or authorisation refused.
constexpr int32_t cancelado = 126, noAutorizado = 127;

// The last line a tool wrote, without its "error: " label, printable and short.
std::string ultimaLinea(std::string_view salida)
{
    while (!salida.empty() && (salida.back() == '\n' || salida.back() == '\r' || salida.back() == ' '))
        salida.remove_suffix(1);
    if (const size_t p = salida.rfind('\n'); p != std::string_view::npos)
        salida.remove_prefix(p + 1);
    for (std::string_view etiqueta : {"error: ", "Error: "})
        if (salida.starts_with(etiqueta))
            salida.remove_prefix(etiqueta.size());
    // A message, not a screenful: control characters go, and so does what
    // passes a long line.
    std::string r;
    for (const char c : salida.substr(0, 300))
        if (static_cast<unsigned char>(c) >= 0x20 && c != 0x7f)
            r += c;
    return textoVisible(r);
}

// Runs the tool (its path first in `orden`), as administrator when asked.
Desinstalacion correr(std::vector<std::string> orden, const std::string& herramienta, bool elevado,
                      const ProgramasPaquetes& programas)
{
    Desinstalacion d;
    d.programa = herramienta;
    if (orden.front().empty() || !buscarPrograma({orden.front()})) {
        d.estado = Desinstalacion::Estado::sinPrograma;
        return d;
    }
    if (elevado) {
        std::optional<std::string> quien = programas.elevador;
        if (!quien)
            quien = buscarPrograma({"/usr/bin/pkexec", "/bin/pkexec"});
        if (!quien) {
            d.estado = Desinstalacion::Estado::sinPrograma;
            d.programa = "pkexec";
            return d;
        }
        if (!quien->empty())
            orden.insert(orden.begin(), *quien);
    }
    const std::string programa = orden.front();
    orden.erase(orden.begin());
    const auto salida = ejecutar(programa, orden, programas.limite, true);
    if (!salida) {
        d.estado = Desinstalacion::Estado::sinRespuesta;
        return d;
    }
    if (salida->codigo == 0)
        return d;
    d.codigo = salida->codigo;
    d.mensaje = ultimaLinea(salida->salida);
    d.estado = elevado && (d.codigo == cancelado || d.codigo == noAutorizado) ? Desinstalacion::Estado::negada
                                                                            : Desinstalacion::Estado::fallida;
    return d;
}

} // namespace

Desinstalacion quitarFlatpak(const AppPaquete& app, const std::string& opcion, const ProgramasPaquetes& programas)
{
    // Each deployed arch/branch by its full ref, so that flatpak has nothing
    // to ask about.
    std::vector<std::string> refs;
    for (const std::string& arch : nombresEn(app.carpeta))
        for (const std::string& rama : arch == "current" ? std::vector<std::string>{} : nombresEn(app.carpeta / arch)) {
            struct stat st;
            if (::lstat((app.carpeta / arch / rama / "active").c_str(), &st) == 0)
                refs.push_back("app/" + app.id + "/" + arch + "/" + rama);
        }
    if (refs.empty())
        refs.push_back(app.id);

    // flatpak's own non-interactive mode also forbids polkit's prompt, and
    // without a terminal it won't ask; the system's installation is changed
    // as administrator instead, after the system's password prompt.
    std::vector<std::string> orden{programas.flatpak.value_or(buscarPrograma({"/usr/bin/flatpak"}).value_or("")),
                                   "uninstall", opcion, "--noninteractive", "-y"};
    orden.insert(orden.end(), refs.begin(), refs.end());
    return correr(std::move(orden), "flatpak", opcion != "--user", programas);
}

Desinstalacion quitarSnap(const std::string& nombre, const ProgramasPaquetes& programas)
{
    // snapd only takes removals from root or with polkit's consent, which
    // its client can't ask for without a terminal.
    return correr({programas.snap.value_or(buscarPrograma({"/usr/bin/snap"}).value_or("")), "remove", nombre},
                  "snap", true, programas);
}

} // namespace plataforma
