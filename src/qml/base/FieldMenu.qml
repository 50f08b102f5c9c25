import QtQuick 2.2
import QtQuick.Controls 1.1

// The context menu of a text field, in place of the toolkit's, which ends in a script error.
Menu {
    id: root

    property Item field
    property int selectionStart: 0
    property int selectionEnd: 0

    /// Opens the menu at a point of the field.
    function open(x, y) {
        var place = field.mapToItem(null, x, y);

        // The field loses its selection together with the focus.
        selectionStart = field.selectionStart;
        selectionEnd = field.selectionEnd;
        __popup(Qt.rect(place.x, place.y, 0, 0), -1);
    }

    function restoreSelection() {
        field.forceActiveFocus();
        field.select(selectionStart, selectionEnd);
    }

    MenuItem {
        enabled: root.selectionStart < root.selectionEnd
        text: qsTr("Couper")

        onTriggered: {
            root.restoreSelection();
            root.field.cut();
        }
    }
    MenuItem {
        enabled: root.selectionStart < root.selectionEnd
        text: qsTr("Copier")

        onTriggered: {
            root.restoreSelection();
            root.field.copy();
        }
    }
    MenuItem {
        enabled: root.field.canPaste
        text: qsTr("Coller")

        onTriggered: {
            root.restoreSelection();
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
