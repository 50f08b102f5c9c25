pragma Singleton
import QtQuick 2.2
import "../../js/list/StepCells.js" as StepCells

// The columns of the patient table, from left to right; titles, rows and model are made from this list. `row` is a
// PatientTableRow; a value for which it has no property is in row.record.
QtObject {
    id: root

    /// The space before each column.
    readonly property real gap: 0.015

    /// The column of the tick boxes, left of all others.
    readonly property real tickWidth: 0.03

    readonly property list<TableColumn> all: [
        TableColumn {
            alignment: Text.AlignLeft
            bold: true
            key: "name"
            maximumTextScale: 1.4
            points: 9
            roles: ({ name: "" })
            text: function (row) { return row.iname; }
            title: qsTr("Nom du patient")
            width: 0.19
        },
        TableColumn {
            key: "firstAppointment"
            maximumTextScale: 1.3
            roles: ({ created_format: "" })
            text: function (row) { return row.icreated; }
            title: qsTr("Date<br/>1<sup>er</sup> RDV")
            width: 0.09
        },
        TableColumn {
            emphasised: StepCells.isTestEmphasised
            key: "test"
            roles: ({ test: 0, test_date: "" })
            text: StepCells.testText
            title: qsTr("Tests<br/>cutanés")
            width: 0.07
        },
        TableColumn {
            emphasised: StepCells.isWorkUpEmphasised
            key: "rdv1"
            roles: ({ rdv1: 0, date1: "" })
            text: StepCells.workUpText
            title: qsTr("RDV bilan<br/>allergo.")
            width: 0.07
        },
        TableColumn {
            emphasised: StepCells.isAllergyEmphasised
            key: "confirmation"
            roles: ({ confirmation: 0, confirmation_date: "" })
            text: StepCells.allergyText
            title: qsTr("Allergie<br/>confirmée")
            width: 0.07
        },
        TableColumn {
            emphasised: StepCells.isFirstIntakeEmphasised
            key: "rdv2"
            roles: ({ rdv2: 0, date2: "" })
            text: StepCells.firstIntakeText
            title: qsTr("RDV<br/>1<sup>ère</sup> prise")
            width: 0.07
        },
        TableColumn {
            emphasised: StepCells.isReviewEmphasised
            key: "rdv3"
            roles: ({ rdv3: 0, date3: "" })
            text: StepCells.reviewText
            title: qsTr("RDV bilan<br/>fin de saison")
            width: 0.07
        },
        TableColumn {
            key: "phone"
            maximumTextScale: 1.1
            // A number of full length is a little wider than the column.
            overhang: root.gap / 2
            roles: ({ phone: "" })
            text: function (row) { return row.iphone; }
            title: qsTr("Téléphone")
            width: 0.09
        },
        TableColumn {
            id: smsColumn

            title: qsTr("Rappel SMS")
            width: 0.09
        }
    ]
    property alias sms: smsColumn

    /// The columns that have text cells.
    readonly property var ofTexts: select(function (column) { return column.text !== null; })
    /// The roles of all columns: [{name, empty}].
    readonly property var roles: listedRoles()

    // The mouse zones of a row: the tick from the left edge on, then the patient up to openZoneEnd.
    readonly property real tickZone: 0.05
    readonly property real openZoneEnd: 0.87
    /// How far the phone numbers extend beyond the patient's zone.
    readonly property real phoneBeyondOpenZone: 0.027

    function select(condition) {
        var found = [];
        var i;

        for (i = 0; i < all.length; ++i) {
            if (condition(all[i])) {
                found.push(all[i]);
            }
        }
        return found;
    }

    function listedRoles() {
        return select(function () { return true; }).reduce(function (found, column) {
            return found.concat(Object.keys(column.roles).map(function (name) {
                return { name: name, empty: column.roles[name] };
            }));
        }, []);
    }

    function placeColumns() {
        var left = gap + tickWidth;
        var i;

        for (i = 0; i < all.length; ++i) {
            all[i].left = left + gap;
            left = all[i].left + all[i].width;
        }
    }

    Component.onCompleted: placeColumns()
}
