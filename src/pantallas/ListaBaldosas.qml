// SPDX-License-Identifier: GPL-3.0-or-later
// The same tiles as the map, as a list: picking a row selects its node
// ("Otros" selects nothing), a double click opens a folder.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

ColumnLayout {
    id: lista

    required property ModeloBaldosas baldosas
    required property EstadoMapa estado

    spacing: 0

    ListView {
        objectName: "listaBaldosas"
        Layout.fillWidth: true
        Layout.fillHeight: true
        clip: true
        model: lista.baldosas
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ScrollBar {}
        topMargin: 6
        bottomMargin: 6

        delegate: ItemDelegate {
            id: fila

            required property int index
            required property var nodo
            required property string nombre
            required property string bytes
            required property color color
            required property string tipo
            required property string ruta
            required property bool abrible
            readonly property bool elegida: ruta !== "" && lista.estado.seleccion.ruta === ruta

            width: ListView.view.width
            hoverEnabled: true
            topPadding: 5
            bottomPadding: 5
            leftPadding: 12
            rightPadding: 12
            Accessible.name: nombre

            background: Rectangle {
                anchors.fill: parent
                anchors.leftMargin: 6
                anchors.rightMargin: 6
                radius: Tema.radioChico
                color: fila.elegida ? Tema.seleccion : fila.hovered ? Tema.sutil : "transparent"
            }

            contentItem: RowLayout {
                spacing: 8
                Rectangle {
                    implicitWidth: 10
                    implicitHeight: 10
                    radius: 3
                    color: fila.color
                }
                Icono {
                    simbolo: fila.tipo === "carpeta" ? "folder" : fila.tipo === "archivo" ? "doc" : "ellipsis.circle"
                    tamano: 15
                    color: Tema.secundario
                }
                Label {
                    textFormat: Text.PlainText
                    Layout.fillWidth: true
                    text: fila.nombre
                    color: Tema.texto
                    font.pixelSize: Tema.letra
                    elide: Text.ElideMiddle
                    maximumLineCount: 1
                }
                Label {
                    textFormat: Text.PlainText
                    text: fila.bytes
                    color: Tema.secundario
                    font.pixelSize: Tema.letraChica
                }
            }

            onClicked: lista.baldosas.seleccionarFila(index)
            onDoubleClicked: if (abrible) lista.estado.entrar(nodo)
        }
    }

    Label {
        textFormat: Text.PlainText
        objectName: "protegidas"
        visible: text !== ""
        Layout.fillWidth: true
        Layout.margins: 12
        text: lista.baldosas.notaProtegidas
        color: Tema.secundario
        font.pixelSize: Tema.letraChica
        wrapMode: Text.Wrap
    }
}
