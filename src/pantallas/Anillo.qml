// SPDX-License-Identifier: GPL-3.0-or-later
// A ring that fills clockwise from the top as a percentage grows, with the
// figure in its middle.
import QtQuick
import QtQuick.Controls.Basic
import Vorlano

Item {
    id: anillo

    required property real porcentaje
    property color tinte: Tema.acento
    property real grosor: 10
    property real avance: porcentaje

    implicitWidth: 110
    implicitHeight: 110

    Behavior on avance {
        enabled: !Tema.movimientoReducido
        NumberAnimation { duration: 350; easing.type: Easing.OutCubic }
    }
    onAvanceChanged: lienzo.requestPaint()
    onTinteChanged: lienzo.requestPaint()

    Canvas {
        id: lienzo
        anchors.fill: parent
        onPaint: {
            const ctx = getContext("2d")
            ctx.reset()
            const r = (Math.min(width, height) - anillo.grosor) / 2
            const inicio = -Math.PI / 2
            ctx.lineWidth = anillo.grosor
            ctx.strokeStyle = Tema.sutil
            ctx.beginPath(); ctx.arc(width / 2, height / 2, r, 0, 2 * Math.PI); ctx.stroke()
            const parte = Math.max(0, Math.min(100, anillo.avance)) / 100
            if (parte > 0) {
                ctx.lineCap = "round"
                ctx.strokeStyle = anillo.tinte
                ctx.beginPath(); ctx.arc(width / 2, height / 2, r, inicio, inicio + parte * 2 * Math.PI); ctx.stroke()
            }
        }
        Connections {
            target: Tema
            function onCambiado() { lienzo.requestPaint() }
        }
    }

    Label {
        textFormat: Text.PlainText
        objectName: "porcentaje"
        anchors.centerIn: parent
        text: qsTranslate("Vorlano", "{n} %").replace("{n}", Math.round(anillo.porcentaje))
        color: Tema.texto
        font.pixelSize: Tema.letraTitular + 2
        font.weight: Font.DemiBold
    }
}
