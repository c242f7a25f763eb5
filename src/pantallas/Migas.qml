// SPDX-License-Identifier: GPL-3.0-or-later
// The way from the home folder to the folder shown; a crumb goes back there.
// At the right end, the size of the folder shown and a new measurement.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

RowLayout {
    id: migas

    required property EstadoMapa estado

    spacing: 2

    Repeater {
        model: migas.estado.camino
        delegate: RowLayout {
            id: miga
            required property var modelData
            required property int index
            readonly property bool actual: index === migas.estado.camino.length - 1
            spacing: 2

            Icono {
                visible: miga.index > 0
                simbolo: "chevron.right"
                tamano: 14
                color: Tema.secundario
            }
            ToolButton {
                objectName: "miga-" + miga.index
                hoverEnabled: true
                padding: 4
                background: Rectangle { radius: 6; color: parent.hovered ? Tema.sutil : "transparent" }
                contentItem: RowLayout {
                    spacing: 5
                    Icono {
                        visible: miga.index === 0
                        simbolo: "house.fill"
                        tamano: 15
                        color: miga.actual ? Tema.texto : Tema.secundario
                    }
                    Label {
                        textFormat: Text.PlainText
                        text: miga.modelData.nombre
                        color: miga.actual ? Tema.texto : Tema.secundario
                        font.pixelSize: Tema.letra
                        font.weight: miga.actual ? Font.DemiBold : Font.Normal
                        elide: Text.ElideMiddle
                        Layout.maximumWidth: 220
                    }
                }
                Accessible.name: miga.modelData.nombre
                onClicked: migas.estado.entrar(miga.modelData)
            }
        }
    }

    Item { Layout.fillWidth: true }

    Label {
        textFormat: Text.PlainText
        objectName: "tamanoActual"
        // The node doesn't announce a move; version does.
        text: { migas.estado.version; return Rotulos.bytes(migas.estado.actual.tamano) }
        color: Tema.texto
        font.pixelSize: Tema.letraTitular
        font.weight: Font.DemiBold
    }

    ToolButton {
        objectName: "volverAMedir"
        visible: migas.estado.raiz.valido && !migas.estado.midiendo
        hoverEnabled: true
        padding: 6
        background: Rectangle { radius: 6; color: parent.hovered ? Tema.sutil : "transparent" }
        contentItem: Icono { simbolo: "arrow.clockwise"; tamano: 18; color: Tema.texto }
        Accessible.name: qsTranslate("Vorlano", "Volver a medir")
        Ayuda {
            visible: parent.hovered
            text: qsTranslate("Vorlano", "Volver a medir")
        }
        onClicked: migas.estado.medir()
    }
}
