import QtQuick 2.2
import QtQuick.LocalStorage 2.0
import "support"

Item {
    id: desk

    width: 400
    height: 820

    // Errors while another program locks the database file, and for deleted patients.
    EditorTestCase {
        name: "DetailErrors"
        stage: desk
        when: windowShown

        readonly property string locked: "database is locked"

        function locks() {
            return [{ tag: "read by another", kind: "read" }, { tag: "locked by another", kind: "exclusive" }];
        }

        function lock(data) {
            expectedWarnings = [locked, "unable to rollback", "cannot start a transaction"];
            beImpatient();
            verify(Native.lockStore(data.kind));
        }

        /// The documents' shared connection gives up after 50 ms instead of a second.
        function beImpatient() {
            LocalStorage.openDatabaseSync("Tandry", "", "", 0).transaction(function (tx) {
                tx.executeSql("PRAGMA busy_timeout = 50");
            });
        }

        function test_an_answer_that_was_not_stored_is_not_shown_data() {
            return locks();
        }

        function test_an_answer_that_was_not_stored_is_not_shown(data) {
            var needRefresh = spy(detail, "needRefresh");

            openPatient();
            rest();
            lock(data);
            click(named(question("test"), "Non"));
            tryCompare(detail, "loaded", true);
            compare(answerOf("test"), "");
            compare(question("test").date, "");
            compare(question("rdv1").displayed, false);
            compare(needRefresh.count, 0);
            compare(gates(), [true, true]);
            compare(validate().disabled, false);
            Native.unlockStore();
            compare([stored(1).test_date, stored(1).notification_date], ["", "2014-09-15"]);
        }

        function test_a_switch_that_was_not_stored_shows_the_old_answer_data() {
            return locks();
        }

        function test_a_switch_that_was_not_stored_shows_the_old_answer(data) {
            openPatient({ test: 1, test_date: "2014-05-01" });
            question("test").checked = true;
            rest();
            lock(data);
            click(named(question("test"), "Non"));
            tryCompare(detail, "loaded", true);
            compare(answerOf("test"), "Oui");
            compare(question("test").date, "2014-05-01");
            Native.unlockStore();
            compare([stored(1).test, stored(1).test_date], [1, "2014-05-01"]);
        }

        function test_the_same_answer_is_stored_once_the_store_is_free_again() {
            openPatient();
            rest();
            lock({ kind: "exclusive" });
            click(named(question("test"), "Non"));
            tryCompare(detail, "loaded", true);
            Native.unlockStore();
            answer("test", "Non");
            compare([stored(1).test, stored(1).test_date], [0, today()]);
            compare(answerOf("test"), "Non");
        }

        function test_later_answers_survive_an_answer_that_was_not_stored() {
            openPatient({ test: 1, test_date: "2014-05-01", confirmation: 1, confirmation_date: "2014-05-03" });
            rest();
            question("test").checked = true;
            rest();
            lock({ kind: "exclusive" });
            click(named(question("test"), "Non"));
            tryCompare(detail, "loaded", true);
            compare(answers(), ["Oui", "", "Oui", "", ""]);
            compare(question("confirmation").date, "2014-05-03");
            compare(gates(), [true, true]);
        }

        // The editor has not read the new record back: the name is only in its fields.
        function test_a_failed_answer_right_after_a_creation_keeps_name_and_phone() {
            givenPatients([]);
            detail.load("", "Nouveau");
            nameBar.genderMale = false;
            phone().text = "0699";
            rest();
            click(validate());
            rest();
            lock({ kind: "exclusive" });
            click(named(question("test"), "Non"));
            tryCompare(detail, "loaded", true);
            compare(answerOf("test"), "");
            compare([nameBar.name, nameBar.genderMale, phone().text], ["Nouveau", false, "0699"]);
            Native.unlockStore();
            answer("test", "Non");
            compare(Native.rows("SELECT name, genderMale, phone, test_date FROM Patients"),
                    [{ name: "Nouveau", genderMale: 0, phone: "0699", test_date: today() }]);
        }

        function test_a_failed_save_keeps_the_typed_text_and_the_button_data() {
            return locks();
        }

        function test_a_failed_save_keeps_the_typed_text_and_the_button(data) {
            var needRefresh = spy(detail, "needRefresh");

            openPatient();
            nameBar.name = "DURAND";
            nameBar.genderMale = false;
            phone().text = "0699";
            rest();
            lock(data);
            click(validate());
            compare([nameBar.name, nameBar.genderMale, phone().text], ["DURAND", false, "0699"]);
            compare(detail.state, "buttons");
            compare(detail.loaded, true);
            compare(validate().disabled, false);
            compare(needRefresh.count, 0);
            Native.unlockStore();
            compare(stored(1).name, "DUPONT Marie");
            click(validate());
            compare([stored(1).name, stored(1).genderMale, stored(1).phone], ["DURAND", 0, "0699"]);
            compare(detail.state, "base");
        }

        // If the questions were shown without a loaded patient, an answer would appear as given but not be stored.
        function test_a_failed_cancel_keeps_the_edits() {
            openPatient();
            phone().text = "07";
            rest();
            lock({ kind: "exclusive" });
            click(cancelButton());
            compare(detail.loaded, true);
            compare(detail.state, "buttons");
            compare(phone().text, "07");
            compare(displayed(), [false, false, false, false, false]);
            Native.unlockStore();
            click(cancelButton());
            compare(phone().text, "0612");
            compare(detail.state, "base");
        }

        function test_a_failed_creation_keeps_the_typed_text_and_the_button() {
            var needRefresh = spy(detail, "needRefresh");

            givenPatients([]);
            detail.load("", "Nouveau");
            phone().text = "0699";
            rest();
            lock({ kind: "exclusive" });
            click(validate());
            compare([nameBar.name, phone().text, detail.currentId], ["Nouveau", "0699", ""]);
            compare(detail.state, "buttons");
            compare(validate().disabled, false);
            compare(needRefresh.count, 0);
            Native.unlockStore();
            click(validate());
            compare(Native.rows("SELECT name, phone FROM Patients"), [{ name: "Nouveau", phone: "0699" }]);
        }

        /// Makes the callback of the next save fail after the commit, as if another process had locked the file.
        function failNextReading() {
            var bar = nameBar;

            expectedWarnings = expectedWarnings.concat("Stored, but not read back");
            detail.nameStatus = Object.defineProperty({}, "name", {
                set: function () {
                    detail.nameStatus = bar;
                    throw new Error("not to be read");
                }
            });
        }

        function test_a_stored_answer_that_was_not_read_back_is_shown_as_stored() {
            var needRefresh = spy(detail, "needRefresh");

            openPatient({ test: 1, test_date: "2014-05-01" });
            question("test").checked = true;
            rest();
            failNextReading();
            click(named(question("test"), "Non"));
            compare([answerOf("test"), stored(1).test, detail.loaded], ["Non", 0, true]);
            compare(needRefresh.count, 2);
            wait(0);
            compare(answerOf("test"), "Non");
        }

        function test_fields_saved_after_an_answer_that_was_not_read_back_keep_answer_and_reminder() {
            var reminder;

            openPatient({ confirmation: 1, test: 1, test_date: "2014-05-01" });
            rest();
            failNextReading();
            answer("confirmation", "Oui");
            reminder = stored(1).notification_date;
            verify(reminder !== "2014-09-15");
            phone().text = "0699";
            rest();
            click(validate());
            compare([stored(1).phone, stored(1).confirmation, stored(1).notification_date], ["0699", 1, reminder]);
            compare(detail.reminderOutdated, false);
        }

        function test_an_answer_that_fails_after_one_that_was_not_read_back_shows_the_stored_one() {
            openPatient({ test: 1, test_date: "2014-05-01", created: "2014-04-10" });
            rest();
            failNextReading();
            answer("confirmation", "Non");
            lock({ kind: "exclusive" });
            expectedWarnings = expectedWarnings.concat("Stored, but not read back");
            answer("confirmation", "Oui");
            tryCompare(detail, "loaded", true);
            compare([answerOf("confirmation"), todayShown() !== "10/04/2014"], ["Non", true]);
        }

        function removePatient() {
            expectedWarnings = expectedWarnings.concat("The store has no such patient");
            Native.rows("DELETE FROM Patients");
        }

        function test_an_answer_for_a_deleted_patient_is_not_shown() {
            openPatient({ test: 1, test_date: "2014-05-01" });
            question("test").checked = true;
            rest();
            removePatient();
            click(named(question("test"), "Non"));
            tryCompare(detail, "loaded", false);
            wait(0);
            compare(answers(), ["", "", "", "", ""]);
        }

        function test_an_editor_without_a_loaded_patient_ignores_clicks_keys_and_presses() {
            openPatient();
            removePatient();
            detail.load("99", "");
            rest();
            click(named(question("test"), "Oui"));
            verify(Native.press(named(question("test"), "Non"), "Press"));
            named(question("test"), "Oui").forceActiveFocus();
            keyClick(Qt.Key_Space);
            phone().forceActiveFocus();
            nameBar.focus();
            type("x");
            click(named(nameBar, "Sexe : homme"));
            compare([answers().join(""), phone().text, nameBar.name, nameBar.genderMale],
                    ["", "0612", "DUPONT Marie", true]);
            compare(Native.accessible(Native.focusItem(detail)).name, "Retour");
        }

        function test_fields_of_a_deleted_patient_are_not_saved_after_an_answer_that_was_not_read_back() {
            openPatient();
            failNextReading();
            answer("test", "Oui");
            phone().text = "0699";
            rest();
            removePatient();
            click(validate());
            tryCompare(detail, "missing", true);
            wait(0);
            compare([detail.loaded, detail.state, answers().join("")], [false, "base", ""]);
            compare(Native.rows("SELECT id FROM Patients").length, 0);
        }

        function test_cancelling_the_edits_of_a_deleted_patient_shows_no_answer() {
            openPatient({ test: 1, test_date: "2014-05-01" });
            phone().text = "0699";
            rest();
            removePatient();
            click(cancelButton());
            wait(0);
            compare([detail.loaded, answers().join("")], [false, ""]);
        }

        function test_a_failed_deletion_leaves_the_patient_open() {
            var needRefresh = spy(detail, "needRefresh");
            var canceled = spy(detail, "canceled");

            openPatient();
            nameBar.name = "";
            rest();
            lock({ kind: "exclusive" });
            click(validate());
            compare([needRefresh.count, canceled.count], [0, 0]);
            compare(detail.currentId, "1");
            compare(validate().disabled, false);
            Native.unlockStore();
            compare(stored(1).name, "DUPONT Marie");
            click(validate());
            compare(Native.rows("SELECT id FROM Patients"), []);
            compare(canceled.count, 1);
        }
    }
}
