// SPDX-License-Identifier: GPL-3.0-or-later
// A choice among a few values: the chosen one on a rounded field, the
// others in a floating list under it.
import QtQuick
import QtQuick.Controls.Basic
import Vorlano

ComboBox {
    id: selector

    hoverEnabled: true
    font.pixelSize: Tema.letra
    leftPadding: 12
    rightPadding: 34

    contentItem: Label {
        textFormat: Text.PlainText
        text: selector.displayText
        font: selector.font
        color: Tema.texto
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
    indicator: Icono {
        x: selector.width - width - 10
        anchors.verticalCenter: parent.verticalCenter
        simbolo: "chevron.up.chevron.down"
        tamano: 18
        color: Tema.secundario
    }
    background: Rectangle {
        implicitHeight: 32
        radius: 8
        color: selector.hovered ? Tema.superficieAlta : Tema.superficie
        border.color: selector.visualFocus ? Tema.acento : Tema.borde
    }

    delegate: ItemDelegate {
        id: opcion
        required property var model
        required property int index
        width: ListView.view.width
        highlighted: selector.highlightedIndex === index
        contentItem: Label {
            textFormat: Text.PlainText
            text: opcion.model[selector.textRole]
            font: selector.font
            color: Tema.texto
            verticalAlignment: Text.AlignVCenter
        }
        background: Rectangle {
            radius: 6
            color: opcion.highlighted ? Tema.seleccion : "transparent"
        }
    }

    popup: Popup {
        y: selector.height + 4
        width: selector.width
        padding: 4
        implicitHeight: contentItem.implicitHeight + 8
        contentItem: ListView {
            clip: true
            implicitHeight: contentHeight
            model: selector.popup.visible ? selector.delegateModel : null
            currentIndex: selector.highlightedIndex
        }
        background: SuperficieFlotante {
            color: Tema.superficieAlta
            radius: 10
        }
    }
}
