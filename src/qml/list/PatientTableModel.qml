import QtQuick 2.2

// The rows of the patient table. A ListModel fixes a role's type by its first value and has no NULL, so every row sets
// every role, always with the same type: a NULL of the store becomes "" or the flag 0, which the cells show alike.
ListModel {
    /// Appends an array of patient records, each with its tick `checked`.
    function append(patients) {
        var roles = Columns.roles;

        insert(count, patients.map(function (patient) { return toRow(patient, roles); }));
    }

    /// The roles of the columns, and those that no column shows.
    function toRow(patient, roles) {
        var row = {
            id: patient.id,
            genderMale: patient.genderMale || 0,
            created: patient.created || "",
            notification_date: patient.notification_date || "",
            // Rows of the waiting tab have no such value: all of them wait.
            waiting: patient.waiting === undefined ? 1 : patient.waiting || 0,
            checked: patient.checked
        };
        var i;

        for (i = 0; i < roles.length; ++i) {
            row[roles[i].name] = patient[roles[i].name] || roles[i].empty;
        }
        return row;
    }
}
