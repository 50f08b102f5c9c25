import QtQuick 2.2
import QtQuick.Window 2.2
import "base"
import "editor"
import "style"
import "../js/Bdd.js" as Bdd
import "../js/editor/EditorLogic.js" as EditorLogic

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
    /// Whether the store has no patient of `currentId`: the editor is then read-only.
    property bool missing: false
    /// Whether the last save could not be read back: `model` then has the previous reminder date.
    property bool reminderOutdated: false
    /// Whether the focused control has been hidden.
    readonly property bool focusLost: Window.activeFocusItem === root
    property alias stepPassed: pathway.stepPassed
    property alias step2Passed: pathway.step2Passed
    readonly property int internalHeight: fields.internalHeight + pathway.internalHeight + sms.internalHeight

    signal canceled
    signal needRefresh

    /// Shows the patient of that id, or a new one with that name when the id is null or "".
    function load(newId, name) {
        if (newId === null || newId === "") {
            showEmpty();
            loaded = true;
            nameStatus.name = name;
        } else {
            EditorLogic.read(newId, state);
        }
    }

    /// Shows a patient without data, not stored yet. Edits are ignored until `loaded` is set.
    function showEmpty() {
        loaded = false;
        missing = false;
        reminderOutdated = false;
        currentId = "";
        model = {};
        displayModel();
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
        showEmpty();
        pathway.expandFirst();
    }

    /// Stores the patient: after the answer to the step of key q, or, without a key, after an edit of the fields.
    function save(q) {
        if (loaded) {
            EditorLogic.save(q);
        }
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
            data.last = pathway.recordAnswer(q);
            pathway.updateGates(q);
        }
        pathway.collect(data);
        return data;
    }

    /// Deletes the stored patient and leaves the editor. No confirmation: the user has had to empty the name first.
    function remove() {
        if (loaded && currentId !== "") {
            Bdd.remove(currentId);
            needRefresh();
            fields.validateDisabled = true;
            state = "base";
        }
        canceled();
    }

    /// Discards unsaved changes: shows the stored patient again, or leaves the editor when there is none.
    function cancel() {
        if (currentId !== "") {
            EditorLogic.read(currentId, "base");
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

    /// YYYY-MM-DD of DD/MM/YYYY; "" for an empty text, and for a value that is not a text.
    function formatDate(d) {
        return typeof d === "string" && d !== "" ? d.split("/").reverse().join("-") : "";
    }

    /// Saves an answer. After one given by the keyboard, the next question or gate gets the focus.
    function answer(key) {
        var byKey = loaded && pathway.questionOf(key).answerFocused;

        save(key);
        if (byKey && loaded) {
            Qt.callLater(focusNext, key);
        }
    }

    function focusNext(key) {
        if ((pathway.questionOf(key).answerFocused || focusLost) && !pathway.focusAfter(key)) {
            sms.focusLink();
        }
    }

    function restoreFocus() {
        if (focusLost && !missing && !pathway.focusCurrent()) {
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
    onFocusLostChanged: if (focusLost) Qt.callLater(restoreFocus)
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
