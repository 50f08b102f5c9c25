import QtQuick 2.2
import QtQuick.Controls 1.1
import QtQuick.Controls.Styles 1.1
import "base"

// One of the two answers to a question.
CheckBox {
    id: root

    property color tickColor: Palette.tickYes

    style: CheckBoxStyle {
        indicator: TickMark {
            checked: root.checked
            tickColor: root.tickColor

            FocusRing {
                anchors.margins: -3
                visible: root.activeFocus
            }
        }
        label: WidgetText {
            color: Palette.answerText
            font.bold: true
            points: 11
            text: root.text
        }
        spacing: 8
    }

    Keys.onEnterPressed: root.checked = true
    Keys.onReturnPressed: root.checked = true
}
