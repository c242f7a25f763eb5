// SPDX-License-Identifier: GPL-3.0-or-later
// The widget's heading: the brand's sparkles in its gradient and the name,
// and, when asked, the time of the figures at the far end.
import QtQuick
import Vorlano

Item {
    id: encabezado

    required property entradaDisco entrada
    property bool mostrarHora: false

    implicitWidth: fila.implicitWidth + (mostrarHora ? hora.implicitWidth + 8 : 0)
    implicitHeight: Math.max(fila.implicitHeight, hora.implicitHeight)

    Row {
        id: fila
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        // A glyph filled with a gradient: the software renderer has no
        // shaders, so the canvas paints it.
        Canvas {
            id: destellos
            width: 12
            height: 12
            anchors.verticalCenter: parent.verticalCenter
            readonly property string familia: Iconos.familia
            onFamiliaChanged: requestPaint()
            onPaint: {
                const ctx = getContext("2d")
                ctx.reset()
                const g = ctx.createLinearGradient(0, 0, width, height)
                g.addColorStop(0, Tema.turquesa)
                g.addColorStop(1, Tema.azul)
                ctx.fillStyle = g
                ctx.font = "11px \"" + familia + "\""
                ctx.textAlign = "center"
                ctx.textBaseline = "middle"
                ctx.fillText(Iconos.glifo("sparkles"), width / 2, height / 2)
            }
        }
        Text {
            textFormat: Text.PlainText
            text: "Vorlano"
            color: Tema.texto
            font.pixelSize: 12
            font.weight: Font.DemiBold
        }
    }

    Text {
        textFormat: Text.PlainText
        id: hora
        objectName: "hora"
        visible: encabezado.mostrarHora
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: encabezado.entrada.hora
        color: Tema.secundario
        opacity: 0.75
        font.pixelSize: 10
    }
}
