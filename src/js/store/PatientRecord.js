.pragma library

// Patient records: as the store returns them, made from the rows of its table, and as it accepts them for storing.

/// The sixteen columns, `created_format` and `waiting`.
var keyCount = 18;

/// The records of rows: "" in place of every NULL. Most rows have no NULL, and copying each of them property by property
/// took a third of the time of a list; a database of a later version may have a NULL in columns that are unknown here.
function fromRows(rows) {
    var known = rows.length > 0 && Object.keys(rows[0]).length === keyCount;

    return rows.map(function (row) {
        return known && !hasNull(row) ? row : removeNullValues(row);
    });
}

/// `id`, `genderMale` and `name` are never NULL. `created` is NULL only together with `created_format`, `waiting` only
/// together with `notification_date`.
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

/// The five steps and the reminder date, in the order in which both writing statements name them.
function pathwayValues(row) {
    return [row.test, row.test_date, row.rdv1, row.date1, row.confirmation, row.confirmation_date,
            row.rdv2, row.date2, row.rdv3, row.date3, row.notification_date];
}
