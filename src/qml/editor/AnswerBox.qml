import QtQuick 2.2
import QtQuick.Controls 1.1
import "../base"
import "../style"

// One of the two answers to a question. A click, a key or an assistive tool ticks it; only the other answer unticks it.
TickBox {
    id: root

    property string text
    property ExclusiveGroup exclusiveGroup

    cursorShape: Qt.ArrowCursor
    focusDistance: 4
    height: mark.height
    name: text
    width: label.x + label.width

    onExclusiveGroupChanged: if (exclusiveGroup) exclusiveGroup.bindCheckable(root)
    onTriggered: checked = true

    WidgetText {
        id: label

        anchors.verticalCenter: root.mark.verticalCenter
        color: Palette.answerText
        font.bold: true
        points: 11
        text: root.text
        x: root.mark.width + 8
    }
}
