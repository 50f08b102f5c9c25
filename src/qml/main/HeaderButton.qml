import QtQuick 2.2
import "../base"

// One of the three pictures at the right of the main window's header.
ImageButton {
    anchors.verticalCenter: parent ? parent.verticalCenter : undefined
    cursorShape: Qt.ArrowCursor
    height: 16
    pressedOpacity: 0.5
    width: 16
}
