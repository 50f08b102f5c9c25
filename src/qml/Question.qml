import QtQuick 2.2
import QtQuick.Controls 1.1
import "base"
import "editor"
import "style"

// One step of the pathway: a question that expands to its two answers.
Item {
    id: root

    property string text
    property alias yes: yesBox
    property alias no: noBox
    property bool changed: false
    property string date
    property bool checked: false
    property ExclusiveGroup exclusiveGroup
    property bool displayed: true
    readonly property int internalHeight: !displayed ? 0
                                          : checked ? Metrics.expandedQuestionHeight : Metrics.questionHeight
    /// Whether one of the answers has the keyboard.
    readonly property bool answerFocused: yesBox.activeFocus || noBox.activeFocus

    signal saveIt

    /// Focuses the question.
    function focusLink() {
        header.forceActiveFocus();
    }

    function answer() {
        changed = true;
        saveIt();
    }

    clip: true
    enabled: displayed
    visible: height > 0
    width: Metrics.widgetWidth

    onExclusiveGroupChanged: if (exclusiveGroup) exclusiveGroup.bindCheckable(root)

    Behavior on height {
        ExpandAnimation {}
    }

    ExclusiveGroup {
        id: answers
    }

    Item {
        id: topRow

        height: 40
        objectName: "topRow"
        width: parent.width
        y: 10

        Rectangle {
            color: Palette.questionBar
            height: parent.height
            objectName: "bar"
            width: 4
        }

        WidgetText {
            anchors {
                left: parent.left
                leftMargin: 14
                right: shortAnswer.left
                rightMargin: 6
                verticalCenter: parent.verticalCenter
            }
            color: Palette.questionText
            maximumTextScale: 1.2
            text: root.text
            textFormat: Text.RichText
            wrapMode: Text.WordWrap
        }

        WidgetText {
            id: shortAnswer

            anchors {
                right: chevron.left
                rightMargin: 8
                verticalCenter: parent.verticalCenter
            }
            color: yesBox.checked ? Palette.shortYes : Palette.shortNo
            font.bold: true
            maximumTextScale: 1.3
            objectName: "shortAnswer"
            points: 11
            text: yesBox.checked ? qsTr("Oui") : noBox.checked ? qsTr("Non") : ""

            Behavior on opacity {
                ExpandAnimation {}
            }
        }

        Image {
            id: chevron

            anchors {
                right: parent.right
                rightMargin: 14
                verticalCenter: parent.verticalCenter
            }
            source: "../images/next.png"

            Behavior on rotation {
                ExpandAnimation {}
            }
        }

        Clickable {
            id: header

            anchors.fill: parent
            name: shortAnswer.text === "" ? root.text : root.text + " " + shortAnswer.text

            onTriggered: root.checked = !root.checked
        }
    }

    Row {
        anchors {
            left: parent.left
            leftMargin: 30
            top: topRow.bottom
        }
        enabled: root.checked
        height: 40
        objectName: "answerRow"
        spacing: 30
        // Visible at once, so that Tab reaches the answers while they appear.
        visible: root.checked || root.height > Metrics.questionHeight

        AnswerBox {
            id: yesBox

            anchors.verticalCenter: parent.verticalCenter
            exclusiveGroup: answers
            text: qsTr("Oui")
            tickColor: Palette.tickYes

            onCheckedChanged: root.answer()
        }
        AnswerBox {
            id: noBox

            anchors.verticalCenter: parent.verticalCenter
            exclusiveGroup: answers
            text: qsTr("Non")
            tickColor: Palette.tickNo

            onCheckedChanged: root.answer()
        }
    }

    states: [
        State {
            name: "missing"
            when: !root.displayed

            PropertyChanges {
                target: root
                height: 0
            }
        },
        State {
            name: "base"
            when: !root.checked

            PropertyChanges {
                target: root
                height: Metrics.questionHeight
            }
        },
        State {
            name: "buttons"
            when: root.checked

            PropertyChanges {
                target: root
                height: Metrics.expandedQuestionHeight
            }
            PropertyChanges {
                target: chevron
                rotation: 90
            }
            PropertyChanges {
                target: shortAnswer
                opacity: 0
            }
        }
    ]
}
