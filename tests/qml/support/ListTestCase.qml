import QtQuick 2.2

// A test of the patient list popup.
DocumentTestCase {
    readonly property string waitingTitle: "Patients en attente"
    readonly property string allTitle: "Liste de tous les patients"

    /// Stores patients with these names; those of the second list are not waiting.
    function givenNames(waiting, others) {
        givenPatients(waiting.map(function (name) {
            return { name: name, notification_date: "2014-05-12" };
        }).concat((others || []).map(function (name) {
            return { name: name, notification_date: "2050-01-01" };
        })));
    }

    /// The table's existing rows from top to bottom.
    function rows(popup) {
        listOf(popup).forceLayout();
        return ofType(popup, "PatientTableRow").sort(function (a, b) { return a.y - b.y; });
    }

    function listOf(popup) {
        return ofType(popup, "ListView")[0];
    }

    function names(popup) {
        return rows(popup).map(function (row) { return row.iname; });
    }

    function ticks(popup) {
        return rows(popup).map(function (row) { return ofType(row, "TickMark")[0].checked; });
    }

    function tick(popup, number) {
        mouseClick(rows(popup)[number], 20, 21);
    }

    function selectAll(popup) {
        click(named(popup, "Tout sélectionner"));
    }

    function openTab(popup, title) {
        click(named(popup, title));
    }

    function storedNames() {
        return Native.rows("SELECT name FROM Patients ORDER BY id").map(function (row) { return row.name; });
    }

    function idOf(name) {
        return Native.rows("SELECT id FROM Patients WHERE name = ?", [name])[0].id;
    }
}
