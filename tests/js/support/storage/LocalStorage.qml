pragma Singleton
import QtQml 2.12

// Replaces the storage module: records the calls of the store and answers every query with `rows`.
QtObject {
    id: root

    property var journal: []
    property int openings: 0
    property string version: "1.3"
    /// The version that later openings find; undefined if it does not change.
    property var nextVersion
    property var rows: []
    /// If not empty, statements that begin with this text fail; "open" makes the opening fail.
    property string failing

    function write(line) {
        journal.push(line);
    }

    function openDatabaseSync() {
        write("open " + JSON.stringify(Array.prototype.slice.call(arguments)));
        if (failing === "open") {
            throw new Error("refused");
        }
        return {
            version: openings++ > 0 && nextVersion !== undefined ? nextVersion : root.version,
            transaction: function (work) {
                root.perform("transaction", work);
            },
            changeVersion: function (from, to, work) {
                root.perform("change from " + from + " to " + to, work);
            }
        };
    }

    function perform(what, work) {
        write(what);
        try {
            work({ executeSql: execute });
        } finally {
            write("end");
        }
    }

    function execute(statement, values) {
        var found = rows;

        write(statement + (values && values.length > 0 ? " " + JSON.stringify(values) : ""));
        if (failing !== "" && statement.indexOf(failing) === 0) {
            throw new Error("refused");
        }
        return {
            insertId: "7",
            rowsAffected: 1,
            rows: {
                length: found.length,
                item: function (index) {
                    return found[index];
                }
            }
        };
    }
}
