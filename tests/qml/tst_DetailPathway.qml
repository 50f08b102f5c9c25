import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 820

    EditorTestCase {
        name: "DetailPathway"
        stage: desk
        when: windowShown

        // shown: the five questions, gate 1, gate 2.
        function test_answers_and_gates_decide_which_parts_are_displayed_data() {
            return [
                { tag: "nothing answered", ticks: {}, gates: [true, true], shown: [1, 0, 0, 0, 0, 0, 0] },
                { tag: "nothing answered, gates closed", ticks: {}, gates: [false, false],
                  shown: [1, 0, 0, 0, 0, 0, 0] },
                { tag: "tests refused", ticks: { test: "Non" }, gates: [true, true], shown: [1, 1, 0, 0, 0, 0, 0] },
                { tag: "work-up accepted, gate 1 closed", ticks: { test: "Non", rdv1: "Oui" }, gates: [false, false],
                  shown: [1, 1, 0, 0, 0, 1, 0] },
                { tag: "work-up accepted, gate 1 open", ticks: { test: "Non", rdv1: "Oui" }, gates: [true, false],
                  shown: [1, 1, 1, 0, 0, 0, 0] },
                { tag: "work-up refused", ticks: { test: "Non", rdv1: "Non" }, gates: [false, false],
                  shown: [1, 1, 0, 0, 0, 0, 0] },
                { tag: "work-up refused, gate 1 open", ticks: { test: "Non", rdv1: "Non" }, gates: [true, true],
                  shown: [1, 1, 0, 0, 0, 0, 0] },
                { tag: "tests made", ticks: { test: "Oui" }, gates: [true, false], shown: [1, 0, 1, 0, 0, 0, 0] },
                { tag: "tests made, gate 1 closed", ticks: { test: "Oui" }, gates: [false, false],
                  shown: [1, 0, 0, 0, 0, 0, 0] },
                { tag: "tests made, old work-up, gate 1 closed", ticks: { test: "Oui", rdv1: "Oui" },
                  gates: [false, true], shown: [1, 0, 0, 0, 0, 1, 0] },
                { tag: "allergy confirmed", ticks: { test: "Oui", confirmation: "Oui" }, gates: [true, false],
                  shown: [1, 0, 1, 1, 0, 0, 0] },
                { tag: "allergy not confirmed", ticks: { test: "Oui", confirmation: "Non" }, gates: [true, false],
                  shown: [1, 0, 1, 0, 0, 0, 0] },
                { tag: "confirmed after the work-up", ticks: { test: "Non", rdv1: "Oui", confirmation: "Oui" },
                  gates: [true, true], shown: [1, 1, 1, 1, 0, 0, 0] },
                { tag: "intake accepted, gate 2 closed", ticks: { test: "Oui", confirmation: "Oui", rdv2: "Oui" },
                  gates: [true, false], shown: [1, 0, 1, 1, 0, 0, 1] },
                { tag: "intake accepted, gate 2 open", ticks: { test: "Oui", confirmation: "Oui", rdv2: "Oui" },
                  gates: [true, true], shown: [1, 0, 1, 1, 1, 0, 0] },
                { tag: "intake refused", ticks: { test: "Oui", confirmation: "Oui", rdv2: "Non" },
                  gates: [true, true], shown: [1, 0, 1, 1, 0, 0, 0] },
                { tag: "intake refused, gate 2 closed", ticks: { test: "Oui", confirmation: "Oui", rdv2: "Non" },
                  gates: [true, false], shown: [1, 0, 1, 1, 0, 0, 0] },
                { tag: "old intake behind no confirmation", ticks: { test: "Oui", confirmation: "Non", rdv2: "Oui" },
                  gates: [true, true], shown: [1, 0, 1, 0, 0, 0, 0] },
                { tag: "old intake behind no confirmation, gate 2 closed",
                  ticks: { test: "Oui", confirmation: "Non", rdv2: "Oui" }, gates: [true, false],
                  shown: [1, 0, 1, 0, 0, 0, 1] },
                { tag: "review answered",
                  ticks: { test: "Oui", confirmation: "Oui", rdv2: "Oui", rdv3: "Oui" }, gates: [true, true],
                  shown: [1, 0, 1, 1, 1, 0, 0] },
                { tag: "everything, while editing",
                  ticks: { test: "Non", rdv1: "Oui", confirmation: "Oui", rdv2: "Oui", rdv3: "Oui" },
                  gates: [false, false], edit: true, shown: [0, 0, 0, 0, 0, 0, 0] },
                { tag: "everything, gates open, while editing",
                  ticks: { test: "Oui", confirmation: "Oui", rdv2: "Oui", rdv3: "Oui" },
                  gates: [true, true], edit: true, shown: [0, 0, 0, 0, 0, 0, 0] }
            ];
        }

        function test_answers_and_gates_decide_which_parts_are_displayed(data) {
            openPatient();
            show(data.ticks);
            detail.stepPassed = data.gates[0];
            detail.step2Passed = data.gates[1];
            if (data.edit) {
                phone().text = "07";
            }
            compare(displayed().concat(gate(1).displayed, gate(2).displayed).map(Number), data.shown);
            compare(sms().displayed, true);
        }

        function test_a_new_patient_has_neither_questions_nor_sms_bar() {
            detail.load("", "N");
            show({ test: "Oui", confirmation: "Oui" });
            compare(displayed().concat(gate(1).displayed, gate(2).displayed, sms().displayed),
                    [false, false, false, false, false, false, false, false]);
        }

        function test_a_click_opens_the_gate_data() {
            return [
                { tag: "gate 1", number: 1, ticks: { test: "Non", rdv1: "Oui" }, after: [true, false] },
                { tag: "gate 2", number: 2, ticks: { test: "Oui", confirmation: "Oui", rdv2: "Oui" },
                  before: [true, false], after: [true, true] },
                { tag: "gate 1 by Return", number: 1, ticks: { test: "Non", rdv1: "Oui" }, after: [true, false],
                  key: Qt.Key_Return }
            ];
        }

        function test_a_click_opens_the_gate(data) {
            openPatient();
            show(data.ticks);
            detail.stepPassed = data.before ? data.before[0] : false;
            detail.step2Passed = false;
            rest();
            if (data.key) {
                ofType(gate(data.number), "Clickable")[0].forceActiveFocus();
                keyClick(data.key);
            } else {
                click(gate(data.number));
            }
            compare(gates(), data.after);
            compare(gate(data.number).displayed, false);
        }

        function test_gates_depend_on_the_answered_step_data() {
            var table = [
                // step, answer, gates before, gates after
                ["test", "Oui", [true, true], [true, false]],
                ["test", "Oui", [false, false], [true, false]],
                ["test", "Oui", [false, true], [true, false]],
                ["test", "Non", [true, true], [false, false]],
                ["test", "Non", [false, false], [false, false]],
                ["test", "", [true, true], [false, false]],
                ["rdv1", "Oui", [true, true], [false, false]],
                ["rdv1", "Oui", [false, true], [false, false]],
                ["rdv1", "Non", [true, true], [false, false]],
                ["confirmation", "Oui", [true, true], [true, false]],
                ["confirmation", "Oui", [false, true], [false, false]],
                ["confirmation", "Non", [true, true], [true, false]],
                ["rdv2", "Oui", [true, true], [true, false]],
                ["rdv2", "Oui", [false, true], [false, false]],
                ["rdv2", "Non", [true, true], [true, false]],
                ["rdv3", "Oui", [true, true], [true, true]],
                ["rdv3", "Oui", [false, false], [false, false]],
                ["rdv3", "Non", [true, true], [true, true]],
                ["", "", [true, true], [true, true]],
                ["", "", [false, false], [false, false]]
            ];

            return table.map(function (row) {
                return { tag: row[0] + " " + row[1] + " " + row[2], q: row[0], answer: row[1], before: row[2],
                         after: row[3] };
            }).concat({ tag: "rdv1 Oui, tests made", q: "rdv1", answer: "Oui", also: "test", before: [true, true],
                        after: [false, false] },
                      { tag: "confirmation Oui, tests made", q: "confirmation", answer: "Oui", also: "test",
                        before: [false, true], after: [false, false] });
        }

        function test_gates_depend_on_the_answered_step(data) {
            var ticks = {};

            openPatient();
            ticks[data.q] = data.answer;
            if (data.also) {
                ticks[data.also] = "Oui";
            }
            show(ticks);
            detail.stepPassed = data.before[0];
            detail.step2Passed = data.before[1];
            detail.buildData(data.q || undefined);
            compare(gates(), data.after);
        }

        function test_switching_the_tests_to_yes_expands_the_confirmation_again() {
            openPatient({ test: 0, test_date: "2014-05-01", rdv1: 1, date1: "2014-05-02" });
            rest();
            compare(question("confirmation").displayed, true);
            answer("test", "Oui");
            compare([question("confirmation").checked, question("test").checked], [true, false]);
        }

        function test_gates_stay_unchanged_for_the_next_patient() {
            openPatient();
            answer("test", "Non");
            answer("rdv1", "Oui");
            compare(gates(), [false, false]);
            detail.reset();
            compare(gates(), [false, false]);
            openPatient({ test: 0, test_date: "2014-05-12", rdv1: 1, date1: "2014-05-13" });
            compare(gates(), [false, false]);
            compare(gate(1).displayed, true);
            compare(question("confirmation").displayed, false);
        }

        function test_refused_tests_expand_the_work_up_and_its_yes_closes_gate_1() {
            openPatient();
            answer("test", "Non");
            compare(question("rdv1").displayed, true);
            compare(question("rdv1").checked, true);
            compare(question("test").checked, false);
            answer("rdv1", "Oui");
            compare(detail.stepPassed, false);
            rest();
            compare(gate(1).visible, true);
            textItem(gate(1), "Si vous avez les résultats du bilan,<br/>cliquez ici");
            click(gate(1));
            compare(question("confirmation").displayed, true);
            compare(question("confirmation").checked, true);
        }

        function test_each_question_expands_only_itself_when_it_appears() {
            openPatient();
            compare(keys.map(function (key) { return question(key).checked; })[0], true);
            answer("test", "Oui");
            compare(question("confirmation").checked, true);
            compare(question("test").checked, false);
            answer("confirmation", "Oui");
            compare(question("rdv2").checked, true);
            compare(question("confirmation").checked, false);
            answer("rdv2", "Oui");
            rest();
            click(gate(2));
            compare(question("rdv3").checked, true);
            compare(question("rdv2").checked, false);
        }

        function test_expanding_one_question_collapses_the_others() {
            openPatient({ test: 1, test_date: "2014-05-12", confirmation: 1, confirmation_date: "2014-05-13" });
            rest();
            compare(question("rdv2").checked, true);
            mouseClick(question("test"), 100, 30);
            compare(keys.map(function (key) { return question(key).checked; }), [true, false, false, false, false]);
            rest();
            mouseClick(question("test"), 100, 30);
            compare(question("test").checked, false);
            rest();
            mouseClick(question("test"), 100, 30);
            compare(question("test").checked, true);
        }

        function test_fields_grow_with_an_animation() {
            openPatient();
            rest();
            phone().text = "07";
            compare(fields().height, 100);
            compare(detail.internalHeight, 176);
            tryVerify(function () { return fields().height > 100 && fields().height < 138; });
            tryCompare(fields(), "height", 138);
        }

        function test_first_question_has_a_margin_of_one_pixel_only_while_displayed() {
            detail.load("", "");
            rest();
            compare(detail.internalHeight, 100);
            openPatient();
            compare(detail.internalHeight, 100 + 1 + 100 + 38);
        }
    }
}
