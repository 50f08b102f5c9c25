import QtQuick 2.2
import "../base"

// The tick box at the left of the patient table, in its column. A row's zone is wider and begins at the row's edge.
TickBox {
    id: root

    property real tableWidth: parent ? parent.width : 0
    /// Whether the clickable zone is only as wide as the column.
    property bool narrow: false

    height: parent ? parent.height : 0
    mark.anchors.verticalCenter: mark.parent.verticalCenter
    mark.x: Math.round(tableWidth * (Columns.gap + Columns.tickWidth / 2) - mark.width / 2) - x
    width: tableWidth * (narrow ? Columns.tickWidth : Columns.tickZone)
    x: narrow ? tableWidth * Columns.gap : 0

    onTriggered: checked = !checked
}
