import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 820

    EditorTestCase {
        name: "DetailLoad"
        stage: desk
        when: windowShown

        function firstAppointment() {
            return fields().firstAppointment;
        }

        function test_properties_have_their_defaults() {
            compare(detail.currentId, "");
            compare(Object.keys(detail.model), []);
            compare(detail.loaded, false);
            compare(detail.notification_date, "");
            compare(gates(), [true, true]);
            compare(detail.state, "base");
            compare(detail.width, 275);
            compare(load("Detail").externalGenderMale, true);
        }

        function test_a_new_patient_has_empty_fields_and_the_given_name_data() {
            return [
                { tag: "empty id", id: "", name: "Dupont", state: "buttons" },
                { tag: "null id", id: null, name: "Dupont", state: "buttons" },
                { tag: "no name", id: "", name: "", state: "base" }
            ];
        }

        function test_a_new_patient_has_empty_fields_and_the_given_name(data) {
            detail.load(data.id, data.name);
            compare(detail.loaded, true);
            compare(detail.currentId, "");
            compare(Object.keys(detail.model), []);
            compare(nameBar.name, data.name);
            compare(nameBar.genderMale, true);
            compare(phone().text, "");
            compare(firstAppointment(), todayShown());
            compare(detail.notification_date, "");
            compare(answers(), ["", "", "", "", ""]);
            compare(detail.state, data.state);
        }

        function test_a_long_name_is_shown_from_its_beginning() {
            openPatient({ name: "François de La Tour-Maubourg" });
            compare(named(nameBar, "Nom du patient").cursorPosition, 0);
            // A name typed in the search can be continued at its end.
            detail.load("", "Dupont");
            compare(named(nameBar, "Nom du patient").cursorPosition, 6);
        }

        function test_a_new_patient_after_a_stored_one_is_blank() {
            openPatient({ genderMale: 0, test: 1, test_date: "2014-05-12" });
            detail.load("", "");
            compare(detail.currentId, "");
            compare(nameBar.name, "");
            compare(nameBar.genderMale, true);
            compare(phone().text, "");
            compare(firstAppointment(), todayShown());
            compare(detail.notification_date, "");
            compare(answers(), ["", "", "", "", ""]);
            compare(question("test").date, "");
        }

        function test_a_stored_patient_is_loaded_with_all_fields() {
            openPatient({ genderMale: 0 });
            compare(detail.currentId, "1");
            compare(detail.model.name, "DUPONT Marie");
            compare(nameBar.name, "DUPONT Marie");
            compare(nameBar.genderMale, false);
            compare(phone().text, "0612");
            compare(firstAppointment(), "10/04/2014");
            compare(detail.notification_date, "2014-09-15");
            compare(detail.state, "base");
        }

        function test_gender_is_read_from_a_given_record_data() {
            return [{ tag: "true", value: true, male: true }, { tag: "false", value: false, male: false },
                    { tag: "0", value: 0, male: false }, { tag: "1", value: 1, male: true },
                    { tag: "empty", value: "", male: true }, { tag: "absent", value: undefined, male: true }];
        }

        function test_gender_is_read_from_a_given_record(data) {
            detail.model = { genderMale: data.value };
            detail.displayModel();
            compare(nameBar.genderMale, data.male);
        }

        function test_nulls_of_the_store_are_shown_as_empty() {
            openPatient({ phone: null, created: null, notification_date: null, test: null, test_date: null });
            compare(phone().text, "");
            compare(firstAppointment(), todayShown());
            compare(detail.notification_date, "");
            compare(answers(), ["", "", "", "", ""]);
        }

        function test_an_unknown_id_changes_nothing_but_loaded() {
            openPatient({ genderMale: 0 });
            expectedWarnings = ["The store has no such patient"];
            detail.load("99", "Nobody");
            compare(detail.loaded, false);
            compare(nameBar.name, "DUPONT Marie");
            compare(nameBar.genderMale, false);
            compare(phone().text, "0612");
            compare(detail.model.name, "DUPONT Marie");
        }

        function test_leaving_an_unknown_patient_enables_the_editor() {
            expectedWarnings = ["The store has no such patient"];
            detail.load("99", "");
            compare([detail.missing, fields().enabled, nameBar.editable], [true, false, false]);
            compare(fields().parent.opacity, 0.4);
            detail.reset();
            compare([detail.missing, fields().enabled, nameBar.editable], [false, true, true]);
            compare(fields().parent.opacity, 1);
        }

        function test_a_new_patient_after_an_unknown_one_can_be_edited() {
            expectedWarnings = ["The store has no such patient"];
            detail.load("99", "");
            detail.load("", "Dupont");
            compare([detail.missing, fields().enabled, nameBar.editable], [false, true, true]);
        }

        function test_each_step_is_shown_by_its_flag_and_date_data() {
            var rows = [];

            keys.forEach(function (key, i) {
                rows.push({ tag: key + " no date, flag 1", key: key, date: dates[i], flag: 1, day: "", shown: "" });
                rows.push({ tag: key + " no date, flag 0", key: key, date: dates[i], flag: 0, day: "", shown: "" });
                rows.push({ tag: key + " date, flag 1", key: key, date: dates[i], flag: 1, day: "2014-05-12",
                            shown: "Oui" });
                rows.push({ tag: key + " date, flag 0", key: key, date: dates[i], flag: 0, day: "2014-05-12",
                            shown: "Non" });
                rows.push({ tag: key + " date, no flag", key: key, date: dates[i], flag: null, day: "2014-05-12",
                            shown: "Oui" });
            });
            return rows;
        }

        function test_each_step_is_shown_by_its_flag_and_date(data) {
            var patient = {};

            patient[data.key] = data.flag;
            patient[data.date] = data.day;
            openPatient(patient);
            keys.forEach(function (key) {
                compare(answerOf(key), key === data.key ? data.shown : "", key);
                compare(question(key).date, key === data.key ? data.day : "", key);
            });
        }

        function test_showing_a_patient_stores_and_signals_nothing() {
            var needRefresh = spy(detail, "needRefresh");

            openPatient({ test: 1, test_date: "2014-05-12", confirmation: 0, confirmation_date: "2014-05-13" });
            compare(needRefresh.count, 0);
            compare(stored(1).test_date, "2014-05-12");
            compare(stored(1).confirmation, 0);
            compare(stored(1).notification_date, "2014-09-15");
        }

        function test_showing_a_ticked_answer_marks_its_question_changed() {
            openPatient({ test: 1, test_date: "2014-05-12" });
            compare(question("test").changed, true);
            compare(question("rdv1").changed, false);
        }

        function test_today_is_shown_as_day_month_year_with_leading_zeros() {
            compare(detail.getToday(), todayShown());
            verify(/^\d\d\/\d\d\/\d{4}$/.test(detail.getToday()));
        }

        function test_format_date_reverses_the_parts_of_a_french_date_data() {
            return [
                { tag: "a day", given: "10/04/2014", expected: "2014-04-10" },
                { tag: "one digit", given: "1/2/2014", expected: "2014-2-1" },
                { tag: "no slash", given: "2014", expected: "2014" },
                { tag: "empty", given: "", expected: "" },
                { tag: "null", given: null, expected: "" },
                { tag: "undefined", given: undefined, expected: "" },
                { tag: "number", given: 20140410, expected: "" },
                { tag: "object", given: { day: 10 }, expected: "" },
                { tag: "list", given: ["10/04/2014"], expected: "" }
            ];
        }

        function test_format_date_reverses_the_parts_of_a_french_date(data) {
            compare(detail.formatDate(data.given), data.expected);
        }

        function test_phone_accepts_fourteen_characters() {
            openPatient();
            phone().forceActiveFocus();
            phone().selectAll();
            type("012345678901234");
            compare(phone().text, "01234567890123");
        }
    }
}
