// SPDX-License-Identifier: GPL-3.0-or-later
// The map section: an invitation to measure, the ring while measuring, then
// the map of the folder shown beside the list of its tiles, with the way
// back on top and the selected item below.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

Item {
    id: vista

    required property EstadoMapa estado
    readonly property string pagina: estado.actual.valido ? "mapa" : estado.midiendo ? "midiendo" : "inicio"

    ModeloBaldosas {
        id: baldosas
        estado: vista.estado
        ancho: treemap.width
        alto: treemap.height
    }

    ColumnLayout {
        objectName: "inicio"
        visible: vista.pagina === "inicio"
        anchors.centerIn: parent
        width: Math.min(parent.width - 64, 520)
        spacing: 14

        IconoCuadrado {
            Layout.alignment: Qt.AlignHCenter
            simbolo: "square.split.2x2.fill"
            tinte: Tema.colorSeccion("mapa")
            lado: 64
        }
        Label {
            textFormat: Text.PlainText
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: qsTranslate("Vorlano", "¿Qué ocupa tu disco?")
            color: Tema.texto
            font.pixelSize: 28
            font.weight: Font.Bold
            wrapMode: Text.Wrap
        }
        Label {
            textFormat: Text.PlainText
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: qsTranslate("Vorlano", "Vorlano mide tu carpeta personal y la muestra como un mapa:\ncada rectángulo es proporcional a lo que ocupa.")
            color: Tema.secundario
            font.pixelSize: Tema.letra
            wrapMode: Text.Wrap
        }
        Boton {
            objectName: "medir"
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 6
            clase: "principal"
            grande: true
            simbolo: "ruler"
            text: qsTranslate("Vorlano", "Medir mi carpeta personal")
            onClicked: vista.estado.medir()
        }
    }

    ColumnLayout {
        objectName: "midiendo"
        visible: vista.pagina === "midiendo"
        anchors.centerIn: parent
        spacing: 16

        Anillo {
            Layout.alignment: Qt.AlignHCenter
            porcentaje: vista.estado.progreso
            tinte: Tema.colorSeccion("mapa")
        }
        Label {
            textFormat: Text.PlainText
            Layout.alignment: Qt.AlignHCenter
            text: qsTranslate("Vorlano", "Midiendo tu carpeta personal…")
            color: Tema.texto
            font.pixelSize: Tema.letra
        }
        // The page stays until the measurement notices.
        Boton {
            objectName: "cancelar"
            Layout.alignment: Qt.AlignHCenter
            text: qsTranslate("Vorlano", "Cancelar")
            onClicked: vista.estado.detener()
        }
    }

    ColumnLayout {
        objectName: "paginaMapa"
        visible: vista.pagina === "mapa"
        anchors.fill: parent
        spacing: 0

        Migas {
            Layout.fillWidth: true
            Layout.leftMargin: 12
            Layout.rightMargin: 12
            Layout.topMargin: 8
            Layout.bottomMargin: 8
            estado: vista.estado
        }

        Rectangle { Layout.fillWidth: true; implicitHeight: 1; color: Tema.borde }

        RowLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            spacing: 0

            Item {
                Layout.fillWidth: true
                Layout.fillHeight: true

                Treemap {
                    id: treemap
                    objectName: "treemap"
                    anchors.fill: parent
                    anchors.margins: 10
                    baldosas: baldosas
                    estado: vista.estado
                }
            }

            Rectangle { Layout.fillHeight: true; implicitWidth: 1; color: Tema.borde }

            ListaBaldosas {
                Layout.preferredWidth: 290
                Layout.fillWidth: false
                Layout.fillHeight: true
                baldosas: baldosas
                estado: vista.estado
            }
        }

        Rectangle { Layout.fillWidth: true; implicitHeight: 1; color: Tema.borde }

        BarraMapa {
            objectName: "barraInferior"
            Layout.fillWidth: true
            estado: vista.estado
            baldosas: baldosas
            onMover: (nodo) => {
                confirmar.nodo = nodo
                confirmar.open()
            }
        }
    }

    // A new folder shown grows into place.
    Connections {
        target: vista.estado
        function onActualChanged() {
            if (!Tema.movimientoReducido)
                aparecer.restart()
        }
    }
    ParallelAnimation {
        id: aparecer
        NumberAnimation { target: treemap; property: "opacity"; from: 0; to: 1; duration: 260 }
        NumberAnimation { target: treemap; property: "scale"; from: 0.94; to: 1; duration: 260; easing.type: Easing.OutCubic }
    }

    Dialogo {
        id: confirmar
        objectName: "confirmarMover"
        property var nodo
        titulo: nodo ? baldosas.tituloMover(nodo) : ""
        mensaje: nodo ? baldosas.mensaje(nodo) : ""
        accion: qsTranslate("Vorlano", "Mover a la Papelera")
        onAceptado: vista.estado.moverAPapelera(nodo)
    }
}
