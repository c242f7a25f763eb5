// SPDX-License-Identifier: GPL-3.0-or-later
// What the screens take from the desktop: the icon font and the motion setting.
#include "plataforma/escritorio.h"

#include "plataforma/ejecutar.h"

#include <system_error>

namespace plataforma {

std::filesystem::path fuenteIconos()
{
    // Debian's fonts-material-design-icons-iconfont.
    const std::filesystem::path ruta =
        "/usr/share/fonts/truetype/material-design-icons-iconfont/MaterialIcons-Regular.ttf";
    std::error_code ec;
    return std::filesystem::is_regular_file(ruta, ec) ? ruta : std::filesystem::path();
}

bool movimientoReducido()
{
    // GNOME's switch, read by the gsettings program: GSettings in this
    // process would bring dconf's bus connection, which ends the process when
    // the session bus goes away. A desktop without it asks for nothing.
    const auto gsettings = buscarPrograma({"/usr/bin/gsettings"});
    if (!gsettings)
        return false;
    const auto r = ejecutar(*gsettings, {"get", "org.gnome.desktop.interface", "enable-animations"}, 2);
    return r && r->codigo == 0 && r->salida.starts_with("false");
}

} // namespace plataforma
