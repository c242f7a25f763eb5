// SPDX-License-Identifier: GPL-3.0-or-later
// The sidebar: the four sections, and under them the disk's free space,
// the test-mode mark and the way to the settings.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

Rectangle {
    id: barra

    required property Estado estado
    required property string seccion

    signal elegir(string seccion)
    signal ajustes()

    color: Tema.lateral

    Rectangle {
        anchors { top: parent.top; bottom: parent.bottom; right: parent.right }
        width: 1
        color: Tema.borde
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 14
        anchors.topMargin: 20
        spacing: 4

        RowLayout {
            Layout.leftMargin: 6
            Layout.bottomMargin: 18
            spacing: 10
            Rectangle {
                width: 30
                height: 30
                radius: 9
                gradient: Gradient {
                    orientation: Gradient.Horizontal
                    GradientStop { position: 0; color: Tema.turquesa }
                    GradientStop { position: 1; color: Tema.azul }
                }
                Icono { anchors.centerIn: parent; simbolo: "sparkles"; tamano: 18; color: "white" }
            }
            Label {
                textFormat: Text.PlainText
                text: "Vorlano"
                color: Tema.texto
                font.pixelSize: Tema.letraTitular + 2
                font.weight: Font.Bold
            }
        }

        Repeater {
            model: Rotulos.secciones
            delegate: ItemDelegate {
                id: fila
                required property var modelData
                readonly property bool actual: barra.seccion === modelData.valor
                readonly property bool conInsignia: modelData.valor === "limpieza" && barra.estado.seleccionado > 0

                objectName: "seccion-" + modelData.valor
                Layout.fillWidth: true
                implicitHeight: 40
                hoverEnabled: true
                Accessible.name: modelData.titulo
                onClicked: barra.elegir(modelData.valor)

                background: Rectangle {
                    radius: 9
                    color: fila.actual ? Tema.seleccion : fila.hovered ? Tema.sutil : "transparent"
                }
                contentItem: RowLayout {
                    spacing: 10
                    IconoCuadrado {
                        simbolo: fila.modelData.icono
                        tinte: Tema.colorSeccion(fila.modelData.valor)
                        lado: 26
                    }
                    Label {
                        textFormat: Text.PlainText
                        Layout.fillWidth: true
                        text: fila.modelData.titulo
                        color: Tema.texto
                        font.pixelSize: Tema.letra
                        font.weight: fila.actual ? Font.DemiBold : Font.Normal
                        elide: Text.ElideRight
                    }
                    Rectangle {
                        objectName: "insignia"
                        visible: fila.conInsignia
                        implicitWidth: insignia.implicitWidth + 12
                        implicitHeight: insignia.implicitHeight + 4
                        radius: height / 2
                        color: Qt.rgba(Tema.turquesa.r, Tema.turquesa.g, Tema.turquesa.b, 0.2)
                        Label {
                            textFormat: Text.PlainText
                            id: insignia
                            anchors.centerIn: parent
                            text: fila.conInsignia ? Rotulos.bytes(barra.estado.seleccionado) : ""
                            color: Tema.texto
                            font.pixelSize: Tema.letraChica - 1
                            font.weight: Font.DemiBold
                        }
                    }
                }
            }
        }

        Item { Layout.fillHeight: true }

        // The disk, by the latest figures of the state.
        ColumnLayout {
            Layout.fillWidth: true
            Layout.leftMargin: 6
            Layout.rightMargin: 6
            spacing: 7
            readonly property real usado: barra.estado.total < 1 ? 0
                                          : (barra.estado.total - barra.estado.libre) / barra.estado.total

            RowLayout {
                spacing: 6
                Icono { simbolo: "internaldrive"; tamano: 16; color: Tema.secundario }
                Label {
                    textFormat: Text.PlainText
                    objectName: "libres"
                    text: Rotulos.libresDe(barra.estado.libre, barra.estado.total)
                    color: Tema.secundario
                    font.pixelSize: Tema.letraChica
                }
            }
            Rectangle {
                Layout.fillWidth: true
                height: 6
                radius: 3
                color: Tema.sutil
                Rectangle {
                    objectName: "usoDisco"
                    width: parent.width * parent.parent.usado
                    height: parent.height
                    radius: 3
                    color: Tema.colorDisco(parent.parent.usado)
                }
            }
            Label {
                textFormat: Text.PlainText
                objectName: "modoPrueba"
                visible: barra.estado.modoPrueba
                text: qsTranslate("Vorlano", "MODO PRUEBA")
                color: Tema.naranja
                font.pixelSize: Tema.letraChica - 1
                font.weight: Font.Bold
                font.letterSpacing: 0.6
            }
            Boton {
                objectName: "ajustes"
                clase: "enlace"
                simbolo: "gearshape"
                text: qsTranslate("Vorlano", "Ajustes")
                Layout.topMargin: 4
                onClicked: barra.ajustes()
            }
        }
    }
}
