// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop widget's window on Linux: Qt's flags do what they can on every
// display system; on X11 the window manager is also told, through the
// window's EWMH properties, to keep it on every workspace and out of the
// task bar and the pager.
#include "plataforma/escritorio.h"

#include <QGuiApplication>
#include <QWindow>

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace plataforma {

namespace {

xcb_atom_t atomo(xcb_connection_t* c, const char* nombre)
{
    const auto pedido = xcb_intern_atom(c, 0, uint16_t(std::strlen(nombre)), nombre);
    std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> r(xcb_intern_atom_reply(c, pedido, nullptr),
                                                                    &std::free);
    return r ? r->atom : xcb_atom_t(XCB_ATOM_NONE);
}

} // namespace

void elegirPlataformaWidget()
{
    // Wayland lets no client place its window or keep it below the others;
    // the X server of the session (XWayland under a Wayland desktop) does.
    // A platform the user chose stays.
    const char* elegida = std::getenv("QT_QPA_PLATFORM");
    const char* display = std::getenv("DISPLAY");
    if ((elegida == nullptr || *elegida == '\0') && display != nullptr && *display != '\0')
        ::setenv("QT_QPA_PLATFORM", "xcb", 1);
}

void ponerEnEscritorio(QWindow* ventana)
{
    ventana->setFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnBottomHint | Qt::Tool |
                      Qt::WindowDoesNotAcceptFocus);
    // The offscreen platform answers as X11 too, without a connection.
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* c = x11 != nullptr ? x11->connection() : nullptr;
    if (c == nullptr || QGuiApplication::platformName() != QLatin1String("xcb"))
        return;
    ventana->create();
    const auto w = xcb_window_t(ventana->winId());
    // Read by the window manager when the window is first mapped. Qt adds
    // its own states to this list when it shows the window, keeping ours.
    const xcb_atom_t estados[] = {atomo(c, "_NET_WM_STATE_BELOW"), atomo(c, "_NET_WM_STATE_STICKY"),
                                  atomo(c, "_NET_WM_STATE_SKIP_TASKBAR"), atomo(c, "_NET_WM_STATE_SKIP_PAGER")};
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, atomo(c, "_NET_WM_STATE"), XCB_ATOM_ATOM, 32,
                        uint32_t(std::size(estados)), estados);
    const uint32_t todos = 0xFFFFFFFF;
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, atomo(c, "_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL, 32, 1, &todos);
    xcb_flush(c);
}

} // namespace plataforma
