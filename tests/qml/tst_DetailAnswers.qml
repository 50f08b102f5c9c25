import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 820

    EditorTestCase {
        name: "DetailAnswers"
        stage: desk
        when: windowShown

        // Every step answered "Oui", each on a different day.
        readonly property var answered: ({
            test: 1, test_date: "2014-05-01", rdv1: 1, date1: "2014-05-02", confirmation: 1,
            confirmation_date: "2014-05-03", rdv2: 1, date2: "2014-05-04", rdv3: 1, date3: "2014-05-05"
        })

        function datesOf(record) {
            return dates.map(function (name) { return record[name]; });
        }

        function flagsOf(record) {
            return keys.map(function (name) { return record[name]; });
        }

        function test_build_data_of_a_new_answer_has_todays_date_and_no_later_ones_data() {
            return [
                { tag: "test", dates: [today(), "", "", "", ""] },
                { tag: "rdv1", dates: ["2014-05-01", today(), "", "", ""] },
                { tag: "confirmation", dates: ["2014-05-01", "2014-05-02", today(), "", ""] },
                { tag: "rdv2", dates: ["2014-05-01", "2014-05-02", "2014-05-03", today(), ""] },
                { tag: "rdv3", dates: ["2014-05-01", "2014-05-02", "2014-05-03", "2014-05-04", today()] }
            ];
        }

        function test_build_data_of_a_new_answer_has_todays_date_and_no_later_ones(data) {
            var built;

            openPatient(answered);
            built = detail.buildData(data.tag);
            compare(datesOf(built), data.dates);
            compare(built.last, data.tag);
            compare(question(data.tag).changed, false);
            keys.slice(keys.indexOf(data.tag)).forEach(function (key) { compare(question(key).changed, false); });
        }

        function test_flags_of_cleared_steps_are_still_sent() {
            openPatient(answered);
            compare(flagsOf(detail.buildData("test")), [true, true, true, true, true]);
            show({ test: "Non", rdv1: "Oui", rdv2: "Non" });
            compare(flagsOf(detail.buildData("test")), [false, true, false, false, false]);
        }

        function test_build_data_of_an_unchanged_answer_has_its_stored_date_data() {
            return [
                { tag: "test", dates: ["2014-05-01", "", "", "", ""] },
                { tag: "rdv2", dates: ["2014-05-01", "2014-05-02", "2014-05-03", "2014-05-04", ""] },
                { tag: "rdv3", dates: ["2014-05-01", "2014-05-02", "2014-05-03", "2014-05-04", "2014-05-05"] }
            ];
        }

        function test_build_data_of_an_unchanged_answer_has_its_stored_date(data) {
            var built;

            openPatient(answered);
            question(data.tag).changed = false;
            built = detail.buildData(data.tag);
            compare(datesOf(built), data.dates);
            compare(built.last, "");
        }

        function test_build_data_without_a_step_has_the_fields_and_all_dates() {
            var built;

            openPatient(answered);
            nameBar.name = "DURAND";
            nameBar.genderMale = false;
            phone().text = "07";
            built = detail.buildData();
            compare([built.name, built.genderMale, built.phone, built.created, built.last, built.notification_date],
                    ["DURAND", false, "07", "2014-04-10", "", "2014-09-15"]);
            compare(datesOf(built), ["2014-05-01", "2014-05-02", "2014-05-03", "2014-05-04", "2014-05-05"]);
            compare(question("rdv3").changed, true);
        }

        function test_an_answer_is_stored_at_once_data() {
            return [{ tag: "Oui", text: "Oui", flag: 1 }, { tag: "Non", text: "Non", flag: 0 }];
        }

        function test_an_answer_is_stored_at_once(data) {
            var needRefresh = spy(detail, "needRefresh");

            openPatient();
            rest();
            click(named(question("test"), data.text));
            compare([stored(1).test, stored(1).test_date], [data.flag, today()]);
            compare(needRefresh.count, 1);
            compare(answerOf("test"), data.text);
            compare(detail.loaded, true);
            compare(detail.state, "base");
            compare(stored(1).name, "DUPONT Marie");
        }

        // For a first appointment on 10 April 2014; the year 2050 means never.
        function test_answers_move_the_reminder_data() {
            return [
                { tag: "rdv2 Oui", q: "rdv2", text: "Oui", year: "2015" },
                { tag: "rdv3 Oui", q: "rdv3", text: "Oui", year: "2050" },
                { tag: "confirmation Non", q: "confirmation", text: "Non", year: "2050" },
                { tag: "confirmation Oui", q: "confirmation", text: "Oui", year: "2014" }
            ];
        }

        function test_answers_move_the_reminder(data) {
            var before = { test: 1, test_date: "2014-05-01", confirmation: 1, confirmation_date: "2014-05-03",
                           rdv2: 1, date2: "2014-05-04" };
            var at = ["test", "confirmation", "rdv2", "rdv3"].indexOf(data.q);

            // The step itself and those after it are still unanswered.
            if (at <= 2) { before.date2 = ""; }
            if (at <= 1) { before.confirmation_date = ""; }
            openPatient(before);
            answer(data.q, data.text);
            compare(stored(1).notification_date.substr(0, 4), data.year);
        }

        function test_switching_stores_the_new_answer_data() {
            return [
                { tag: "Oui to Non", from: 1, text: "Non", flag: 0 },
                { tag: "Non to Oui", from: 0, text: "Oui", flag: 1 }
            ];
        }

        function test_switching_stores_the_new_answer(data) {
            var needRefresh = spy(detail, "needRefresh");
            var saves = 0;

            openPatient({ test: data.from, test_date: "2014-05-01" });
            rest();
            question("test").checked = true;
            rest();
            question("test").saveIt.connect(function () { ++saves; });
            click(named(question("test"), data.text));
            compare([stored(1).test, stored(1).test_date], [data.flag, today()]);
            compare(answerOf("test"), data.text);
            verify(saves >= 2, "both boxes have changed");
            compare(needRefresh.count, 2);
        }

        function test_switching_every_step_stores_the_new_answer_data() {
            return keys.map(function (key) { return { tag: key }; });
        }

        function test_switching_every_step_stores_the_new_answer(data) {
            var fields = {};
            var key;

            for (key in answered) {
                fields[key] = answered[key];
            }
            if (data.tag === "rdv1") {
                fields.test = 0;
            }
            openPatient(fields);
            answer(data.tag, "Non");
            compare(stored(1)[data.tag], 0);
            compare(answerOf(data.tag), "Non");
        }

        function test_answering_again_clears_the_later_steps() {
            openPatient(answered);
            answer("confirmation", "Non");
            compare(datesOf(stored(1)), ["2014-05-01", "2014-05-02", today(), "", ""]);
            compare(answers(), ["Oui", "Oui", "Non", "", ""]);
            compare(question("rdv2").date, "");
        }

        function test_answers_can_be_given_and_switched_repeatedly() {
            openPatient();
            answer("test", "Oui");
            compare(stored(1).test, 1);
            answer("test", "Non");
            compare(stored(1).test, 0);
            answer("test", "Oui");
            compare(stored(1).test, 1);
            answer("confirmation", "Non");
            answer("confirmation", "Oui");
            compare(stored(1).confirmation, 1);
            compare(answers(), ["Oui", "", "Oui", "", ""]);
        }

        function test_unticking_by_script_stores_no_with_todays_date() {
            openPatient({ test: 1, test_date: "2014-05-01" });
            question("test").yes.checked = false;
            compare([stored(1).test, stored(1).test_date], [0, today()]);
            detail.load("1", "");
            compare(answerOf("test"), "Non");
        }

        function test_questions_are_hidden_while_fields_are_edited() {
            openPatient();
            phone().text = "07";
            compare(question("test").displayed, false);
        }

        function test_questions_can_be_answered_right_after_creating_a_patient() {
            givenPatients([]);
            detail.load("", "Nouveau");
            rest();
            click(validate());
            answer("test", "Non");
            compare(answerOf("test"), "Non");
            compare(Native.rows("SELECT test, test_date FROM Patients")[0].test_date, today());
            compare(detail.model.name, "Nouveau");
        }
    }
}
