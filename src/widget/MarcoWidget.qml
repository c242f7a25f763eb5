// SPDX-License-Identifier: GPL-3.0-or-later
// The widget as it stands on the desktop: its background, rounded, and the
// content 16 points in, with an optional transparent margin around it all.
import QtQuick
import Vorlano

Item {
    id: marco

    required property entradaDisco entrada
    property string familia: "chico"
    property bool vistaPrevia: false
    property real margen: 0

    FondoWidget {
        objectName: "fondo"
        anchors.fill: parent
        anchors.margins: marco.margen
        radio: 22
    }
    VistaWidget {
        objectName: "vista"
        anchors.fill: parent
        anchors.margins: marco.margen + 16
        entrada: marco.entrada
        familia: marco.familia
        vistaPrevia: marco.vistaPrevia
    }
}
