import QtQuick 2.2
import "../base"

// The tick box at the left of the patient table, in its column. A row's zone is wider and begins at the row's edge.
Clickable {
    id: root

    property bool checked: false
    property real tableWidth: parent ? parent.width : 0
    property alias tickColor: mark.tickColor
    property alias outlined: mark.outlined
    /// Whether the zone is the column's own.
    property bool narrow: false

    height: parent ? parent.height : 0
    width: tableWidth * (narrow ? Columns.tickWidth : Columns.tickZone)
    x: narrow ? tableWidth * Columns.gap : 0

    onTriggered: checked = !checked

    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.role: Accessible.CheckBox
    Accessible.onToggleAction: trigger()

    TickMark {
        id: mark

        anchors.verticalCenter: parent.verticalCenter
        checked: root.checked
        x: Math.round(root.tableWidth * (Columns.gap + Columns.tickWidth / 2) - width / 2) - root.x
    }
}
