// SPDX-License-Identifier: GPL-3.0-or-later
#include "plataforma/lugares.h"

#include "apoyo/casa.h"
#include "apoyo/proceso.h"

#include <gtest/gtest.h>

using plataforma::Base;
using plataforma::Personal;
namespace fs = std::filesystem;

// Absolute values of the environment count, relative ones are ignored, and
// test mode never reads it.
TEST(Lugares, BasesDelEntorno)
{
    const fs::path casa = "/home/ana";
    const struct {
        Base base;
        const char* variable;
        std::optional<std::string> valor;
        const char* esperada;
    } casos[] = {
        {Base::cache, "XDG_CACHE_HOME", std::nullopt, "/home/ana/.cache"},
        {Base::cache, "XDG_CACHE_HOME", "", "/home/ana/.cache"},
        {Base::cache, "XDG_CACHE_HOME", "/var/tmp/c/", "/var/tmp/c"},
        {Base::config, "XDG_CONFIG_HOME", "relativa/conf", "/home/ana/.config"},
        {Base::datos, "XDG_DATA_HOME", "/home/ana/x/../datos", "/home/ana/datos"},
        {Base::estado, "XDG_STATE_HOME", std::nullopt, "/home/ana/.local/state"},
    };
    for (const auto& c : casos) {
        apoyo::Variable v(c.variable, c.valor);
        EXPECT_EQ(plataforma::carpetaBase(c.base, casa, false), fs::path(c.esperada)) << c.variable;
        EXPECT_EQ(plataforma::carpetaBase(c.base, casa, true), casa / plataforma::basePorDefecto(c.base));
    }
}

// user-dirs.dirs read as a shell would; what leads out of home, is home, or
// can't be understood keeps the English name, as does a file too big.
TEST(Lugares, CarpetasDeUserDirs)
{
    const fs::path casa = "/home/ana";
    const struct {
        const char* texto;
        Personal carpeta;
        const char* esperada;
    } casos[] = {
        {"XDG_DOWNLOAD_DIR=\"$HOME/Descargas\"\n", Personal::descargas, "/home/ana/Descargas"},
        {"  XDG_DOCUMENTS_DIR=\"${HOME}/Mis \\\"Docs\\\"/\" # comentario", Personal::documentos,
         "/home/ana/Mis \"Docs\""},
        {"XDG_PICTURES_DIR=\"/home/ana/Imágenes\"", Personal::imagenes, "/home/ana/Imágenes"},
        {"XDG_VIDEOS_DIR=\"$HOME/V\xed" "deos\"", Personal::videos, "/home/ana/V\xed" "deos"}, // not UTF-8
        {"XDG_MUSIC_DIR=\"$HOME/a\"\nXDG_MUSIC_DIR=\"$HOME/b\"", Personal::musica, "/home/ana/b"},
        // Left with the English name:
        {"XDG_DESKTOP_DIR=\"$HOME/\"", Personal::escritorio, "/home/ana/Desktop"}, // disabled
        {"XDG_DOWNLOAD_DIR=\"$HOME/../otro\"", Personal::descargas, "/home/ana/Downloads"},
        {"XDG_DOWNLOAD_DIR=\"/tmp\"", Personal::descargas, "/home/ana/Downloads"},
        {"XDG_DOWNLOAD_DIR=\"$HOMERO/x\"", Personal::descargas, "/home/ana/Downloads"},
        {"XDG_DOWNLOAD_DIR=\"$(rm -rf ~)/x\"", Personal::descargas, "/home/ana/Downloads"},
        {"XDG_DOWNLOAD_DIR=\"$HOME/sin cerrar", Personal::descargas, "/home/ana/Downloads"},
        {"XDG_DOWNLOAD_DIR=$HOME/sin-comillas", Personal::descargas, "/home/ana/Downloads"},
        {"# XDG_DOWNLOAD_DIR=\"$HOME/comentada\"", Personal::descargas, "/home/ana/Downloads"},
        {"XDG_DOWNLOAD_DIRX=\"$HOME/otra\"", Personal::descargas, "/home/ana/Downloads"},
        {"\x01\xff\"=\n\n=\"", Personal::documentos, "/home/ana/Documents"},
    };
    for (const auto& c : casos)
        EXPECT_EQ(plataforma::leerCarpetasPersonales(c.texto, casa)[c.carpeta], fs::path(c.esperada)) << c.texto;
    EXPECT_EQ(plataforma::leerCarpetasPersonales("", casa)[Personal::videos], "/home/ana/Movies");

    apoyo::CasaPrueba home;
    const fs::path config = home.ruta(".config");
    EXPECT_EQ(plataforma::carpetasPersonales(home.raiz(), config)[Personal::descargas], home.ruta("Downloads"));
    home.archivoCon(".config/user-dirs.dirs", "XDG_DOWNLOAD_DIR=\"$HOME/Descargas\"\n");
    EXPECT_EQ(plataforma::carpetasPersonales(home.raiz(), config)[Personal::descargas], home.ruta("Descargas"));
    home.archivoCon(".config/user-dirs.dirs", "XDG_DOWNLOAD_DIR=\"$HOME/Descargas\"\n" + std::string(100 * 1024, '#'));
    EXPECT_EQ(plataforma::carpetasPersonales(home.raiz(), config)[Personal::descargas], home.ruta("Downloads"));
}
