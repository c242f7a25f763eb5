// SPDX-License-Identifier: GPL-3.0-or-later
// An application's own icon where it has one that loads, else a square with
// the symbol of its kind.
import QtQuick
import Vorlano

Item {
    id: icono

    required property string tipo
    required property url archivo
    property real lado: 28

    implicitWidth: lado
    implicitHeight: lado

    Image {
        id: imagen
        anchors.fill: parent
        source: icono.archivo
        sourceSize: Qt.size(icono.lado * 2, icono.lado * 2)
        fillMode: Image.PreserveAspectFit
        asynchronous: true
        smooth: true
    }

    IconoCuadrado {
        visible: imagen.status !== Image.Ready
        anchors.centerIn: parent
        lado: icono.lado * 0.9
        tinte: Tema.acento
        simbolo: ({ flatpak: "shippingbox", snap: "cube.box", appImage: "doc.fill", enCasa: "folder.fill" })[icono.tipo]
                 || "square.stack.3d.up"
    }
}
