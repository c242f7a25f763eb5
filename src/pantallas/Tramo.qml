// SPDX-License-Identifier: GPL-3.0-or-later
// A piece of a card that runs on over several rows: rounded only at the
// ends it has. The rounded surface is drawn past the open ends and cut.
import QtQuick
import Vorlano

Item {
    property bool arriba: true
    property bool abajo: true
    property color color: Tema.superficie

    clip: !arriba || !abajo

    SuperficieTarjeta {
        anchors.fill: parent
        anchors.topMargin: parent.arriba ? 0 : -radius - 1
        anchors.bottomMargin: parent.abajo ? 0 : -radius - 1
        color: parent.color
    }
}
