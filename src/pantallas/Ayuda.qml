// SPDX-License-Identifier: GPL-3.0-or-later
// The program's tooltip, drawn as a small floating card in either palette
// (the style's own box keeps light colours on a dark window).
import QtQuick
import QtQuick.Controls.Basic
import Vorlano

ToolTip {
    id: ayuda

    delay: 600
    padding: 7
    leftPadding: 10
    rightPadding: 10
    font.pixelSize: Tema.letraChica + 1

    contentItem: Label {
        textFormat: Text.PlainText
        text: ayuda.text
        font: ayuda.font
        color: Tema.texto
        wrapMode: Text.Wrap
    }
    background: SuperficieFlotante {
        color: Tema.superficieAlta
        radius: 7
    }
}
