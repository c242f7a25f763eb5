// SPDX-License-Identifier: GPL-3.0-or-later
// One symbol of the program's icon table, drawn from the icon font.
import QtQuick
import Vorlano

Text {
    textFormat: Text.PlainText
    required property string simbolo
    property real tamano: 18

    text: Iconos.glifo(simbolo)
    font.family: Iconos.familia
    font.pixelSize: tamano
    color: Tema.texto
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    Accessible.ignored: true
}
