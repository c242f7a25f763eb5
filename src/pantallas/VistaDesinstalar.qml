// SPDX-License-Identifier: GPL-3.0-or-later
// The uninstall section: the applications on the left, the chosen one (or
// the outcome of the last uninstall, or an invitation) on the right. An
// application dropped anywhere on it is chosen.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Shapes
import Vorlano

Item {
    id: vista

    required property EstadoApps estado
    property bool soltando: false

    VistaApps {
        id: textos
        estado: vista.estado
    }

    // The list is built the first time the section shows.
    onVisibleChanged: if (visible) estado.cargar()
    Component.onCompleted: if (visible) estado.cargar()

    // Whether the chosen application runs is asked again while it is shown.
    Timer {
        interval: 3000
        repeat: true
        running: vista.visible && !!vista.estado.elegida
        onTriggered: textos.revisar()
    }

    RowLayout {
        anchors.fill: parent
        spacing: 0

        ListaApps {
            Layout.preferredWidth: 270
            Layout.fillWidth: false
            Layout.fillHeight: true
            estado: vista.estado
            vista: textos
        }

        Rectangle { Layout.fillHeight: true; implicitWidth: 1; color: Tema.borde }

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            DetalleApp {
                objectName: "detalle"
                anchors.fill: parent
                visible: !!vista.estado.elegida
                estado: vista.estado
                vista: textos
                onDesinstalar: confirmar.open()
            }

            ColumnLayout {
                objectName: "exito"
                anchors.centerIn: parent
                width: Math.min(parent.width - 64, 480)
                visible: !vista.estado.elegida && !!vista.estado.resultado
                spacing: 10

                Icono {
                    id: visto
                    Layout.alignment: Qt.AlignHCenter
                    simbolo: "checkmark.circle.fill"
                    tamano: 64
                    color: Tema.verde
                    // One bounce when the view comes up.
                    SequentialAnimation on scale {
                        running: false
                        id: rebote
                        NumberAnimation { from: 0.6; to: 1.12; duration: 180; easing.type: Easing.OutQuad }
                        NumberAnimation { to: 1; duration: 160; easing.type: Easing.InOutQuad }
                    }
                }
                Label {
                    textFormat: Text.PlainText
                    objectName: "tituloExito"
                    Layout.fillWidth: true
                    horizontalAlignment: Text.AlignHCenter
                    text: textos.tituloExito
                    color: Tema.texto
                    font.pixelSize: Tema.letraTitulo - 4
                    font.weight: Font.Bold
                    wrapMode: Text.Wrap
                }
                Label {
                    textFormat: Text.PlainText
                    Layout.fillWidth: true
                    horizontalAlignment: Text.AlignHCenter
                    text: textos.detalleExito
                    color: Tema.secundario
                    font.pixelSize: Tema.letra
                    wrapMode: Text.Wrap
                }
                Repeater {
                    model: vista.estado.resultado ? vista.estado.resultado.errores : []
                    delegate: Label {
                        textFormat: Text.PlainText
                        required property string modelData
                        Layout.fillWidth: true
                        horizontalAlignment: Text.AlignHCenter
                        text: modelData
                        color: Tema.naranja
                        font.pixelSize: Tema.letraChica
                        wrapMode: Text.Wrap
                    }
                }
                onVisibleChanged: if (visible && !Tema.movimientoReducido) rebote.restart()
            }

            ColumnLayout {
                objectName: "vacio"
                anchors.centerIn: parent
                width: Math.min(parent.width - 64, 480)
                visible: !vista.estado.elegida && !vista.estado.resultado
                spacing: 10
                Icono {
                    Layout.alignment: Qt.AlignHCenter
                    simbolo: "arrow.down.app"
                    tamano: 56
                    color: Tema.secundario
                }
                Label {
                    textFormat: Text.PlainText
                    Layout.fillWidth: true
                    horizontalAlignment: Text.AlignHCenter
                    text: qsTranslate("Vorlano", "Elige una app o arrástrala aquí")
                    color: Tema.texto
                    font.pixelSize: Tema.letraTitular
                    font.weight: Font.DemiBold
                    wrapMode: Text.Wrap
                }
                Label {
                    textFormat: Text.PlainText
                    Layout.fillWidth: true
                    horizontalAlignment: Text.AlignHCenter
                    text: qsTranslate("Vorlano", "Vorlano encuentra también sus preferencias, cachés y datos,\ny los manda junto con la app a la Papelera.")
                    color: Tema.secundario
                    font.pixelSize: Tema.letra
                    wrapMode: Text.Wrap
                }
            }
        }
    }

    // Anything dragged over the section may be an application: the first item counts.
    DropArea {
        objectName: "soltar"
        anchors.fill: parent
        onEntered: (arrastre) => { vista.soltando = true; arrastre.accept(Qt.CopyAction) }
        onExited: vista.soltando = false
        onDropped: (suelta) => {
            vista.soltando = false
            if (suelta.hasUrls && suelta.urls.length > 0)
                vista.estado.recibir(suelta.urls[0])
            suelta.accept(Qt.CopyAction)
        }
    }

    Shape {
        objectName: "contorno"
        anchors.fill: parent
        anchors.margins: 6
        visible: vista.soltando
        ShapePath {
            strokeColor: Tema.acento
            strokeWidth: 2.5
            strokeStyle: ShapePath.DashLine
            dashPattern: [5, 4]
            fillColor: Qt.rgba(Tema.acento.r, Tema.acento.g, Tema.acento.b, 0.06)
            startX: 14; startY: 0
            PathLine { x: vista.width - 12 - 14; y: 0 }
            PathArc { x: vista.width - 12; y: 14; radiusX: 14; radiusY: 14 }
            PathLine { x: vista.width - 12; y: vista.height - 12 - 14 }
            PathArc { x: vista.width - 12 - 14; y: vista.height - 12; radiusX: 14; radiusY: 14 }
            PathLine { x: 14; y: vista.height - 12 }
            PathArc { x: 0; y: vista.height - 12 - 14; radiusX: 14; radiusY: 14 }
            PathLine { x: 0; y: 14 }
            PathArc { x: 14; y: 0; radiusX: 14; radiusY: 14 }
        }
    }

    Dialogo {
        id: confirmar
        objectName: "confirmarDesinstalar"
        titulo: textos.tituloConfirmacion
        mensaje: textos.mensajeConfirmacion
        accion: qsTranslate("Vorlano", "Mover a la Papelera")
        onAceptado: vista.estado.desinstalar()
    }
}
