import QtQuick 2.2

// The rows of the patient table. A list model fixes a role's type by its first value and knows no NULL, so every row
// is given all its roles, each of one type: a NULL of the store is a text "" or a flag 0 here, which read the same.
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
