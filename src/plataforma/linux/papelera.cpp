// SPDX-License-Identifier: GPL-3.0-or-later
// The freedesktop.org Trash through GIO: the .trashinfo is written before the
// move, links are not followed, and a move across file systems is refused
// rather than turned into a copy.
#include "plataforma/papelera.h"

#include "plataforma/idioma.h"
#include "plataforma/borrado.h"

#include <gio/gio.h>
#include <sys/stat.h>

#include <cerrno>

namespace fs = std::filesystem;

namespace plataforma {

namespace {

// The device of the path, or of its nearest existing parent (the Trash is
// created on first use). Links are followed: GIO moves into the folder they
// lead to.
bool dispositivo(fs::path p, dev_t& d)
{
    struct stat st;
    for (;;) {
        if (::stat(p.c_str(), &st) == 0) {
            d = st.st_dev;
            return true;
        }
        if (errno != ENOENT || !p.has_relative_path())
            return false;
        p = p.parent_path();
    }
}

} // namespace

fs::path carpetaPapelera()
{
    // GLib's own reading of XDG_DATA_HOME, so that we empty the Trash that
    // g_file_trash fills.
    return fs::path(g_get_user_data_dir()) / "Trash";
}

std::optional<std::string> moverAPapelera(const fs::path& ruta)
{
    struct stat st;
    if (::lstat(ruta.c_str(), &st) != 0)
        return descripcionError(errno);
    // GIO picks the Trash by the home folder's device and, for an entry on
    // another one, makes a Trash at the top of that file system: outside the
    // home, and outside the scratch home in test mode. Only the home Trash is
    // ours to fill.
    dev_t papelera = 0;
    dev_t casa = 0;
    if (!dispositivo(carpetaPapelera(), papelera) || !dispositivo(g_get_home_dir(), casa) ||
        st.st_dev != papelera || st.st_dev != casa)
        return tr("No se puede mover a la Papelera porque está en otro sistema de archivos");

    GFile* archivo = g_file_new_for_path(ruta.c_str());
    GError* error = nullptr;
    const bool ok = g_file_trash(archivo, nullptr, &error);
    g_object_unref(archivo);
    if (ok)
        return std::nullopt;
    std::string texto = error != nullptr ? error->message : tr("No se pudo mover a la Papelera");
    g_clear_error(&error);
    return texto;
}

std::optional<std::string> vaciarPapelera()
{
    // Trash URIs need a desktop daemon that may not be running; the folders
    // of the Trash are emptied with the same removal as everything else.
    // directorysizes is a cache of the sizes of trashed folders.
    const fs::path papelera = carpetaPapelera();
    bool ok = true;
    for (const char* parte : {"files", "info", "expunged", "directorysizes"}) {
        const Vaciado v = vaciar(papelera, parte);
        switch (v.clase) {
        case Clase::ausente:
            break;
        case Clase::archivo:
        case Clase::carpeta:
            ok = ok && v.error.empty() && v.fallidos == 0;
            break;
        case Clase::enlace:
        case Clase::enlaceEnRuta:
            ok = false;
            break;
        }
    }
    if (ok)
        return std::nullopt;
    return tr("No se pudo vaciar la Papelera");
}

} // namespace plataforma
