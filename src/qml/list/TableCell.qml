import QtQuick 2.2
import "../base"
import "../style"

// One text cell of the patient table, as its column describes it.
WidgetText {
    id: root

    property TableColumn column
    /// The row that the column reads.
    property Item row
    readonly property bool emphasised: column.emphasised !== null && column.emphasised(row, text)

    color: emphasised && row.red ? Palette.tableEmphasis : Palette.tableText
    elide: Text.ElideRight
    font.bold: column.bold || emphasised
    height: Metrics.tableRowHeight
    horizontalAlignment: column.alignment
    maximumTextScale: column.maximumTextScale
    maximumLineCount: 1
    objectName: column.key
    points: column.points
    text: column.text(row)
    verticalAlignment: Text.AlignVCenter
    width: row.width * (column.width + 2 * column.overhang)
    x: row.width * (column.left - column.overhang)

    Accessible.description: column.spokenTitle
    Accessible.ignored: text === ""
    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
