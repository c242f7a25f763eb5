// SPDX-License-Identifier: GPL-3.0-or-later
// The disk as a ring: the share in use, coloured by how full the disk is,
// its end that a cleaning could free in green, and a highlight running
// round while an analysis works.
import QtQuick
import QtQuick.Controls.Basic
import Vorlano

Item {
    id: anillo

    property real total: 0
    property real libre: 0
    property real liberable: 0
    property bool analizando: false

    readonly property real usado: total < 1 ? 0 : Math.min(1, Math.max(0, (total - libre) / total))
    readonly property real verde: total < 1 ? 0 : Math.min(usado, Math.max(0, liberable / total))
    // The share drawn: grows to usado on appearing, then follows it with a spring.
    property real mostrado: 0
    property real giro: 0

    implicitWidth: 190
    implicitHeight: 190
    Accessible.role: Accessible.Graphic
    Accessible.name: Rotulos.libresDe(libre, total)

    Component.onCompleted: {
        if (Tema.movimientoReducido)
            mostrado = usado
        else
            aparicion.start()
        resorte.enabled = !Tema.movimientoReducido
    }
    onUsadoChanged: if (!aparicion.running) mostrado = usado
    NumberAnimation {
        id: aparicion
        target: anillo; property: "mostrado"; from: 0; to: anillo.usado
        duration: 1200; easing.type: Easing.OutCubic
    }
    Behavior on mostrado {
        id: resorte
        enabled: false
        SpringAnimation { spring: 3; damping: 0.35; epsilon: 0.001 }
    }
    NumberAnimation on giro {
        running: anillo.analizando && !Tema.movimientoReducido && anillo.visible
        from: 0; to: 1; duration: 1600; loops: Animation.Infinite
    }

    Canvas {
        id: lienzo
        anchors.fill: parent
        readonly property var colores: Tema.degradadoDisco(anillo.usado)
        onColoresChanged: requestPaint()
        Connections {
            target: anillo
            function onMostradoChanged() { lienzo.requestPaint() }
            function onVerdeChanged() { lienzo.requestPaint() }
            function onGiroChanged() { lienzo.requestPaint() }
            function onAnalizandoChanged() { lienzo.requestPaint() }
        }
        Connections {
            target: Tema
            function onCambiado() { lienzo.requestPaint() }
        }
        onPaint: {
            const ctx = getContext("2d")
            ctx.reset()
            const grosor = width * 0.1
            const r = (Math.min(width, height) - grosor) / 2
            const cx = width / 2, cy = height / 2
            const inicio = -Math.PI / 2
            ctx.lineCap = "round"
            ctx.lineWidth = grosor
            ctx.strokeStyle = Tema.sutil
            ctx.beginPath(); ctx.arc(cx, cy, r, 0, 2 * Math.PI); ctx.stroke()
            const parte = anillo.mostrado
            if (parte > 0.001) {
                const g = ctx.createLinearGradient(cx + r, cy - r, cx - r, cy + r)
                g.addColorStop(0, colores[0])
                g.addColorStop(1, colores[1])
                // What a cleaning could free: the end of the filled arc, in
                // green up to its rounded end.
                const v = Math.min(anillo.verde, parte)
                const lleno = v > 0.003 ? parte - v : parte
                ctx.strokeStyle = g
                ctx.beginPath(); ctx.arc(cx, cy, r, inicio, inicio + lleno * 2 * Math.PI); ctx.stroke()
                if (v > 0.003) {
                    ctx.strokeStyle = Tema.verde
                    ctx.beginPath()
                    ctx.arc(cx, cy, r, inicio + lleno * 2 * Math.PI, inicio + parte * 2 * Math.PI)
                    ctx.stroke()
                }
            }
            if (anillo.analizando) {
                const a = inicio + anillo.giro * 2 * Math.PI
                ctx.lineWidth = grosor * 0.45
                ctx.strokeStyle = Qt.rgba(1, 1, 1, Tema.oscuro ? 0.55 : 0.75)
                ctx.beginPath(); ctx.arc(cx, cy, r, a, a + 0.5); ctx.stroke()
            }
        }
    }

    Column {
        anchors.centerIn: parent
        Label {
            textFormat: Text.PlainText
            objectName: "anilloLibre"
            anchors.horizontalCenter: parent.horizontalCenter
            text: Rotulos.gigasCortos(anillo.libre)
            color: Tema.texto
            font.pixelSize: Tema.letraCifra
            font.weight: Font.Bold
        }
        Label {
            textFormat: Text.PlainText
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTranslate("Vorlano", "libres")
            color: Tema.secundario
            font.pixelSize: Tema.letra
        }
    }
}
