// SPDX-License-Identifier: GPL-3.0-or-later
// The cleaning section.
import QtQuick
import QtQuick.Controls.Basic
import Vorlano

Item {
    id: vista

    required property Estado estado
    required property FilasLimpieza filas

    signal pedirLimpieza()
    signal vaciarPapelera()

    Label {
        anchors.centerIn: parent
        text: qsTranslate("Vorlano", "Limpieza")
        color: Tema.secundario
    }
}
