import QtQuick 2.2
import QtQuick.Window 2.2
import "../style"

// Whatever can be clicked: by the mouse, by Return and Space, by an assistive tool. What is disabled or not visible, or
// in a hidden window, takes none of the three.
Item {
    id: root

    default property alias content: area.data
    property string name
    property color focusColor: Palette.focusOnLight
    property alias focusRing: ring
    /// How far the frame of the focus stands off.
    property real focusDistance: 0
    property alias acceptedButtons: area.acceptedButtons
    property alias containsMouse: area.containsMouse
    property alias cursorShape: area.cursorShape
    property alias pressed: area.pressed
    /// Whether holding the button down means something of its own; else it is a click that takes longer.
    property bool holdable: false

    signal triggered
    signal rightClicked
    signal pressAndHold

    function trigger() {
        if (enabled && visible && Window.visibility !== Window.Hidden) {
            triggered();
        }
    }

    /// A key that is held down triggers once.
    function triggerByKey(event) {
        if (!event.isAutoRepeat) {
            trigger();
        }
    }

    activeFocusOnTab: true

    Keys.onEnterPressed: root.triggerByKey(event)
    Keys.onReturnPressed: root.triggerByKey(event)
    Keys.onSpacePressed: root.triggerByKey(event)

    Accessible.focusable: true
    Accessible.name: root.name
    Accessible.role: Accessible.Button
    Accessible.onPressAction: root.trigger()

    MouseArea {
        id: area

        anchors.fill: parent
        cursorShape: Qt.PointingHandCursor
        hoverEnabled: true

        onClicked: mouse.button === Qt.LeftButton ? root.trigger() : root.rightClicked()
        onPressAndHold: {
            mouse.accepted = root.holdable;
            if (root.holdable) {
                root.pressAndHold();
            }
        }
    }

    FocusRing {
        id: ring

        anchors.margins: -root.focusDistance
        border.color: root.focusColor
    }
}
