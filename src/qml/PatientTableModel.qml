import QtQuick 2.2

// The rows of the patient table. A list model fixes a role's type by its first value and knows no NULL, so every row
// is given all its roles, each of one type: a NULL of the store is a text "" or a flag 0 here, which read the same.
ListModel {
    /// Appends an array of patient records, each with its tick `checked`.
    function append(patients) {
        insert(count, patients.map(toRow));
    }

    function toRow(patient) {
        var row = {
            id: patient.id,
            genderMale: toFlag(patient.genderMale),
            name: toText(patient.name),
            created_format: toText(patient.created_format),
            phone: toText(patient.phone),
            created: toText(patient.created),
            test: toFlag(patient.test),
            test_date: toText(patient.test_date),
            rdv1: toFlag(patient.rdv1),
            date1: toText(patient.date1),
            confirmation: toFlag(patient.confirmation),
            confirmation_date: toText(patient.confirmation_date),
            rdv2: toFlag(patient.rdv2),
            date2: toText(patient.date2),
            rdv3: toFlag(patient.rdv3),
            date3: toText(patient.date3),
            notification_date: toText(patient.notification_date),
            checked: patient.checked === true
        };

        // Rows of the waiting tab do not say it: all of them are.
        if (patient.waiting !== undefined) {
            row.waiting = toFlag(patient.waiting);
        }
        return row;
    }

    function toText(value) {
        return value === null || value === undefined ? "" : String(value);
    }

    function toFlag(value) {
        return Number(value) || 0;
    }
}
