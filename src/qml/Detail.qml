import QtQuick 2.2
import QtQuick.Window 2.2
import "base"
import "../js/Bdd.js" as Bdd

// The patient editor. A pathway answer is saved at once; name, gender and phone wait for the button.
FocusScope {
    id: root

    property var model: ({})
    property string currentId
    property string externalName
    property bool externalGenderMale: true
    property var nameStatus
    property string notification_date
    property bool loaded: false
    /// Whether the store has no patient of `currentId`: nothing can be changed then.
    property bool missing: false
    /// Whether `model` holds what was stored by a save and could not be read back, and so an old reminder date.
    property bool unread: false
    /// Whether the control that had the keyboard has gone.
    readonly property bool keyboardLost: Window.activeFocusItem === root
    property alias stepPassed: pathway.stepPassed
    property alias step2Passed: pathway.step2Passed
    readonly property int internalHeight: fields.internalHeight + pathway.internalHeight + sms.internalHeight

    signal canceled
    signal needRefresh

    /// Shows the patient of that id, or a new one with that name when the id is null or "".
    function load(newId, name) {
        if (newId === null || newId === "") {
            loaded = false;
            missing = false;
            unread = false;
            currentId = "";
            model = {};
            displayModel();
            loaded = true;
            nameStatus.name = name;
        } else {
            read(newId, state);
        }
    }

    /// Shows the stored patient of that id in that state. When the store throws, everything stays as it was; when it has
    /// no such patient, what is shown stays and can no longer be changed.
    function read(id, newState) {
        var before = { id: currentId, state: state, loaded: loaded };

        state = newState;
        loaded = false;
        currentId = id;
        try {
            Bdd.get(id, function (record) {
                model = record;
                displayModel();
                loaded = true;
            });
            missing = !loaded;
            unread = false;
        } catch (error) {
            currentId = before.id;
            state = before.state;
            loaded = before.loaded;
            throw error;
        }
        if (missing) {
            console.warn("The store has no such patient: the editor takes no answer.");
        }
    }

    /// Shows `model` in all fields and questions.
    function displayModel() {
        nameStatus.name = model.name || "";
        nameStatus.showBeginning();
        nameStatus.genderMale = !(model.genderMale === false || model.genderMale === 0);
        fields.phone = model.phone || "";
        fields.firstAppointment = model.created_format || getToday();
        notification_date = model.notification_date || "";
        pathway.display(model);
    }

    /// Empties the editor for the next patient.
    function reset() {
        state = "base";
        fields.validateDisabled = false;
        loaded = false;
        missing = false;
        unread = false;
        currentId = "";
        model = {};
        displayModel();
        pathway.unfoldFirst();
    }

    /// Stores the patient: after the answer to the step of key q, or without one for the fields.
    function save(q) {
        var gates = [stepPassed, step2Passed];

        if (!loaded) {
            return;
        }
        fields.validateDisabled = true;
        try {
            store(q);
        } catch (error) {
            fields.validateDisabled = false;
            if (q) {
                stepPassed = gates[0];
                step2Passed = gates[1];
                takeBack(model);
            }
            throw error;
        }
    }

    function store(q) {
        if (unread) {
            readReminder();
        }
        if (currentId === "") {
            insert(buildData(q));
        } else {
            update(buildData(q));
        }
    }

    function insert(data) {
        Bdd.insert(data, function (newId) {
            fields.validateDisabled = false;
            state = "base";
            currentId = newId;
            needRefresh();
        });
    }

    /// An error of the reading that follows the save is no failed save: what is shown is what is stored.
    function update(data) {
        var stored = false;

        data.id = currentId;
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
        state = "base";
    }

    /// Reads back what was stored; when that fails, remembers the data instead.
    function showStored(data) {
        try {
            cancel();
            if (missing) {
                takeBack({});
            }
        } catch (error) {
            model = toRecord(data, model);
            unread = true;
            throw error;
        } finally {
            needRefresh();
        }
    }

    /// Reads the reminder that the last save has moved, before the next save hands it on.
    function readReminder() {
        var found = false;

        Bdd.get(currentId, function (record) {
            found = true;
            model = record;
            notification_date = record.notification_date;
        });
        unread = false;
        loaded = found;
        missing = !found;
        if (missing) {
            throw new Error("The store has no such patient: the editor takes no answer.");
        }
    }

    /// The data of a save as a record; what they do not hold is that of the record before.
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

    /// Shows the answers of that record in place of one that was not stored: what is shown as answered is what is kept.
    /// Later, when the two boxes of the question have come to rest; until then nothing is saved.
    function takeBack(record) {
        loaded = false;
        Qt.callLater(function () {
            pathway.display(record);
            loaded = !missing;
        });
    }

    /// The record as the fields and questions show it, after the answer to the step of key q if there is one.
    function buildData(q) {
        var data = {
            name: externalName,
            genderMale: externalGenderMale,
            phone: fields.phone,
            created: formatDate(fields.firstAppointment),
            last: "",
            notification_date: notification_date
        };

        if (q) {
            data.last = pathway.takeAnswer(q);
            pathway.moveGates(q);
        }
        pathway.collect(data);
        return data;
    }

    /// Deletes the stored patient, without a question on purpose, and leaves the editor.
    function remove() {
        if (loaded && currentId !== "") {
            Bdd.remove(currentId);
            needRefresh();
            fields.validateDisabled = true;
            state = "base";
        }
        canceled();
    }

    /// Drops what is not saved: shows the stored patient again, or leaves the editor when there is none.
    function cancel() {
        if (currentId !== "") {
            read(currentId, "base");
        } else {
            state = "base";
            loaded = false;
            canceled();
        }
    }

    /// Today as DD/MM/YYYY.
    function getToday() {
        return Bdd.formatDate(new Date()).split("-").reverse().join("/");
    }

    /// YYYY-MM-DD of DD/MM/YYYY; "" for anything but a text that is not empty.
    function formatDate(d) {
        return typeof d === "string" && d !== "" ? d.split("/").reverse().join("-") : "";
    }

    /// Saves an answer. One given by the keyboard leads it on to what comes next.
    function answer(key) {
        var byKey = loaded && pathway.questionOf(key).answerFocused;

        save(key);
        if (byKey && loaded) {
            Qt.callLater(leadOn, key);
        }
    }

    function leadOn(key) {
        if ((pathway.questionOf(key).answerFocused || keyboardLost) && !pathway.focusAfter(key)) {
            sms.focusLink();
        }
    }

    function findKeyboard() {
        if (keyboardLost && !missing && !pathway.focusCurrent()) {
            fields.focusPhone();
        }
    }

    function edited() {
        if (loaded) {
            state = "buttons";
        }
    }

    height: parts.height
    state: "base"
    width: Metrics.widgetWidth

    onExternalGenderMaleChanged: edited()
    onExternalNameChanged: edited()
    onKeyboardLostChanged: if (keyboardLost) Qt.callLater(findKeyboard)
    Component.onCompleted: Bdd.init()

    Column {
        id: parts

        enabled: !root.missing
        opacity: enabled ? 1 : 0.4
        width: parent.width

        PatientFields {
            id: fields

            editing: root.state === "buttons"
            patientId: root.currentId
            patientName: root.externalName

            onCanceled: root.cancel()
            onPhoneChanged: root.edited()
            onValidated: root.currentId !== "" && root.externalName === "" ? root.remove() : root.save()
        }

        Pathway {
            id: pathway

            asking: root.state !== "buttons" && root.currentId !== ""

            onAnswered: root.answer(key)
        }

        SMSSend {
            id: sms

            displayed: root.currentId !== ""
            width: parent.width
        }
    }

    states: [
        State {
            name: "base"
        },
        State {
            name: "buttons"
        }
    ]
}
