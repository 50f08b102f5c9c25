import QtQuick 2.2
import QtQuick.Controls 1.1
import QtQuick.Controls.Styles 1.1
import "../style"

// A picture that is a button, with a tooltip. `name` says to an assistive tool what it does.
Button {
    id: root

    property url image
    property string name: tooltip
    property color background: Palette.transparent
    property real idleOpacity: 1
    property real hoveredOpacity: 0.66
    property real pressedOpacity: 0.5

    style: ButtonStyle {
        padding {
            bottom: 0
            left: 0
            right: 0
            top: 0
        }
        background: Rectangle {
            color: root.background

            FocusRing {
                border.color: Palette.focusOnDark
                visible: root.activeFocus
            }
        }
        label: Item {
            Image {
                anchors.centerIn: parent
                opacity: root.pressed ? root.pressedOpacity : root.hovered ? root.hoveredOpacity : root.idleOpacity
                source: root.image
            }
        }
    }

    Keys.onEnterPressed: if (!event.isAutoRepeat) root.clicked()
    Keys.onReturnPressed: if (!event.isAutoRepeat) root.clicked()

    Accessible.name: root.name
}
