// SPDX-License-Identifier: GPL-3.0-or-later
// The settings window; its controls come with the settings screen.
import QtQuick
import QtQuick.Controls
import Vorlano

ApplicationWindow {
    required property Estado estado

    objectName: "ajustes"
    title: qsTranslate("Vorlano", "Ajustes")
    width: 480
    height: 360
}
