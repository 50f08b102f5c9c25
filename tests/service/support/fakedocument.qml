import QtQuick 2.2

// A document that only records the calls of the service.
Rectangle {
    id: root

    property var number: 0
    property var total: 0
    property var calls: []
    property var nextNumber
    property var nextTotal
    /// Replaced by the next refresh.
    property var held

    function keep(call) {
        calls = calls.concat([call]);
        console.log(root.objectName + " " + call);
    }

    /// Counts again before it returns, like the real document.
    function refresh() {
        keep("refresh");
        held = undefined;
        if (nextNumber !== undefined) {
            number = nextNumber;
        }
        if (nextTotal !== undefined) {
            total = nextTotal;
        }
    }

    function openPatient(iid) {
        keep("openPatient " + typeof iid + " " + iid);
    }

    function removedPatients(list) {
        keep("removedPatients " + JSON.stringify(list));
    }

    height: 50
    width: 275
}
