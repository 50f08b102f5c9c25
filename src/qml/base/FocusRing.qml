import QtQuick 2.2
import "../style"

// The frame around the control that has the focus.
Rectangle {
    anchors.fill: parent
    border.color: Palette.focusOnLight
    border.width: 2
    color: Palette.transparent
    radius: 2
    visible: parent.activeFocus
}
