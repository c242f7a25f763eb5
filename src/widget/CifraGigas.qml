// SPDX-License-Identifier: GPL-3.0-or-later
// A figure in whole gigabytes: the number large and bold, the unit small
// beside it on the same baseline. A new number rolls in.
import QtQuick
import Vorlano

Item {
    id: cifra

    required property real bytes
    property real tamano: 24

    readonly property string numero: DatosWidget.numeroGigas(bytes)
    readonly property string unidad: DatosWidget.unidadGigas(bytes)

    implicitWidth: fila.implicitWidth
    implicitHeight: textoNumero.implicitHeight

    // The first number stands still; later ones roll in.
    property bool listo: false
    Component.onCompleted: listo = true
    onNumeroChanged: if (listo && !Tema.movimientoReducido) rodar.restart()

    Row {
        id: fila
        spacing: 2
        Text {
            textFormat: Text.PlainText
            id: textoNumero
            objectName: "numero"
            text: cifra.numero
            color: Tema.texto
            font.family: Tema.letraRedonda
            font.pixelSize: cifra.tamano
            font.weight: Font.Bold
            transform: Translate { id: desplazamiento }
        }
        Text {
            textFormat: Text.PlainText
            objectName: "unidad"
            anchors.baseline: textoNumero.baseline
            text: cifra.unidad
            color: Tema.secundario
            font.family: Tema.letraRedonda
            font.pixelSize: cifra.tamano * 0.42
            font.weight: Font.DemiBold
        }
    }

    ParallelAnimation {
        id: rodar
        NumberAnimation {
            target: desplazamiento; property: "y"
            from: cifra.tamano * 0.5; to: 0; duration: 350; easing.type: Easing.OutCubic
        }
        NumberAnimation { target: textoNumero; property: "opacity"; from: 0; to: 1; duration: 250 }
    }
}
