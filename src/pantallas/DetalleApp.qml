// SPDX-License-Identifier: GPL-3.0-or-later
// The chosen application: its heading, whether it runs, what goes with it
// (itself, always, and its leftovers, which can be unticked) and the footer
// with the total or the errors and the button.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

ColumnLayout {
    id: detalle

    required property EstadoApps estado
    required property VistaApps vista
    readonly property var app: estado.elegida
    readonly property var errores: estado.resultado ? estado.resultado.errores : []

    signal desinstalar()

    spacing: 0

    RowLayout {
        Layout.fillWidth: true
        Layout.margins: 20
        spacing: 14
        IconoApp {
            tipo: detalle.app ? detalle.app.tipo : ""
            archivo: detalle.app ? detalle.app.icono : ""
            lado: 52
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2
            Label {
                textFormat: Text.PlainText
                objectName: "nombre"
                Layout.fillWidth: true
                text: detalle.app ? detalle.app.nombre : ""
                color: Tema.texto
                font.pixelSize: Tema.letraTitulo - 4
                font.weight: Font.Bold
                elide: Text.ElideRight
            }
            TextEdit {
                objectName: "encabezado"
                Layout.fillWidth: true
                visible: text !== ""
                text: detalle.vista.encabezado
                readOnly: true
                selectByMouse: true
                color: Tema.secundario
                selectionColor: Tema.seleccion
                font.pixelSize: Tema.letraChica
                wrapMode: TextEdit.Wrap
            }
        }
    }

    RowLayout {
        objectName: "abierta"
        visible: detalle.vista.abierta
        Layout.leftMargin: 20
        Layout.rightMargin: 20
        Layout.bottomMargin: 12
        spacing: 6
        Icono { simbolo: "exclamationmark.triangle.fill"; tamano: 16; color: Tema.naranja }
        Label {
            textFormat: Text.PlainText
            Layout.fillWidth: true
            text: qsTranslate("Vorlano", "Está abierta. Ciérrala para poder desinstalarla.")
            color: Tema.naranja
            font.pixelSize: Tema.letra
            wrapMode: Text.Wrap
        }
    }

    ScrollView {
        id: desplazable
        Layout.fillWidth: true
        Layout.fillHeight: true
        contentWidth: availableWidth
        clip: true

        // What goes, on one card.
        Item {
            width: desplazable.availableWidth
            implicitHeight: tarjeta.implicitHeight + 32

            SuperficieTarjeta {
                id: tarjeta
                x: 16
                y: 16
                width: parent.width - 32
                implicitHeight: filas.implicitHeight + 12

                ColumnLayout {
                    id: filas
                    x: 0
                    y: 6
                    width: parent.width
                    spacing: 0

                    // The application itself goes, always.
                    RowLayout {
                        objectName: "filaApp"
                        Layout.fillWidth: true
                        Layout.leftMargin: 12
                        Layout.rightMargin: 54
                        Layout.topMargin: 8
                        Layout.bottomMargin: 8
                        spacing: 10
                        Casilla { marca: 1; enabled: false }
                        ColumnLayout {
                            Layout.fillWidth: true
                            spacing: 1
                            Label {
                                textFormat: Text.PlainText
                                Layout.fillWidth: true
                                text: detalle.app ? detalle.app.archivo : ""
                                color: Tema.texto
                                font.pixelSize: Tema.letra
                                elide: Text.ElideMiddle
                            }
                            Label {
                                textFormat: Text.PlainText
                                objectName: "nota"
                                Layout.fillWidth: true
                                text: detalle.vista.nota
                                color: Tema.secundario
                                font.pixelSize: Tema.letraChica
                                wrapMode: Text.Wrap
                            }
                        }
                        Label {
                            textFormat: Text.PlainText
                            text: Rotulos.bytes(detalle.app ? detalle.app.tamano : 0)
                            color: Tema.secundario
                            font.pixelSize: Tema.letra
                        }
                    }

                    RowLayout {
                        objectName: "buscando"
                        visible: detalle.estado.buscandoRestos
                        Layout.leftMargin: 14
                        Layout.topMargin: 6
                        Layout.bottomMargin: 6
                        spacing: 10
                        Rueda { implicitWidth: 20; implicitHeight: 20 }
                        Label {
                            textFormat: Text.PlainText
                            text: qsTranslate("Vorlano", "Buscando sus archivos…")
                            color: Tema.secundario
                            font.pixelSize: Tema.letra
                        }
                    }

                    Repeater {
                        objectName: "restos"
                        model: detalle.estado.buscandoRestos ? null : detalle.estado.restos
                        delegate: FilaElemento {
                            sangria: 12
                            required property int index
                            required property var model
                            Layout.fillWidth: true
                            onMarcado: (valor) => model.seleccionado = valor
                            onMostrar: detalle.estado.restos.mostrarEnArchivos(index)
                        }
                    }

                    Label {
                        textFormat: Text.PlainText
                        objectName: "sinRestos"
                        visible: !detalle.estado.buscandoRestos && detalle.estado.restos.cantidad === 0
                        Layout.fillWidth: true
                        Layout.margins: 14
                        text: qsTranslate("Vorlano", "No dejó otros archivos en tu carpeta personal.")
                        color: Tema.secundario
                        font.pixelSize: Tema.letra
                        wrapMode: Text.Wrap
                    }
                }
            }
        }
    }

    Rectangle { Layout.fillWidth: true; implicitHeight: 1; color: Tema.borde }

    RowLayout {
        Layout.fillWidth: true
        Layout.margins: 14
        Layout.leftMargin: 20
        spacing: 12

        ColumnLayout {
            objectName: "errores"
            visible: detalle.errores.length > 0
            Layout.fillWidth: true
            spacing: 2
            Repeater {
                model: detalle.errores
                delegate: RowLayout {
                    required property string modelData
                    Layout.fillWidth: true
                    spacing: 5
                    Icono { simbolo: "exclamationmark.triangle.fill"; tamano: 14; color: Tema.naranja }
                    Label {
                        textFormat: Text.PlainText
                        Layout.fillWidth: true
                        text: modelData
                        color: Tema.naranja
                        font.pixelSize: Tema.letraChica
                        wrapMode: Text.Wrap
                    }
                }
            }
        }
        Label {
            textFormat: Text.PlainText
            objectName: "total"
            visible: detalle.errores.length === 0
            Layout.fillWidth: true
            text: detalle.vista.total
            color: Tema.texto
            font.pixelSize: Tema.letra
            font.weight: Font.DemiBold
        }

        Rueda {
            visible: detalle.estado.trabajando
            implicitWidth: 26
            implicitHeight: 26
        }
        Boton {
            objectName: "botonDesinstalar"
            visible: !detalle.estado.trabajando
            clase: "principal"
            simbolo: "trash"
            text: qsTranslate("Vorlano", "Desinstalar")
            enabled: !detalle.estado.buscandoRestos && !detalle.vista.abierta
            onClicked: detalle.desinstalar()
        }
    }
}
