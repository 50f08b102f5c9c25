// The patient store. Each document that imports this script has its own instance; all of them open the same database.
.import "pathway/ReminderRules.js" as ReminderRules
.import "store/PatientRecord.js" as PatientRecord
.import "store/Storage.js" as Storage

var opened = false;

/// Opens the database for this instance; then, at every call, calls callback(). Throws when the database cannot be
/// opened; the next operation tries again.
function init(callback) {
    opened = true;
    Storage.open();
    if (callback) {
        callback();
    }
}

/// Runs work(tx), which only reads, in one transaction.
function read(work) {
    if (opened) {
        Storage.open().transaction(function (tx) {
            Storage.noticeNewColumns(tx);
            work(tx);
        });
    }
}

/// Runs one writing statement and calls done(result) once it is safely stored.
///
/// It executes COMMIT itself: the storage module neither rolls back after an exception nor reports a commit that fails
/// (another process reads the file, the disk is full), and the answer would be lost in silence.
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

/// The module binds "" as NULL, which the name's column refuses. An empty slice of another text is bound as a text.
function bindable(value) {
    return value === "" ? " ".slice(1) : value;
}

/// The head shared by every read of patient records.
function recordHead() {
    return "SELECT *, strftime(\"%d/%m/%Y\", created) AS created_format, "
           + "(" + waitingRule() + ") AS waiting FROM `Patients`";
}

/// The rule of waiting, as an SQL expression. date("now") is the day in UTC, written dates are local: near midnight a
/// reminder may count a day early or late. The counts, the list and a record's `waiting` compare alike and therefore
/// agree.
function waitingRule() {
    return "notification_date <= date(\"now\") AND notification_date != \"\"";
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

    // Before the check: a patient inserted before init() is not stored, and this line is the only trace.
    console.debug("Insert called");
    if (!opened) {
        return;
    }
    row = securiseData(data);
    row.notification_date = formatDate(new Date());
    write("INSERT INTO `Patients` (`genderMale`, `name`, `phone`, `created`, `test`, `test_date`, `rdv1`, `date1`, "
          + "`confirmation`, `confirmation_date`, `rdv2`, `date2`, `rdv3`, `date3`, `notification_date`) "
          + "VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
          [row.genderMale, row.name, row.phone, row.created].concat(PatientRecord.pathwayValues(row)),
          function (result) {
              if (callback) {
                  callback(result.insertId);
              }
          });
}

/// Stores the data of patient data.id and moves the reminder by the step named in data.last; callback().
/// `created` is left out: the reminder rules count from the first appointment, which is fixed once the record exists.
function update(data, callback) {
    var row;

    if (!opened) {
        return;
    }
    // After the check: here the line means that a statement runs.
    console.debug("Update called");
    row = securiseData(data);
    if (row.last !== "") {
        row.notification_date = formatDate(ReminderRules.reminderDate(row));
    }
    write("UPDATE `Patients` SET `genderMale` = ?, `name` = ?, `phone` = ?, `test` = ?, `test_date` = ?, "
          + "`rdv1` = ?, `date1` = ?, `confirmation` = ?, `confirmation_date` = ?, `rdv2` = ?, `date2` = ?, "
          + "`rdv3` = ?, `date3` = ?, `notification_date` = ? WHERE id = ?",
          [row.genderMale, row.name, row.phone].concat(PatientRecord.pathwayValues(row), [row.id]),
          function () {
              if (callback) {
                  callback();
              }
          });
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
    readCount("SELECT COUNT(*) AS count FROM `Patients` WHERE " + waitingRule(), callback);
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
                                               + "FROM `Patients` WHERE " + waitingRule() + " ORDER BY name")));
    });
}

function toRecords(result) {
    return PatientRecord.fromRows(Storage.toArray(result));
}

/// A copy of the row with "" in place of every NULL.
function removeNullValues(row) {
    return PatientRecord.removeNullValues(row);
}

/// Only the known keys of the data, each with its default where it is absent or null.
function securiseData(data) {
    return PatientRecord.securiseData(data);
}

/// YYYY-MM-DD of a local date.
function formatDate(date) {
    return ReminderRules.formatDate(date);
}

/// The day of the first appointment from YYYY-MM-DD, or now for any other text.
function getFirstRDVDateFromString(text) {
    return ReminderRules.getFirstRDVDateFromString(text);
}
