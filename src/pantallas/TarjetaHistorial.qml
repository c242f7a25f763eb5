// SPDX-License-Identifier: GPL-3.0-or-later
// What Vorlano has freed: this month, all time, and the last 8 weeks.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

SuperficieTarjeta {
    id: tarjeta

    readonly property var grafico: Rotulos.grafico(Historial.porSemana)

    implicitHeight: filas.implicitHeight + 40

    RowLayout {
        id: filas
        anchors.fill: parent
        anchors.margins: 20
        spacing: 24

        ColumnLayout {
            Layout.minimumWidth: 184
            Layout.alignment: Qt.AlignTop
            spacing: 6
            RowLayout {
                spacing: 8
                Icono {
                    simbolo: "chart.bar.fill"
                    color: Tema.turquesa
                }
                Label {
                    textFormat: Text.PlainText
                    text: qsTranslate("Vorlano", "Tu historial")
                    color: Tema.texto
                    font.pixelSize: Tema.letraTitular
                    font.weight: Font.DemiBold
                }
            }
            Label {
                textFormat: Text.PlainText
                Layout.topMargin: 6
                text: qsTranslate("Vorlano", "Este mes limpiaste")
                color: Tema.secundario
                font.pixelSize: Tema.letra
            }
            Label {
                textFormat: Text.PlainText
                objectName: "esteMes"
                // The figure rolls to a new value.
                property real mostrado: Historial.esteMes
                Behavior on mostrado {
                    enabled: !Tema.movimientoReducido
                    NumberAnimation { duration: 600; easing.type: Easing.OutCubic }
                }
                text: Rotulos.bytes(Math.round(mostrado))
                color: Tema.texto
                font.pixelSize: 30
                font.weight: Font.Bold
            }
            Label {
                textFormat: Text.PlainText
                objectName: "totalHistorial"
                text: Rotulos.conBytes(qsTranslate("Vorlano", "{bytes} en total con Vorlano"), Historial.total)
                color: Tema.secundario
                font.pixelSize: Tema.letraChica
            }
        }

        // The chart: bars on a grid, values on the trailing side, a date
        // under every second week.
        Item {
            id: grafico
            objectName: "grafico"
            Layout.fillWidth: true
            Layout.preferredHeight: 130
            Accessible.role: Accessible.Chart
            Accessible.name: qsTranslate("Vorlano", "Gráfico de lo limpiado por semana")

            readonly property real ejeAncho: 58
            readonly property real pieAlto: 18
            readonly property real areaAlto: height - pieAlto - 6
            readonly property real areaAncho: width - ejeAncho
            readonly property int n: Math.max(1, tarjeta.grafico.barras.length)

            Repeater {
                model: tarjeta.grafico.marcas
                Item {
                    required property var modelData
                    readonly property real yy: grafico.areaAlto * (1 - modelData.valor / tarjeta.grafico.tope) + 6
                    Rectangle {
                        x: 0
                        y: parent.yy
                        width: grafico.areaAncho
                        height: 1
                        color: Tema.sutil
                    }
                    Label {
                        textFormat: Text.PlainText
                        objectName: "marca"
                        x: grafico.areaAncho + 6
                        y: parent.yy - height / 2
                        text: modelData.texto
                        color: Tema.secundario
                        font.pixelSize: Tema.letraChica - 1
                    }
                }
            }
            Repeater {
                model: tarjeta.grafico.barras
                Item {
                    required property real modelData
                    required property int index
                    readonly property real paso: grafico.areaAncho / grafico.n
                    x: index * paso
                    width: paso
                    height: grafico.height
                    Rectangle {
                        anchors.horizontalCenter: parent.horizontalCenter
                        width: parent.paso * 0.6
                        height: grafico.areaAlto * Math.min(1, parent.modelData / tarjeta.grafico.tope)
                        y: grafico.areaAlto + 6 - height
                        visible: parent.modelData > 0
                        radius: Math.min(5, width / 2, height / 2)
                        gradient: Gradient {
                            GradientStop { position: 0; color: Tema.turquesa }
                            GradientStop { position: 1; color: Tema.azul }
                        }
                    }
                    Label {
                        textFormat: Text.PlainText
                        anchors.horizontalCenter: parent.horizontalCenter
                        y: grafico.height - height
                        text: tarjeta.grafico.fechas[parent.index] || ""
                        color: Tema.secundario
                        font.pixelSize: Tema.letraChica - 1
                    }
                }
            }
        }
    }
}
