// SPDX-License-Identifier: GPL-3.0-or-later
// A centred message where a list has nothing to show yet: a symbol, a
// title, a text and, when given, the one button that moves things on.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

Item {
    id: vacio

    required property string simbolo
    property string titulo: ""
    property string texto: ""
    property string boton: ""
    property string simboloBoton: ""
    property color tinte: Tema.acento

    signal pulsado()

    ColumnLayout {
        anchors.centerIn: parent
        width: Math.min(parent.width - 80, 520)
        spacing: 14

        Rectangle {
            Layout.alignment: Qt.AlignHCenter
            Layout.bottomMargin: 6
            width: 84
            height: 84
            radius: 42
            color: Qt.rgba(vacio.tinte.r, vacio.tinte.g, vacio.tinte.b, Tema.oscuro ? 0.2 : 0.12)
            Icono {
                anchors.centerIn: parent
                simbolo: vacio.simbolo
                tamano: 44
                color: vacio.tinte
            }
        }
        Label {
            textFormat: Text.PlainText
            Layout.fillWidth: true
            visible: vacio.titulo !== ""
            text: vacio.titulo
            color: Tema.texto
            font.pixelSize: Tema.letraTitulo - 2
            font.weight: Font.Bold
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
        Label {
            textFormat: Text.PlainText
            Layout.fillWidth: true
            visible: vacio.texto !== ""
            text: vacio.texto
            color: Tema.secundario
            font.pixelSize: Tema.letra
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            lineHeight: 1.2
        }
        Boton {
            objectName: "botonVacio"
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 10
            visible: vacio.boton !== ""
            clase: "principal"
            grande: true
            simbolo: vacio.simboloBoton
            text: vacio.boton
            onClicked: vacio.pulsado()
        }
    }
}
