// SPDX-License-Identifier: GPL-3.0-or-later
// A card that floats over the window (questions, popovers, menus, tooltips):
// the card surface with a soft shadow under it.
import QtQuick
import Vorlano

Item {
    id: flotante

    property color color: Tema.superficie
    property real radius: Tema.radio

    // The shadow: a few rounded layers, each a little wider and fainter,
    // falling slightly downwards.
    Repeater {
        model: 4
        Rectangle {
            required property int index
            readonly property real ancho: (index + 1) * 2.5
            x: -ancho
            y: -ancho + 3
            width: flotante.width + 2 * ancho
            height: flotante.height + 2 * ancho
            radius: flotante.radius + ancho
            color: Qt.rgba(0, 0, 0, Tema.oscuro ? 0.09 : 0.03)
        }
    }
    SuperficieTarjeta {
        anchors.fill: parent
        color: flotante.color
        radius: flotante.radius
    }
}
