import QtQuick 2.2
import QtQuick.Controls.Private 1.0
import QtQuick.Window 2.2
import "../style"

// A button that is a picture. Its tooltip is also its accessible name, unless `name` is set.
Clickable {
    id: root

    property url image
    property string tooltip
    property real idleOpacity: 1
    property real hoveredOpacity: 0.66
    property real pressedOpacity: hoveredOpacity

    focusColor: Palette.focusOnDark
    name: tooltip

    onContainsMouseChanged: if (!containsMouse) Tooltip.hideText()

    Accessible.description: tooltip

    Image {
        id: picture

        anchors.centerIn: parent
        opacity: root.pressed ? root.pressedOpacity : root.containsMouse ? root.hoveredOpacity : root.idleOpacity
        source: root.image
    }

    Timer {
        interval: 1000
        running: root.tooltip !== "" && root.containsMouse && !root.pressed && root.Window.visibility !== Window.Hidden

        onTriggered: Tooltip.showText(root, Qt.point(root.mouseX, root.mouseY), root.tooltip)
    }
}
