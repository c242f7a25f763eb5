// SPDX-License-Identifier: GPL-3.0-or-later
// The texts the uninstall screen computes, for every kind of application.
#include "pantallas/textos_apps.h"

#include <gtest/gtest.h>

namespace {

AppInstalada app(TipoApp tipo, bool deRoot)
{
    AppInstalada a;
    a.url = "/x/Editor.app";
    a.nombre = "Editor";
    a.tamano = 1'000'000;
    a.tipo = tipo;
    a.deRoot = deRoot;
    return a;
}

std::vector<Elemento> restos(std::initializer_list<std::pair<int64_t, bool>> filas)
{
    std::vector<Elemento> r;
    for (const auto& [tamano, marcado] : filas)
        r.push_back(Elemento{.url = "/x/r" + std::to_string(r.size()), .tamano = tamano, .seleccionado = marcado});
    return r;
}

} // namespace

TEST(TextosApps, ConfirmacionYNota)
{
    using textosApps::mensajeConfirmacion;
    const std::string papelera = " irán a la Papelera. Puedes recuperarlos desde ahí.";
    const struct {
        AppInstalada app;
        std::vector<Elemento> restos;
        std::string mensaje, nota;
    } casos[] = {
        // Nothing ticked is still the plural, with the application's bytes alone.
        {app(TipoApp::bundle, false), restos({{500'000, false}}), "La app y 0 archivos más (1 MB)" + papelera, "La app"},
        {app(TipoApp::bundle, false), restos({{2'000'000, true}, {7, false}}), "La app y 1 archivo más (3 MB)" + papelera,
         "La app"},
        {app(TipoApp::bundle, true), restos({{1'000'000, true}, {1'000'000, true}}),
         "La app y 2 archivos más (3 MB)" + papelera + "\n\nmacOS te pedirá tu contraseña para mover la app.",
         "La app · macOS te pedirá tu contraseña"},
        {app(TipoApp::appImage, false), {}, "La app y 0 archivos más (1 MB)" + papelera, "La app · AppImage"},
        // A package tool deletes the application: only the leftovers can come back.
        {app(TipoApp::flatpak, false), restos({{1'000'000, true}}),
         "Flatpak desinstalará la app; 1 archivo más irá a la Papelera, de donde puedes recuperarlo. En total, 2 MB.",
         "La app · Flatpak"},
        {app(TipoApp::flatpak, true), {},
         "Flatpak desinstalará la app; 0 archivos más irán a la Papelera, de donde puedes recuperarlos. En total, "
         "1 MB.\n\nEl sistema te pedirá tu contraseña para desinstalarla.",
         "La app · Flatpak del sistema · el sistema te pedirá tu contraseña"},
        {app(TipoApp::snap, false), {},
         "Snap desinstalará la app; 0 archivos más irán a la Papelera, de donde puedes recuperarlos. En total, "
         "1 MB.\n\nEl sistema te pedirá tu contraseña para desinstalarla.",
         "La app · Snap · el sistema te pedirá tu contraseña"},
    };
    for (const auto& c : casos) {
        EXPECT_EQ(mensajeConfirmacion(c.app, c.restos), c.mensaje);
        EXPECT_EQ(textosApps::nota(c.app), c.nota);
    }
    EXPECT_EQ(textosApps::tituloConfirmacion(app(TipoApp::bundle, false)), "¿Desinstalar Editor?");
    EXPECT_EQ(textosApps::tituloConfirmacion(std::nullopt), "¿Desinstalar ?");
    EXPECT_EQ(mensajeConfirmacion(std::nullopt, restos({{4'000'000, true}})), "La app y 1 archivo más (4 MB)" + papelera);
}

TEST(TextosApps, EncabezadoYExito)
{
    AppInstalada a = app(TipoApp::bundle, false);
    EXPECT_EQ(textosApps::encabezado(a), "");
    a.bundleID = "org.prueba.editor";
    EXPECT_EQ(textosApps::encabezado(a), "org.prueba.editor");
    a.version = "2.1";
    EXPECT_EQ(textosApps::encabezado(a), "2.1 · org.prueba.editor");
    a.bundleID.clear();
    EXPECT_EQ(textosApps::encabezado(a), "2.1");

    EXPECT_EQ(textosApps::tituloExito("Editor", Resultado{.enPapelera = 5}), "Editor está en la Papelera");
    EXPECT_EQ(textosApps::detalleExito(Resultado{.enPapelera = 3'000'000}),
              "Movido a la Papelera: 3 MB. Si te arrepientes, puedes recuperarla desde ahí.");
    // Removed by its package tool, it is not in the Trash.
    EXPECT_EQ(textosApps::tituloExito("Editor", Resultado{.borrado = 9, .enPapelera = 5}), "Editor se desinstaló");
    EXPECT_EQ(textosApps::detalleExito(Resultado{.borrado = 2'000'000}),
              "Desinstalada: 2 MB. Movido a la Papelera: 0 KB; eso puedes recuperarlo desde ahí.");
}
