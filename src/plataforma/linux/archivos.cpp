// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/archivos.h"

#include "nucleo/textos.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <string_view>
#include <unordered_set>

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

bool esPaquete(const std::filesystem::path& ruta)
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
    const std::string ext = ruta.extension().string();
    if (ext.size() < 2)
        return false;
    if (!extensiones.contains(minusculas(std::string_view(ext).substr(1))))
        return false;
    struct stat st;
    return ::lstat(ruta.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

std::string nombreVisible(const std::filesystem::path& ruta)
{
    // Linux file managers show the file name as it is, extension included.
    const std::filesystem::path& p = ruta.has_filename() ? ruta : ruta.parent_path();
    return p.filename().string();
}

} // namespace plataforma
