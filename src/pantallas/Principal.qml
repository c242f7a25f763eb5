// SPDX-License-Identifier: GPL-3.0-or-later
// The main window: the sidebar with the four sections and the content of the
// chosen one, the two questions before removing anything, the welcome sheet,
// and the links the program is sent.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T
import Vorlano

ApplicationWindow {
    id: ventana

    required property Estado estado

    // The section shown: "resumen", "limpieza", "mapa" or "desinstalar".
    property string seccion: "resumen"
    // The ids of the unfolded categories of the cleaning list.
    property alias abiertas: filas.abiertas
    property bool verBienvenida: false
    readonly property var secciones: ["resumen", "limpieza", "mapa", "desinstalar"]

    objectName: "principal"
    title: Rotulos.secciones[Math.max(0, secciones.indexOf(seccion))].titulo
    width: 1100
    height: 720
    minimumWidth: 860
    minimumHeight: 560
    color: Tema.fondo

    palette.window: Tema.fondo
    palette.windowText: Tema.texto
    palette.base: Tema.superficie
    palette.alternateBase: Tema.superficieAlta
    palette.text: Tema.texto
    palette.button: Tema.superficie
    palette.buttonText: Tema.texto
    palette.highlight: Tema.acento
    palette.highlightedText: "white"
    palette.toolTipBase: Tema.superficieAlta
    palette.toolTipText: Tema.texto
    palette.placeholderText: Tema.secundario
    palette.mid: Tema.borde
    palette.dark: Tema.secundario

    // Shows a section; with a category's id, unfolds it in the cleaning list.
    function abrir(aSeccion, id) {
        if (aSeccion === "limpieza" && id)
            filas.desplegar(id, true)
        seccion = aSeccion
    }

    // The question before a cleaning, based on what is open right now.
    function pedirLimpieza() {
        estado.refrescarAppsAbiertas()
        confirmar.open()
    }

    // The pending link, served once.
    function atenderEnlace() {
        const enlace = Navegacion.tomar()
        if (enlace === "" )
            return
        if (enlace === "analizar") {
            seccion = "resumen"
            if (!estado.estaTrabajando)
                estado.analizar()
        } else if (enlace === "mapa") {
            seccion = "mapa"
            if (!mapa.raiz.valido && !mapa.midiendo)
                mapa.medir()
        } else {
            seccion = enlace
        }
    }

    function alMostrarse() {
        if (!Preferencias.bienvenidaVista)
            verBienvenida = true
        atenderEnlace()
    }

    Component.onCompleted: if (visible) alMostrarse()
    onVisibleChanged: if (visible) alMostrarse()

    Connections {
        target: Navegacion
        function onPendienteChanged() {
            if (Navegacion.pendiente !== "" && ventana.visible)
                ventana.atenderEnlace()
        }
    }
    Connections {
        target: Preferencias
        // "Ver la bienvenida otra vez" in the settings.
        function onBienvenidaVistaChanged() {
            if (!Preferencias.bienvenidaVista)
                ventana.verBienvenida = true
        }
    }

    FilasLimpieza {
        id: filas
        estado: ventana.estado
    }
    // The uninstall and map sections keep their state while the window lives.
    EstadoApps { id: apps }
    EstadoMapa { id: mapa }

    RowLayout {
        anchors.fill: parent
        spacing: 0

        BarraLateral {
            Layout.preferredWidth: 236
            Layout.fillHeight: true
            estado: ventana.estado
            seccion: ventana.seccion
            onElegir: (s) => ventana.seccion = s
            onAjustes: Navegacion.pedirAjustes()
        }

        StackLayout {
            objectName: "contenido"
            Layout.fillWidth: true
            Layout.fillHeight: true
            currentIndex: Math.max(0, ventana.secciones.indexOf(ventana.seccion))

            Resumen {
                objectName: "resumen"
                estado: ventana.estado
                onAbrir: (s, id) => ventana.abrir(s, id)
                onPedirLimpieza: ventana.pedirLimpieza()
            }
            VistaLimpieza {
                objectName: "limpieza"
                estado: ventana.estado
                filas: filas
                onPedirLimpieza: ventana.pedirLimpieza()
                onVaciarPapelera: confirmarPapelera.open()
            }
            VistaMapa {
                objectName: "mapa"
                estado: mapa
            }
            VistaDesinstalar {
                objectName: "desinstalar"
                estado: apps
            }
        }
    }

    Dialogo {
        id: confirmar
        objectName: "confirmar"
        titulo: Rotulos.tituloConfirmacion(ventana.estado.seleccionado)
        mensaje: Rotulos.mensajeConfirmacion(ventana.estado.aBorrar, ventana.estado.aPapelera,
                                             ventana.estado.appsAbiertasSeleccionadas)
        accion: qsTranslate("Vorlano", "Limpiar")
        onAceptado: ventana.estado.limpiar()
    }

    Dialogo {
        id: confirmarPapelera
        objectName: "confirmarPapelera"
        titulo: qsTranslate("Vorlano", "¿Vaciar la Papelera?")
        mensaje: qsTranslate("Vorlano", "Se borra definitivamente todo lo que hay en la Papelera, no solo lo que movió Vorlano.")
        accion: qsTranslate("Vorlano", "Vaciar")
        onAceptado: ventana.estado.vaciarLaPapelera()
    }

    Popup {
        id: hojaBienvenida
        objectName: "bienvenida"
        parent: T.Overlay.overlay
        anchors.centerIn: parent
        width: Math.min(520, ventana.width - 64)
        modal: true
        padding: 28
        closePolicy: Popup.NoAutoClose
        visible: ventana.verBienvenida
        background: SuperficieFlotante { radius: 18 }
        T.Overlay.modal: Rectangle { color: Tema.oscuro ? "#99000000" : "#55000000" }

        contentItem: Bienvenida {
            estado: ventana.estado
            onEmpezar: {
                Preferencias.bienvenidaVista = true
                ventana.verBienvenida = false
            }
        }
    }
}
