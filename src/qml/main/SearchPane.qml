import QtQuick 2.2
import ".."
import "../base"

// The pane below the search bar: the link to a new patient, the patients found, the link to the waiting list.
Item {
    id: root

    property bool searching: false
    property bool hasResults: false
    /// The list model of the patients found.
    property var results
    property int waitingNumber: 0

    signal createPatient
    signal openPatient(string id, string name)
    signal openWaitingList

    /// Loads the list of results, if it is not there yet.
    function loadResults() {
        resultList.loadNow();
    }

    /// Opens the first patient found, if there is one.
    function openFirst() {
        if (hasResults) {
            resultList.item.selectFirst();
        }
    }

    /// Focuses the first patient found, else the link to a new one.
    function focusFirst() {
        if (hasResults) {
            resultList.item.focusFirst();
        } else {
            createLink.focusLink();
        }
    }

    PatientsItem {
        id: createLink

        alwaysBold: true
        image: "../../images/add.png"
        text: root.searching ? qsTr("Créer la fiche patient") : qsTr("Nouvelle fiche patient")
        width: parent.width

        onClicked: root.createPatient()
    }

    DeferredLoader {
        id: resultList

        anchors {
            bottom: waitingLink.top
            left: parent.left
            right: parent.right
            top: createLink.bottom
        }
        objectName: "results"
        opacity: root.hasResults ? 1 : 0
        source: "../PatientsResults.qml"
        visible: opacity > 0

        Behavior on opacity {
            NumberAnimation {
                duration: 500
                easing.type: Easing.InOutQuad
            }
        }

        onLoaded: {
            item.model = root.results;
            item.selected.connect(root.openPatient);
        }
    }

    PatientsItem {
        id: waitingLink

        alwaysBold: true
        anchors {
            bottom: parent.bottom
            bottomMargin: -2
        }
        image: "../../images/tab-button.png"
        number: root.waitingNumber
        text: qsTr("Liste des patients en attente")
        width: parent.width

        onClicked: root.openWaitingList()
    }
}
