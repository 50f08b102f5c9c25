import QtQuick 2.2
import "../style"

// The square of a tick box: white, filled with its colour and ticked when `checked`. Unticked it has an outline where
// white could not be seen on what lies below.
Rectangle {
    id: root

    property bool checked: false
    property color tickColor: Palette.tickYes
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
