// SPDX-License-Identifier: GPL-3.0-or-later
// The program's button: "principal" filled with the brand gradient,
// "secundario" on a card surface, "enlace" as text, "destructivo" in red.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

Button {
    id: boton

    property string simbolo: ""
    property string clase: "secundario"
    property bool grande: false
    readonly property bool relleno: clase === "principal" || clase === "destructivo"
    readonly property color tinta: relleno ? "white"
                                           : clase === "enlace" ? Tema.acento : Tema.texto

    padding: clase === "enlace" ? 2 : (grande ? 12 : 8)
    leftPadding: clase === "enlace" ? 2 : text === "" ? padding : (grande ? 22 : 14)
    rightPadding: leftPadding
    font.pixelSize: grande ? Tema.letraTitular - 1 : Tema.letra
    font.weight: relleno ? Font.DemiBold : Font.Medium
    opacity: enabled ? 1 : 0.45
    hoverEnabled: true
    Accessible.name: text

    contentItem: RowLayout {
        spacing: 7
        Icono {
            visible: boton.simbolo !== ""
            simbolo: boton.simbolo
            tamano: boton.font.pixelSize + 3
            color: boton.tinta
        }
        Label {
            textFormat: Text.PlainText
            // A button of a symbol alone stays square.
            visible: boton.text !== ""
            text: boton.text
            font: boton.font
            color: boton.tinta
            elide: Text.ElideRight
            Layout.fillWidth: true
        }
    }

    background: Rectangle {
        visible: boton.clase !== "enlace"
        implicitHeight: boton.grande ? 42 : 32
        radius: boton.grande ? 11 : 8
        border.width: boton.relleno ? 0 : 1
        border.color: Tema.borde
        color: boton.clase === "destructivo" ? Tema.rojo
             : boton.down ? Tema.sutil : Tema.superficie
        Rectangle {
            anchors.fill: parent
            visible: boton.clase === "principal"
            radius: parent.radius
            gradient: Gradient {
                orientation: Gradient.Horizontal
                GradientStop { position: 0; color: Tema.turquesa }
                GradientStop { position: 1; color: Tema.azul }
            }
        }
        // Hover lightens, pressing darkens.
        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: boton.down ? "black" : "white"
            opacity: boton.down ? 0.12 : boton.hovered ? 0.08 : 0
        }
    }
}
