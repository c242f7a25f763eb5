// SPDX-License-Identifier: GPL-3.0-or-later
// What the last cleaning freed: the first line, the free space before and
// now, the failures behind a link, what waits in the Trash with the button
// that empties it, and the Trash's own error.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

Item {
    id: banner

    required property Estado estado

    signal vaciarPapelera()

    readonly property var resultado: estado.resultado
    readonly property var errores: resultado ? resultado.errores : []
    // Conditions of their own: an item's visible also reads its parent's,
    // and the row below shows only when one of them holds.
    readonly property bool conAvisos: errores.length > 0
    readonly property bool conPapelera: !!resultado && resultado.enPapelera >= 1

    implicitHeight: columnaBanner.implicitHeight + 36

    SuperficieTarjeta {
        anchors.fill: parent
        color: Qt.tint(Tema.superficie, Qt.rgba(Tema.verde.r, Tema.verde.g, Tema.verde.b, Tema.oscuro ? 0.1 : 0.07))
        border.color: Qt.rgba(Tema.verde.r, Tema.verde.g, Tema.verde.b, 0.35)
    }

    RowLayout {
        anchors.fill: parent
        anchors.margins: 18
        spacing: 16

        Icono {
            id: marca
            Layout.alignment: Qt.AlignTop
            simbolo: "checkmark.circle.fill"
            tamano: 38
            color: Tema.verde
            // Bounces once for each cleaning.
            SequentialAnimation {
                id: rebote
                NumberAnimation { target: marca; property: "scale"; to: 1.3; duration: 140; easing.type: Easing.OutQuad }
                NumberAnimation { target: marca; property: "scale"; to: 1; duration: 360; easing.type: Easing.OutBounce }
            }
            Connections {
                target: banner.estado
                function onLimpiezasChanged() {
                    if (!Tema.movimientoReducido)
                        rebote.restart()
                }
            }
        }

        ColumnLayout {
            id: columnaBanner
            Layout.fillWidth: true
            spacing: 4

            Label {
                textFormat: Text.PlainText
                objectName: "lineaResultado"
                Layout.fillWidth: true
                text: banner.resultado ? Rotulos.lineaResultado(banner.resultado.borrado, banner.resultado.enPapelera) : ""
                color: Tema.texto
                font.pixelSize: Tema.letraTitular + 2
                font.weight: Font.Bold
            }
            Label {
                textFormat: Text.PlainText
                objectName: "lineaEspacio"
                Layout.fillWidth: true
                text: banner.resultado ? Rotulos.lineaEspacio(banner.resultado.libreAntes, banner.estado.libre) : ""
                color: Tema.secundario
                font.pixelSize: Tema.letra
            }
            RowLayout {
                Layout.topMargin: 4
                spacing: 14
                visible: banner.conAvisos || banner.conPapelera

                Boton {
                    id: verAvisos
                    objectName: "verAvisos"
                    visible: banner.conAvisos
                    clase: "enlace"
                    simbolo: "exclamationmark.triangle.fill"
                    text: Rotulos.avisos(banner.errores.length)
                    onClicked: avisos.open()

                    Popup {
                        id: avisos
                        objectName: "avisos"
                        y: verAvisos.height + 6
                        width: 460
                        padding: 12
                        background: SuperficieFlotante { color: Tema.superficieAlta; radius: 12 }
                        contentItem: ListView {
                            id: listaAvisos
                            // A first guess makes the first rows, whose
                            // heights then give the real one.
                            implicitHeight: Math.min(296, Math.max(contentHeight, count * 20))
                            clip: true
                            spacing: 8
                            model: banner.errores
                            ScrollBar.vertical: ScrollBar {}
                            delegate: TextEdit {
                                required property string modelData
                                objectName: "textoAviso"
                                width: ListView.view.width
                                text: modelData
                                readOnly: true
                                selectByMouse: true
                                wrapMode: TextEdit.Wrap
                                color: Tema.texto
                                selectionColor: Tema.acento
                                font.pixelSize: Tema.letraChica + 1
                            }
                        }
                    }
                }
                RowLayout {
                    id: papelera
                    visible: banner.conPapelera
                    spacing: 10
                    Label {
                        textFormat: Text.PlainText
                        objectName: "lineaPapelera"
                        text: banner.conPapelera ? Rotulos.lineaPapelera(banner.resultado.enPapelera) : ""
                        color: Tema.secundario
                        font.pixelSize: Tema.letra
                    }
                    Boton {
                        objectName: "vaciarPapelera"
                        simbolo: "trash"
                        text: qsTranslate("Vorlano", "Vaciar Papelera")
                        onClicked: banner.vaciarPapelera()
                    }
                }
            }
            Label {
                textFormat: Text.PlainText
                objectName: "avisoPapelera"
                Layout.fillWidth: true
                visible: banner.estado.avisoPapelera !== ""
                text: banner.estado.avisoPapelera
                color: Tema.rojo
                font.pixelSize: Tema.letra
                wrapMode: Text.Wrap
            }
        }
    }
}
