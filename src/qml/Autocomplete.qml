import QtQuick 2.2
import "base"
import "style"
import "../js/AutocompleteLogic.js" as AutocompleteLogic
import "../js/Bdd.js" as Bdd

// The search bar: the typed text fills `model` with the matching patients.
Rectangle {
    id: root

    property string placeholder
    property alias model: model
    property alias text: field.text
    readonly property bool active: text !== ""
    readonly property bool hasResults: model.count > 0 && active

    signal changed
    /// Never emitted: users of the search bar may connect to it.
    signal clicked
    signal resultsWanted
    signal firstResultWanted

    /// Focuses the field.
    function focus() {
        field.forceActiveFocus();
    }

    /// Empties the field and gives it the keyboard.
    function reset() {
        field.text = "";
        focus();
    }

    /// Takes the patients of these ids out of the results.
    function removePatients(ids) {
        var i;

        for (i = model.count - 1; i >= 0; --i) {
            // Loosely: an id comes as a number or as text.
            if (ids.some(function (id) { return id == model.get(i).id; })) {
                model.remove(i);
            }
        }
    }

    function search() {
        AutocompleteLogic.filter(text);
        changed();
    }

    color: Palette.searchBar
    height: Metrics.barHeight

    onTextChanged: search()
    Component.onCompleted: Bdd.init()

    ListModel {
        id: model
    }

    Rectangle {
        id: magnifier

        color: Palette.searchButton
        height: parent.height
        objectName: "magnifier"
        width: height

        ImageButton {
            anchors.fill: parent
            hoveredOpacity: 1
            idleOpacity: 0.6
            image: "../images/loop.png"
            name: qsTr("Rechercher")

            onTriggered: root.changed()
        }
    }

    InputField {
        id: field

        anchors {
            left: magnifier.right
            leftMargin: 12
            right: cancel.left
            verticalCenter: parent.verticalCenter
        }
        name: qsTr("Rechercher un patient")
        placeholderColor: Palette.searchPlaceholder
        placeholderText: root.placeholder

        Keys.onDownPressed: root.resultsWanted()
        Keys.onEnterPressed: root.firstResultWanted()
        Keys.onReturnPressed: root.firstResultWanted()
    }

    ImageButton {
        id: cancel

        anchors.right: parent.right
        height: parent.height
        hoveredOpacity: 1
        idleOpacity: 0.33
        image: "../images/cross.png"
        name: qsTr("Effacer la recherche")
        width: 40

        onTriggered: root.reset()
    }
}
