// SPDX-License-Identifier: GPL-3.0-or-later
#include "pantallas/iconos.h"

#include "plataforma/escritorio.h"

#include <QFile>
#include <QFontDatabase>
#include <QJSEngine>

#include <algorithm>

namespace {

// Code points of Debian's fonts-material-design-icons-iconfont (the names
// of its scss/_variables.scss in the comments).
constexpr Simbolo tabla[] = {
    // sections and the window
    {"gauge.with.dots.needle.33percent", 0xe9e4}, // speed
    {"sparkles", 0xe65f},                         // auto_awesome
    {"square.split.2x2.fill", 0xe871},            // dashboard
    {"xmark.app", 0xf230},                        // disabled_by_default
    {"internaldrive", 0xe1db},                    // storage
    {"gearshape", 0xe8b8},                        // settings
    {"sparkle.magnifyingglass", 0xf02f},          // manage_search
    {"magnifyingglass", 0xe8b6},                  // search
    {"arrow.clockwise", 0xe5d5},                  // refresh
    {"chevron.right", 0xe5cc},                    // chevron_right
    {"xmark", 0xe5cd},                            // close
    {"chevron.up.chevron.down", 0xe5d7},          // unfold_more
    // states and checkboxes
    {"checkmark.seal", 0xef76},                // verified
    {"checkmark.circle.fill", 0xe86c},         // check_circle
    {"checkmark.square.fill", 0xe834},         // check_box
    {"minus.square.fill", 0xe909},             // indeterminate_check_box
    {"square", 0xe835},                        // check_box_outline_blank
    {"exclamationmark.triangle.fill", 0xe002}, // warning
    {"chart.bar.fill", 0xe26b},                // bar_chart
    // categories
    {"square.stack.3d.up", 0xe53b},    // layers
    {"doc.text", 0xe873},              // description
    {"hammer", 0xe869},                // build
    {"icloud.and.arrow.down", 0xe2c0}, // cloud_download
    {"shippingbox", 0xe1a1},           // inventory_2
    {"cube.box", 0xe9fe},              // view_in_ar
    {"opticaldiscdrive", 0xe019},      // album
    {"doc.badge.ellipsis", 0xea0e},    // file_present
    {"puzzlepiece.extension", 0xe87b}, // extension
    {"doc.on.doc", 0xe173},            // file_copy
    {"arrow.down.circle", 0xf181},     // arrow_circle_down
    // map, uninstaller, settings and welcome
    {"folder", 0xe2c7},                // folder
    {"folder.fill", 0xe2c7},           // folder
    {"house.fill", 0xe88a},            // home
    {"lock", 0xe899},                  // lock_outline
    {"lock.fill", 0xe897},             // lock
    {"doc", 0xe24d},                   // insert_drive_file
    {"doc.fill", 0xe24d},              // insert_drive_file
    {"ellipsis.circle", 0xe5d3},       // more_horiz
    {"checkmark.shield", 0xe8e8},      // verified_user
    {"arrow.down.app", 0xe884},        // get_app
    {"circle.lefthalf.filled", 0xeb37}, // contrast
    {"envelope", 0xe158},              // mail
    {"ruler", 0xe41c},                 // straighten
    {"safari", 0xe87a},                // explore
    {"trash", 0xe872},                 // delete
};

constexpr char16_t neutro = 0xe574; // category

} // namespace

std::span<const Simbolo> tablaDeSimbolos()
{
    return tabla;
}

char16_t glifoDe(std::string_view simbolo)
{
    const auto s = std::find_if(std::begin(tabla), std::end(tabla), [&](const Simbolo& x) { return x.nombre == simbolo; });
    return s == std::end(tabla) ? neutro : s->glifo;
}

Iconos::Iconos() : familia_(QStringLiteral("Material Icons"))
{
    // Loaded from its file so that a stale font cache doesn't matter; the
    // family name is the fallback.
    const auto archivo = plataforma::fuenteIconos();
    if (archivo.empty())
        return;
    const int id = QFontDatabase::addApplicationFont(QFile::decodeName(archivo.c_str()));
    const QStringList familias = QFontDatabase::applicationFontFamilies(id);
    if (!familias.isEmpty())
        familia_ = familias.first();
}

Iconos& Iconos::shared()
{
    static auto* i = new Iconos();
    return *i;
}

Iconos* Iconos::create(QQmlEngine*, QJSEngine*)
{
    QJSEngine::setObjectOwnership(&shared(), QJSEngine::CppOwnership);
    return &shared();
}

QString Iconos::glifo(const QString& simbolo) const
{
    const char16_t g = glifoDe(simbolo.toStdString());
    return QString(QChar(g));
}
