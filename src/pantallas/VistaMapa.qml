// SPDX-License-Identifier: GPL-3.0-or-later
// The map section; its screen comes with the map's own work.
import QtQuick
import QtQuick.Controls.Basic
import Vorlano

Item {
    required property EstadoMapa estado

    Label {
        anchors.centerIn: parent
        text: qsTranslate("Vorlano", "Mapa del disco")
        color: Tema.secundario
    }
}
