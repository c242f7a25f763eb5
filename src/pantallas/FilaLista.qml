// SPDX-License-Identifier: GPL-3.0-or-later
// One row of the cleaning list, by its kind: the result banner, a group's
// header, a category or one of its items.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

Item {
    id: fila

    required property var model
    required property int index
    required property Estado estado
    required property FilasLimpieza filas

    signal vaciarPapelera()

    implicitHeight: cargador.item ? cargador.item.implicitHeight + cargador.y : 0
    height: implicitHeight

    Loader {
        id: cargador
        x: Tema.margen
        y: fila.model.tipo === "categoria" ? 10 : fila.model.tipo === "cabecera" ? 22 : 0
        width: fila.width - 2 * Tema.margen
        sourceComponent: ({banner: banner, cabecera: cabecera, categoria: categoria, elemento: elemento})[fila.model.tipo]
    }

    Component {
        id: banner
        BannerResultado {
            objectName: "banner"
            estado: fila.estado
            onVaciarPapelera: fila.vaciarPapelera()
        }
    }

    Component {
        id: cabecera
        RowLayout {
            objectName: "cabecera-" + fila.model.cabecera
            spacing: 8
            Icono {
                visible: fila.model.cabecera === "otrasSolas"
                simbolo: "checkmark.circle.fill"
                tamano: 20
                color: Tema.verde
            }
            Label {
                textFormat: Text.PlainText
                Layout.fillWidth: true
                text: fila.model.cabecera === "listas"
                      ? qsTranslate("Vorlano", "Listo para limpiar")
                      : fila.model.cabecera === "otras"
                        ? qsTranslate("Vorlano", "Revisa si quieres liberar más")
                        : qsTranslate("Vorlano", "Lo seguro ya está limpio. Esto no se marca solo: revísalo si quieres liberar más.")
                color: fila.model.cabecera === "otrasSolas" ? Tema.secundario : Tema.texto
                font.pixelSize: fila.model.cabecera === "otrasSolas" ? Tema.letra : Tema.letraTitular + 1
                font.weight: fila.model.cabecera === "otrasSolas" ? Font.Normal : Font.Bold
                wrapMode: Text.Wrap
            }
        }
    }

    Component {
        id: categoria
        FilaCategoria {
            objectName: "categoria-" + fila.model.id
            titulo: fila.model.titulo
            icono: fila.model.icono
            nivel: fila.model.nivel
            etiqueta: fila.model.etiqueta
            tamano: fila.model.tamano
            cantidad: fila.model.cantidad
            marcados: fila.model.marcados
            linea: fila.model.linea
            lineaEnUso: fila.model.lineaEnUso
            todoEnUso: fila.model.todoEnUso
            abierta: fila.model.abierta
            onAlternar: fila.filas.alternar(fila.index)
            onPlegar: fila.filas.desplegar(fila.model.id, !fila.model.abierta)
        }
    }

    Component {
        id: elemento
        Item {
            readonly property bool ultimo: fila.model.indiceElemento === fila.model.cantidad - 1
            implicitHeight: filaElemento.implicitHeight + (ultimo ? 8 : 0)

            // The unfolded card's body, rounded under the last item.
            Tramo {
                anchors.fill: parent
                arriba: false
                abajo: parent.ultimo
                color: Tema.superficieAlta
            }
            Rectangle {
                visible: !parent.ultimo
                anchors { left: parent.left; right: parent.right; bottom: parent.bottom; leftMargin: 44; rightMargin: 14 }
                height: 1
                color: Tema.sutil
            }
            // The category's level runs down the left edge of its items.
            Rectangle {
                x: 1
                width: 3
                height: parent.height - (parent.ultimo ? Tema.radio : 0)
                radius: 1.5
                color: Tema.colorNivel(fila.model.nivel)
            }
            FilaElemento {
                id: filaElemento
                objectName: "elemento-" + fila.model.indiceCategoria + "-" + fila.model.indiceElemento
                width: parent.width
                sangria: 44
                nombre: fila.model.nombre
                detalle: fila.model.detalle
                tamano: fila.model.tamano
                enUso: fila.model.enUso
                seleccionado: fila.model.seleccionado
                onMarcado: (valor) => fila.model.seleccionado = valor
                onMostrar: fila.filas.mostrar(fila.index)
            }
        }
    }
}
