// SPDX-License-Identifier: GPL-3.0-or-later
// The page that greets a new user; empezar closes it for good.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

ColumnLayout {
    id: bienvenida

    required property Estado estado

    signal empezar()

    spacing: 14

    Label {
        Layout.fillWidth: true
        text: qsTranslate("Vorlano", "Te damos la bienvenida a Vorlano")
        color: Tema.texto
        font.pixelSize: Tema.letraTitulo - 2
        font.weight: Font.Bold
        wrapMode: Text.Wrap
    }
    Label {
        Layout.fillWidth: true
        text: qsTranslate("Vorlano", "Libera espacio en tu Mac sin sustos.")
        color: Tema.secundario
        font.pixelSize: Tema.letra
        wrapMode: Text.Wrap
    }
    Boton {
        objectName: "empezar"
        Layout.alignment: Qt.AlignRight
        Layout.topMargin: 8
        clase: "principal"
        text: qsTranslate("Vorlano", "Empezar")
        onClicked: bienvenida.empezar()
    }
}
