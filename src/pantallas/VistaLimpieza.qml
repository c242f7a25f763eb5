// SPDX-License-Identifier: GPL-3.0-or-later
// The cleaning section: by the phase of the state, the invitation to
// analyse, the progress, "all clean", or the list of categories with the
// result banner above and the footer with the selected total below.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

Item {
    id: vista

    required property Estado estado
    required property FilasLimpieza filas

    signal pedirLimpieza()
    signal vaciarPapelera()

    readonly property bool conLista: estado.etapa === 2 && estado.categorias.cantidad > 0

    // Brings an unfolded category into view.
    function mostrarCategoria(id) {
        const fila = filas.filaDe(id)
        if (fila >= 0)
            lista.positionViewAtIndex(fila, ListView.Beginning)
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        // The toolbar.
        RowLayout {
            Layout.fillWidth: true
            Layout.margins: Tema.margen
            Layout.bottomMargin: 12
            Label {
                textFormat: Text.PlainText
                Layout.fillWidth: true
                text: qsTranslate("Vorlano", "Limpieza")
                color: Tema.texto
                font.pixelSize: Tema.letraTitulo
                font.weight: Font.Bold
            }
            Boton {
                objectName: "volverAnalizar"
                simbolo: "arrow.clockwise"
                text: qsTranslate("Vorlano", "Volver a analizar")
                enabled: !vista.estado.estaTrabajando
                onClicked: vista.estado.analizar()
            }
        }

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            EstadoVacio {
                objectName: "vacioInicio"
                anchors.fill: parent
                visible: vista.estado.etapa === 0
                simbolo: "sparkle.magnifyingglass"
                titulo: qsTranslate("Vorlano", "Revisa qué se puede limpiar")
                texto: qsTranslate("Vorlano", "Vorlano busca cachés, registros, archivos grandes y compilaciones.\nNo borra nada hasta que tú lo confirmes.")
                boton: qsTranslate("Vorlano", "Analizar mi Mac")
                simboloBoton: "magnifyingglass"
                onPulsado: vista.estado.analizar()
            }
            // The default-action key starts the analysis.
            Shortcut {
                sequences: ["Return", "Enter"]
                enabled: vista.visible && vista.estado.etapa === 0
                onActivated: vista.estado.analizar()
            }

            ColumnLayout {
                objectName: "analizando"
                anchors.centerIn: parent
                visible: vista.estado.estaTrabajando
                spacing: 16
                Rueda {
                    Layout.alignment: Qt.AlignHCenter
                    implicitWidth: 44
                    implicitHeight: 44
                }
                Label {
                    textFormat: Text.PlainText
                    objectName: "progreso"
                    Layout.alignment: Qt.AlignHCenter
                    Layout.maximumWidth: vista.width - 80
                    text: vista.estado.progreso
                    color: Tema.secundario
                    font.pixelSize: Tema.letra
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                }
            }

            EstadoVacio {
                objectName: "todoLimpio"
                anchors.fill: parent
                visible: vista.estado.etapa === 2 && vista.estado.categorias.cantidad === 0
                simbolo: "checkmark.seal"
                tinte: Tema.verde
                texto: qsTranslate("Vorlano", "Todo limpio. No encontré nada que valga la pena borrar.")
            }

            ListView {
                id: lista
                objectName: "lista"
                anchors.fill: parent
                visible: vista.conLista
                clip: true
                model: vista.filas
                reuseItems: true
                cacheBuffer: 400
                bottomMargin: 16
                boundsBehavior: Flickable.StopAtBounds
                ScrollBar.vertical: ScrollBar {}

                delegate: FilaLista {
                    width: lista.width
                    estado: vista.estado
                    filas: vista.filas
                    onVaciarPapelera: vista.vaciarPapelera()
                }
            }
        }

        // The footer.
        Rectangle {
            objectName: "pie"
            Layout.fillWidth: true
            visible: vista.conLista
            implicitHeight: filaPie.implicitHeight + 28
            color: Tema.superficie
            Rectangle { width: parent.width; height: 1; color: Tema.borde }

            RowLayout {
                id: filaPie
                anchors.fill: parent
                anchors.leftMargin: Tema.margen
                anchors.rightMargin: Tema.margen
                spacing: 16
                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: 2
                    Label {
                        textFormat: Text.PlainText
                        objectName: "seleccionado"
                        // The figure rolls to the new total.
                        property real mostrado: vista.estado.seleccionado
                        Behavior on mostrado {
                            enabled: !Tema.movimientoReducido
                            NumberAnimation { duration: 250; easing.type: Easing.OutCubic }
                        }
                        text: Rotulos.conBytes(qsTranslate("Vorlano", "Seleccionado: {bytes}"), Math.round(mostrado))
                        color: Tema.texto
                        font.pixelSize: Tema.letraTitular + 1
                        font.weight: Font.Bold
                    }
                    Label {
                        textFormat: Text.PlainText
                        Layout.fillWidth: true
                        text: qsTranslate("Vorlano", "Lo marcado en verde es seguro. Lo demás revísalo antes de marcarlo.")
                        color: Tema.secundario
                        font.pixelSize: Tema.letraChica
                        elide: Text.ElideRight
                    }
                }
                Boton {
                    objectName: "limpiar"
                    clase: "principal"
                    grande: true
                    simbolo: "sparkles"
                    text: qsTranslate("Vorlano", "Limpiar")
                    enabled: vista.estado.seleccionado > 0
                    onClicked: vista.pedirLimpieza()
                }
            }
        }
    }
}
