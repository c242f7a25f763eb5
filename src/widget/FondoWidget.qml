// SPDX-License-Identifier: GPL-3.0-or-later
// The widget's background: a vertical gradient with a turquoise glow from the
// top right and a blue one from the bottom left, stronger in the dark scheme,
// inside a rounded rectangle of the given radius.
import QtQuick
import Vorlano

Canvas {
    id: fondo

    property real radio: 0
    readonly property bool oscuro: Tema.oscuro

    onOscuroChanged: requestPaint()
    onRadioChanged: requestPaint()

    onPaint: {
        const ctx = getContext("2d")
        ctx.reset()
        const w = width, h = height
        ctx.beginPath()
        ctx.roundedRect(0, 0, w, h, radio, radio)
        ctx.clip()

        const lineal = ctx.createLinearGradient(0, 0, 0, h)
        lineal.addColorStop(0, oscuro ? Qt.rgba(0.07, 0.11, 0.16, 1) : Qt.rgba(0.95, 0.98, 0.99, 1))
        lineal.addColorStop(1, oscuro ? Qt.rgba(0.05, 0.07, 0.12, 1) : Qt.rgba(0.9, 0.94, 0.99, 1))
        ctx.fillStyle = lineal
        ctx.fillRect(0, 0, w, h)

        function brillo(x, y, radio, color, opacidad) {
            const g = ctx.createRadialGradient(x, y, 0, x, y, radio)
            g.addColorStop(0, Qt.rgba(color.r, color.g, color.b, opacidad))
            g.addColorStop(1, Qt.rgba(color.r, color.g, color.b, 0))
            ctx.fillStyle = g
            ctx.fillRect(0, 0, w, h)
        }
        brillo(w, 0, 220, Tema.turquesa, oscuro ? 0.35 : 0.22)
        brillo(0, h, 200, Tema.azul, oscuro ? 0.25 : 0.14)
    }
}
