// SPDX-License-Identifier: GPL-3.0-or-later
// A small control of the medium widget: a coloured dot with a white symbol
// and a title, on a faint plate, leading into the application.
import QtQuick
import Vorlano

EnlaceWidget {
    id: boton

    required property string simbolo
    required property color color
    required property string titulo
    property bool tintado: false

    implicitWidth: fila.implicitWidth + 12
    implicitHeight: 26

    Rectangle {
        width: boton.width
        height: boton.height
        radius: 8
        color: Qt.rgba(Tema.texto.r, Tema.texto.g, Tema.texto.b, 0.07)
        border.width: 1
        border.color: Qt.rgba(Tema.texto.r, Tema.texto.g, Tema.texto.b, 0.08)

        Row {
            id: fila
            anchors.centerIn: parent
            spacing: 4
            Rectangle {
                width: 16
                height: 16
                radius: 8
                anchors.verticalCenter: parent.verticalCenter
                color: boton.tintado ? Qt.rgba(Tema.texto.r, Tema.texto.g, Tema.texto.b, 0.35) : boton.color
                gradient: boton.tintado ? null : relleno
                Gradient {
                    id: relleno
                    GradientStop { position: 0; color: Qt.lighter(boton.color, 1.15) }
                    GradientStop { position: 1; color: boton.color }
                }
                Icono {
                    anchors.centerIn: parent
                    simbolo: boton.simbolo
                    tamano: 9
                    color: "white"
                }
            }
            Text {
                textFormat: Text.PlainText
                anchors.verticalCenter: parent.verticalCenter
                text: boton.titulo
                color: Tema.texto
                font.pixelSize: 10
                font.weight: Font.DemiBold
                font.letterSpacing: -0.2
            }
        }
    }
}
