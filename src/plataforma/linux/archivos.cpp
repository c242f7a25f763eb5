// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/archivos.h"

#include "plataforma/idioma.h"

#include <fcntl.h>
#include <linux/fiemap.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QMimeDatabase>

#include <cstring>
#include <unordered_set>
#include <vector>

namespace plataforma {

std::optional<std::chrono::system_clock::time_point> fechaCreacion(const std::filesystem::path& ruta)
{
    struct statx sx;
    if (::statx(AT_FDCWD, ruta.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, STATX_BTIME, &sx) != 0 ||
        !(sx.stx_mask & STATX_BTIME))
        return std::nullopt;
    using namespace std::chrono;
    return system_clock::time_point(
        duration_cast<system_clock::duration>(seconds(sx.stx_btime.tv_sec) + nanoseconds(sx.stx_btime.tv_nsec)));
}

std::optional<std::chrono::system_clock::time_point> fechaLlegada(const std::filesystem::path&)
{
    // No Linux file system records when an entry was moved into its folder.
    return std::nullopt;
}

bool esPaquete(const std::filesystem::path& ruta)
{
    return esPaquete(ruta.c_str());
}

bool esPaquete(const char* ruta)
{
    // There is no package flag on Linux: the extensions macOS treats as
    // packages stand for it.
    static const std::unordered_set<std::string> extensiones{
        "app",       "appex",     "bundle",       "framework",   "plugin",      "kext",          "photoslibrary",
        "xcarchive", "xcodeproj", "xcworkspace",  "playground",  "docset",      "dsym",          "xpc",
        "prefpane",  "saver",     "qlgenerator",  "mdimporter",  "component",   "vst",           "vst3",
        "aaxplugin", "mpkg",      "rtfd",         "key",         "pages",       "numbers",       "logicx",
        "band",      "fcpbundle", "musiclibrary", "tvlibrary",   "imovielibrary", "photolibrary", "sparsebundle",
        "scptd",     "workflow",  "wdgt",         "theater"};
    const std::string_view r(ruta);
    const std::string_view nombre = r.substr(r.find_last_of('/') + 1);
    const size_t punto = nombre.find_last_of('.');
    if (punto == std::string_view::npos || punto == 0 || punto + 1 == nombre.size())
        return false;
    // No extension of the list is longer than this; shorter texts stay in the
    // string's own storage, so a walk asking for every folder allocates nothing.
    const std::string_view ext = nombre.substr(punto + 1);
    if (ext.size() > 15 || !extensiones.contains(minusculas(ext)))
        return false;
    struct stat st;
    return ::lstat(ruta, &st) == 0 && S_ISDIR(st.st_mode);
}

bool esClon(const std::filesystem::path& ruta)
{
    // O_NONBLOCK: a file swapped for a FIFO must not stall the open.
    const int fd = ::open(ruta.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return false;
    constexpr unsigned porLlamada = 32;
    alignas(fiemap) unsigned char memoria[sizeof(fiemap) + porLlamada * sizeof(fiemap_extent)];
    auto* mapa = reinterpret_cast<fiemap*>(memoria);
    bool clon = false;
    uint64_t desde = 0;
    for (bool seguir = true; seguir && !clon;) {
        std::memset(memoria, 0, sizeof memoria);
        mapa->fm_start = desde;
        mapa->fm_length = FIEMAP_MAX_OFFSET - desde;
        mapa->fm_extent_count = porLlamada;
        if (::ioctl(fd, FS_IOC_FIEMAP, mapa) != 0 || mapa->fm_mapped_extents == 0)
            break;
        for (unsigned i = 0; i < mapa->fm_mapped_extents; ++i) {
            const fiemap_extent& e = mapa->fm_extents[i];
            if (e.fe_flags & FIEMAP_EXTENT_SHARED)
                clon = true;
            if (e.fe_flags & FIEMAP_EXTENT_LAST)
                seguir = false;
            desde = e.fe_logical + e.fe_length;
        }
    }
    ::close(fd);
    return clon;
}

std::optional<std::string> descripcionTipo(std::string_view nombre)
{
    // Only the name is looked at: the file is neither opened nor statted, and
    // the name (bytes) is turned into text for the lookup alone.
    const QList<QMimeType> tipos =
        QMimeDatabase().mimeTypesForFileName(QString::fromUtf8(nombre.data(), qsizetype(nombre.size())));
    if (tipos.isEmpty())
        return std::nullopt;
    const QString comentario = tipos.first().comment();
    if (comentario.isEmpty())
        return std::nullopt;
    return comentario.toStdString();
}

std::string nombreVisible(const std::filesystem::path& ruta)
{
    // Linux file managers show the file name as it is, extension included.
    const std::filesystem::path& p = ruta.has_filename() ? ruta : ruta.parent_path();
    return p.filename().string();
}

} // namespace plataforma
