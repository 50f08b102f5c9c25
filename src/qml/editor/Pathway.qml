import QtQuick 2.2
import QtQuick.Controls 1.1
import ".."
import "../base"
import "../style"
import "../../js/Bdd.js" as Bdd

// The five questions of the pathway and its two gates.
Column {
    id: root

    /// Whether the questions are shown.
    property bool asking: false
    // A closed gate stays closed for the next patient, too: only a click confirms its condition.
    property bool stepPassed: true
    property bool step2Passed: true
    readonly property int internalHeight: firstMargin.height + testQuestion.internalHeight
                                          + rdv1Question.internalHeight + gate1.internalHeight
                                          + confirmationQuestion.internalHeight + rdv2Question.internalHeight
                                          + gate2.internalHeight + rdv3Question.internalHeight
    // In pathway order. A step's key is also the name of its flag.
    readonly property var steps: [
        { key: "test", date: "test_date", question: testQuestion },
        { key: "rdv1", date: "date1", question: rdv1Question },
        { key: "confirmation", date: "confirmation_date", question: confirmationQuestion },
        { key: "rdv2", date: "date2", question: rdv2Question },
        { key: "rdv3", date: "date3", question: rdv3Question }
    ]

    readonly property var questionsAndGates: [
        testQuestion, rdv1Question, gate1, confirmationQuestion, rdv2Question, gate2, rdv3Question
    ]

    /// The answer to the step of that key has changed.
    signal answered(string key)

    function questionOf(key) {
        return steps.filter(function (step) { return step.key === key; })[0].question;
    }

    /// Focuses the question or gate shown next after the question of that key; false when there is none.
    function focusAfter(key) {
        return focusFirst(questionsAndGates.slice(questionsAndGates.indexOf(questionOf(key)) + 1));
    }

    /// Focuses the expanded question, else the first one; false when none is shown.
    function focusCurrent() {
        return focusFirst(questionsAndGates.filter(function (part) { return part.checked; }))
               || focusFirst(questionsAndGates);
    }

    function focusFirst(parts) {
        var shown = parts.filter(function (part) { return part.displayed; });

        if (shown.length > 0) {
            shown[0].focusLink();
        }
        return shown.length > 0;
    }

    /// Expands the first question.
    function expandFirst() {
        testQuestion.checked = true;
    }

    /// Shows the answers of a patient record.
    function display(record) {
        var i;

        for (i = 0; i < steps.length; ++i) {
            displayStep(steps[i].question, record[steps[i].key], record[steps[i].date] || "");
        }
    }

    function displayStep(question, flag, date) {
        question.date = date;
        if (date === "") {
            question.yes.checked = false;
            question.no.checked = false;
        } else if (flag === 0) {
            question.no.checked = true;
        } else {
            question.yes.checked = true;
        }
    }

    /// Puts the answers, as flags and dates, into the data of a patient.
    function collect(data) {
        var i;

        for (i = 0; i < steps.length; ++i) {
            data[steps[i].key] = steps[i].question.yes.checked;
            data[steps[i].date] = steps[i].question.date;
        }
    }

    /// Dates the answer to the step of key q and discards every later answer. Returns q, or "" if the answer is not new.
    function recordAnswer(q) {
        var answered = "";
        var passed = false;
        var i;

        for (i = 0; i < steps.length; ++i) {
            if (passed) {
                steps[i].question.date = "";
                steps[i].question.changed = false;
            } else if (steps[i].key === q) {
                passed = true;
                if (steps[i].question.changed) {
                    steps[i].question.date = Bdd.formatDate(new Date());
                    steps[i].question.changed = false;
                    answered = q;
                }
            }
        }
        return answered;
    }

    function updateGates(q) {
        if (q === "test" || q === "rdv1") {
            // Closed first: a question behind the gate that is asked again must expand.
            stepPassed = false;
            stepPassed = q === "test" && testQuestion.yes.checked;
        }
        if (q !== "rdv3") {
            step2Passed = false;
        }
    }

    width: Metrics.widgetWidth

    ExclusiveGroup {
        id: expandedQuestion
    }

    Item {
        id: firstMargin

        height: testQuestion.displayed ? 1 : 0
        width: parent.width
    }

    Question {
        id: testQuestion

        checked: true
        displayed: root.asking
        exclusiveGroup: expandedQuestion
        objectName: "test"
        text: qsTr("Avez-vous pratiqué des tests cutanés sur le patient ?")

        onSaveIt: root.answered("test")
    }

    Question {
        id: rdv1Question

        displayed: testQuestion.displayed && testQuestion.no.checked
        exclusiveGroup: expandedQuestion
        objectName: "rdv1"
        text: qsTr("Le patient souhaite-t-il prendre rdv pour son bilan allergologique ?")

        onDisplayedChanged: if (displayed) checked = true
        onSaveIt: root.answered("rdv1")
    }

    StepButton {
        id: gate1

        displayed: root.asking && !root.stepPassed && rdv1Question.yes.checked
        objectName: "gate1"
        text: qsTr("Si vous avez les résultats du bilan,<br/>cliquez ici")

        onClicked: root.stepPassed = true
    }

    Question {
        id: confirmationQuestion

        displayed: root.asking && root.stepPassed
                   && (rdv1Question.displayed && rdv1Question.yes.checked
                       || testQuestion.displayed && testQuestion.yes.checked)
        exclusiveGroup: expandedQuestion
        objectName: "confirmation"
        text: qsTr("Confirmation de l'allergie au pollen de graminés ?")

        onDisplayedChanged: if (displayed) checked = true
        onSaveIt: root.answered("confirmation")
    }

    Question {
        id: rdv2Question

        displayed: root.asking && confirmationQuestion.displayed && confirmationQuestion.yes.checked
        exclusiveGroup: expandedQuestion
        objectName: "rdv2"
        text: qsTr("Le patient souhaite-t-il prendre rdv pour la première prise au cabinet ?")

        onDisplayedChanged: if (displayed) checked = true
        onSaveIt: root.answered("rdv2")
    }

    StepButton {
        id: gate2

        displayed: root.asking && !root.step2Passed && rdv2Question.yes.checked
        objectName: "gate2"
        text: qsTr("Si la 1<sup>ère</sup> prise au cabinet a été effectuée,<br/>cliquez ici")

        onClicked: root.step2Passed = true
    }

    Question {
        id: rdv3Question

        displayed: root.asking && root.step2Passed && rdv2Question.displayed && rdv2Question.yes.checked
        exclusiveGroup: expandedQuestion
        objectName: "rdv3"
        text: qsTr("Le patient souhaite-t-il prendre rdv pour son bilan de fin de saison ?")

        onDisplayedChanged: if (displayed) checked = true
        onSaveIt: root.answered("rdv3")
    }
}
