import QtQuick 2.2
import "base"
import "style"

// A wide coloured button with an optional icon.
Rectangle {
    id: root

    property string text
    property url image
    property color backgroundColor: Palette.action
    property color hoveredBackgroundColor: Palette.actionHovered
    property color disabledBackgroundColor: Palette.actionDisabled
    property color textColor: Palette.white
    property bool textBold: true
    property bool disabled: false
    readonly property bool hasImage: image.toString() !== ""

    signal clicked

    color: backgroundColor
    enabled: !disabled
    height: Metrics.buttonHeight
    state: disabled ? "disabled" : clickable.containsMouse ? "hovered" : "base"

    Image {
        id: icon

        anchors {
            left: parent.left
            leftMargin: 14
            verticalCenter: parent.verticalCenter
        }
        source: root.image
        visible: root.hasImage
    }

    WidgetText {
        anchors {
            left: root.hasImage ? icon.right : parent.left
            leftMargin: root.hasImage ? 20 : 5
            right: parent.right
            rightMargin: 5
            verticalCenter: parent.verticalCenter
        }
        color: root.textColor
        elide: Text.ElideRight
        font.bold: root.textBold
        horizontalAlignment: root.hasImage ? Text.AlignLeft : Text.AlignHCenter
        maximumTextScale: 1.1
        points: 10
        text: root.text
    }

    Clickable {
        id: clickable

        anchors.fill: parent
        focusColor: Palette.focusOnDark
        name: root.text

        onTriggered: root.clicked()
    }

    states: [
        State {
            name: "base"
        },
        State {
            name: "hovered"

            PropertyChanges {
                target: root
                color: root.hoveredBackgroundColor
            }
        },
        State {
            name: "disabled"

            PropertyChanges {
                target: root
                color: root.disabledBackgroundColor
            }
        }
    ]
}
