// SPDX-License-Identifier: GPL-3.0-or-later
// A small rounded tag in a colour: the safety level of a category.
import QtQuick
import QtQuick.Controls.Basic
import Vorlano

Rectangle {
    id: etiqueta

    required property string texto
    required property color tinte

    implicitWidth: rotulo.implicitWidth + 14
    implicitHeight: rotulo.implicitHeight + 4
    radius: height / 2
    color: Qt.rgba(tinte.r, tinte.g, tinte.b, Tema.oscuro ? 0.22 : 0.14)

    Label {
        textFormat: Text.PlainText
        id: rotulo
        anchors.centerIn: parent
        text: etiqueta.texto
        color: Tema.oscuro ? Qt.lighter(etiqueta.tinte, 1.15) : Qt.darker(etiqueta.tinte, 1.25)
        font.pixelSize: Tema.letraChica - 1
        font.weight: Font.DemiBold
    }
}
