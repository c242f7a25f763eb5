// SPDX-License-Identifier: GPL-3.0-or-later
// The main window. Until its sections exist it says what the program is and
// serves the links it is sent.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import Vorlano

ApplicationWindow {
    id: ventana

    required property Estado estado

    objectName: "principal"
    title: "Vorlano"
    width: 960
    height: 640
    minimumWidth: 760
    minimumHeight: 520

    // A link is served once: "analizar" starts an analysis unless one runs.
    function servir() {
        const enlace = Navegacion.tomar()
        if (enlace === "analizar" && !estado.estaTrabajando)
            estado.analizar()
    }

    Component.onCompleted: servir()

    Connections {
        target: Navegacion
        function onPendienteChanged() {
            if (Navegacion.pendiente !== "" && ventana.visible)
                ventana.servir()
        }
    }

    onVisibleChanged: if (visible) servir()

    ColumnLayout {
        anchors.centerIn: parent
        spacing: 12

        Label {
            Layout.alignment: Qt.AlignHCenter
            text: "Vorlano"
            font.pixelSize: 28
            font.bold: true
        }
        Label {
            objectName: "fase"
            Layout.alignment: Qt.AlignHCenter
            text: ventana.estado.estaTrabajando ? ventana.estado.progreso
                                                : qsTranslate("Vorlano", "Nada se borra sin tu confirmación")
        }
    }
}
