// SPDX-License-Identifier: GPL-3.0-or-later
// A ring that fills clockwise from the top as a percentage grows, with the
// figure in its middle.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Shapes
import Vorlano

Item {
    id: anillo

    required property real porcentaje
    property color tinte: Tema.acento
    property real grosor: 10
    property real avance: porcentaje

    implicitWidth: 110
    implicitHeight: 110

    Behavior on avance {
        enabled: !Tema.movimientoReducido
        NumberAnimation { duration: 350; easing.type: Easing.OutCubic }
    }

    Shape {
        anchors.fill: parent
        layer.enabled: true
        layer.samples: 4
        ShapePath {
            strokeColor: Tema.sutil
            strokeWidth: anillo.grosor
            fillColor: "transparent"
            PathAngleArc {
                centerX: anillo.width / 2; centerY: anillo.height / 2
                radiusX: (anillo.width - anillo.grosor) / 2; radiusY: radiusX
                startAngle: 0; sweepAngle: 360
            }
        }
        ShapePath {
            strokeColor: anillo.tinte
            strokeWidth: anillo.grosor
            fillColor: "transparent"
            capStyle: ShapePath.RoundCap
            PathAngleArc {
                centerX: anillo.width / 2; centerY: anillo.height / 2
                radiusX: (anillo.width - anillo.grosor) / 2; radiusY: radiusX
                startAngle: -90
                sweepAngle: 360 * Math.max(0, Math.min(100, anillo.avance)) / 100
            }
        }
    }

    Label {
        objectName: "porcentaje"
        anchors.centerIn: parent
        text: qsTranslate("Vorlano", "{n} %").replace("{n}", Math.round(anillo.porcentaje))
        color: Tema.texto
        font.pixelSize: Tema.letraTitular + 2
        font.weight: Font.DemiBold
    }
}
