.pragma library

// Text and emphasis of the five step cells of a row (a PatientTableRow) of the patient list. The printed report has
// rules of its own: it hides the answers after the first open or refused step, the list shows every given answer.

function isGiven(date) {
    return date !== "" && date !== null && date !== undefined;
}

function answer(flag) {
    return flag === 1 ? qsTr("Oui") : qsTr("Non");
}

/// Skin tests.
function testText(row) {
    return isGiven(row.itest_date) ? answer(row.itest) : "?";
}

function isTestEmphasised(row) {
    return !isGiven(row.itest_date);
}

/// Work-up appointment: positive skin tests skip it.
function workUpText(row) {
    if (isGiven(row.idate1)) {
        return answer(row.irdv1);
    }
    if (!isGiven(row.itest_date)) {
        return "";
    }
    return row.itest === 1 ? "-" : "?";
}

function isWorkUpEmphasised(row, text) {
    return (!isGiven(row.idate1) || row.irdv1 === 0) && text !== "-";
}

/// Confirmation of the allergy: the next question after a wanted or a skipped work-up.
function allergyText(row) {
    var workUp;

    if (isGiven(row.iconfirmation_date)) {
        return answer(row.iconfirmation);
    }
    workUp = workUpText(row);
    return workUp === qsTr("Oui") || workUp === "-" ? "?" : "";
}

/// Unlike with the appointments, a "Non" is not emphasised, here and in the skin tests.
function isAllergyEmphasised(row, text) {
    return text === "?";
}

/// First intake: the next question after a confirmed allergy.
function firstIntakeText(row) {
    return appointmentText(row.idate2, row.irdv2, allergyText, row);
}

function isFirstIntakeEmphasised(row) {
    return !isGiven(row.idate2) || row.irdv2 === 0;
}

/// End-of-season review: the next question after a wanted first intake.
function reviewText(row) {
    return appointmentText(row.idate3, row.irdv3, firstIntakeText, row);
}

function isReviewEmphasised(row) {
    return !isGiven(row.idate3) || row.irdv3 === 0;
}

function appointmentText(date, flag, previousText, row) {
    if (isGiven(date)) {
        return answer(flag);
    }
    return previousText(row) === qsTr("Oui") ? "?" : "";
}
