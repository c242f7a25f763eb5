// SPDX-License-Identifier: GPL-3.0-or-later
// Under the map: the selected item with what can be done with it, or the
// message of a failed move, or a hint.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

Item {
    id: barra

    required property EstadoMapa estado
    required property ModeloBaldosas baldosas
    readonly property var nodo: estado.seleccion
    readonly property string impedimento: nodo.valido ? estado.impedimento(nodo) : ""

    signal mover(var nodo)

    implicitHeight: Math.max(56, fila.implicitHeight + 20)

    RowLayout {
        id: fila
        objectName: "seleccion"
        visible: barra.nodo.valido
        anchors.fill: parent
        anchors.leftMargin: 16
        anchors.rightMargin: 16
        spacing: 12

        Icono {
            simbolo: barra.nodo.esCarpeta ? "folder.fill" : "doc.fill"
            tamano: 24
            color: Tema.colorSeccion("mapa")
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 1
            Label {
                textFormat: Text.PlainText
                objectName: "nombreSeleccion"
                Layout.fillWidth: true
                text: barra.nodo.nombre
                color: Tema.texto
                font.pixelSize: Tema.letra
                font.weight: Font.DemiBold
                elide: Text.ElideRight
            }
            Label {
                textFormat: Text.PlainText
                Layout.fillWidth: true
                text: barra.baldosas.rutaCorta(barra.nodo)
                color: Tema.secundario
                font.pixelSize: Tema.letraChica
                elide: Text.ElideMiddle
            }
        }
        Label {
            textFormat: Text.PlainText
            text: Rotulos.bytes(barra.nodo.tamano)
            color: Tema.texto
            font.pixelSize: Tema.letra
        }
        Boton {
            objectName: "abrir"
            visible: barra.baldosas.seAbre(barra.nodo)
            text: qsTranslate("Vorlano", "Abrir")
            onClicked: barra.estado.entrar(barra.nodo)
        }
        Boton {
            objectName: "mostrar"
            simbolo: "magnifyingglass"
            Accessible.name: qsTranslate("Vorlano", "Mostrar en el Finder")
            Ayuda {
                visible: parent.hovered
                text: qsTranslate("Vorlano", "Mostrar en el Finder")
            }
            onClicked: barra.baldosas.mostrar(barra.nodo)
        }
        Boton {
            objectName: "moverAPapelera"
            visible: barra.impedimento === ""
            clase: "destructivo"
            simbolo: "trash"
            text: qsTranslate("Vorlano", "Mover a la Papelera")
            onClicked: barra.mover(barra.nodo)
        }
        Icono {
            objectName: "candado"
            visible: barra.impedimento !== ""
            simbolo: "lock.fill"
            tamano: 20
            color: Tema.secundario
            Ayuda {
                visible: candado.containsMouse
                delay: 300
                text: barra.impedimento
            }
            MouseArea { id: candado; anchors.fill: parent; hoverEnabled: true }
        }
    }

    RowLayout {
        objectName: "aviso"
        visible: !barra.nodo.valido && barra.estado.aviso !== ""
        anchors.fill: parent
        anchors.leftMargin: 16
        anchors.rightMargin: 16
        spacing: 8
        Icono { simbolo: "exclamationmark.triangle.fill"; tamano: 18; color: Tema.naranja }
        Label {
            textFormat: Text.PlainText
            Layout.fillWidth: true
            text: barra.estado.aviso
            color: Tema.texto
            font.pixelSize: Tema.letra
            wrapMode: Text.Wrap
        }
    }

    Label {
        textFormat: Text.PlainText
        objectName: "pista"
        visible: !barra.nodo.valido && barra.estado.aviso === ""
        anchors.fill: parent
        anchors.leftMargin: 16
        anchors.rightMargin: 16
        verticalAlignment: Text.AlignVCenter
        text: qsTranslate("Vorlano", "Haz clic en un rectángulo para ver qué es; doble clic para entrar a la carpeta.")
        color: Tema.secundario
        font.pixelSize: Tema.letra
        wrapMode: Text.Wrap
    }
}
