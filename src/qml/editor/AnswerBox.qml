import QtQuick 2.2
import QtQuick.Controls 1.1
import "../base"
import "../style"

// One of the two answers to a question. A click, a key or an assistive tool ticks it; only the other answer unticks it.
Clickable {
    id: root

    property bool checked: false
    property string text
    property color tickColor: Palette.tickYes
    property ExclusiveGroup exclusiveGroup

    cursorShape: Qt.ArrowCursor
    focusDistance: 4
    height: mark.height
    name: text
    width: label.x + label.width

    onExclusiveGroupChanged: if (exclusiveGroup) exclusiveGroup.bindCheckable(root)
    onTriggered: checked = true

    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.role: Accessible.CheckBox
    Accessible.onToggleAction: trigger()

    TickMark {
        id: mark

        checked: root.checked
        tickColor: root.tickColor
    }

    WidgetText {
        id: label

        anchors.verticalCenter: mark.verticalCenter
        color: Palette.answerText
        font.bold: true
        points: 11
        text: root.text
        x: mark.width + 8
    }
}
