.pragma library

// The reminder rules: the day on which a patient next needs attention, by the step answered last and the practice's
// seasons.

/// YYYY-MM-DD of a local date.
function formatDate(date) {
    return [date.getFullYear(), twoDigits(date.getMonth() + 1), twoDigits(date.getDate())].join("-");
}

function twoDigits(number) {
    return number < 10 ? "0" + number : "" + number;
}

/// The day of the first appointment from YYYY-MM-DD, or now for any other text. Year, month and day are set on today
/// one after another: on a 31st a February day comes out in March. The season of the reminder rules depends on that.
function getFirstRDVDateFromString(text) {
    var pieces = text.split("-");
    var date = new Date();

    if (pieces.length === 3) {
        date.setFullYear(parseInt(pieces[0], 10));
        date.setMonth(parseInt(pieces[1], 10) - 1);
        date.setDate(parseInt(pieces[2], 10));
    }
    return date;
}

/// The day of the next reminder after the answer to the step row.last, by the practice's seasons.
function reminderDate(row) {
    var firstAppointment = getFirstRDVDateFromString(row.created);

    switch (row.last) {
    case "test":
        // Falls through to the work-up: the answer has just cleared that step, so it reads as a "no".
    case "rdv1":
        return isYes(row.rdv1, row.date1) ? setNoNotif() : setRDV1Notif(firstAppointment);
    case "confirmation":
        return isYes(row.confirmation, row.confirmation_date) ? setRDV2Notif(firstAppointment) : setNoNotif();
    case "rdv2":
        return isYes(row.rdv2, row.date2) ? setRDV3Notif(firstAppointment) : setRDV2Notif(firstAppointment);
    case "rdv3":
        return isYes(row.rdv3, row.date3) ? setNoNotif() : setRDV3Notif(firstAppointment);
    default:
        return new Date();
    }
}

function isYes(flag, date) {
    return (flag === true || flag === 1) && date !== "";
}

/// End of the season of the first appointment: 15 September or 15 December of its year. In January and February nothing
/// is replaced: such a patient is waiting at once.
function setRDV1Notif(firstAppointment) {
    var month = firstAppointment.getMonth() + 1;

    if (month >= 3 && month <= 8) {
        return todayWith(9, 15, firstAppointment.getFullYear());
    }
    if (month >= 9) {
        return todayWith(12, 15, firstAppointment.getFullYear());
    }
    return new Date();
}

/// Before the first intake: 16 December of the year of the first appointment.
function setRDV2Notif(firstAppointment) {
    return todayWith(12, 16, firstAppointment.getFullYear());
}

/// The end-of-season review: 15 September of the year after the first appointment.
function setRDV3Notif(firstAppointment) {
    return todayWith(9, 15, firstAppointment.getFullYear() + 1);
}

/// In effect never: today's day in 2050.
function setNoNotif() {
    var date = new Date();

    date.setFullYear(2050);
    return date;
}

/// Now with its month, day and year replaced in this order, each normalised by the calendar as ECMAScript does: on a
/// 31st, September becomes October. Stored reminders were computed this way: the same answer must give the same day.
function todayWith(month, day, year) {
    var date = new Date();

    date.setMonth(month - 1);
    date.setDate(day);
    date.setFullYear(year);
    return date;
}
