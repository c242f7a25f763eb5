// SPDX-License-Identifier: GPL-3.0-or-later
// The disk as a ring: a track, and over it from the top, clockwise, the share
// in use (never less than a hundredth, so the ring never looks broken). In
// full colour the arc runs through the disk's two colours round the circle,
// with a soft glow of the first; tinted, it is plain. The free gigabytes
// stand in the middle.
import QtQuick
import Vorlano

Item {
    id: anillo

    required property entradaDisco entrada
    property real grosor: 10
    property real cifra: 24
    property bool tintado: false

    readonly property real usado: entrada.usado
    // The share drawn follows the entry with a spring.
    property real mostrado: Math.max(0.01, usado)
    Behavior on mostrado {
        enabled: !Tema.movimientoReducido
        SpringAnimation { spring: 4; damping: 0.6; epsilon: 0.0005 }
    }

    implicitWidth: 100
    implicitHeight: 100

    Canvas {
        id: lienzo
        // Room around the ring for the glow.
        anchors.fill: parent
        anchors.margins: -anillo.grosor
        readonly property var colores: Tema.degradadoDisco(anillo.usado)
        readonly property color primario: Tema.texto
        onColoresChanged: requestPaint()
        onPrimarioChanged: requestPaint()
        Connections {
            target: anillo
            function onMostradoChanged() { lienzo.requestPaint() }
            function onTintadoChanged() { lienzo.requestPaint() }
            function onGrosorChanged() { lienzo.requestPaint() }
        }

        onPaint: {
            const ctx = getContext("2d")
            ctx.reset()
            const g = anillo.grosor
            const cx = width / 2, cy = height / 2
            const r = (Math.min(anillo.width, anillo.height) - g) / 2
            const arriba = -Math.PI / 2
            ctx.lineWidth = g
            ctx.strokeStyle = Qt.rgba(primario.r, primario.g, primario.b, anillo.tintado ? 0.22 : 0.1)
            ctx.beginPath(); ctx.arc(cx, cy, r, 0, 2 * Math.PI); ctx.stroke()

            ctx.lineCap = "round"
            if (anillo.tintado) {
                ctx.strokeStyle = primario
            } else {
                // Counter-clockwise from just before the top, so the round cap
                // at the start takes the first colour, not the last.
                const cabeza = g / 2 / r
                const degradado = ctx.createConicalGradient(cx, cy, Math.PI / 2 + cabeza)
                degradado.addColorStop(0, colores[1])
                degradado.addColorStop(1, colores[0])
                ctx.strokeStyle = degradado
                const c = colores[0]
                ctx.shadowColor = Qt.rgba(c.r, c.g, c.b, 0.45)
                ctx.shadowBlur = g
            }
            ctx.beginPath()
            ctx.arc(cx, cy, r, arriba, arriba + anillo.mostrado * 2 * Math.PI)
            ctx.stroke()
        }
    }

    Column {
        anchors.centerIn: parent
        CifraGigas {
            objectName: "cifraAnillo"
            anchors.horizontalCenter: parent.horizontalCenter
            bytes: anillo.entrada.libre
            tamano: anillo.cifra
        }
        Text {
            textFormat: Text.PlainText
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTranslate("Vorlano", "libres")
            color: Tema.secundario
            font.pixelSize: anillo.cifra * 0.4
        }
    }
}
