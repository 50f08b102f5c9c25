import QtQuick 2.2

// A test of the patient editor.
DocumentTestCase {
    property Item pane
    readonly property Item detail: pane ? pane.detail : null
    readonly property Item nameBar: pane ? pane.nameBar : null

    readonly property var keys: ["test", "rdv1", "confirmation", "rdv2", "rdv3"]
    readonly property var dates: ["test_date", "date1", "confirmation_date", "date2", "date3"]

    function prepare() {
        var component = Qt.createComponent("EditorPane.qml");

        compare(component.errorString(), "");
        pane = createTemporaryObject(component, stage);
    }

    /// Stores one patient with id 1 and these fields, and opens it.
    function openPatient(fields) {
        var record = { id: 1, name: "DUPONT Marie", genderMale: 1, phone: "0612", created: "2014-04-10",
                       notification_date: "2014-09-15" };
        var key;

        for (key in fields || {}) {
            record[key] = fields[key];
        }
        givenPatients([record]);
        detail.load("1", "");
        compare(detail.loaded, true);
    }

    /// Waits until every part has its target height: in the sum, a growing part can compensate a shrinking one.
    function rest() {
        tryVerify(function () {
            return parts().every(function (part) { return part.height === part.internalHeight; });
        });
        waitForItemPolished(fields().parent);
        waitForItemPolished(question("test").parent);
    }

    function parts() {
        return [fields(), sms()].concat(ofType(detail, "Question"), ofType(detail, "StepButton"));
    }

    function question(key) {
        return part(detail, "part " + key);
    }

    function gate(number) {
        return part(detail, "part gate" + number);
    }

    function fields() { return ofType(detail, "PatientFields")[0]; }
    function phone() { return named(detail, "Téléphone"); }
    function validate() { return part(detail, "part validate"); }
    function cancelButton() { return part(detail, "part cancel"); }
    function sms() { return ofType(detail, "SMSSend")[0]; }

    /// The ticked answer of a question: "Oui", "Non", "" or, on an error, "both".
    function answerOf(key) {
        var yes = question(key).yes.checked;
        var no = question(key).no.checked;

        return yes && no ? "both" : yes ? "Oui" : no ? "Non" : "";
    }

    function answers() {
        return keys.map(answerOf);
    }

    /// Clicks an answer; expands its question first.
    function answer(key, text) {
        rest();
        if (!question(key).checked) {
            mouseClick(question(key), 100, 30);
        }
        rest();
        click(named(question(key), text));
    }

    /// Ticks boxes without saving anything: {key: "Oui" or "Non"}.
    function show(ticks) {
        detail.loaded = false;
        keys.forEach(function (key) {
            question(key).yes.checked = ticks[key] === "Oui";
            question(key).no.checked = ticks[key] === "Non";
        });
        detail.loaded = true;
    }

    function gates() {
        return [detail.stepPassed, detail.step2Passed];
    }

    function displayed() {
        return keys.map(function (key) { return question(key).displayed; });
    }
}
