import QtQuick 2.2
import "base"

// The contact popup.
Rectangle {
    id: root

    signal closeContact
    signal enableDragging

    color: Palette.transparent
    height: 450
    width: 500

    PopupContainer {
        anchors.fill: parent
        title: qsTr("Tandry")

        onClose: root.closeContact()
        onEnableDragging: root.enableDragging()
    }
}
