import QtQuick 2.2
import "base"

// The text of one cell of the patient table.
WidgetText {
    color: Palette.tableText
    elide: Text.ElideRight
    height: Metrics.tableRowHeight
    horizontalAlignment: Text.AlignHCenter
    maximumLineCount: 1
    points: 8
    verticalAlignment: Text.AlignVCenter

    Accessible.ignored: text === ""
    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
