// SPDX-License-Identifier: GPL-3.0-or-later
// Installed applications on Linux: .app bundles in the application folders,
// desktop entries and Flatpak applications.
#include "plataforma/apps.h"

#include "plataforma/arbol.h"
#include "plataforma/plist.h"
#include "plataforma/idioma.h"
#include "plataforma/archivos.h"
#include "plataforma/linux/xdg.h"
#include "plataforma/paquetes.h"
#include "plataforma/sistema.h"

#include <cstdlib>

namespace fs = std::filesystem;

namespace plataforma {

std::vector<fs::path> programaPropio()
{
    std::vector<fs::path> r;
    std::error_code ec;
    if (fs::path exe = fs::read_symlink("/proc/self/exe", ec); !ec)
        r.push_back(std::move(exe));
    // The AppImage runtime runs the program from a mount of its own and names
    // the file it was started from.
    if (const char* imagen = std::getenv("APPIMAGE"); imagen && fs::path(imagen).is_absolute())
        r.push_back(fs::weakly_canonical(imagen, ec));
    return r;
}

std::vector<fs::path> bundlesDeApps(const fs::path& raiz)
{
    std::vector<fs::path> r;
    recorrerArbol(raiz, [&](const EntradaArbol& e) {
        if (e.nivel == 0 || e.tipo == TipoEntrada::finCarpeta || e.tipo == TipoEntrada::ilegible)
            return Paso::seguir;
        if (e.nombre.starts_with('.'))
            return Paso::podar;
        if (e.ruta.ends_with(".app")) {
            r.emplace_back(e.ruta);
            return Paso::podar;
        }
        return e.tipo == TipoEntrada::carpeta && (e.nivel >= 4 || esPaquete(e.ruta.data())) ? Paso::podar : Paso::seguir;
    });
    return r;
}

AppsConocidas::AppsConocidas()
{
    // Bundles, where a Mac keeps them.
    for (const fs::path& raiz : {fs::path("/Applications"), carpetaPersonalReal() / "Applications"})
        for (const fs::path& b : bundlesDeApps(raiz))
            if (const auto d = leerPlist(b / "Contents/Info.plist"))
                if (const auto id = textoDe(*d, "CFBundleIdentifier"))
                    ids_.insert(minusculas(*id));

    // Desktop entries: their file id is the application's identifier.
    for (const fs::path& base : carpetasDeEntradas()) {
        std::error_code ec;
        for (fs::recursive_directory_iterator it(base, fs::directory_options::skip_permission_denied, ec), fin;
             !ec && it != fin; it.increment(ec))
            if (it->path().extension() == ".desktop")
                ids_.insert(minusculas(idDeEntrada(base, it->path())));
    }

    // Flatpak: one folder per application id, in the user's and the system's
    // installation.
    std::vector<InstalacionFlatpak> instalaciones = flatpaksDeSistema();
    instalaciones.push_back({datosDeUsuario() / "flatpak", "--user"});
    for (const InstalacionFlatpak& inst : instalaciones) {
        std::error_code ec;
        for (fs::directory_iterator it(inst.carpeta / "app", ec), fin; !ec && it != fin; it.increment(ec))
            ids_.insert(minusculas(it->path().filename().string()));
    }
}

bool AppsConocidas::existe(std::string_view id) const
{
    return ids_.contains(minusculas(id));
}

} // namespace plataforma
