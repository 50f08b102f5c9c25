import QtQuick 2.2

// The square of a tick box: white, filled with its colour and ticked when `checked`.
Rectangle {
    id: root

    property bool checked: false
    property color tickColor: Palette.tickYes

    border.color: Palette.tickBoxBorder
    border.width: checked ? 0 : 1
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
