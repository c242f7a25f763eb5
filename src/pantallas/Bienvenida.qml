// SPDX-License-Identifier: GPL-3.0-or-later
// The page that greets a new user: what the program does and doesn't do, in
// three points, and the two choices of the start. empezar closes it for good.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

ColumnLayout {
    id: bienvenida

    required property Estado estado

    signal empezar()

    spacing: 14

    Rectangle {
        objectName: "iconoApp"
        implicitWidth: 56
        implicitHeight: 56
        radius: 14
        gradient: Gradient {
            orientation: Gradient.Vertical
            GradientStop { position: 0; color: Tema.turquesa }
            GradientStop { position: 1; color: Tema.azul }
        }
        Icono {
            anchors.centerIn: parent
            simbolo: "sparkles"
            tamano: 32
            color: "white"
        }
    }
    Label {
        textFormat: Text.PlainText
        Layout.fillWidth: true
        text: qsTranslate("Vorlano", "Te damos la bienvenida a Vorlano")
        color: Tema.texto
        font.pixelSize: Tema.letraTitulo - 2
        font.weight: Font.Bold
        wrapMode: Text.Wrap
    }
    Label {
        textFormat: Text.PlainText
        Layout.fillWidth: true
        text: qsTranslate("Vorlano", "Libera espacio en tu Mac sin sustos.")
        color: Tema.secundario
        font.pixelSize: Tema.letra
        wrapMode: Text.Wrap
    }

    Repeater {
        model: [
            { simbolo: "checkmark.shield", tinte: Tema.acento,
              titular: qsTranslate("Vorlano", "Nada se borra sin tu confirmación"),
              texto: qsTranslate("Vorlano", "Primero analizas, revisas la lista y recién ahí limpias.") },
            { simbolo: "circle.lefthalf.filled", tinte: Tema.verde,
              titular: qsTranslate("Vorlano", "Los colores te dicen qué tan seguro es"),
              texto: qsTranslate("Vorlano", "Verde: cachés que se regeneran solas. Naranja: se vuelven a descargar. Rojo: tus archivos; van a la Papelera y puedes recuperarlos.") },
            { simbolo: "lock", tinte: Tema.naranja,
              titular: qsTranslate("Vorlano", "macOS te pedirá permisos"),
              texto: qsTranslate("Vorlano", "Al analizar, macOS preguntará por Escritorio, Documentos y Descargas. Si dices que no, esas carpetas simplemente se saltan.") }
        ]
        delegate: RowLayout {
            required property var modelData
            objectName: "punto"
            Layout.fillWidth: true
            spacing: 12
            Icono {
                Layout.alignment: Qt.AlignTop
                Layout.preferredWidth: 28
                simbolo: modelData.simbolo
                tamano: 24
                color: modelData.tinte
            }
            ColumnLayout {
                Layout.fillWidth: true
                spacing: 2
                Label {
                    textFormat: Text.PlainText
                    Layout.fillWidth: true
                    text: modelData.titular
                    color: Tema.texto
                    font.pixelSize: Tema.letra
                    font.weight: Font.DemiBold
                    wrapMode: Text.Wrap
                }
                Label {
                    textFormat: Text.PlainText
                    Layout.fillWidth: true
                    text: modelData.texto
                    color: Tema.secundario
                    font.pixelSize: Tema.letraChica + 1
                    wrapMode: Text.Wrap
                }
            }
        }
    }

    Rectangle { Layout.fillWidth: true; implicitHeight: 1; color: Tema.borde }

    InterruptoresInicio {
        Layout.fillWidth: true
        estado: bienvenida.estado
    }

    Boton {
        objectName: "empezar"
        Layout.alignment: Qt.AlignRight
        Layout.topMargin: 4
        clase: "principal"
        text: qsTranslate("Vorlano", "Empezar")
        onClicked: bienvenida.empezar()
    }
}
