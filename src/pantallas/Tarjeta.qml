// SPDX-License-Identifier: GPL-3.0-or-later
// A category on the summary: the whole card opens it in the cleaning list.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

AbstractButton {
    id: tarjeta

    property string icono: ""
    property string titulo: ""
    property int nivel: 0
    property string etiqueta: ""
    property real tamano: 0
    property real tamanoSeleccionado: 0
    property bool todoEnUso: false
    property real proporcion: 0
    property int orden: 0

    readonly property color tinte: Tema.colorNivel(nivel)

    hoverEnabled: true
    padding: 16
    implicitHeight: 150
    Accessible.name: titulo

    // Fades in by its place in the grid.
    opacity: 0
    Component.onCompleted: Tema.movimientoReducido ? opacity = 1 : aparicion.start()
    SequentialAnimation {
        id: aparicion
        PauseAnimation { duration: Math.min(tarjeta.orden, 12) * 45 }
        NumberAnimation { target: tarjeta; property: "opacity"; to: 1; duration: 260 }
    }

    background: SuperficieTarjeta {
        color: tarjeta.hovered ? Tema.superficieAlta : Tema.superficie
        border.color: tarjeta.hovered ? Qt.rgba(tarjeta.tinte.r, tarjeta.tinte.g, tarjeta.tinte.b, 0.6) : Tema.borde
    }

    contentItem: ColumnLayout {
        spacing: 6
        RowLayout {
            spacing: 10
            IconoCuadrado {
                simbolo: tarjeta.icono
                tinte: tarjeta.tinte
                lado: 30
            }
            Item { Layout.fillWidth: true }
            Etiqueta {
                texto: tarjeta.etiqueta
                tinte: tarjeta.tinte
            }
        }
        Label {
            textFormat: Text.PlainText
            Layout.fillWidth: true
            Layout.topMargin: 4
            text: tarjeta.titulo
            color: Tema.texto
            font.pixelSize: Tema.letra
            font.weight: Font.DemiBold
            elide: Text.ElideRight
        }
        Label {
            textFormat: Text.PlainText
            text: Rotulos.bytes(tarjeta.tamano)
            color: Tema.texto
            font.pixelSize: Tema.letraTitular + 2
            font.weight: Font.Bold
        }
        Rectangle {
            Layout.fillWidth: true
            height: 6
            radius: 3
            color: Tema.sutil
            Rectangle {
                width: Math.max(height, parent.width * Math.min(1, tarjeta.proporcion))
                height: parent.height
                radius: 3
                color: tarjeta.tinte
            }
        }
        Label {
            textFormat: Text.PlainText
            objectName: "estadoTarjeta"
            Layout.fillWidth: true
            text: Rotulos.estadoTarjeta(tarjeta.tamanoSeleccionado, tarjeta.todoEnUso)
            color: tarjeta.tamanoSeleccionado >= 1 ? tarjeta.tinte
                   : tarjeta.todoEnUso ? Tema.naranja : Tema.secundario
            font.pixelSize: Tema.letraChica
            elide: Text.ElideRight
        }
    }

    Ayuda {
        visible: tarjeta.hovered
        text: qsTranslate("Vorlano", "Ver en Limpieza")
    }
}
