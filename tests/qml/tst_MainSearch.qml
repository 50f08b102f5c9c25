import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 760

    MainTestCase {
        name: "MainSearch"
        stage: desk
        when: windowShown

        function prepare() {
            givenPatients([
                { id: 1, name: "Dupont", notification_date: "2014-01-01" },
                { id: 2, name: "Adu", genderMale: 1 },
                { id: 3, name: "DURAND", notification_date: "2014-01-01" },
                { id: 4, name: "Martin" }
            ]);
            start();
        }

        function test_the_start_counts_the_patients_and_focuses_the_search() {
            compare(main.number, 2);
            compare(main.total, 4);
            verify(search().activeFocus);
            compare(main.state, "");
        }

        function test_only_a_refresh_counts_again() {
            Native.rows("DELETE FROM Patients WHERE id = 1");
            search().text = "d";
            compare(main.number, 2);
            compare(main.total, 4);
            main.refresh();
            compare(main.number, 1);
            compare(main.total, 3);
        }

        function test_typing_lists_names_that_start_with_the_text_then_names_that_contain_it() {
            type("du");
            compare(search().text, "du");
            tryVerify(function () { return found().length === 3; });
            compare(found(), ["Dupont", "DURAND", "Adu"]);
            compare(frame().internalState, "results");
        }

        function test_results_follow_a_deletion() {
            type("du");
            Native.rows("DELETE FROM Patients WHERE id IN (1, 2)");
            main.removedPatients([1, "2", 4]);
            tryCompare(searchBar().model, "count", 1);
            tryVerify(function () { return found().join() === "DURAND"; });
            compare(search().text, "du");
            main.removedPatients([3]);
            compare(frame().internalState, "base");
        }

        function test_a_patient_deleted_elsewhere_opens_a_disabled_editor() {
            expectedWarnings = ["The store has no such patient"];
            type("dup");
            Native.rows("DELETE FROM Patients WHERE id = 1");
            keyClick(Qt.Key_Return);
            compare([main.state, detail().loaded], ["open", false]);
            settle();
            type("x");
            keyClick(Qt.Key_Space);
            compare(main.state, "close");
            compare(search().text, "");
        }

        function test_all_parts_are_loaded_soon_after_the_start_data() {
            return [{ tag: "in a window", stage: desk }, { tag: "without a window", stage: null }];
        }

        function test_all_parts_are_loaded_soon_after_the_start(data) {
            var component = Qt.createComponent("qrc:/qml/main.qml");
            var document = component.createObject(data.stage);

            tryVerify(function () {
                return ofType(document, "Detail").length === 1 && ofType(document, "PatientsResults").length === 1;
            }, 1000);
            document.destroy();
        }

        function test_clearing_the_search_empties_the_list_and_shrinks_the_frame() {
            type("d");
            compare(frame().internalState, "results");
            keyClick(Qt.Key_Backspace);
            compare(searchBar().model.count, 0);
            compare(frame().internalState, "base");
            compare(frame().internalHeight, 174);
            tryCompare(results(), "opacity", 0);
            tryCompare(frame(), "height", 174);
        }

        function test_the_text_of_the_creation_link_depends_on_the_search_data() {
            return [
                { tag: "nothing", text: "", link: "Nouvelle fiche patient" },
                { tag: "match", text: "d", link: "Créer la fiche patient" },
                { tag: "no match", text: "xyz", link: "Créer la fiche patient" },
                { tag: "blank", text: " ", link: "Créer la fiche patient" }
            ];
        }

        function test_the_text_of_the_creation_link_depends_on_the_search(data) {
            search().text = data.text;
            compare(named(listPane(), data.link).visible, true);
            compare(namedAll(listPane(), data.link === "Nouvelle fiche patient" ? "Créer la fiche patient"
                                                                              : "Nouvelle fiche patient").length, 0);
        }

        function test_a_click_on_a_result_opens_its_patient() {
            type("du");
            tryCompare(frame(), "height", 326);
            click(named(results(), "DURAND"));
            compare(main.state, "open");
            compare(detail().currentId, "3");
            compare(nameField().text, "DURAND");
            verify(nameField().activeFocus);
            compare(frame().internalState, "detail");
        }

        function test_the_creation_link_opens_a_new_patient_with_the_typed_name_even_with_results() {
            type("Dup");
            click(named(main, "Créer la fiche patient"));
            compare(main.state, "open");
            compare(detail().currentId, "");
            compare(nameField().text, "Dup");
            compare(detail().state, "buttons");
            verify(nameField().activeFocus);
        }

        function test_the_creation_link_without_a_text_opens_a_new_patient_without_a_name_that_cannot_be_saved() {
            click(named(main, "Nouvelle fiche patient"));
            compare(main.state, "open");
            compare(nameField().text, "");
            compare(detail().state, "base");
            verify(nameField().activeFocus);
            keyClick("a");
            keyClick(Qt.Key_Backspace);
            compare(detail().state, "buttons");
            compare(named(main, "Enregistrer").parent.disabled, true);
        }

        function test_typing_while_the_editor_is_open_returns_to_the_results() {
            main.openPatient("1");
            compare(main.state, "open");
            searchBar().text = "du";
            compare(main.state, "close");
            compare(frame().internalState, "results");
            tryVerify(function () { return found().length === 3; });
            tryCompare(searchBar(), "opacity", 1);
            tryCompare(nameBar(), "opacity", 0);
            tryCompare(listPane().anchors, "leftMargin", 0);
        }

        function test_the_magnifier_returns_to_the_list_too() {
            main.openPatient("1");
            searchBar().changed();
            compare(main.state, "close");
        }
    }
}
