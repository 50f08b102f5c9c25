import QtQuick 2.2
import "../style"

// The square of a tick box: white, or filled with its colour and ticked. Unticked it has an outline, unless it lies on
// a dark ground.
Rectangle {
    id: root

    property bool checked: false
    property color tickColor
    property bool outlined: true

    border.color: Palette.tickBoxBorder
    border.width: outlined && !checked ? 1 : 0
    color: checked ? tickColor : Palette.tickBox
    implicitHeight: Metrics.tickBoxSize
    implicitWidth: Metrics.tickBoxSize
    radius: 2

    Image {
        anchors.centerIn: parent
        source: "../../images/tiny-tick.png"
        visible: root.checked
    }
}
