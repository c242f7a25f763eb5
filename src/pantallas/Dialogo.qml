// SPDX-License-Identifier: GPL-3.0-or-later
// A question before an action that can't be undone: a title, a message, a
// cancel button and the destructive one.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T
import Vorlano

Popup {
    id: dialogo

    property string titulo
    property string mensaje
    property string accion

    signal aceptado()

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(440, parent ? parent.width - 48 : 440)
    modal: true
    focus: true
    padding: 24
    closePolicy: Popup.CloseOnEscape

    background: SuperficieFlotante { radius: 16 }
    T.Overlay.modal: Rectangle { color: Tema.oscuro ? "#99000000" : "#55000000" }

    contentItem: ColumnLayout {
        spacing: 12
        Label {
            textFormat: Text.PlainText
            objectName: "titulo"
            Layout.fillWidth: true
            text: dialogo.titulo
            color: Tema.texto
            font.pixelSize: Tema.letraTitular + 2
            font.weight: Font.Bold
            wrapMode: Text.Wrap
        }
        Label {
            textFormat: Text.PlainText
            objectName: "mensaje"
            Layout.fillWidth: true
            visible: text !== ""
            text: dialogo.mensaje
            color: Tema.secundario
            font.pixelSize: Tema.letra
            wrapMode: Text.Wrap
            lineHeight: 1.15
        }
        RowLayout {
            Layout.topMargin: 8
            Layout.alignment: Qt.AlignRight
            spacing: 10
            Boton {
                objectName: "cancelar"
                text: qsTranslate("Vorlano", "Cancelar")
                onClicked: dialogo.close()
            }
            Boton {
                objectName: "aceptar"
                clase: "destructivo"
                text: dialogo.accion
                onClicked: {
                    dialogo.close()
                    dialogo.aceptado()
                }
            }
        }
    }
}
