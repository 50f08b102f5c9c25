import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 820

    EditorTestCase {
        name: "DetailSave"
        stage: desk
        when: windowShown

        /// Opens a new patient with that name and waits for the buttons.
        function createPatient(name) {
            givenPatients([]);
            detail.load("", name);
            rest();
        }

        function all() {
            return Native.rows("SELECT * FROM Patients");
        }

        function test_creating_a_patient_stores_it_and_keeps_it_open() {
            var needRefresh = spy(detail, "needRefresh");
            var canceled = spy(detail, "canceled");
            var row;

            createPatient("Nouveau");
            compare(detail.state, "buttons");
            nameBar.genderMale = false;
            phone().text = "0612";
            click(validate());
            compare(all().length, 1);
            row = all()[0];
            compare([row.name, row.genderMale, row.phone, row.created, row.notification_date],
                    ["Nouveau", 0, "0612", today(), today()]);
            compare([row.test, row.test_date, row.rdv1, row.date1, row.confirmation, row.confirmation_date],
                    [0, "", 0, "", 0, ""]);
            compare([row.rdv2, row.date2, row.rdv3, row.date3], [0, "", 0, ""]);
            compare(detail.currentId, row.id.toString());
            compare(detail.state, "base");
            compare(detail.loaded, true);
            compare(validate().disabled, false);
            compare(needRefresh.count, 1);
            compare(canceled.count, 0);
            compare(displayed(), [true, false, false, false, false]);
        }

        function test_after_a_creation_the_form_keeps_its_empty_reminder_and_stores_it() {
            createPatient("Nouveau");
            click(validate());
            compare(all()[0].notification_date, today());
            compare(detail.notification_date, "");
            rest();
            phone().text = "0699";
            compare(detail.state, "buttons");
            rest();
            click(validate());
            compare(all()[0].phone, "0699");
            compare(all()[0].notification_date, "");
            compare(all().length, 1);
        }

        function test_editing_shows_the_buttons_data() {
            return [
                { tag: "name", edit: function () { nameBar.name = "DURAND"; } },
                { tag: "gender", edit: function () { nameBar.genderMale = false; } },
                { tag: "phone", edit: function () { phone().text = "07"; } }
            ];
        }

        function test_editing_shows_the_buttons(data) {
            openPatient();
            compare(detail.state, "base");
            data.edit();
            compare(detail.state, "buttons");
            compare(validate().visible, true);
            compare(displayed(), [false, false, false, false, false]);
            rest();
            compare(detail.height, 176);
        }

        function test_editing_before_a_patient_is_loaded_shows_no_buttons_data() {
            return test_editing_shows_the_buttons_data();
        }

        function test_editing_before_a_patient_is_loaded_shows_no_buttons(data) {
            data.edit();
            compare(detail.state, "base");
        }

        function test_saving_a_stored_patient_keeps_reminder_and_first_appointment() {
            var needRefresh = spy(detail, "needRefresh");
            var row;

            openPatient({ test: 1, test_date: "2014-05-12" });
            nameBar.name = "DURAND";
            nameBar.genderMale = false;
            phone().text = "0699";
            rest();
            click(validate());
            row = stored(1);
            compare([row.name, row.genderMale, row.phone], ["DURAND", 0, "0699"]);
            compare([row.created, row.notification_date, row.test, row.test_date],
                    ["2014-04-10", "2014-09-15", 1, "2014-05-12"]);
            compare(detail.state, "base");
            compare(detail.loaded, true);
            compare(validate().disabled, false);
            compare(detail.model.name, "DURAND");
            compare(needRefresh.count, 1);
            compare(gates(), [true, true]);
        }

        function test_a_save_without_a_loaded_patient_is_ignored_data() {
            return [{ tag: "fields" }, { tag: "answer", q: "test" }];
        }

        function test_a_save_without_a_loaded_patient_is_ignored(data) {
            openPatient();
            detail.loaded = false;
            nameBar.name = "DURAND";
            detail.save(data.q);
            compare(stored(1).name, "DUPONT Marie");
            compare(validate().disabled, false);
        }

        function test_the_save_button_of_a_new_patient_without_a_name_is_disabled_until_the_editor_sets_it() {
            createPatient("");
            compare(validate().disabled, true);
            nameBar.name = "N";
            compare(validate().disabled, false);
            nameBar.name = "";
            compare(validate().disabled, true);
        }

        // The editor's first assignment replaces the button's binding to the name.
        function test_the_save_button_keeps_the_state_that_the_editor_last_set_data() {
            return [
                { tag: "reset", disabled: false, set: function () { detail.reset(); } },
                { tag: "save", disabled: false, set: function () { detail.save(); } },
                { tag: "remove", disabled: true, set: function () { detail.remove(); } }
            ];
        }

        function test_the_save_button_keeps_the_state_that_the_editor_last_set(data) {
            openPatient();
            data.set();
            compare(validate().disabled, data.disabled);
            detail.load("", "");
            compare(validate().disabled, data.disabled);
            nameBar.name = "N";
            compare(validate().disabled, data.disabled);
        }

        function test_cancel_discards_the_edits_of_a_stored_patient() {
            var canceled = spy(detail, "canceled");

            openPatient();
            nameBar.name = "DURAND";
            nameBar.genderMale = false;
            phone().text = "07";
            rest();
            click(cancelButton());
            compare([nameBar.name, nameBar.genderMale, phone().text], ["DUPONT Marie", true, "0612"]);
            compare(detail.state, "base");
            compare(detail.loaded, true);
            compare(stored(1).name, "DUPONT Marie");
            compare(canceled.count, 0);
        }

        function test_cancel_closes_a_new_patient() {
            var canceled = spy(detail, "canceled");

            createPatient("Nouveau");
            click(cancelButton());
            compare(canceled.count, 1);
            compare(detail.state, "base");
            compare(detail.loaded, false);
            compare(all(), []);
        }

        function test_clearing_the_name_of_a_stored_patient_and_one_click_delete_the_patient() {
            var needRefresh = spy(detail, "needRefresh");
            var canceled = spy(detail, "canceled");

            openPatient();
            nameBar.name = "";
            rest();
            compare(validate().text, "Supprimer");
            click(validate());
            compare(all(), []);
            compare(needRefresh.count, 1);
            compare(canceled.count, 1);
            compare(detail.state, "base");
            compare(validate().disabled, true);
        }

        function test_remove_without_a_stored_patient_only_closes_the_editor_data() {
            return [{ tag: "new patient", id: "" }, { tag: "not loaded", id: "1" }];
        }

        function test_remove_without_a_stored_patient_only_closes_the_editor(data) {
            var needRefresh = spy(detail, "needRefresh");
            var canceled = spy(detail, "canceled");

            openPatient();
            if (data.id === "") {
                detail.load("", "N");
            } else {
                detail.loaded = false;
            }
            detail.remove();
            compare(stored(1).name, "DUPONT Marie");
            compare(needRefresh.count, 0);
            compare(canceled.count, 1);
        }

        function test_reset_clears_the_editor_and_keeps_the_gates() {
            openPatient({ genderMale: 0, test: 0, test_date: "2014-05-12", rdv1: 1, date1: "2014-05-13" });
            detail.stepPassed = false;
            detail.step2Passed = false;
            phone().text = "07";
            detail.reset();
            compare(detail.state, "base");
            compare(detail.loaded, false);
            compare(detail.currentId, "");
            compare(Object.keys(detail.model), []);
            compare([nameBar.name, nameBar.genderMale, phone().text], ["", true, ""]);
            compare(answers(), ["", "", "", "", ""]);
            compare(question("test").checked, true);
            compare(validate().disabled, false);
            compare(gates(), [false, false]);
            compare(sms().displayed, false);
        }
    }
}
