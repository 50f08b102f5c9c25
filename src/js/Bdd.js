// The patient store. Each document that imports this script has its own instance; all of them open the same database.
.import "Storage.js" as Storage

var opened = false;

/// The sixteen columns, `created_format` and `waiting`.
var recordKeys = 18;

/// Opens the database for this instance; then, at every call, calls callback(). Throws when the database cannot be
/// opened; the next operation tries again.
function init(callback) {
    opened = true;
    Storage.open();
    if (callback) {
        callback();
    }
}

/// Runs work(tx), which reads, in one transaction.
function read(work) {
    if (opened) {
        Storage.open().transaction(work);
    }
}

/// Runs one writing statement and calls done(result) once it is safely stored.
///
/// The commit is made here and not left to the storage module: the module rolls back neither on an exception nor tells
/// of a commit that fails (another process reads the file, the disk is full), and the answer would be lost in silence.
function write(statement, values, done) {
    Storage.open().transaction(function (tx) {
        var result;

        try {
            result = tx.executeSql(statement, values.map(bindable));
            tx.executeSql("COMMIT");
        } catch (error) {
            Storage.rollBack(tx);
            throw error;
        }
        if (done) {
            done(result);
        }
    });
}

/// The module binds an empty text as NULL, which the name must not be; only one that was cut from another stays a text.
function bindable(value) {
    return value === "" ? " ".slice(1) : value;
}

/// The head shared by every read of patient records.
function recordHead() {
    return "SELECT *, strftime(\"%d/%m/%Y\", created) AS created_format, "
           + "(notification_date <= date(\"now\") AND notification_date != \"\") AS waiting FROM `Patients`";
}

/// The rule of waiting. date("now") is UTC's day while written dates are local ones: kept, so near midnight a reminder
/// may count a day early or late.
function waitingCondition() {
    return " WHERE notification_date <= date(\"now\") AND notification_date != \"\"";
}

/// With a filter: callback({startsWith, contains}), both arrays of records in name order. "%" and "_" in the filter are
/// wildcards. Without: callback(array of all records in name order).
function select(filter, callback) {
    read(function (tx) {
        var head = recordHead();
        var found;

        if (filter) {
            found = {
                startsWith: toRecords(tx.executeSql(head + " WHERE `name` LIKE ? ORDER BY name", [filter + "%"])),
                contains: toRecords(tx.executeSql(head + " WHERE `name` LIKE ? AND `name` NOT LIKE ? ORDER BY name",
                                                  ["%" + filter + "%", filter + "%"]))
            };
        } else {
            found = toRecords(tx.executeSql(head + " ORDER BY name"));
        }
        callback(found);
    });
}

/// callback(record) for the row of that id; no callback when there is none.
function get(id, callback) {
    read(function (tx) {
        var records = toRecords(tx.executeSql(recordHead() + " WHERE `id` = ?", [id]));

        if (records.length > 0) {
            callback(records[0]);
        }
    });
}

/// Stores a new patient, waiting from today on whatever reminder date the data hold; callback(id of the new row).
function insert(data, callback) {
    var row;

    console.debug("Insert called");
    if (!opened) {
        return;
    }
    row = securiseData(data);
    row.notification_date = formatDate(new Date());
    write("INSERT INTO `Patients` (`genderMale`, `name`, `phone`, `created`, `test`, `test_date`, `rdv1`, `date1`, "
          + "`confirmation`, `confirmation_date`, `rdv2`, `date2`, `rdv3`, `date3`, `notification_date`) "
          + "VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
          [row.genderMale, row.name, row.phone, row.created].concat(pathwayValues(row)),
          function (result) {
              if (callback) {
                  callback(result.insertId);
              }
          });
}

/// Stores the data of patient data.id and moves the reminder by the step named in data.last; callback().
/// `created` is left out on purpose: the day of the first appointment is fixed once the record exists.
function update(data, callback) {
    var row;

    if (!opened) {
        return;
    }
    console.debug("Update called");
    row = securiseData(data);
    if (row.last !== "") {
        row.notification_date = formatDate(reminderDate(row));
    }
    write("UPDATE `Patients` SET `genderMale` = ?, `name` = ?, `phone` = ?, `test` = ?, `test_date` = ?, "
          + "`rdv1` = ?, `date1` = ?, `confirmation` = ?, `confirmation_date` = ?, `rdv2` = ?, `date2` = ?, "
          + "`rdv3` = ?, `date3` = ?, `notification_date` = ? WHERE id = ?",
          [row.genderMale, row.name, row.phone].concat(pathwayValues(row), [row.id]),
          function () {
              if (callback) {
                  callback();
              }
          });
}

/// The five steps and the reminder date, in the order in which both writing statements name them.
function pathwayValues(row) {
    return [row.test, row.test_date, row.rdv1, row.date1, row.confirmation, row.confirmation_date,
            row.rdv2, row.date2, row.rdv3, row.date3, row.notification_date];
}

/// Deletes the patient of that id.
function remove(id) {
    if (opened) {
        write("DELETE FROM `Patients` WHERE id = ?", [id]);
    }
}

/// Deletes all patients of an array of ids in one statement: all of them or, when it fails, none. Nothing for [].
function removeList(ids) {
    var statement = "DELETE FROM `Patients` WHERE id = ?";
    var i;

    if (!opened || ids.length === 0) {
        return;
    }
    for (i = 1; i < ids.length; ++i) {
        statement += " OR id = ?";
    }
    write(statement, ids);
}

/// callback(row) with row.count waiting patients.
function getWaitingNumber(callback) {
    readCount("SELECT COUNT(*) AS count FROM `Patients`" + waitingCondition(), callback);
}

/// callback(row) with row.count patients.
function getNumber(callback) {
    readCount("SELECT COUNT(*) AS count FROM `Patients`", callback);
}

function readCount(statement, callback) {
    read(function (tx) {
        var rows = Storage.toArray(tx.executeSql(statement));

        if (rows.length === 1) {
            callback(rows[0]);
        }
    });
}

/// callback(array of the waiting patients' rows in name order): raw rows, whose NULLs stay NULL and which have no
/// `waiting`, since all of them are.
function selectWaiting(callback) {
    read(function (tx) {
        callback(Storage.toArray(tx.executeSql("SELECT *, strftime(\"%d/%m/%Y\", created) AS created_format "
                                               + "FROM `Patients`" + waitingCondition() + " ORDER BY name")));
    });
}

/// The records of a result. Most rows have no NULL, and copying each of them property by property took a third of the
/// time of a list; a database of a later version may have a NULL in columns that are not known here.
function toRecords(result) {
    var rows = Storage.toArray(result);
    var known = rows.length > 0 && Object.keys(rows[0]).length === recordKeys;

    return rows.map(function (row) {
        return known && !hasNull(row) ? row : removeNullValues(row);
    });
}

/// `id`, `genderMale` and `name` are never NULL; `created` and `waiting` only beside a NULL that is asked for here.
function hasNull(row) {
    return row.phone === null || row.created_format === null || row.test === null || row.test_date === null
           || row.rdv1 === null || row.date1 === null || row.confirmation === null || row.confirmation_date === null
           || row.rdv2 === null || row.date2 === null || row.rdv3 === null || row.date3 === null
           || row.notification_date === null;
}

/// A copy of the row with "" in place of every NULL.
function removeNullValues(row) {
    var copy = {};
    var key;

    for (key in row) {
        copy[key] = row[key] === null ? "" : row[key];
    }
    return copy;
}

/// Only the known keys of the data, each with its default where it is absent or null. `last` is no column: it names the
/// step just answered.
function securiseData(data) {
    var defaults = {
        id: "", genderMale: true, name: "", created: "", phone: "",
        test: 0, test_date: "", rdv1: 0, date1: "", confirmation: 0, confirmation_date: "",
        rdv2: 0, date2: "", rdv3: 0, date3: "", notification_date: "", last: ""
    };
    var row = {};
    var key;

    for (key in defaults) {
        row[key] = data[key] === undefined || data[key] === null ? defaults[key] : data[key];
    }
    return row;
}

/// YYYY-MM-DD of a local date.
function formatDate(date) {
    return [date.getFullYear(), twoDigits(date.getMonth() + 1), twoDigits(date.getDate())].join("-");
}

function twoDigits(number) {
    return number < 10 ? "0" + number : "" + number;
}

/// The day of the first appointment from YYYY-MM-DD, or now for any other text. Year, month and day are set on today
/// one after another: on a 31st a February day comes out in March. Kept, the season of the reminder rules counts on it.
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
        // Runs on into the work-up, on purpose: the answer has just cleared that step, so it reads as a "no".
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

/// Now with its month, day and year replaced in this order, each normalised by the calendar as ECMAScript does: asked
/// for September on a 31st, it gives October. Kept.
function todayWith(month, day, year) {
    var date = new Date();

    date.setMonth(month - 1);
    date.setDate(day);
    date.setFullYear(year);
    return date;
}
