import QtQuick 2.2
import "base"
import "style"

// The text of one cell of the patient table.
WidgetText {
    /// The title of its column.
    property string column

    color: Palette.tableText
    elide: Text.ElideRight
    growth: 1.5
    height: Metrics.tableRowHeight
    horizontalAlignment: Text.AlignHCenter
    maximumLineCount: 1
    points: 8
    verticalAlignment: Text.AlignVCenter

    Accessible.description: Columns.spoken(column)
    Accessible.ignored: text === ""
    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
