import QtQuick 2.2
import "base"
import "style"

// The frame of the popups: header with an extra area and the close cross, and the content area.
WindowFrame {
    id: root

    default property alias content: contentArea.data
    property alias header: headerArea.data
    property bool noFooterBorder: false

    signal close
    signal enableDragging

    dragZone.width: headerArea.x + headerArea.width
    titleLift: 2

    onDragStarted: enableDragging()

    Item {
        id: headerArea

        anchors {
            left: root.titleRight
            leftMargin: 10
            right: cross.left
            rightMargin: 10
            top: parent.top
            topMargin: 5
        }
        height: Metrics.headerHeight - 10
        objectName: "headerArea"
    }

    ImageButton {
        id: cross

        anchors {
            right: parent.right
            rightMargin: 12
        }
        height: 16
        image: "../images/cross.png"
        name: qsTr("Fermer")
        width: 16
        y: (Metrics.headerHeight - height) / 2

        onTriggered: root.close()
    }

    Rectangle {
        id: contentArea

        clip: true
        color: Palette.popupContent
        height: root.height - (root.noFooterBorder ? 0 : Metrics.footerBorder) - Metrics.headerHeight
        objectName: "contentArea"
        width: root.width - 2
        x: 1
        y: Metrics.headerHeight
    }
}
