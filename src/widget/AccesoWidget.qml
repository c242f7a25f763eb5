// SPDX-License-Identifier: GPL-3.0-or-later
// A shortcut of the large widget: the section's square icon, its title over
// a short line, and a chevron, on a faint plate.
import QtQuick
import Vorlano

EnlaceWidget {
    id: acceso

    required property string simbolo
    required property color color
    required property string titulo
    required property string subtitulo

    Rectangle {
        width: acceso.width
        height: acceso.height
        radius: 12
        color: Qt.rgba(Tema.texto.r, Tema.texto.g, Tema.texto.b, 0.06)
        border.width: 1
        border.color: Qt.rgba(Tema.texto.r, Tema.texto.g, Tema.texto.b, 0.07)

        IconoCuadrado {
            id: icono
            anchors.left: parent.left
            anchors.leftMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            simbolo: acceso.simbolo
            tinte: acceso.color
            lado: 24
        }
        Column {
            anchors.left: icono.right
            anchors.leftMargin: 7
            anchors.right: chevron.left
            anchors.rightMargin: 4
            anchors.verticalCenter: parent.verticalCenter
            spacing: 1
            Text {
                textFormat: Text.PlainText
                width: parent.width
                text: acceso.titulo
                color: Tema.texto
                font.pixelSize: 11
                font.letterSpacing: -0.3
                font.weight: Font.DemiBold
                elide: Text.ElideRight
            }
            Text {
                textFormat: Text.PlainText
                width: parent.width
                text: acceso.subtitulo
                color: Tema.secundario
                font.pixelSize: 9
                elide: Text.ElideRight
            }
        }
        Icono {
            id: chevron
            anchors.right: parent.right
            anchors.rightMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            simbolo: "chevron.right"
            tamano: 10
            color: Tema.secundario
        }
    }
}
