// SPDX-License-Identifier: GPL-3.0-or-later
// The uninstall section; its screen comes with the uninstaller's own work.
import QtQuick
import QtQuick.Controls.Basic
import Vorlano

Item {
    required property EstadoApps estado

    Label {
        anchors.centerIn: parent
        text: qsTranslate("Vorlano", "Desinstalar apps")
        color: Tema.secundario
    }
}
