import QtQuick 2.2
import "base"

// The patients that match the search.
ThinScrollView {
    id: root

    property alias model: list.model

    signal selected(string id, string name, bool genderMale)

    /// Focuses the first row.
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

        // The next letter replaces the rows: only those in view are built.
        cacheBuffer: 0
        delegate: PatientsItem {
            width: list.width

            // Every row has the default icon and reports the default gender: the editor reads the patient's own.
            onClicked: root.selected(model.id, model.name, genderMale)
        }
    }

    Accessible.name: qsTr("Patients trouvés")
    Accessible.role: Accessible.List
}
