// SPDX-License-Identifier: GPL-3.0-or-later
// How the disk is doing in one line: an orange warning when space runs low,
// else a green dot and the share in use of the total.
import QtQuick
import Vorlano

Row {
    id: estado

    required property entradaDisco entrada

    spacing: 5

    Icono {
        objectName: "avisoPoco"
        visible: estado.entrada.poco
        anchors.verticalCenter: parent.verticalCenter
        simbolo: "exclamationmark.triangle.fill"
        tamano: 11
        color: Tema.naranja
    }
    Rectangle {
        objectName: "puntoVerde"
        visible: !estado.entrada.poco
        anchors.verticalCenter: parent.verticalCenter
        width: 6
        height: 6
        radius: 3
        color: Tema.verde
    }
    Text {
        textFormat: Text.PlainText
        objectName: "lineaEstado"
        anchors.verticalCenter: parent.verticalCenter
        text: estado.entrada.lineaEstado
        color: estado.entrada.poco ? Tema.naranja : Tema.secundario
        font.pixelSize: 10
        font.weight: estado.entrada.poco ? Font.DemiBold : Font.Normal
    }
}
