import QtQuick 2.2
import "../base"
import "../style"

// The title of one column of the patient table. A title wider than its column extends into the gaps.
Item {
    id: root

    property TableColumn column
    property real tableWidth
    readonly property string text: column.title

    height: parent ? parent.height : 0
    width: tableWidth * column.width
    x: tableWidth * column.left

    WidgetText {
        anchors.centerIn: parent
        color: Palette.white
        font.bold: true
        horizontalAlignment: Text.AlignHCenter
        maximumTextScale: 1
        points: 8
        text: root.text
        textFormat: Text.RichText

        Accessible.name: root.column.spokenTitle
        Accessible.role: Accessible.StaticText
    }
}
