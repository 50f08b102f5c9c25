import QtQuick 2.2
import "../base"
import "../style"

// One section of the contact popup: a heading and, indented below it, its lines.
Item {
    id: root

    default property alias lines: lineColumn.data
    property alias heading: headingText.text

    WidgetText {
        id: headingText

        color: Palette.contactHeading
        maximumTextScale: 1.2
        points: 12

        Accessible.name: text
        Accessible.role: Accessible.StaticText
    }

    Column {
        id: lineColumn

        anchors {
            left: parent.left
            leftMargin: 50
            top: headingText.bottom
            topMargin: 5
        }
        spacing: 5
    }
}
