// Reads and saves the patient of the editor. Runs in the scope of the document that imports it: its `root`, `fields`,
// `pathway` and `Bdd`.

/// Shows the stored patient of that id in that state. When the store throws, everything stays as it was; when it has no
/// such patient, what is shown stays and can no longer be changed.
function read(id, state) {
    var before = { id: root.currentId, state: root.state, loaded: root.loaded };

    root.state = state;
    root.loaded = false;
    root.currentId = id;
    try {
        Bdd.get(id, function (record) {
            root.model = record;
            root.displayModel();
            root.loaded = true;
        });
        root.missing = !root.loaded;
        root.reminderOutdated = false;
    } catch (error) {
        root.currentId = before.id;
        root.state = before.state;
        root.loaded = before.loaded;
        throw error;
    }
    if (root.missing) {
        console.warn("The store has no such patient: the editor takes no answer.");
        if (root.currentId === before.id) {
            restoreAnswers({});
        }
    }
}

/// Stores what the editor shows. When the store throws, an answer is taken back and the button works again.
function save(q) {
    var gates = [root.stepPassed, root.step2Passed];

    fields.validateDisabled = true;
    try {
        store(q);
    } catch (error) {
        fields.validateDisabled = false;
        if (q) {
            root.stepPassed = gates[0];
            root.step2Passed = gates[1];
            restoreAnswers(root.model);
        }
        if (root.missing) {
            root.state = "base";
            restoreAnswers({});
            root.needRefresh();
        }
        throw error;
    }
}

function store(q) {
    if (root.reminderOutdated) {
        readReminder();
    }
    if (root.currentId === "") {
        insert(root.buildData(q));
    } else {
        update(root.buildData(q));
    }
}

function insert(data) {
    Bdd.insert(data, function (newId) {
        fields.validateDisabled = false;
        root.state = "base";
        root.currentId = newId;
        root.needRefresh();
    });
}

/// An error while reading back is not a failed save: what is shown is stored.
function update(data) {
    var stored = false;

    data.id = root.currentId;
    try {
        Bdd.update(data, function () {
            stored = true;
            showStored(data);
        });
    } catch (error) {
        if (!stored) {
            throw error;
        }
        console.warn("Stored, but not read back: " + error.message);
    }
    fields.validateDisabled = false;
    root.state = "base";
}

/// Reads back what was stored; when that fails, remembers the data instead.
function showStored(data) {
    try {
        root.cancel();
    } catch (error) {
        root.model = toRecord(data, root.model);
        root.reminderOutdated = true;
        throw error;
    } finally {
        root.needRefresh();
    }
}

/// Reads the reminder that the last save has moved: the next save writes it again.
function readReminder() {
    var found = false;

    Bdd.get(root.currentId, function (record) {
        found = true;
        root.model = record;
        root.notification_date = record.notification_date;
    });
    root.reminderOutdated = false;
    root.loaded = found;
    root.missing = !found;
    if (!found) {
        throw new Error("The store has no such patient: the editor takes no answer.");
    }
}

/// The data of a save as a record; values that the data lack come from the record `before`.
function toRecord(data, before) {
    var record = {};

    [before, data].forEach(function (source) {
        var key;

        for (key in source) {
            record[key] = typeof source[key] === "boolean" ? Number(source[key]) : source[key];
        }
    });
    return record;
}

/// Shows the answers of that record in place of the one that was not stored. Deferred until both boxes of the question
/// have changed; until then nothing is saved.
function restoreAnswers(record) {
    var id = root.currentId;

    root.loaded = false;
    Qt.callLater(function () {
        // Another patient may have been opened since.
        if (root.currentId === id) {
            pathway.display(record);
            root.loaded = !root.missing;
        }
    });
}
