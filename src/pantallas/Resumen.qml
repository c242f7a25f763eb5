// SPDX-License-Identifier: GPL-3.0-or-later
// The summary section: the disk as a ring beside one sentence on what can be
// done, the history, and a card for each category found.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

Flickable {
    id: resumen

    required property Estado estado

    signal abrir(string seccion, string id)
    signal pedirLimpieza()

    readonly property int caso: estado.etapa === 2 ? Rotulos.casoListo(estado.resultado, estado.seleccionado) : 0
    readonly property bool conTarjetas: estado.etapa === 2 && estado.categorias.cantidad > 0

    contentHeight: columna.implicitHeight + 2 * Tema.margen
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    ScrollBar.vertical: ScrollBar {}

    ColumnLayout {
        id: columna
        x: Tema.margen
        y: Tema.margen
        width: resumen.width - 2 * Tema.margen
        spacing: 22

        // The ring and the sentence by the stage.
        RowLayout {
            objectName: "portada"
            Layout.fillWidth: true
            spacing: 36

            AnilloDisco {
                objectName: "anillo"
                Layout.preferredWidth: 200
                Layout.preferredHeight: 200
                total: resumen.estado.total
                libre: resumen.estado.libre
                liberable: resumen.estado.etapa === 2 ? resumen.estado.seleccionado : 0
                analizando: resumen.estado.estaTrabajando
            }

            ColumnLayout {
                Layout.fillWidth: true
                spacing: 10

                Icono {
                    id: marcaVerde
                    visible: resumen.estado.etapa === 1 || resumen.caso === 1
                    simbolo: resumen.estado.etapa === 1 ? "sparkle.magnifyingglass" : "checkmark.circle.fill"
                    color: resumen.estado.etapa === 1 ? Tema.acento : Tema.verde
                    tamano: 34
                    // Bounces with each cleaning.
                    Connections {
                        target: resumen.estado
                        function onLimpiezasChanged() { if (!Tema.movimientoReducido) rebote.restart() }
                    }
                    SequentialAnimation {
                        id: rebote
                        NumberAnimation { target: marcaVerde; property: "scale"; to: 1.3; duration: 140 }
                        SpringAnimation { target: marcaVerde; property: "scale"; to: 1; spring: 4; damping: 0.25 }
                    }
                }
                Label {
                    textFormat: Text.PlainText
                    objectName: "tituloPortada"
                    Layout.fillWidth: true
                    text: {
                        if (resumen.estado.etapa === 0)
                            return qsTranslate("Vorlano", "Revisa qué se puede limpiar")
                        if (resumen.estado.etapa === 1)
                            return qsTranslate("Vorlano", "Analizando tu Mac…")
                        if (resumen.caso === 1)
                            return Rotulos.conBytes(qsTranslate("Vorlano", "Liberaste {bytes}"), resumen.estado.resultado.borrado)
                        if (resumen.caso === 2)
                            return Rotulos.conBytes(qsTranslate("Vorlano", "Puedes liberar {bytes}"), resumen.estado.seleccionado)
                        return qsTranslate("Vorlano", "Lo seguro ya está limpio")
                    }
                    color: Tema.texto
                    font.pixelSize: Tema.letraTitulo + 2
                    font.weight: Font.Bold
                    wrapMode: Text.Wrap
                }
                Label {
                    textFormat: Text.PlainText
                    objectName: "textoPortada"
                    Layout.fillWidth: true
                    visible: text !== ""
                    text: {
                        if (resumen.estado.etapa === 0)
                            return qsTranslate("Vorlano", "Vorlano busca cachés, registros, archivos grandes y compilaciones.\nNo borra nada hasta que tú lo confirmes.")
                        if (resumen.estado.etapa === 1)
                            return resumen.estado.progreso
                        if (resumen.caso === 2)
                            return qsTranslate("Vorlano", "de forma segura: cachés y temporales que se regeneran solos.")
                        if (resumen.caso === 3)
                            return qsTranslate("Vorlano", "Si necesitas más espacio, revisa las tarjetas de abajo: son cosas que no se marcan solas.")
                        return ""
                    }
                    color: Tema.secundario
                    font.pixelSize: Tema.letra
                    wrapMode: Text.Wrap
                    lineHeight: 1.2
                }
                Boton {
                    objectName: "accionPortada"
                    Layout.topMargin: 6
                    visible: resumen.estado.etapa === 0 || resumen.caso === 1 || resumen.caso === 2
                    clase: resumen.caso === 1 ? "secundario" : "principal"
                    grande: true
                    simbolo: resumen.estado.etapa === 0 ? "magnifyingglass" : resumen.caso === 2 ? "sparkles" : ""
                    text: resumen.estado.etapa === 0 ? qsTranslate("Vorlano", "Analizar mi Mac")
                          : resumen.caso === 1 ? qsTranslate("Vorlano", "Ver detalle")
                          : qsTranslate("Vorlano", "Limpiar ahora")
                    onClicked: {
                        if (resumen.estado.etapa === 0)
                            resumen.estado.analizar()
                        else if (resumen.caso === 1)
                            resumen.abrir("limpieza", "")
                        else
                            resumen.pedirLimpieza()
                    }
                }
            }
        }

        TarjetaHistorial {
            objectName: "historial"
            Layout.fillWidth: true
            visible: opacity > 0
            opacity: Historial.registros.length > 0 ? 1 : 0
            Behavior on opacity {
                enabled: !Tema.movimientoReducido
                NumberAnimation { duration: 300 }
            }
        }

        Label {
            textFormat: Text.PlainText
            objectName: "tituloTarjetas"
            visible: resumen.conTarjetas
            Layout.topMargin: 4
            text: qsTranslate("Vorlano", "Qué ocupa espacio")
            color: Tema.texto
            font.pixelSize: Tema.letraTitular + 2
            font.weight: Font.Bold
        }

        GridLayout {
            id: rejilla
            objectName: "tarjetas"
            visible: resumen.conTarjetas
            Layout.fillWidth: true
            columns: Math.max(1, Math.floor((width + columnSpacing) / (210 + columnSpacing)))
            columnSpacing: 14
            rowSpacing: 14

            readonly property real mayor: {
                let m = 1
                for (let i = 0; i < tarjetas.count; ++i)
                    m = Math.max(m, tarjetas.itemAt(i) ? tarjetas.itemAt(i).tamano : 0)
                return m
            }

            Repeater {
                id: tarjetas
                // Rebuilt for each analysis, so the cards fade in again.
                model: resumen.conTarjetas ? resumen.estado.categorias : null
                Tarjeta {
                    required property var model
                    required property int index
                    objectName: "tarjeta-" + model.id
                    Layout.fillWidth: true
                    Layout.preferredWidth: 210
                    icono: model.icono
                    titulo: model.titulo
                    nivel: model.nivel
                    etiqueta: model.etiqueta
                    tamano: model.tamano
                    tamanoSeleccionado: model.tamanoSeleccionado
                    todoEnUso: model.todoEnUso
                    proporcion: tamano / rejilla.mayor
                    orden: index
                    onClicked: resumen.abrir("limpieza", model.id)
                }
            }
            TarjetaAcceso {
                objectName: "acceso-mapa"
                Layout.fillWidth: true
                Layout.preferredWidth: 210
                seccion: "mapa"
                texto: qsTranslate("Vorlano", "Mira qué carpetas ocupan más espacio, en un mapa.")
                orden: tarjetas.count
                onClicked: resumen.abrir("mapa", "")
            }
            TarjetaAcceso {
                objectName: "acceso-desinstalar"
                Layout.fillWidth: true
                Layout.preferredWidth: 210
                seccion: "desinstalar"
                texto: qsTranslate("Vorlano", "Quita apps junto con sus preferencias, cachés y datos.")
                orden: tarjetas.count + 1
                onClicked: resumen.abrir("desinstalar", "")
            }
        }
    }
}
