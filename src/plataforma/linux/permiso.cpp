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

bool moverAPapeleraComoAdministrador(const fs::path& ruta, const std::optional<std::string>& dado)
{
    const auto mv = buscarPrograma({"/usr/bin/mv", "/bin/mv"});
    auto orden = elevador(dado);
    struct stat origen;
    PapeleraAbierta papelera;
    if (!mv || !orden || ::lstat(ruta.c_str(), &origen) != 0 || !abrirPapelera(papelera))
        return false;
    // mv would copy across file systems; a Trash only renames.
    struct stat destino;
    if (::fstat(papelera.archivos.get(), &destino) != 0 || destino.st_dev != origen.st_dev)
        return false;

    const auto nombre = reservarNombre(papelera, ruta.filename().native(), fs::absolute(ruta).lexically_normal());
    if (!nombre)
        return false;
    const fs::path final = carpetaPapelera() / "files" / *nombre;
    orden->insert(orden->end(), {*mv, "-T", "-n", "--", ruta.string(), final.string()});
    const std::string programa = orden->front();
    orden->erase(orden->begin());
    ejecutar(programa, *orden, 300);

    // The exit status of pkexec doesn't tell a refused prompt from a failed
    // mv; what is on disk does.
    struct stat st;
    if (::lstat(ruta.c_str(), &st) != 0 && errno == ENOENT &&
        ::fstatat(papelera.archivos.get(), nombre->c_str(), &st, AT_SYMLINK_NOFOLLOW) == 0)
        return true;
    anularReserva(papelera, *nombre);
    return false;
}

} // namespace plataforma
