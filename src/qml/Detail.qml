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
            EditorLogic.read(newId, state);
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
        pathway.expandFirst();
    }

    /// Stores the patient: after the answer to the step of key q, or without one for the fields.
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
