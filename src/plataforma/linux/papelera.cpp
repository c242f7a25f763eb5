// SPDX-License-Identifier: GPL-3.0-or-later
// The freedesktop.org home Trash, moved into relative to directory
// descriptors: GIO's g_file_trash renames by path after its own checks, so a
// folder on the path swapped for a link in between would lead it elsewhere.
#include "plataforma/papelera.h"

#include "plataforma/archivos.h"
#include "plataforma/idioma.h"
#include "plataforma/lectura.h"
#include "plataforma/linux/descriptores.h"
#include "plataforma/linux/reserva.h"
#include "plataforma/linux/xdg.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>

namespace fs = std::filesystem;

namespace plataforma {

namespace {

// Whether anything is mounted below the open folder `fd`. Where that can't be
// told, the answer is yes: the move is refused rather than risked.
bool hayMontajeDentro(int fd)
{
    char enlace[64];
    std::snprintf(enlace, sizeof enlace, "/proc/self/fd/%d", fd);
    char buf[PATH_MAX];
    const ssize_t n = ::readlink(enlace, buf, sizeof buf);
    const auto montados = montajesActuales();
    if (n <= 0 || size_t(n) >= sizeof buf || buf[0] != '/' || !montados)
        return true;
    std::string prefijo(buf, size_t(n));
    if (prefijo != "/")
        prefijo += '/';
    for (const Montaje& m : *montados)
        if (m.punto.size() > prefijo.size() && m.punto.starts_with(prefijo))
            return true;
    return false;
}

} // namespace

fs::path carpetaPapelera()
{
    return datosDeUsuario() / "Trash";
}

Traslado moverAPapelera(const fs::path& base, const fs::path& relativa)
{
    Traslado t;
    std::string ultimo;
    IdMontaje montaje;
    const Descriptor dir = abrirPadre(base, relativa, ultimo, t.clase, montaje);
    if (dir.get() < 0) {
        if (t.clase == Clase::ausente)
            t.error = descripcionError(ENOENT);
        return t;
    }
    t.clase = claseEn(dir.get(), ultimo.c_str(), montaje);
    if (t.clase == Clase::ausente) {
        t.error = descripcionError(errno);
        return t;
    }
    if (t.clase == Clase::montaje)
        return t;
    if (t.clase == Clase::carpeta) {
        // A mount inside would move along with the folder, out of where the
        // user put it; the folder stays where it is instead.
        const Descriptor fd(::openat(dir.get(), ultimo.c_str(), abrirCarpeta));
        IdMontaje propio;
        if (fd.get() < 0 || !montajeDe(fd.get(), propio)) {
            // Gone, or swapped for something else, since it was looked at.
            t.error = descripcionError(errno);
            return t;
        }
        if (!(propio == montaje)) {
            t.clase = Clase::montaje;
            return t;
        }
        if (hayMontajeDentro(fd.get())) {
            t.clase = Clase::conMontaje;
            return t;
        }
    }

    PapeleraAbierta papelera;
    if (!abrirPapelera(papelera)) {
        t.error = descripcionError(errno);
        return t;
    }
    const fs::path original = (base.is_absolute() ? base : fs::absolute(base)) / relativa;
    for (int intento = 0; intento < 8; ++intento) {
        const auto nombre = reservarNombre(papelera, ultimo, original.lexically_normal());
        if (!nombre) {
            t.error = descripcionError(errno);
            return t;
        }
        if (auto pausa = pruebas::pausaAntesDeMover.load(std::memory_order_relaxed))
            pausa();
        // The entry swapped since it was looked at goes as what it now is:
        // a link is moved as a link, never followed.
        if (::renameat2(dir.get(), ultimo.c_str(), papelera.archivos.get(), nombre->c_str(), RENAME_NOREPLACE) ==
            0) {
            t.movido = true;
            return t;
        }
        const int error = errno;
        anularReserva(papelera, *nombre);
        if (error == EEXIST)
            continue; // taken by another program since the reservation
        if (error == EXDEV)
            t.error = enOtroSistema();
        else if (error == EBUSY)
            t.clase = Clase::montaje; // mounted on since it was looked at
        else
            t.error = descripcionError(error);
        return t;
    }
    t.error = descripcionError(EEXIST);
    return t;
}

Traslado moverAPapelera(const fs::path& ruta)
{
    const fs::path r = sinBarraFinal(ruta);
    if (!r.has_filename() || r.filename() == "." || r.filename() == "..") {
        Traslado t;
        t.error = descripcionError(EINVAL);
        return t;
    }
    return moverAPapelera(r.has_parent_path() ? r.parent_path() : fs::path("."), r.filename());
}

namespace {

// Whether a part of the Trash was emptied, or wasn't there.
bool vaciada(const Vaciado& v)
{
    if (v.clase == Clase::ausente)
        return true;
    return (v.clase == Clase::archivo || v.clase == Clase::carpeta) && v.error.empty() && v.fallidos == 0;
}

} // namespace

std::optional<std::string> vaciarPapelera()
{
    // Trash URIs need a desktop daemon that may not be running; the folders
    // of the Trash are emptied with the same removal as everything else.
    // directorysizes is a cache of the sizes of trashed folders.
    const fs::path papelera = carpetaPapelera();
    const Vaciado archivos = vaciar(papelera, "files");
    bool ok = vaciada(archivos);
    // What stays in files/ keeps its .trashinfo: the Trash still lists it,
    // with where it came from.
    std::vector<std::string> quedan;
    if (archivos.clase == Clase::carpeta && archivos.fallidos > 0)
        quedan = nombresEn(papelera / "files");
    if (quedan.empty()) {
        ok = vaciada(vaciar(papelera, "info")) && ok;
    } else if (examinar(papelera, "info") == Clase::carpeta) {
        for (const std::string& n : nombresEn(papelera / "info"))
            if (!n.ends_with(".trashinfo") ||
                std::find(quedan.begin(), quedan.end(), n.substr(0, n.size() - 10)) == quedan.end())
                ok = vaciada(vaciar(papelera, fs::path("info") / n)) && ok;
    }
    for (const char* parte : {"expunged", "directorysizes"})
        ok = vaciada(vaciar(papelera, parte)) && ok;
    if (ok)
        return std::nullopt;
    // An entry moved with an administrator's password is still theirs: its
    // insides can't go without that password again. The user is told which.
    const uid_t yo = ::geteuid();
    for (const std::string& n : quedan) {
        struct stat st;
        if (::lstat((papelera / "files" / n).c_str(), &st) == 0 && st.st_uid != yo) {
            std::string m = tr("No se pudo vaciar la Papelera: {nombre} es de otro usuario y solo un "
                               "administrador puede borrarlo");
            if (const size_t i = m.find("{nombre}"); i != std::string::npos)
                m.replace(i, 8, textoVisible(n));
            return m;
        }
    }
    return tr("No se pudo vaciar la Papelera");
}

} // namespace plataforma
