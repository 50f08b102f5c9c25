import QtQuick 2.2
import QtQuick.Controls 1.1
import "base"
import "style"

// One tab of the patient list. Its children stand left of its title.
Rectangle {
    id: root

    default property alias prepend: prependRow.data
    property string title
    property bool checked: false
    property bool hovered: clickable.containsMouse
    property color normalColor: Palette.tab
    property color hoveredColor: Palette.tabHovered
    property color checkedColor: Palette.tabChecked
    property color textColor: Palette.tabText
    property ExclusiveGroup exclusiveGroup: null

    signal clicked

    function activate() {
        checked = true;
        clicked();
    }

    state: checked ? "checked" : hovered ? "hovered" : "base"

    onExclusiveGroupChanged: if (exclusiveGroup) exclusiveGroup.bindCheckable(root)

    Row {
        id: prependRow

        anchors {
            right: titleText.left
            rightMargin: 5
            verticalCenter: parent.verticalCenter
        }
    }

    WidgetText {
        id: titleText

        anchors.centerIn: parent
        color: root.textColor
        font.bold: true
        points: 11
        text: root.title
    }

    Clickable {
        id: clickable

        anchors.fill: parent
        cursorShape: root.checked ? Qt.ArrowCursor : Qt.PointingHandCursor
        name: root.title

        onTriggered: root.activate()

        Accessible.checkable: true
        Accessible.checked: root.checked
        Accessible.role: Accessible.PageTab
        Accessible.selectable: true
        Accessible.selected: root.checked
    }

    states: [
        State {
            name: "base"

            PropertyChanges {
                target: root
                color: root.normalColor
            }
        },
        State {
            name: "hovered"

            PropertyChanges {
                target: root
                color: root.hoveredColor
            }
        },
        State {
            name: "checked"

            PropertyChanges {
                target: root
                color: root.checkedColor
            }
        }
    ]
}
