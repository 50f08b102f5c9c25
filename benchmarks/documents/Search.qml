import QtQuick 2.2
import "qrc:/qml"

// The search bar with its results, connected as in the main document.
Item {
    property alias text: autocomplete.text
    readonly property int found: autocomplete.model.count

    height: 300
    width: 275

    Autocomplete {
        id: autocomplete

        width: parent.width
    }

    PatientsResults {
        anchors {
            bottom: parent.bottom
            left: parent.left
            right: parent.right
            top: autocomplete.bottom
        }
        model: autocomplete.model
    }
}
