// SPDX-License-Identifier: GPL-3.0-or-later
// A card on the summary that leads to another section.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

AbstractButton {
    id: tarjeta

    property string seccion: ""
    property string texto: ""
    property int orden: 0

    readonly property var datos: Rotulos.secciones.find(s => s.valor === seccion) || ({titulo: "", icono: ""})
    readonly property color tinte: Tema.colorSeccion(seccion)

    hoverEnabled: true
    padding: 16
    implicitHeight: 150
    Accessible.name: datos.titulo

    opacity: 0
    Component.onCompleted: Tema.movimientoReducido ? opacity = 1 : aparicion.start()
    SequentialAnimation {
        id: aparicion
        PauseAnimation { duration: Math.min(tarjeta.orden, 12) * 45 }
        NumberAnimation { target: tarjeta; property: "opacity"; to: 1; duration: 260 }
    }

    background: SuperficieTarjeta {
        color: tarjeta.hovered ? Tema.superficieAlta : Tema.superficie
    }

    contentItem: ColumnLayout {
        spacing: 6
        RowLayout {
            IconoCuadrado {
                simbolo: tarjeta.datos.icono
                tinte: tarjeta.tinte
                lado: 30
            }
            Item { Layout.fillWidth: true }
            Icono {
                simbolo: "chevron.right"
                color: Tema.secundario
            }
        }
        Label {
            textFormat: Text.PlainText
            Layout.fillWidth: true
            Layout.topMargin: 4
            text: tarjeta.datos.titulo
            color: Tema.texto
            font.pixelSize: Tema.letra
            font.weight: Font.DemiBold
        }
        Label {
            textFormat: Text.PlainText
            Layout.fillWidth: true
            Layout.fillHeight: true
            text: tarjeta.texto
            color: Tema.secundario
            font.pixelSize: Tema.letraChica
            wrapMode: Text.Wrap
            verticalAlignment: Text.AlignTop
        }
    }
}
