import QtQuick 2.2
import "base"

// The tick box at the left of the patient table: its zone is wider than the box, which stands in its column.
Clickable {
    id: root

    property bool checked: false
    property real tableWidth: parent ? parent.width : 0
    property alias tickColor: mark.tickColor

    height: parent ? parent.height : 0
    width: tableWidth * Metrics.tickZone

    onTriggered: checked = !checked

    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.role: Accessible.CheckBox
    Accessible.onToggleAction: triggered()

    TickMark {
        id: mark

        anchors.verticalCenter: parent.verticalCenter
        checked: root.checked
        x: Math.round(root.tableWidth * (Metrics.columnGap + Metrics.tickColumn / 2) - width / 2)
    }
}
