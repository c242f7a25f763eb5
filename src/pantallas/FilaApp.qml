// SPDX-License-Identifier: GPL-3.0-or-later
// One application of the list: its icon, its name and, once measured, its size.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

ItemDelegate {
    id: fila

    required property int index
    required property string nombre
    required property real tamano
    required property string tipo
    required property url icono
    property bool elegida: false

    objectName: "app-" + nombre
    hoverEnabled: true
    padding: 6
    leftPadding: 10
    rightPadding: 10
    Accessible.name: nombre

    background: Rectangle {
        radius: Tema.radioChico
        color: fila.elegida ? Tema.seleccion : fila.hovered ? Tema.sutil : "transparent"
    }

    contentItem: RowLayout {
        spacing: 9
        IconoApp {
            tipo: fila.tipo
            archivo: fila.icono
            lado: 26
        }
        Label {
            textFormat: Text.PlainText
            Layout.fillWidth: true
            text: fila.nombre
            color: Tema.texto
            font.pixelSize: Tema.letra
            elide: Text.ElideRight
        }
        Label {
            textFormat: Text.PlainText
            objectName: "tamano"
            visible: fila.tamano >= 1
            text: Rotulos.bytes(fila.tamano)
            color: Tema.secundario
            font.pixelSize: Tema.letraChica
        }
    }
}
