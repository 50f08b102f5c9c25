.pragma library
.import QtQuick.LocalStorage 2.0 as Sql

// Opens the database, once for each window: all store instances of a window use what the first of them opened.

var database = null;

/// How long a statement waits for a locked file. The window is frozen meanwhile.
var waitMs = 1000;

/// The open database with its table at schema version "1.3". Throws when it cannot be opened or its
/// table cannot be created; the next call tries again.
function open() {
    var opened;

    if (database === null) {
        opened = openFile();
        prepare(opened);
        database = opened;
    }
    return database;
}

function openFile() {
    return Sql.LocalStorage.openDatabaseSync("Tandry", "", "Tandry widget storage", 500000);
}

/// Brings the database up to date, unless another window of this process has. Only the first attempt of a process waits
/// for a file that another process has locked; otherwise every window would freeze in turn.
function prepare(database) {
    var tried = run(database, "PRAGMA busy_timeout").some(function (row) {
        return row.timeout === waitMs;
    });

    try {
        limitWaiting(database, tried ? 0 : waitMs);
        if (!isPrepared(database)) {
            migrate(database);
            createTable(database);
            markPrepared(database);
        }
    } finally {
        limitWaiting(database, waitMs);
    }
}

/// Limits the time that a statement waits for a file locked by another process.
function limitWaiting(database, ms) {
    run(database, "PRAGMA busy_timeout = " + ms);
}

/// Whether a window of this process has brought the database up to date. All windows share one connection, and its
/// temporary schema, which ends with the process, holds the mark. Without the mark, a version record lost while the
/// program runs would delete all patients as soon as the next window opened.
function isPrepared(database) {
    return run(database, "PRAGMA temp.user_version").some(function (row) {
        return row.user_version === 1;
    });
}

function markPrepared(database) {
    run(database, "PRAGMA temp.user_version = 1");
}

function migrate(database) {
    var version = database.version;

    if (version === "1.0" || version === "1.1" || version === "1.2") {
        // A migration that was cut short may have dropped the table already, and then there is nothing to drop.
        if (!hasTable(database)) {
            createTable(database);
        }
        // Intended: patients of an older schema are dropped, because they cannot be converted.
        startOver(database, version, "DROP TABLE `Patients`");
    } else if (version === "") {
        startOver(database, "", "DROP TABLE IF EXISTS `Patients`");
    }
}

/// Changes the version to the current one. When the statement fails the transaction is ended here: the module, which
/// would record the new version all the same, then fails to commit and leaves the old one to the next start.
function startOver(database, version, statement) {
    var overtaken = false;

    warnOfLoss(database, version);
    try {
        database.changeVersion(version, "1.3", function (tx) {
            try {
                tx.executeSql(statement);
                // The statement now holds the file. A copy of the program that was started at the same moment may have
                // recorded the new version since, and have stored a patient.
                overtaken = openFile().version !== version;
                if (overtaken) {
                    rollBack(tx);
                }
            } catch (error) {
                rollBack(tx);
                throw error;
            }
        });
    } catch (error) {
        // The module cannot commit what was rolled back. If another start has migrated, nothing is left to do.
        if (!overtaken) {
            throw error;
        }
    }
}

function warnOfLoss(database, version) {
    if (hasTable(database)) {
        console.warn("Database of version \"" + version + "\": its patients are dropped, in number "
                     + run(database, "SELECT COUNT(*) AS count FROM `Patients`")[0].count + ".");
    }
}

function hasTable(database) {
    return run(database, "SELECT name FROM sqlite_master WHERE type = 'table' AND name = 'Patients'").length > 0;
}

function createTable(database) {
    run(database, "CREATE TABLE IF NOT EXISTS `Patients`(`id` INTEGER PRIMARY KEY AUTOINCREMENT,"
                  + "`genderMale` tinyint(1) NOT NULL DEFAULT \"0\",`name` TEXT COLLATE NOCASE NOT NULL,"
                  + "`phone` TEXT DEFAULT \"\",`created` date,"
                  + "`test` tinyint(1) DEFAULT 0,`test_date` date DEFAULT \"\","
                  + "`rdv1` tinyint(1) DEFAULT 0,`date1` date DEFAULT \"\","
                  + "`confirmation` tinyint(1) DEFAULT 0,`confirmation_date` date DEFAULT \"\","
                  + "`rdv2` tinyint(1) DEFAULT 0,`date2` date DEFAULT \"\","
                  + "`rdv3` tinyint(1) DEFAULT 0,`date3` date DEFAULT \"\","
                  + "`notification_date` date DEFAULT \"\")");
}

/// To be called before reading whole rows: reads the schema again if another program has changed it, a later version
/// for one. A statement that finds a new column only when it runs makes Qt's driver write beyond the end of its row and
/// crash; this one has the same single column before and after.
function noticeNewColumns(tx) {
    tx.executeSql("SELECT 1 FROM sqlite_master LIMIT 0");
}

/// Runs one statement in a transaction of its own; its rows.
function run(database, statement) {
    var rows = [];

    database.transaction(function (tx) {
        rows = toArray(tx.executeSql(statement));
    });
    return rows;
}

/// All rows of a result. `length` is read once: a result that is not read to its end keeps a lock.
function toArray(result) {
    var rows = result.rows;
    var count = rows.length;
    var list = [];
    var i;

    for (i = 0; i < count; ++i) {
        list.push(rows.item(i));
    }
    return list;
}

function rollBack(tx) {
    try {
        tx.executeSql("ROLLBACK");
    } catch (error) {
        // SQLite has already rolled back by itself (a full disk, for one): nothing is left to undo.
        console.debug(error.message);
    }
}
