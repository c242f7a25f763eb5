// SPDX-License-Identifier: GPL-3.0-or-later
// A link into the application around any content, which the user of the
// link sizes. In a preview (a picture of the widget) it is the content alone.
import QtQuick
import Vorlano

Item {
    id: enlace

    required property string url
    property bool vistaPrevia: false
    default property alias contenido: marco.data

    Item {
        id: marco
        anchors.fill: parent
    }

    // The desktop opens vorlano:// links with the program; the widget host
    // takes them itself (QDesktopServices::setUrlHandler).
    TapHandler {
        enabled: !enlace.vistaPrevia
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: Qt.openUrlExternally(enlace.url)
    }
    HoverHandler {
        enabled: !enlace.vistaPrevia
        cursorShape: Qt.PointingHandCursor
    }
}
