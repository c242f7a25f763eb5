// SPDX-License-Identifier: GPL-3.0-or-later
// The widget in its own window on the desktop: dragged anywhere but on a
// control it moves the window; the right button asks for its menu.
import QtQuick
import Vorlano

Item {
    id: raiz

    required property entradaDisco entrada
    property string familia: "chico"

    signal menuPedido()

    MarcoWidget {
        anchors.fill: parent
        entrada: raiz.entrada
        familia: raiz.familia
    }
    DragHandler {
        target: null
        onActiveChanged: if (active) raiz.Window.window.startSystemMove()
    }
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: raiz.menuPedido()
    }
}
