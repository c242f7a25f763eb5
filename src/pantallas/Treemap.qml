// SPDX-License-Identifier: GPL-3.0-or-later
// The tiles of the folder shown, each in its rectangle of the layout, inset
// a little: a rounded gradient, an outline that marks the selection, and the
// name and size where there is room for them.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

Item {
    id: mapa

    required property ModeloBaldosas baldosas
    required property EstadoMapa estado
    // The id of the tile under the pointer, empty for none.
    property string encima: ""

    function brillo(c, d) {
        return Qt.rgba(Math.min(1, c.r + d), Math.min(1, c.g + d), Math.min(1, c.b + d), c.a)
    }

    Repeater {
        model: mapa.baldosas
        delegate: Item {
            id: baldosa

            required property string id
            required property var nodo
            required property string nombre
            required property string bytes
            required property color color
            required property bool abrible
            required property string ayuda
            required property bool etiqueta
            required property string ruta
            required property real izquierda
            required property real arriba
            required property real ancho
            required property real alto
            readonly property bool elegida: ruta !== "" && mapa.estado.seleccion.ruta === ruta
            readonly property color tono: mapa.encima === id ? mapa.brillo(color, 0.08) : color

            objectName: "baldosa-" + nombre
            x: izquierda
            y: arriba
            width: ancho
            height: alto

            // On a light window the white outline of the selection needs a
            // dark edge around it to be seen.
            Rectangle {
                visible: baldosa.elegida && !Tema.oscuro
                anchors.fill: parent
                anchors.margins: mapa.baldosas.margen - 1.5
                radius: 8.5
                color: "transparent"
                border.color: Qt.rgba(0, 0, 0, 0.45)
                border.width: 1.5
            }
            Rectangle {
                anchors.fill: parent
                anchors.margins: mapa.baldosas.margen
                radius: 7
                gradient: Gradient {
                    GradientStop { position: 0; color: mapa.brillo(baldosa.tono, 0.07) }
                    GradientStop { position: 1; color: baldosa.tono }
                }
                border.color: baldosa.elegida ? "white" : Qt.rgba(1, 1, 1, 0.18)
                border.width: baldosa.elegida ? 3 : 1

                ColumnLayout {
                    objectName: "etiqueta"
                    visible: baldosa.etiqueta
                    anchors.left: parent.left
                    anchors.right: parent.right
                    anchors.top: parent.top
                    anchors.margins: 8
                    spacing: 1
                    RowLayout {
                        Layout.fillWidth: true
                        spacing: 4
                        Icono {
                            visible: baldosa.abrible
                            simbolo: "folder.fill"
                            tamano: Tema.letraChica + 1
                            color: "white"
                            style: Text.Raised
                            styleColor: Qt.rgba(0, 0, 0, 0.35)
                        }
                        Label {
                            textFormat: Text.PlainText
                            Layout.fillWidth: true
                            text: baldosa.nombre
                            color: "white"
                            font.pixelSize: Tema.letraChica + 1
                            font.weight: Font.DemiBold
                            elide: Text.ElideRight
                            style: Text.Raised
                            styleColor: Qt.rgba(0, 0, 0, 0.35)
                        }
                    }
                    Label {
                        textFormat: Text.PlainText
                        Layout.fillWidth: true
                        text: baldosa.bytes
                        color: "white"
                        opacity: 0.85
                        font.pixelSize: Tema.letraChica
                        elide: Text.ElideRight
                        style: Text.Raised
                        styleColor: Qt.rgba(0, 0, 0, 0.35)
                    }
                }
            }

            MouseArea {
                id: puntero
                anchors.fill: parent
                hoverEnabled: true
                onEntered: mapa.encima = baldosa.id
                onExited: if (mapa.encima === baldosa.id) mapa.encima = ""
                // A double click selects first, then opens.
                onClicked: if (baldosa.nodo.valido) mapa.estado.seleccion = baldosa.nodo
                onDoubleClicked: if (baldosa.abrible) mapa.estado.entrar(baldosa.nodo)
            }

            Ayuda {
                visible: puntero.containsMouse
                delay: 700
                text: baldosa.ayuda
            }
        }
    }
}
