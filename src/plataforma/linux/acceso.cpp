// SPDX-License-Identifier: GPL-3.0-or-later
// Full access to the home on Linux: every process has its user's rights, but
// a Flatpak sandbox sees only what its permissions grant, and says which in
// the key file it finds at /.flatpak-info.
#include "plataforma/apps.h"
#include "plataforma/lectura.h"
#include "plataforma/sistema.h"

#include <glib.h>

#include <string_view>

namespace fs = std::filesystem;

namespace plataforma {
namespace {

constexpr const char* descripcionFlatpak = "/.flatpak-info";
constexpr size_t maximoDescripcion = 256 * 1024;

// One value of a key file (GLib's reader, as Flatpak's own); absent when the
// text isn't a key file or has no such key.
std::optional<std::string> valorEn(const std::string& texto, const char* grupo, const char* clave)
{
    GKeyFile* k = g_key_file_new();
    std::optional<std::string> r;
    if (g_key_file_load_from_data(k, texto.data(), texto.size(), G_KEY_FILE_NONE, nullptr))
        if (gchar* v = g_key_file_get_string(k, grupo, clave, nullptr)) {
            r = v;
            g_free(v);
        }
    g_key_file_free(k);
    return r;
}

} // namespace

bool accesoTotalSegun(const fs::path& descripcion)
{
    std::error_code ec;
    if (!fs::exists(descripcion, ec))
        return true;
    const auto texto = leerArchivo(descripcion, maximoDescripcion);
    if (!texto)
        return false;
    // "filesystems=host;xdg-download:ro;!home;" — the whole home or the whole
    // host, without ":ro" or ":create"; a "!" entry takes a grant back.
    bool concedido = false;
    const std::string lista = valorEn(*texto, "Context", "filesystems").value_or("");
    for (size_t i = 0; i <= lista.size();) {
        const size_t fin = std::min(lista.find(';', i), lista.size());
        std::string_view e = std::string_view(lista).substr(i, fin - i);
        i = fin + 1;
        const bool negado = e.starts_with('!');
        if (negado)
            e.remove_prefix(1);
        if (e.ends_with(":rw"))
            e.remove_suffix(3);
        if (e == "home" || e == "host")
            concedido = !negado;
    }
    return concedido;
}

bool tieneAccesoTotal()
{
    return accesoTotalSegun(descripcionFlatpak);
}

ComoDarAcceso comoDarAccesoTotalSegun(const fs::path& descripcion)
{
    // Linux has no settings page for it; inside Flatpak, an override does it.
    std::error_code ec;
    if (!fs::exists(descripcion, ec))
        return {};
    const auto texto = leerArchivo(descripcion, maximoDescripcion);
    const std::string id = texto ? valorEn(*texto, "Application", "name").value_or("") : "";
    return {{}, "flatpak override --user --filesystem=home " + (id.empty() ? std::string(identificadorPropio) : id)};
}

ComoDarAcceso comoDarAccesoTotal()
{
    return comoDarAccesoTotalSegun(descripcionFlatpak);
}

} // namespace plataforma
