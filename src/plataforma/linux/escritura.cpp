// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/escritura.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
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

} // namespace

bool escribirAtomico(const std::filesystem::path& archivo, std::string_view contenido)
{
    const std::filesystem::path carpeta = archivo.has_parent_path() ? archivo.parent_path() : ".";
    // Hidden, beside the file: the rename stays within one file system.
    std::string temporal = (carpeta / ("." + archivo.filename().native() + ".XXXXXX")).native();
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
    return ::close(dir) == 0 && ok;
}

} // namespace plataforma
