// SPDX-License-Identifier: GPL-3.0-or-later
// The administrator's move into the Trash on Linux: the .trashinfo is written
// as the user, which reserves the name as the freedesktop.org Trash does, and
// pkexec (polkit's password prompt) runs mv for the rename alone.
#include "plataforma/permiso.h"

#include "plataforma/ejecutar.h"
#include "plataforma/papelera.h"
#include "plataforma/linux/reserva.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

namespace fs = std::filesystem;

namespace plataforma {
namespace {

// The program given, or pkexec; empty when the move runs with the user's own
// rights, absent when there is no prompt to ask through.
std::optional<std::vector<std::string>> elevador(const std::optional<std::string>& dado)
{
    if (dado)
        return dado->empty() ? std::vector<std::string>{} : std::vector<std::string>{*dado};
    if (const auto pkexec = buscarPrograma({"/usr/bin/pkexec", "/bin/pkexec"}))
        return std::vector<std::string>{*pkexec};
    return std::nullopt;
}

} // namespace

Traslado moverAPapeleraComoAdministrador(const fs::path& dada, const std::optional<std::string>& dado)
{
    Traslado t;
    // "x.app/" names x.app: the name in the Trash and its recorded path come from it.
    const fs::path ruta = sinBarraFinal(fs::absolute(dada).lexically_normal());
    const auto mv = buscarPrograma({"/usr/bin/mv", "/bin/mv"});
    auto orden = elevador(dado);
    struct stat origen;
    PapeleraAbierta papelera;
    if (!mv || !orden || !ruta.has_filename() || ::lstat(ruta.c_str(), &origen) != 0 || !abrirPapelera(papelera))
        return t;
    // mv would copy across file systems; a Trash only renames. Nobody is
    // asked for a password for what can't be done.
    struct stat destino;
    if (::fstat(papelera.archivos.get(), &destino) != 0)
        return t;
    if (destino.st_dev != origen.st_dev) {
        t.error = enOtroSistema();
        return t;
    }

    const auto nombre = reservarNombre(papelera, ruta.filename().native(), ruta);
    if (!nombre)
        return t;
    const fs::path final = carpetaPapelera() / "files" / *nombre;
    orden->insert(orden->end(), {*mv, "-T", "-n", "--", ruta.string(), final.string()});
    const std::string programa = orden->front();
    orden->erase(orden->begin());
    ejecutar(programa, *orden, 300);

    // The exit status of pkexec doesn't tell a refused prompt from a failed
    // mv; what is on disk does.
    struct stat st;
    t.movido = ::lstat(ruta.c_str(), &st) != 0 && errno == ENOENT &&
               ::fstatat(papelera.archivos.get(), nombre->c_str(), &st, AT_SYMLINK_NOFOLLOW) == 0;
    if (!t.movido)
        anularReserva(papelera, *nombre);
    return t;
}

} // namespace plataforma
