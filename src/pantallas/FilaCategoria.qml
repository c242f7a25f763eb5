// SPDX-License-Identifier: GPL-3.0-or-later
// The head of one category in the list: the checkbox for all its free
// items, its symbol, title and level, the second line, its size and count.
// Clicking it folds or unfolds its items.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

Item {
    id: fila

    required property string titulo
    required property string icono
    required property int nivel
    required property string etiqueta
    required property real tamano
    required property int cantidad
    required property int marcados
    required property string linea
    required property string lineaEnUso
    required property bool todoEnUso
    required property bool abierta

    signal alternar()
    signal plegar()

    readonly property color tinte: Tema.colorNivel(nivel)

    implicitHeight: contenido.implicitHeight + 28

    // A card; unfolded, it runs on into the items under it.
    Tramo {
        anchors.fill: parent
        abajo: !fila.abierta || fila.cantidad === 0
    }
    Rectangle {
        visible: fila.abierta && fila.cantidad > 0
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: 1
        color: Tema.borde
    }
    // The level's colour along the left edge.
    Rectangle {
        x: 1
        y: Tema.radio
        width: 3
        height: parent.height - (fila.abierta && fila.cantidad > 0 ? 1 : 2) * Tema.radio
        radius: 1.5
        color: fila.tinte
    }

    MouseArea {
        anchors.fill: parent
        cursorShape: Qt.PointingHandCursor
        onClicked: fila.plegar()
    }

    RowLayout {
        id: contenido
        anchors.fill: parent
        anchors.leftMargin: 14
        anchors.rightMargin: 18
        spacing: 12

        Icono {
            simbolo: "chevron.right"
            tamano: 20
            color: Tema.secundario
            rotation: fila.abierta ? 90 : 0
            Behavior on rotation { enabled: !Tema.movimientoReducido; NumberAnimation { duration: 150 } }
        }
        Casilla {
            objectName: "casillaCategoria"
            marca: fila.marcados === 0 ? 0 : fila.marcados === fila.cantidad ? 1 : 2
            ayuda: qsTranslate("Vorlano", "Marca todo lo que no esté en uso")
            Accessible.name: (fila.marcados === 0 ? qsTranslate("Vorlano", "Marcar {titulo}")
                                                  : qsTranslate("Vorlano", "Desmarcar {titulo}"))
                             .replace("{titulo}", fila.titulo)
            onClicked: fila.alternar()
        }
        Rectangle {
            width: 38
            height: 38
            radius: 10
            color: Qt.rgba(fila.tinte.r, fila.tinte.g, fila.tinte.b, Tema.oscuro ? 0.2 : 0.12)
            Icono { anchors.centerIn: parent; simbolo: fila.icono; tamano: 22; color: fila.tinte }
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 3
            RowLayout {
                spacing: 8
                Label {
                    textFormat: Text.PlainText
                    text: fila.titulo
                    color: Tema.texto
                    font.pixelSize: Tema.letraTitular - 1
                    font.weight: Font.DemiBold
                }
                Etiqueta { texto: fila.etiqueta; tinte: fila.tinte }
            }
            Label {
                textFormat: Text.PlainText
                objectName: "linea"
                Layout.fillWidth: true
                text: fila.linea
                color: fila.todoEnUso ? Tema.naranja : Tema.secundario
                font.pixelSize: Tema.letraChica + 1
                wrapMode: Text.Wrap
                maximumLineCount: 2
                elide: Text.ElideRight
            }
            Label {
                textFormat: Text.PlainText
                objectName: "lineaEnUso"
                Layout.fillWidth: true
                visible: fila.lineaEnUso !== ""
                text: fila.lineaEnUso
                color: Tema.naranja
                font.pixelSize: Tema.letraChica + 1
                wrapMode: Text.Wrap
            }
        }
        ColumnLayout {
            spacing: 2
            Label {
                textFormat: Text.PlainText
                Layout.alignment: Qt.AlignRight
                text: Rotulos.bytes(fila.tamano)
                color: Tema.texto
                font.pixelSize: Tema.letraTitular - 1
                font.weight: Font.DemiBold
            }
            Label {
                textFormat: Text.PlainText
                Layout.alignment: Qt.AlignRight
                text: Rotulos.elementos(fila.cantidad)
                color: Tema.secundario
                font.pixelSize: Tema.letraChica
            }
        }
    }
}
