import QtQuick 2.2

// Whatever can be clicked: by the mouse, by Return and Space, by an assistive tool. What is disabled or not visible
// takes none of the three.
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

    signal triggered
    signal rightClicked
    signal pressAndHold

    function trigger() {
        if (enabled && visible) {
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
        onPressAndHold: root.pressAndHold()
    }

    FocusRing {
        id: ring

        anchors.margins: -root.focusDistance
        border.color: root.focusColor
    }
}
