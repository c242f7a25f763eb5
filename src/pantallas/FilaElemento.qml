// SPDX-License-Identifier: GPL-3.0-or-later
// One removable item: its checkbox, name, detail, who has it open, its size
// and a button that shows it in the file manager.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

Item {
    id: fila

    required property string nombre
    required property string detalle
    required property real tamano
    required property string enUso
    required property bool seleccionado
    // Space on the left, to sit under a category's title.
    property real sangria: 0

    signal marcado(bool valor)
    signal mostrar()

    implicitHeight: Math.max(44, columna.implicitHeight + 14)

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: fila.sangria
        anchors.rightMargin: 12
        spacing: 10

        Casilla {
            objectName: "casillaElemento"
            marca: fila.seleccionado ? 1 : 0
            Accessible.name: fila.nombre
            onClicked: fila.marcado(!fila.seleccionado)
        }

        ColumnLayout {
            id: columna
            Layout.fillWidth: true
            spacing: 1
            Label {
                textFormat: Text.PlainText
                Layout.fillWidth: true
                text: fila.nombre
                color: Tema.texto
                font.pixelSize: Tema.letra
                elide: Text.ElideMiddle
            }
            Label {
                textFormat: Text.PlainText
                Layout.fillWidth: true
                visible: fila.detalle !== ""
                text: fila.detalle
                color: Tema.secundario
                font.pixelSize: Tema.letraChica
                elide: Text.ElideMiddle
            }
            RowLayout {
                visible: fila.enUso !== ""
                spacing: 4
                Icono {
                    simbolo: "exclamationmark.triangle.fill"
                    tamano: Tema.letraChica + 1
                    color: Tema.naranja
                }
                Label {
                    textFormat: Text.PlainText
                    objectName: "enUso"
                    text: qsTranslate("Vorlano", "{enUso} está abierto").replace("{enUso}", fila.enUso)
                    color: Tema.naranja
                    font.pixelSize: Tema.letraChica
                }
            }
        }

        Label {
            textFormat: Text.PlainText
            text: Rotulos.bytes(fila.tamano)
            color: Tema.secundario
            font.pixelSize: Tema.letra
        }

        ToolButton {
            objectName: "mostrar"
            implicitWidth: 30
            implicitHeight: 30
            hoverEnabled: true
            contentItem: Icono { simbolo: "magnifyingglass"; tamano: 18; color: Tema.secundario }
            background: Rectangle {
                radius: 7
                color: parent.hovered ? Tema.sutil : "transparent"
            }
            Accessible.name: qsTranslate("Vorlano", "Mostrar en el Finder")
            Ayuda {
                visible: parent.hovered
                text: qsTranslate("Vorlano", "Mostrar en el Finder")
            }
            onClicked: fila.mostrar()
        }
    }
}
