import QtQuick 2.2

// Whatever can be clicked: by the mouse, by Return and Space, by an assistive tool.
MouseArea {
    id: root

    property string name
    property color focusColor: Palette.focusOnLight

    signal triggered

    // A mouse area that is not enabled is deaf to the mouse alone.
    function trigger() {
        if (enabled) {
            triggered();
        }
    }

    activeFocusOnTab: true
    cursorShape: Qt.PointingHandCursor
    hoverEnabled: true

    onClicked: if (mouse.button === Qt.LeftButton) root.trigger()
    Keys.onEnterPressed: root.trigger()
    Keys.onReturnPressed: root.trigger()
    Keys.onSpacePressed: root.trigger()

    Accessible.focusable: true
    Accessible.name: root.name
    Accessible.role: Accessible.Button
    Accessible.onPressAction: root.trigger()

    FocusRing {
        border.color: root.focusColor
    }
}
