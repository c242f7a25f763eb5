// SPDX-License-Identifier: GPL-3.0-or-later
// The summary section.
import QtQuick
import QtQuick.Controls.Basic
import Vorlano

Item {
    id: resumen

    required property Estado estado

    signal abrir(string seccion, string id)
    signal pedirLimpieza()

    Label {
        anchors.centerIn: parent
        text: qsTranslate("Vorlano", "Resumen")
        color: Tema.secundario
    }
}
