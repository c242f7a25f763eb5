// SPDX-License-Identifier: GPL-3.0-or-later
// A setting that is on or off: its words on the left, the switch on the right.
import QtQuick
import QtQuick.Controls.Basic
import Vorlano

Switch {
    id: interruptor

    hoverEnabled: true
    spacing: 12
    padding: 4
    // Its words line up with the other rows of a card.
    leftPadding: 0
    rightPadding: 0
    Accessible.name: text

    indicator: Rectangle {
        x: interruptor.width - width - interruptor.rightPadding
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: 38
        implicitHeight: 22
        radius: height / 2
        color: interruptor.checked ? Tema.acento : Tema.sutil
        border.color: interruptor.checked ? Tema.acento : Tema.borde
        opacity: interruptor.enabled ? 1 : 0.45

        Rectangle {
            x: interruptor.checked ? parent.width - width - 2 : 2
            anchors.verticalCenter: parent.verticalCenter
            width: 18
            height: 18
            radius: 9
            color: "white"
            border.color: Qt.rgba(0, 0, 0, 0.12)
            Behavior on x {
                enabled: !Tema.movimientoReducido
                NumberAnimation { duration: 120 }
            }
        }
    }

    contentItem: Text {
        textFormat: Text.PlainText
        rightPadding: interruptor.indicator.width + interruptor.spacing
        text: interruptor.text
        color: Tema.texto
        font.pixelSize: Tema.letra
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
    }
}
