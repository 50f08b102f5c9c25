import QtQuick 2.2
import QtQuick.Controls 1.1
import QtQuick.Controls.Styles 1.1
import "../style"

// A line of text without a frame of its own. A placeholder is no name, so each field is given one.
TextField {
    id: root

    property string name
    property real points: 10
    /// As that of a text: how often its drawn size the box has room for.
    property real growth: 1.5
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

    /// The keys that open the menu of what has the keyboard.
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
            pointSize: root.points * point_factor * Math.min(1, root.growth / Metrics.textScale)
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
