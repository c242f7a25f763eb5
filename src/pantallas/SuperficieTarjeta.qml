// SPDX-License-Identifier: GPL-3.0-or-later
// The rounded surface every card stands on.
import QtQuick
import Vorlano

Rectangle {
    color: Tema.superficie
    radius: Tema.radio
    border.color: Tema.borde
    border.width: 1
}
