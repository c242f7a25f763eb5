// SPDX-License-Identifier: GPL-3.0-or-later
// Flatpak applications, read from an installation folder: app/<id>/current
// leads to the active deployment, whose metadata names the application and
// whose export/ folder holds its desktop entry and icons.
#include "plataforma/paquetes.h"

#include "plataforma/entradas.h"
#include "plataforma/lectura.h"

#include <glib.h>
#include <sys/stat.h>

#include <cstdlib>
#include <string_view>

namespace fs = std::filesystem;

namespace plataforma {
namespace {

// The metadata key file and the deploy record are small; anything larger is
// not flatpak's.
constexpr size_t maximoMetadatos = 256 * 1024;

// The [Application] name of a metadata key file (GLib's reader, as flatpak's).
std::string nombreEnMetadatos(const std::string& texto)
{
    GKeyFile* k = g_key_file_new();
    std::string r;
    if (g_key_file_load_from_data(k, texto.data(), texto.size(), G_KEY_FILE_NONE, nullptr))
        if (gchar* n = g_key_file_get_string(k, "Application", "name", nullptr)) {
            r = n;
            g_free(n);
        }
    g_key_file_free(k);
    return r;
}

// The application's version that flatpak took from its AppStream data when it
// deployed it: "appdata-version" in the metadata of the deploy record, a
// GVariant (origin, commit, subpaths, installed size, metadata). GVariant
// reads untrusted data safely: damaged bytes give an empty answer.
std::string versionDeDespliegue(const fs::path& deploy)
{
    const auto datos = leerArchivo(deploy, maximoMetadatos);
    if (!datos || datos->empty())
        return {};
    GBytes* bytes = g_bytes_new(datos->data(), datos->size());
    GVariant* v = g_variant_ref_sink(g_variant_new_from_bytes(G_VARIANT_TYPE("(ssasta{sv})"), bytes, FALSE));
    GVariant* meta = g_variant_get_child_value(v, 4);
    std::string r;
    const gchar* version = nullptr;
    if (g_variant_lookup(meta, "appdata-version", "&s", &version) && version != nullptr)
        r = version;
    g_variant_unref(meta);
    g_variant_unref(v);
    g_bytes_unref(bytes);
    return r;
}

} // namespace

std::vector<InstalacionFlatpak> flatpaksDeSistema()
{
    std::vector<InstalacionFlatpak> r;
    const char* s = std::getenv("FLATPAK_SYSTEM_DIR");
    r.push_back({s != nullptr && *s ? fs::path(s) : fs::path("/var/lib/flatpak"), "--system"});
    const char* c = std::getenv("FLATPAK_CONFIG_DIR");
    const fs::path conf = fs::path(c != nullptr && *c ? c : "/etc/flatpak") / "installations.d";
    // Each key file holds groups [Installation "<id>"] with the folder in Path.
    for (const std::string& nombre : nombresEn(conf)) {
        if (!nombre.ends_with(".conf"))
            continue;
        const auto texto = leerArchivo(conf / nombre, maximoMetadatos);
        if (!texto)
            continue;
        GKeyFile* k = g_key_file_new();
        if (g_key_file_load_from_data(k, texto->data(), texto->size(), G_KEY_FILE_NONE, nullptr)) {
            gchar** grupos = g_key_file_get_groups(k, nullptr);
            for (gchar** g = grupos; g != nullptr && *g != nullptr; ++g) {
                const std::string_view grupo(*g);
                constexpr std::string_view prefijo = "Installation \"";
                if (!grupo.starts_with(prefijo) || !grupo.ends_with('"') || grupo.size() <= prefijo.size() + 1)
                    continue;
                const std::string id(grupo.substr(prefijo.size(), grupo.size() - prefijo.size() - 1));
                if (gchar* ruta = g_key_file_get_string(k, *g, "Path", nullptr)) {
                    if (ruta[0] == '/')
                        r.push_back({fs::path(ruta), "--installation=" + id});
                    g_free(ruta);
                }
            }
            g_strfreev(grupos);
        }
        g_key_file_free(k);
    }
    return r;
}

std::vector<AppPaquete> appsFlatpak(const fs::path& instalacion)
{
    std::vector<AppPaquete> r;
    if (instalacion.empty())
        return r;
    const fs::path apps = instalacion / "app";
    for (std::string& id : nombresEn(apps)) {
        if (id.starts_with('.'))
            continue;
        AppPaquete app;
        app.carpeta = apps / id;
        struct stat st;
        if (::lstat(app.carpeta.c_str(), &st) != 0 || !S_ISDIR(st.st_mode))
            continue;
        const fs::path activa = app.carpeta / "current/active";
        const auto metadatos = leerArchivo(activa / "metadata", maximoMetadatos);
        if (!metadatos || nombreEnMetadatos(*metadatos) != id)
            continue;
        const fs::path share = activa / "export/share";
        const auto entrada = leerEntrada(share / "applications" / (id + ".desktop"), id);
        app.nombre = entrada && !entrada->nombre.empty() ? entrada->nombre : id;
        app.icono = iconoDeTema(share, entrada && !entrada->icono.empty() ? entrada->icono : id);
        app.version = versionDeDespliegue(activa / "deploy");
        app.id = std::move(id);
        r.push_back(std::move(app));
    }
    return r;
}

} // namespace plataforma
