import QtQuick 2.2
import "base"
import "style"

// One row of the main widget: icon, text, an optional counter and a chevron.
Item {
    id: root

    property bool genderMale: true
    property bool alwaysBold: false
    property int number: 0
    property url image: genderMale ? "../images/male.png" : "../images/female.png"
    property string text: typeof model === "undefined" ? "" : model.name

    signal clicked

    /// Focuses the row.
    function focusLink() {
        clickable.forceActiveFocus();
    }

    height: Metrics.rowHeight
    state: clickable.containsMouse ? "hovered" : "base"

    Rectangle {
        id: background

        anchors {
            left: parent.left
            right: parent.right
        }
        height: parent.height - 2
        objectName: "background"

        Image {
            id: icon

            anchors {
                horizontalCenter: parent.left
                horizontalCenterOffset: 21
                verticalCenter: parent.verticalCenter
            }
            source: root.image
        }

        WidgetText {
            id: label

            anchors {
                left: parent.left
                leftMargin: 40
                right: badge.visible ? badge.left : chevron.left
                rightMargin: 6
                verticalCenter: parent.verticalCenter
            }
            elide: Text.ElideRight
            maximumLineCount: 1
            // The links must be readable whole; most names fit at the larger scale.
            maximumTextScale: root.alwaysBold ? 1 : 1.5
            objectName: "label"
            points: 10
            text: root.text.replace(/[\r\n]+/g, " ")
        }

        Image {
            id: badge

            anchors {
                right: chevron.left
                rightMargin: 6
                verticalCenter: parent.verticalCenter
            }
            source: "../images/counter-tiny.png"
            visible: root.number > 0

            WidgetText {
                anchors.centerIn: parent
                color: Palette.white
                font.bold: true
                maximumTextScale: 1.2
                points: 7
                text: root.number
            }
        }

        Image {
            id: chevron

            anchors {
                right: parent.right
                rightMargin: 10
                verticalCenter: parent.verticalCenter
            }
        }
    }

    Clickable {
        id: clickable

        anchors {
            fill: background
            // The frame hides the last two pixels of the pane.
            rightMargin: 2
        }
        name: root.number > 0 ? root.text + " (" + root.number + ")" : root.text

        onTriggered: root.clicked()
    }

    states: [
        State {
            name: "base"

            PropertyChanges {
                target: background
                color: Palette.row
            }
            PropertyChanges {
                target: chevron
                source: "../images/next-grey.png"
            }
            PropertyChanges {
                target: label
                font.bold: root.alwaysBold
            }
        },
        State {
            name: "hovered"

            PropertyChanges {
                target: background
                color: Palette.rowHovered
            }
            PropertyChanges {
                target: chevron
                source: "../images/next.png"
            }
            PropertyChanges {
                target: label
                font.bold: true
            }
        }
    ]
}
