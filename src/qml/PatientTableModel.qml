import QtQuick 2.2

// The rows of the patient table. A list model fixes a role's type by its first value and knows no NULL, so every row
// is given all its roles, each of one type: a NULL of the store is a text "" or a flag 0 here, which read the same.
ListModel {
    /// Appends an array of patient records, each with its tick `checked`.
    function append(patients) {
        insert(count, patients.map(toRow));
    }

    function toRow(patient) {
        return {
            id: patient.id,
            genderMale: patient.genderMale || 0,
            name: patient.name || "",
            phone: patient.phone || "",
            created: patient.created || "",
            created_format: patient.created_format || "",
            test: patient.test || 0,
            test_date: patient.test_date || "",
            rdv1: patient.rdv1 || 0,
            date1: patient.date1 || "",
            confirmation: patient.confirmation || 0,
            confirmation_date: patient.confirmation_date || "",
            rdv2: patient.rdv2 || 0,
            date2: patient.date2 || "",
            rdv3: patient.rdv3 || 0,
            date3: patient.date3 || "",
            notification_date: patient.notification_date || "",
            // Rows of the waiting tab have no such value: all of them wait.
            waiting: patient.waiting === undefined ? 1 : patient.waiting || 0,
            checked: patient.checked
        };
    }
}
