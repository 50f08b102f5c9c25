import QtQuick 2.2
import "../style"

// The rounded dark frame of every window: the logo and the title at the top left, and the zone that drags the window.
Rectangle {
    id: root

    property string title
    /// The distance of the title's bottom above the logo's.
    property int titleLift: 0
    property alias titleRight: titleText.right
    property alias dragZone: dragZone

    signal dragStarted
    signal contextMenuRequested

    border.color: Palette.frameBorder
    border.width: 1
    color: Palette.frame
    radius: 4

    MouseArea {
        id: dragZone

        acceptedButtons: Qt.LeftButton | Qt.RightButton
        height: Metrics.headerHeight
        objectName: "dragZone"

        onPressed: root.dragStarted()
        onClicked: if (mouse.button === Qt.RightButton) root.contextMenuRequested()
    }

    Image {
        id: logo

        source: "../../images/logo-vesk.jpg"
        x: 10
        y: Math.round((Metrics.headerHeight - height) / 2)

        Accessible.name: "VESK"
        Accessible.role: Accessible.Graphic
    }

    WidgetText {
        id: titleText

        anchors {
            bottom: logo.bottom
            bottomMargin: root.titleLift
            left: logo.right
            leftMargin: 8
        }
        color: Palette.frameTitle
        text: root.title

        Accessible.name: text
        Accessible.role: Accessible.StaticText
    }
}
