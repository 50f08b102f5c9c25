import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 760

    MainTestCase {
        name: "MainEditor"
        stage: desk
        when: windowShown

        function prepare() {
            givenPatients([
                { id: 1, name: "Dupont", genderMale: 1, created: "2014-04-10" },
                { id: 2, name: "Martin", genderMale: 0, created: "2014-04-10" }
            ]);
            start();
        }

        function compareLeft() {
            compare(main.state, "close");
            compare(detail().currentId, "");
            compare(detail().loaded, false);
            compare(search().text, "");
            verify(search().activeFocus);
        }

        function test_open_patient_loads_opens_and_focuses_the_name_data() {
            return [{ tag: "text", id: "2" }, { tag: "number", id: 2 }];
        }

        function test_open_patient_loads_opens_and_focuses_the_name(data) {
            main.openPatient(data.id);
            compare(main.state, "open");
            compare(detail().currentId, "2");
            compare(nameField().text, "Martin");
            compare(nameBar().genderMale, false);
            compare(detail().externalName, "Martin");
            compare(detail().externalGenderMale, false);
            verify(nameField().activeFocus);
        }

        function test_editor_reads_the_name_bar() {
            main.openPatient("1");
            nameField().text = "Dupond";
            nameBar().genderMale = false;
            compare(detail().externalName, "Dupond");
            compare(detail().externalGenderMale, false);
        }

        function test_back_arrow_leaves_the_editor_and_saves_nothing() {
            search().text = "du";
            main.openPatient("1");
            settle();
            nameField().text = "Changed";
            click(named(main, "Retour"));
            compareLeft();
            compare(stored(1).name, "Dupont");
            tryCompare(listPane().anchors, "leftMargin", 0);
        }

        function test_sliding_and_fading_parts_stay_visible_until_the_end() {
            var shown = function () {
                return [searchBar(), listPane(), nameBar(), detail()].map(function (item) { return item.visible; });
            };

            tryVerify(detail);
            compare(shown(), [true, true, false, false]);
            main.openPatient("1");
            compare(shown(), [true, true, true, true]);
            settle();
            compare(shown(), [false, false, true, true]);
            click(named(main, "Retour"));
            compare(shown(), [true, true, true, true]);
            settle();
            compare(shown(), [true, true, false, false]);
            search().text = "du";
            tryCompare(results(), "opacity", 1);
            search().text = "";
            compare(results().visible, true);
            tryCompare(results(), "visible", false);
        }

        function test_need_refresh_is_forwarded() {
            var needRefresh = spy(main, "needRefresh");

            main.openPatient("1");
            compare(needRefresh.count, 0);
            detail().needRefresh();
            compare(needRefresh.count, 1);
        }

        function test_counts_change_only_on_refresh() {
            main.needRefresh.connect(main.refresh);
            compare([main.number, main.total], [0, 2]);
            search().text = "Nouveau";
            click(named(main, "Créer la fiche patient"));
            settle();
            click(named(main, "Enregistrer"));
            compare([main.number, main.total], [1, 3]);
        }

        function test_the_editor_closes_only_if_its_patient_was_removed_data() {
            return [
                { tag: "its number", list: [1], leaves: true },
                { tag: "its text", list: ["1"], leaves: true },
                { tag: "among numbers", list: [7, 8, 1], leaves: true },
                { tag: "among texts", list: ["7", "1", "8"], leaves: true },
                { tag: "another number", list: [2], leaves: false },
                { tag: "another text", list: ["11", "12"], leaves: false },
                { tag: "none", list: [], leaves: false },
                { tag: "null", list: null, leaves: false },
                { tag: "undefined", list: undefined, leaves: false }
            ];
        }

        function test_the_editor_closes_only_if_its_patient_was_removed(data) {
            search().text = "du";
            main.openPatient("1");
            main.removedPatients(data.list);
            if (data.leaves) {
                compareLeft();
            } else {
                compare(main.state, "open");
                compare(detail().currentId, "1");
                compare(detail().loaded, true);
                compare(search().text, "du");
            }
        }

        function test_removed_patients_do_not_change_the_search_when_no_editor_is_open() {
            search().text = "du";
            main.removedPatients([1, 2]);
            compare(search().text, "du");
            compare(main.state, "close");
        }

        function test_removed_patients_do_not_close_a_new_patient() {
            search().text = "du";
            click(named(main, "Créer la fiche patient"));
            main.removedPatients([1, "2"]);
            compare(main.state, "open");
            compare(nameField().text, "du");
        }

        function test_leaving_a_new_patient_by_cancel_returns_to_the_search() {
            search().text = "Nouveau";
            click(named(main, "Créer la fiche patient"));
            settle();
            click(named(main, "Annuler"));
            compareLeft();
            compare(Native.rows("SELECT id FROM Patients").length, 2);
        }

        function test_deleting_in_the_editor_returns_to_the_search() {
            main.openPatient("1");
            settle();
            nameField().text = "";
            tryCompare(detail(), "height", 176);
            click(named(main, "Supprimer"));
            compareLeft();
            compare(stored(1), undefined);
            compare(stored(2).name, "Martin");
        }
    }
}
