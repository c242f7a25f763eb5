// SPDX-License-Identifier: GPL-3.0-or-later
// The share in use as a capsule filling from the left, never narrower than
// it is high, coloured as the ring is.
import QtQuick
import Vorlano

Item {
    id: barra

    required property entradaDisco entrada
    property real alto: 6
    property bool tintado: false

    readonly property real usado: entrada.usado
    property real mostrado: usado
    Behavior on mostrado {
        enabled: !Tema.movimientoReducido
        SpringAnimation { spring: 4; damping: 0.6; epsilon: 0.0005 }
    }

    implicitHeight: alto

    Canvas {
        id: lienzo
        // Room for the glow.
        anchors.fill: parent
        anchors.margins: -barra.alto
        readonly property var colores: Tema.degradadoDisco(barra.usado)
        readonly property color primario: Tema.texto
        onColoresChanged: requestPaint()
        onPrimarioChanged: requestPaint()
        Connections {
            target: barra
            function onMostradoChanged() { lienzo.requestPaint() }
            function onTintadoChanged() { lienzo.requestPaint() }
        }

        onPaint: {
            const ctx = getContext("2d")
            ctx.reset()
            const a = barra.alto, m = barra.alto
            const ancho = barra.width
            ctx.fillStyle = Qt.rgba(primario.r, primario.g, primario.b, barra.tintado ? 0.22 : 0.1)
            ctx.beginPath(); ctx.roundedRect(m, m, ancho, a, a / 2, a / 2); ctx.fill()

            const lleno = Math.max(a, Math.min(1, barra.mostrado) * ancho)
            if (barra.tintado) {
                ctx.fillStyle = primario
            } else {
                const g = ctx.createLinearGradient(m, 0, m + ancho, 0)
                g.addColorStop(0, colores[0])
                g.addColorStop(1, colores[1])
                ctx.fillStyle = g
                const c = colores[0]
                ctx.shadowColor = Qt.rgba(c.r, c.g, c.b, 0.4)
                ctx.shadowBlur = a
            }
            ctx.beginPath(); ctx.roundedRect(m, m, lleno, a, a / 2, a / 2); ctx.fill()
        }
    }
}
