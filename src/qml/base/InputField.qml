import QtQuick 2.2
import QtQuick.Controls 1.1
import QtQuick.Controls.Styles 1.1
import "../style"

// A text field without a frame. Its accessible name is its own: a placeholder is not taken for one.
TextField {
    id: root

    property string name
    property real points: 10
    /// As in WidgetText.
    property real maximumTextScale: 1.5
    property bool bold: false
    property color color: Palette.white
    property color placeholderColor: Palette.white
    property color selectionColor: Palette.white
    property color selectedTextColor: Palette.searchBar
    property FieldMenu fieldMenu: null

    function openMenu(x, y) {
        if (!fieldMenu) {
            fieldMenu = menuComponent.createObject(root, { field: root });
        }
        forceActiveFocus();
        fieldMenu.open(x, y);
    }

    /// Opens the menu by the keys that open context menus.
    function openMenuByKey(event) {
        if (event.key === Qt.Key_Menu || event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier) {
            openMenu(0, height);
            event.accepted = true;
        }
    }

    menu: null
    style: TextFieldStyle {
        background: Item {}
        font {
            bold: root.bold
            family: Metrics.fontFamily
            pointSize: root.points * point_factor * Math.min(1, root.maximumTextScale / Metrics.textScale)
        }
        padding {
            left: 0
            right: 0
        }
        placeholderTextColor: root.placeholderColor
        renderType: Text.NativeRendering
        selectedTextColor: root.selectedTextColor
        selectionColor: root.selectionColor
        textColor: root.color
    }

    Keys.onPressed: openMenuByKey(event)

    Accessible.name: root.name

    MouseArea {
        acceptedButtons: Qt.RightButton
        anchors.fill: parent

        onClicked: root.openMenu(mouse.x, mouse.y)
    }

    Component {
        id: menuComponent

        FieldMenu {}
    }
}
