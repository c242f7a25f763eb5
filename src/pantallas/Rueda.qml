// SPDX-License-Identifier: GPL-3.0-or-later
// Work in progress: an arc turning round a faint track, like the program's
// rings. Under reduced motion the arc stands still.
import QtQuick
import Vorlano

Item {
    id: rueda

    property bool running: true
    property color tinte: Tema.acento

    implicitWidth: 30
    implicitHeight: 30

    // Drawn once; the turning is the item's.
    Canvas {
        id: lienzo
        anchors.fill: parent
        onPaint: {
            const ctx = getContext("2d")
            ctx.reset()
            const grosor = Math.max(2.5, width / 9)
            const r = (Math.min(width, height) - grosor) / 2
            ctx.lineWidth = grosor
            ctx.strokeStyle = Tema.sutil
            ctx.beginPath(); ctx.arc(width / 2, height / 2, r, 0, 2 * Math.PI); ctx.stroke()
            ctx.lineCap = "round"
            ctx.strokeStyle = rueda.tinte
            ctx.beginPath(); ctx.arc(width / 2, height / 2, r, -Math.PI / 2, Math.PI / 8); ctx.stroke()
        }
        Connections {
            target: Tema
            function onCambiado() { lienzo.requestPaint() }
        }
        NumberAnimation on rotation {
            running: rueda.running && rueda.visible && !Tema.movimientoReducido
            from: 0; to: 360
            duration: 900
            loops: Animation.Infinite
        }
    }
}
