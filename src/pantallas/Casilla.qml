// SPDX-License-Identifier: GPL-3.0-or-later
// A checkbox drawn with the icon set: empty, ticked, or partly ticked.
import QtQuick
import QtQuick.Controls.Basic
import Vorlano

AbstractButton {
    id: casilla

    // 0 nothing ticked, 1 everything, 2 some.
    property int marca: 0
    property string ayuda: ""

    implicitWidth: 24
    implicitHeight: 24
    hoverEnabled: true
    Accessible.role: Accessible.CheckBox
    Accessible.checked: marca === 1

    contentItem: Icono {
        simbolo: casilla.marca === 1 ? "checkmark.square.fill"
                                      : casilla.marca === 2 ? "minus.square.fill" : "square"
        tamano: 22
        color: casilla.marca === 0 ? Tema.secundario : Tema.acento
    }

    Ayuda {
        visible: casilla.ayuda !== "" && casilla.hovered
        text: casilla.ayuda
    }
}
