// SPDX-License-Identifier: GPL-3.0-or-later
// A rounded square in a colour holding a white symbol.
import QtQuick
import Vorlano

Rectangle {
    id: cuadrado

    required property string simbolo
    required property color tinte
    property real lado: 32

    width: lado
    height: lado
    radius: lado * 0.28
    gradient: Gradient {
        GradientStop { position: 0; color: Qt.lighter(cuadrado.tinte, 1.12) }
        GradientStop { position: 1; color: cuadrado.tinte }
    }

    Icono {
        anchors.centerIn: parent
        simbolo: cuadrado.simbolo
        tamano: cuadrado.lado * 0.6
        color: "white"
    }
}
