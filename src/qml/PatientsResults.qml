import QtQuick 2.2
import "base"

// The patients that match the search.
ThinScrollView {
    id: root

    property alias model: list.model

    signal selected(string id, string name, bool genderMale)

    /// Gives the keyboard to the first row.
    function focusFirst() {
        list.currentIndex = 0;
        list.currentItem.focusLink();
    }

    /// Opens the first patient, if there is one.
    function selectFirst() {
        if (list.count > 0) {
            list.currentIndex = 0;
            list.currentItem.clicked();
        }
    }

    ListView {
        id: list

        // The next letter throws the rows away: none is built that is not in view.
        cacheBuffer: 0
        delegate: PatientsItem {
            width: list.width

            // The icon stays the default one: a row says whose file it is, the editor says more.
            onClicked: root.selected(model.id, model.name, genderMale)
        }
    }

    Accessible.name: qsTr("Patients trouvés")
    Accessible.role: Accessible.List
}
