import QtQuick 2.2
import QtQuick.Controls 1.1

// The menu of a text field: this Qt's own ends in a script error.
Menu {
    id: root

    property Item field
    property int selectionStart: 0
    property int selectionEnd: 0

    /// Opens the menu at a place of the field.
    function open(x, y) {
        var place = field.mapToItem(null, x, y);

        // The field forgets its selection as it loses the keyboard to the menu.
        selectionStart = field.selectionStart;
        selectionEnd = field.selectionEnd;
        __popup(Qt.rect(place.x, place.y, 0, 0), -1);
    }

    function takeBack() {
        field.forceActiveFocus();
        field.select(selectionStart, selectionEnd);
    }

    MenuItem {
        enabled: root.selectionStart < root.selectionEnd
        text: qsTr("Couper")

        onTriggered: {
            root.takeBack();
            root.field.cut();
        }
    }
    MenuItem {
        enabled: root.selectionStart < root.selectionEnd
        text: qsTr("Copier")

        onTriggered: {
            root.takeBack();
            root.field.copy();
        }
    }
    MenuItem {
        enabled: root.field.canPaste
        text: qsTr("Coller")

        onTriggered: {
            root.takeBack();
            root.field.paste();
        }
    }
    MenuItem {
        enabled: root.field.length > 0
        text: qsTr("Tout sélectionner")

        onTriggered: {
            root.field.forceActiveFocus();
            root.field.selectAll();
        }
    }
}
