// SPDX-License-Identifier: GPL-3.0-or-later
// The applications: the search field over the list, or the wait while the
// list is built.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

ColumnLayout {
    id: lista

    required property EstadoApps estado
    required property VistaApps vista

    spacing: 8

    TextField {
        objectName: "buscar"
        Layout.fillWidth: true
        Layout.margins: 10
        Layout.bottomMargin: 0
        placeholderText: qsTranslate("Vorlano", "Buscar apps")
        color: Tema.texto
        placeholderTextColor: Tema.secundario
        font.pixelSize: Tema.letra
        leftPadding: 30
        background: Rectangle {
            implicitHeight: 32
            radius: Tema.radioChico
            color: Tema.sutil
            border.color: parent.activeFocus ? Tema.acento : "transparent"
            Icono {
                anchors.verticalCenter: parent.verticalCenter
                x: 8
                simbolo: "magnifyingglass"
                tamano: 16
                color: Tema.secundario
            }
        }
        onTextChanged: lista.vista.busqueda = text
    }

    Item {
        Layout.fillWidth: true
        Layout.fillHeight: true

        Rueda {
            objectName: "cargando"
            anchors.centerIn: parent
            visible: lista.estado.cargando
        }

        ListView {
            objectName: "apps"
            anchors.fill: parent
            anchors.margins: 6
            visible: !lista.estado.cargando
            clip: true
            spacing: 1
            model: lista.vista.filtradas
            boundsBehavior: Flickable.StopAtBounds
            ScrollBar.vertical: ScrollBar {}
            delegate: FilaApp {
                width: ListView.view.width
                elegida: !!lista.estado.elegida && lista.estado.elegida.ruta === ruta
                onClicked: lista.vista.elegir(index)
                required property string ruta
            }
        }
    }
}
