// SPDX-License-Identifier: GPL-3.0-or-later
// The two choices that matter from the start: the tray item and opening at
// login. The second shows what the system answered, not what was clicked.
import QtQuick
import QtQuick.Layouts
import Vorlano

ColumnLayout {
    id: interruptores

    required property Estado estado

    spacing: 6

    Interruptor {
        objectName: "barraMenu"
        Layout.fillWidth: true
        text: qsTranslate("Vorlano", "Mostrar el espacio libre en la barra de menú")
        checked: Preferencias.barraMenu
        onToggled: {
            Preferencias.barraMenu = checked
            checked = Qt.binding(() => Preferencias.barraMenu)
        }
    }
    Interruptor {
        objectName: "inicioSesion"
        Layout.fillWidth: true
        text: qsTranslate("Vorlano", "Abrir Vorlano al iniciar sesión")
        checked: interruptores.estado.abrirAlIniciar
        onToggled: {
            interruptores.estado.cambiarInicioSesion(checked)
            checked = Qt.binding(() => interruptores.estado.abrirAlIniciar)
        }
    }
}
