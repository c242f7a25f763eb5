// SPDX-License-Identifier: GPL-3.0-or-later
// The widget's content in one of its three sizes: "chico", "mediano" or
// "grande"; any other family draws the small one. tintado draws the ring and
// the bar plain, for a desktop that tints widgets; vistaPrevia leaves the
// links out, for pictures.
import QtQuick
import QtQuick.Layouts
import Vorlano

Item {
    id: vista

    required property entradaDisco entrada
    property string familia: "chico"
    property bool tintado: false
    property bool vistaPrevia: false

    readonly property string disposicion: DatosWidget.familia(familia)

    Loader {
        anchors.fill: parent
        sourceComponent: vista.disposicion === "grande" ? grande : vista.disposicion === "mediano" ? mediano : chico
    }

    component EtiquetaLibre: Text {
        textFormat: Text.PlainText
        text: qsTranslate("Vorlano", "Espacio libre").toUpperCase()
        color: Tema.secundario
        font.pixelSize: 10
        font.weight: Font.DemiBold
        font.letterSpacing: 0.4
    }

    component LibreGrande: Text {
        textFormat: Text.PlainText
        property real tamano: 22
        text: vista.entrada.libreTexto
        color: Tema.texto
        font.family: Tema.letraRedonda
        font.pixelSize: tamano
        font.weight: Font.Bold
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: tamano * 0.7
    }

    Component {
        id: chico
        EnlaceWidget {
            objectName: "chico"
            url: DatosWidget.urlResumen
            vistaPrevia: vista.vistaPrevia
            ColumnLayout {
                width: vista.width
                height: vista.height
                spacing: 4
                EncabezadoWidget {
                    Layout.fillWidth: true
                    entrada: vista.entrada
                }
                AnilloWidget {
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    entrada: vista.entrada
                    grosor: 10
                    cifra: 24
                    tintado: vista.tintado
                }
                Text {
                    textFormat: Text.PlainText
                    objectName: "deTotal"
                    Layout.alignment: Qt.AlignHCenter
                    text: vista.entrada.deTotal
                    color: Tema.secundario
                    font.pixelSize: 10
                }
            }
        }
    }

    Component {
        id: mediano
        RowLayout {
            objectName: "mediano"
            spacing: 14
            EnlaceWidget {
                objectName: "anilloResumen"
                Layout.preferredWidth: 108
                Layout.fillHeight: true
                url: DatosWidget.urlResumen
                vistaPrevia: vista.vistaPrevia
                AnilloWidget {
                    width: 108
                    height: 108
                    y: (parent.height - height) / 2
                    entrada: vista.entrada
                    grosor: 10
                    cifra: 22
                    tintado: vista.tintado
                }
            }
            ColumnLayout {
                Layout.fillWidth: true
                Layout.fillHeight: true
                spacing: 3
                EncabezadoWidget {
                    Layout.fillWidth: true
                    Layout.bottomMargin: 4
                    entrada: vista.entrada
                    mostrarHora: true
                }
                EtiquetaLibre {}
                LibreGrande {
                    Layout.fillWidth: true
                    tamano: 22
                }
                BarraWidget {
                    Layout.fillWidth: true
                    Layout.topMargin: 2
                    Layout.bottomMargin: 2
                    entrada: vista.entrada
                    alto: 6
                    tintado: vista.tintado
                }
                EstadoWidget { entrada: vista.entrada }
                Item { Layout.fillHeight: true }
                RowLayout {
                    Layout.fillWidth: true
                    spacing: 5
                    Repeater {
                        model: DatosWidget.botones
                        BotonWidget {
                            required property var modelData
                            objectName: modelData.url
                            Layout.fillWidth: true
                            Layout.preferredWidth: implicitWidth
                            Layout.preferredHeight: 26
                            url: modelData.url
                            simbolo: modelData.simbolo
                            color: Tema[modelData.tinte]
                            titulo: modelData.titulo
                            tintado: vista.tintado
                            vistaPrevia: vista.vistaPrevia
                        }
                    }
                }
            }
        }
    }

    Component {
        id: grande
        ColumnLayout {
            objectName: "grande"
            spacing: 12
            EncabezadoWidget {
                Layout.fillWidth: true
                entrada: vista.entrada
                mostrarHora: true
            }
            RowLayout {
                Layout.fillWidth: true
                spacing: 16
                EnlaceWidget {
                    objectName: "anilloResumen"
                    Layout.preferredWidth: 150
                    Layout.preferredHeight: 150
                    url: DatosWidget.urlResumen
                    vistaPrevia: vista.vistaPrevia
                    AnilloWidget {
                        width: 150
                        height: 150
                        entrada: vista.entrada
                        grosor: 14
                        cifra: 32
                        tintado: vista.tintado
                    }
                }
                ColumnLayout {
                    Layout.fillWidth: true
                    Layout.alignment: Qt.AlignVCenter
                    spacing: 7
                    EtiquetaLibre {}
                    LibreGrande {
                        Layout.fillWidth: true
                        tamano: 26
                    }
                    BarraWidget {
                        Layout.fillWidth: true
                        entrada: vista.entrada
                        alto: 7
                        tintado: vista.tintado
                    }
                    EstadoWidget { entrada: vista.entrada }
                }
            }
            Text {
                textFormat: Text.PlainText
                text: qsTranslate("Vorlano", "Accesos rápidos").toUpperCase()
                color: Tema.secundario
                font.pixelSize: 10
                font.weight: Font.DemiBold
                font.letterSpacing: 0.8
            }
            GridLayout {
                Layout.fillWidth: true
                Layout.fillHeight: true
                columns: 2
                rowSpacing: 8
                columnSpacing: 8
                Repeater {
                    model: DatosWidget.accesos
                    AccesoWidget {
                        required property var modelData
                        objectName: modelData.url
                        Layout.fillWidth: true
                        Layout.fillHeight: true
                        Layout.preferredWidth: 1
                        url: modelData.url
                        simbolo: modelData.simbolo
                        color: Tema[modelData.tinte]
                        titulo: modelData.titulo
                        subtitulo: modelData.subtitulo
                        vistaPrevia: vista.vistaPrevia
                    }
                }
            }
        }
    }
}
