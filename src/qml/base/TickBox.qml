import QtQuick 2.2

// A box with a tick. The document that uses it decides what a click does to `checked`.
Clickable {
    id: root

    property bool checked: false
    property alias mark: mark
    property alias tickColor: mark.tickColor

    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.role: Accessible.CheckBox
    Accessible.onToggleAction: trigger()

    TickMark {
        id: mark

        checked: root.checked
    }
}
