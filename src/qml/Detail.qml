import QtQuick 2.2
import "base"
import "../js/Bdd.js" as Bdd

// The patient editor. A pathway answer is saved at once; name, gender and phone wait for the button.
Column {
    id: root

    property var model: ({})
    property string currentId
    property string externalName
    property bool externalGenderMale: true
    property var nameStatus
    property string notification_date
    property bool loaded: false
    property alias stepPassed: pathway.stepPassed
    property alias step2Passed: pathway.step2Passed
    readonly property int internalHeight: fields.internalHeight + pathway.internalHeight + sms.internalHeight

    signal canceled
    signal needRefresh

    /// Shows the patient of that id, or a new one with that name when the id is null or "".
    function load(newId, name) {
        if (newId === null || newId === "") {
            loaded = false;
            currentId = "";
            model = {};
            displayModel();
            loaded = true;
            nameStatus.name = name;
        } else {
            read(newId, state);
        }
    }

    /// Shows the stored patient of that id in that state; when the store throws, everything stays as it was.
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
        } catch (error) {
            currentId = before.id;
            state = before.state;
            loaded = before.loaded;
            throw error;
        }
    }

    /// Shows `model` in all fields and questions.
    function displayModel() {
        nameStatus.name = model.name || "";
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
        currentId = "";
        model = {};
        displayModel();
        pathway.unfoldFirst();
    }

    /// Stores the patient: after the answer to the step of key q, or without one for the fields.
    function save(q) {
        var gates = [stepPassed, step2Passed];
        var data;

        if (!loaded) {
            return;
        }
        fields.validateDisabled = true;
        data = buildData(q);
        try {
            if (currentId === "") {
                insert(data);
            } else {
                update(data);
            }
        } catch (error) {
            fields.validateDisabled = false;
            if (q) {
                stepPassed = gates[0];
                step2Passed = gates[1];
                dropAnswers();
            }
            throw error;
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

    function update(data) {
        data.id = currentId;
        Bdd.update(data, function () {
            cancel();
            needRefresh();
        });
        fields.validateDisabled = false;
        state = "base";
    }

    /// Takes back an answer that could not be stored: what is shown as answered is what is kept. Later, when the two
    /// boxes of the question have come to rest; until then nothing is saved.
    function dropAnswers() {
        loaded = false;
        Qt.callLater(function () {
            pathway.display(model);
            loaded = true;
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

    function edited() {
        if (loaded) {
            state = "buttons";
        }
    }

    state: "base"
    width: Metrics.widgetWidth

    onExternalGenderMaleChanged: edited()
    onExternalNameChanged: edited()
    Component.onCompleted: Bdd.init()

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

        onAnswered: root.save(key)
    }

    SMSSend {
        id: sms

        displayed: root.currentId !== ""
        width: parent.width
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
