import QtQuick 2.2
import QtQuick.Window 2.2
import "../style"

// The base of every control: it is triggered by the mouse, by Return and Space and by an assistive tool, unless it is
// disabled, invisible or in a hidden window. A control is a Clickable, or lays one over what it shows.
Item {
    id: root

    default property alias content: area.data
    property string name
    property color focusColor: Palette.focusOnLight
    property alias focusRing: ring
    /// The distance of the focus ring.
    property real focusDistance: 0
    property alias acceptedButtons: area.acceptedButtons
    property alias containsMouse: area.containsMouse
    property alias cursorShape: area.cursorShape
    property alias mouseX: area.mouseX
    property alias mouseY: area.mouseY
    property alias pressed: area.pressed
    /// Whether holding the mouse button down emits pressAndHold instead of a click.
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

    function hold(event) {
        event.accepted = holdable;
        if (holdable) {
            pressAndHold();
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
        onPressAndHold: root.hold(mouse)
    }

    FocusRing {
        id: ring

        anchors.margins: -root.focusDistance
        border.color: root.focusColor
    }
}
