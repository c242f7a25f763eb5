// SPDX-License-Identifier: GPL-3.0-or-later
// Work in progress: an arc turning round a faint track, like the program's
// rings. Under reduced motion the arc stands still.
import QtQuick
import QtQuick.Shapes
import Vorlano

Item {
    id: rueda

    property bool running: true
    property color tinte: Tema.acento
    readonly property real grosor: Math.max(2.5, width / 9)

    implicitWidth: 30
    implicitHeight: 30

    Shape {
        anchors.fill: parent
        layer.enabled: true
        layer.samples: 4
        ShapePath {
            strokeColor: Tema.sutil
            strokeWidth: rueda.grosor
            fillColor: "transparent"
            PathAngleArc {
                centerX: rueda.width / 2; centerY: rueda.height / 2
                radiusX: (rueda.width - rueda.grosor) / 2; radiusY: radiusX
                startAngle: 0; sweepAngle: 360
            }
        }
        ShapePath {
            strokeColor: rueda.tinte
            strokeWidth: rueda.grosor
            fillColor: "transparent"
            capStyle: ShapePath.RoundCap
            PathAngleArc {
                centerX: rueda.width / 2; centerY: rueda.height / 2
                radiusX: (rueda.width - rueda.grosor) / 2; radiusY: radiusX
                startAngle: -90; sweepAngle: 100
            }
        }
        NumberAnimation on rotation {
            running: rueda.running && rueda.visible && !Tema.movimientoReducido
            from: 0; to: 360
            duration: 900
            loops: Animation.Infinite
        }
    }
}
