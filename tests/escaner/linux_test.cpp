// SPDX-License-Identifier: GPL-3.0-or-later
// The scan of a Linux-shaped home: the demo's cache and config homes, Flatpak
// and Snap caches, and user folders under their Spanish names.
#include "comun.h"

#include "apoyo/proceso.h"

#include <gtest/gtest.h>

#include <map>

namespace fs = std::filesystem;

TEST(CasaLinux, CadaLugarEnSuCategoriaConSuTamano)
{
    apoyo::CasaPrueba casa;
    apoyo::crearCasaDemo(casa.raiz());
    std::vector<Categoria> cats;
    {
        apoyo::Variable grande("VORLANO_GRANDE_MB", "20");
        cats = Escaner(casa.entorno()).escanear([](const std::string&) {});
    }
    std::map<std::string, std::string> donde; // each location of an item -> its category
    for (const Categoria& c : cats)
        for (const Elemento& e : c.elementos) {
            int64_t du = 0;
            for (const fs::path& u : e.urls()) {
                donde[u.lexically_relative(casa.raiz()).string()] = c.id;
                du += apoyo::du(u);
            }
            EXPECT_EQ(e.tamano, du) << e.url;
        }
    const std::pair<const char*, const char*> esperados[] = {
        {".cache/mozilla", "apps"},
        {".cache/google-chrome", "apps"},
        {".cache/thumbnails", "apps"},
        {".cache/fontconfig", "apps"},
        {".config/discord/Cache", "apps"},
        {".config/discord/Code Cache", "apps"},
        {".config/google-chrome/GrShaderCache", "apps"},
        {".var/app/org.gimp.GIMP/cache", "apps"},
        {"snap/spotify/84/.cache", "apps"},
        {"snap/spotify/common/.cache", "apps"},
        {".local/share/xorg/Xorg.0.log.old", "logs"},
        {".config/discord/logs", "logs"},
        {".cache/yarn", "dev"},
        {".cache/go-build", "dev"},
        {".cache/JetBrains", "dev"},
        {".local/share/pnpm/store", "dev"},
        {".config/Code/CachedExtensionVSIXs", "dev"},
        {"go/pkg/mod", "dev"},
        {".cache/ms-playwright", "redescarga"},
        {"miniconda3/pkgs", "redescarga"},
        {"Descargas/google-chrome-stable_current_amd64.deb", "instaladores"},
        {"Descargas/debian-12.5.0-amd64-netinst.iso", "instaladores"},
        {"Descargas/Contrato alquiler.pdf", "duplicados"},
        {"Descargas/Contrato alquiler (1).pdf", "duplicados"},
        {"Escritorio/archivo-03 copia.bin", "duplicados"},
    };
    for (const auto& [lugar, categoria] : esperados)
        EXPECT_EQ(donde[lugar], categoria) << lugar;
    // What a desktop keeps that is no cache, and what is already on its way out.
    for (const auto& [lugar, categoria] : donde)
        for (const char* nunca : {".cache/sessions", ".config/discord/Local Storage", ".config/google-chrome/Default",
                                  ".var/app/org.gimp.GIMP/config", ".local/share/xorg/Xorg.0.log",
                                  ".local/share/Trash", ".local/share/keyrings", ".config/autostart",
                                  ".xsession-errors.old", "snap/spotify/current"})
            EXPECT_FALSE(lugar == nunca || lugar.starts_with(std::string(nunca) + "/")) << lugar;

    // Downloads two months on: all that lies in Descargas, nothing of the
    // English Downloads the Spanish desktop doesn't use.
    const auto viejas = Escaner(casa.entorno()).descargasAntiguas(std::chrono::system_clock::now() + std::chrono::days(61));
    std::set<std::string> nombres;
    for (const Elemento& e : viejas)
        nombres.insert(e.url.lexically_relative(casa.raiz()).string());
    std::set<std::string> enDescargas;
    for (const auto& e : fs::directory_iterator(casa.ruta("Descargas")))
        enDescargas.insert("Descargas/" + e.path().filename().string());
    EXPECT_EQ(nombres, enDescargas);
    EXPECT_GE(nombres.size(), 4u);
}
