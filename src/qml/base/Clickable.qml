import QtQuick 2.2

// Whatever can be clicked: by the mouse, by Return and Space, by an assistive tool.
MouseArea {
    id: root

    property string name
    property color focusColor: Palette.focusOnLight

    signal triggered

    activeFocusOnTab: true
    cursorShape: Qt.PointingHandCursor
    hoverEnabled: true

    onClicked: if (mouse.button === Qt.LeftButton) root.triggered()
    Keys.onEnterPressed: root.triggered()
    Keys.onReturnPressed: root.triggered()
    Keys.onSpacePressed: root.triggered()

    Accessible.focusable: true
    Accessible.name: root.name
    Accessible.role: Accessible.Button
    Accessible.onPressAction: root.triggered()

    FocusRing {
        border.color: root.focusColor
    }
}
