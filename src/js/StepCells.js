.pragma library

// What the five step cells of the patient list say and when they are emphasised. The printed report has rules of its
// own and hides answers that an earlier step would not lead to; the list shows every given answer, on purpose.

function isGiven(date) {
    return date !== "" && date !== null && date !== undefined;
}

function answer(flag) {
    return flag === 1 ? qsTr("Oui") : qsTr("Non");
}

/// Skin tests.
function testText(date, flag) {
    return isGiven(date) ? answer(flag) : "?";
}

function isTestEmphasised(date) {
    return !isGiven(date);
}

/// Work-up appointment: positive skin tests skip it.
function workUpText(date, flag, testDate, test) {
    if (isGiven(date)) {
        return answer(flag);
    }
    if (!isGiven(testDate)) {
        return "";
    }
    return test === 1 ? "-" : "?";
}

function isWorkUpEmphasised(date, flag, text) {
    return (!isGiven(date) || flag === 0) && text !== "-";
}

/// Confirmation of the allergy, asked for after a wanted or a skipped work-up.
function allergyText(date, flag, workUp) {
    if (isGiven(date)) {
        return answer(flag);
    }
    return workUp === qsTr("Oui") || workUp === "-" ? "?" : "";
}

/// Unlike the appointments, a "Non" is no reason to emphasise here or in the skin tests.
function isAllergyEmphasised(text) {
    return text === "?";
}

/// First intake and end-of-season review: both are asked for after a "Oui" in the cell before.
function appointmentText(date, flag, previous) {
    if (isGiven(date)) {
        return answer(flag);
    }
    return previous === qsTr("Oui") ? "?" : "";
}

function isAppointmentEmphasised(date, flag) {
    return !isGiven(date) || flag === 0;
}
