// Fills and edits the patient list. Runs in the scope of the document that imports it: its `model`, `root`,
// `checkboxAll` and `Bdd`.

/// Reads the number of waiting patients into the root's `number`.
function init() {
    Bdd.getWaitingNumber(function (row) {
        root.number = row.count;
    });
}

/// Shows all patients.
function showAll() {
    model.clear();
    Bdd.select("", show);
}

/// Shows the waiting patients.
function showWaiting() {
    model.clear();
    Bdd.selectWaiting(show);
}

function show(patients) {
    var i;

    for (i = 0; i < patients.length; ++i) {
        patients[i].checked = false;
    }
    model.append(patients);
    root.printModel = patients;
    // The rows have just come in without a tick.
    if (checkboxAll.checked) {
        checkAll(true);
    }
}

/// Deletes the ticked patients, without confirmation. Emits both signals even when none is ticked: the bin then brings
/// every window up to date with the store.
function deleteChecked() {
    var ids = [];
    var i;

    for (i = 0; i < model.count; ++i) {
        if (model.get(i).checked) {
            ids.push(model.get(i).id);
        }
    }
    try {
        Bdd.removeList(ids);
    } catch (error) {
        console.warn("Ticked patients: " + ids.length + ". None was deleted.");
        throw error;
    }
    root.needRefresh();
    root.removedPatients(ids);
}

/// Ticks or unticks every row.
function checkAll(state) {
    var i;

    for (i = 0; i < model.count; ++i) {
        checkIt(i, state);
    }
}

/// Ticks or unticks the row at that index.
function checkIt(index, state) {
    model.setProperty(index, "checked", state);
}
