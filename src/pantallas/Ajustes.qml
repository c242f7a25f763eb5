// SPDX-License-Identifier: GPL-3.0-or-later
// The settings window: the start choices, the low-space notice, full access
// to the home, and what the program is.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vorlano

ApplicationWindow {
    id: ajustes

    required property Estado estado

    objectName: "ajustes"
    title: qsTranslate("Vorlano", "Ajustes")
    width: 460
    height: Math.min(760, formulario.implicitHeight + 40)
    minimumWidth: 420
    color: Tema.fondo

    VistaAjustes { id: datos }

    // A limit asks for permission to notify; "Nunca" asks nothing.
    Connections {
        target: Preferencias
        function onAvisoGBChanged() {
            if (Preferencias.avisoGB >= 1)
                Avisos.pedirPermiso()
        }
    }

    ScrollView {
        anchors.fill: parent
        contentWidth: availableWidth

        ColumnLayout {
            id: formulario
            width: parent.width
            spacing: 18

            Item { implicitHeight: 2 }

            SeccionAjustes {
                Layout.fillWidth: true
                Layout.leftMargin: 20
                Layout.rightMargin: 20
                titulo: qsTranslate("Vorlano", "General")
                InterruptoresInicio {
                    Layout.fillWidth: true
                    estado: ajustes.estado
                }
            }

            SeccionAjustes {
                Layout.fillWidth: true
                Layout.leftMargin: 20
                Layout.rightMargin: 20
                titulo: qsTranslate("Vorlano", "Avisos")
                pie: qsTranslate("Vorlano", "Llega como notificación de macOS, como máximo una vez al día.")
                RowLayout {
                    Layout.fillWidth: true
                    spacing: 10
                    Label {
                        textFormat: Text.PlainText
                        Layout.fillWidth: true
                        text: qsTranslate("Vorlano", "Avisar si quedan menos de")
                        color: Tema.texto
                        font.pixelSize: Tema.letra
                        wrapMode: Text.Wrap
                    }
                    Selector {
                        objectName: "aviso"
                        implicitWidth: 120
                        model: datos.opcionesAviso
                        textRole: "etiqueta"
                        valueRole: "valor"
                        currentIndex: datos.indiceAviso(Preferencias.avisoGB)
                        // A stored value that isn't one of the choices still shows.
                        displayText: currentIndex >= 0 ? currentText : Preferencias.avisoGB + " GB"
                        onActivated: (i) => {
                            Preferencias.avisoGB = datos.opcionesAviso[i].valor
                            currentIndex = Qt.binding(() => datos.indiceAviso(Preferencias.avisoGB))
                        }
                    }
                }
            }

            SeccionAjustes {
                Layout.fillWidth: true
                Layout.leftMargin: 20
                Layout.rightMargin: 20
                titulo: qsTranslate("Vorlano", "Permisos")
                pie: qsTranslate("Vorlano", "Opcional. Con acceso total, macOS deja de preguntar por Escritorio, Documentos y Descargas cada vez que Vorlano analiza. En Configuración del Sistema, activa Vorlano en la lista (o agrégalo con +).")
                RowLayout {
                    Layout.fillWidth: true
                    spacing: 8
                    Label {
                        textFormat: Text.PlainText
                        Layout.fillWidth: true
                        text: qsTranslate("Vorlano", "Acceso total al disco")
                        color: Tema.texto
                        font.pixelSize: Tema.letra
                    }
                    Icono {
                        visible: datos.accesoTotal
                        simbolo: "checkmark.circle.fill"
                        tamano: 18
                        color: Tema.verde
                    }
                    Label {
                        textFormat: Text.PlainText
                        objectName: "activado"
                        visible: datos.accesoTotal
                        text: qsTranslate("Vorlano", "Activado")
                        color: Tema.secundario
                        font.pixelSize: Tema.letra
                    }
                    Boton {
                        objectName: "activar"
                        visible: !datos.accesoTotal && datos.paginaAcceso.toString() !== ""
                        text: qsTranslate("Vorlano", "Activar…")
                        onClicked: Qt.openUrlExternally(datos.paginaAcceso)
                    }
                }
                // Where no settings page grants it, the command that does.
                TextEdit {
                    objectName: "orden"
                    visible: !datos.accesoTotal && datos.ordenAcceso !== ""
                    Layout.fillWidth: true
                    text: datos.ordenAcceso
                    readOnly: true
                    selectByMouse: true
                    wrapMode: TextEdit.WrapAnywhere
                    color: Tema.texto
                    selectionColor: Tema.seleccion
                    font.family: "monospace"
                    font.pixelSize: Tema.letraChica
                }
            }

            SeccionAjustes {
                Layout.fillWidth: true
                Layout.leftMargin: 20
                Layout.rightMargin: 20
                titulo: qsTranslate("Vorlano", "Acerca de")
                RowLayout {
                    Layout.fillWidth: true
                    Label {
                        textFormat: Text.PlainText
                        Layout.fillWidth: true
                        text: qsTranslate("Vorlano", "Versión")
                        color: Tema.texto
                        font.pixelSize: Tema.letra
                    }
                    Label {
                        textFormat: Text.PlainText
                        objectName: "version"
                        text: datos.version
                        color: Tema.secundario
                        font.pixelSize: Tema.letra
                    }
                }
                Boton {
                    clase: "enlace"
                    simbolo: "safari"
                    text: qsTranslate("Vorlano", "Sitio de Vorlano y versiones nuevas")
                    onClicked: Qt.openUrlExternally(datos.sitio)
                }
                Boton {
                    clase: "enlace"
                    simbolo: "envelope"
                    text: qsTranslate("Vorlano", "Enviar comentarios")
                    onClicked: Qt.openUrlExternally(datos.comentarios)
                }
                Boton {
                    objectName: "verBienvenida"
                    text: qsTranslate("Vorlano", "Ver la bienvenida otra vez")
                    onClicked: Preferencias.bienvenidaVista = false
                }
            }

            Item { implicitHeight: 6 }
        }
    }
}
