// SPDX-License-Identifier: GPL-3.0-or-later
// One section of the settings: its title, its rows on a card, and a footer.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

ColumnLayout {
    id: seccion

    required property string titulo
    property string pie: ""
    default property alias filas: contenido.data

    spacing: 6

    Label {
        textFormat: Text.PlainText
        Layout.leftMargin: 4
        text: seccion.titulo
        color: Tema.secundario
        font.pixelSize: Tema.letraChica
        font.weight: Font.DemiBold
    }
    SuperficieTarjeta {
        Layout.fillWidth: true
        implicitHeight: contenido.implicitHeight + 20
        ColumnLayout {
            id: contenido
            anchors.fill: parent
            anchors.margins: 10
            anchors.leftMargin: 14
            anchors.rightMargin: 14
            spacing: 8
        }
    }
    Label {
        textFormat: Text.PlainText
        visible: seccion.pie !== ""
        Layout.fillWidth: true
        Layout.leftMargin: 4
        text: seccion.pie
        color: Tema.secundario
        font.pixelSize: Tema.letraChica
        wrapMode: Text.Wrap
    }
}
