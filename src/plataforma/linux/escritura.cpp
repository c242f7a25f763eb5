// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/escritura.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <string>

namespace plataforma {

namespace {

bool escribirTodo(int fd, std::string_view datos)
{
    while (!datos.empty()) {
        const ssize_t n = ::write(fd, datos.data(), datos.size());
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        datos.remove_prefix(size_t(n));
    }
    return true;
}

// A writer takes moments; a temporary file this old was left by one that was
// killed, and nothing else will ever remove it.
constexpr time_t abandonado = 60 * 60;

// Removes the temporary files `prefijo` followed by mkostemp's six letters,
// regular files last changed long ago, from the open folder `dir`.
void quitarAbandonados(int dir, std::string_view prefijo)
{
    DIR* d = ::fdopendir(::dup(dir));
    if (d == nullptr)
        return;
    const time_t limite = ::time(nullptr) - abandonado;
    while (const dirent* e = ::readdir(d)) {
        const std::string_view nombre = e->d_name;
        if (nombre.size() != prefijo.size() + 6 || !nombre.starts_with(prefijo))
            continue;
        struct stat st;
        if (::fstatat(dir, e->d_name, &st, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(st.st_mode) &&
            st.st_mtime < limite)
            ::unlinkat(dir, e->d_name, 0);
    }
    ::closedir(d);
}

} // namespace

bool escribirAtomico(const std::filesystem::path& archivo, std::string_view contenido)
{
    const std::filesystem::path carpeta = archivo.has_parent_path() ? archivo.parent_path() : ".";
    // Hidden, beside the file: the rename stays within one file system.
    const std::string prefijo = "." + archivo.filename().native() + ".";
    std::string temporal = (carpeta / (prefijo + "XXXXXX")).native();
    const int fd = ::mkostemp(temporal.data(), O_CLOEXEC);
    if (fd < 0)
        return false;
    bool ok = escribirTodo(fd, contenido) && ::fsync(fd) == 0;
    ok = ::close(fd) == 0 && ok;
    ok = ok && ::rename(temporal.c_str(), archivo.c_str()) == 0;
    if (!ok) {
        ::unlink(temporal.c_str());
        return false;
    }
    // The rename itself reaches the disk with the folder.
    const int dir = ::open(carpeta.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir < 0)
        return false;
    ok = ::fsync(dir) == 0;
    quitarAbandonados(dir, prefijo);
    return ::close(dir) == 0 && ok;
}

} // namespace plataforma
