import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 760

    MainTestCase {
        name: "MainKeyboard"
        stage: desk
        when: windowShown

        function prepare() {
            givenPatients([
                { id: 1, name: "Dupont", genderMale: 1, created: "2014-04-10" },
                { id: 2, name: "DURAND", created: "2014-04-10", test: 0, test_date: "2014-05-01" }
            ]);
            start();
        }

        /// The accessible name of the focused control.
        function focused() {
            var item = Native.focusItem(main);
            var control = only(where(main, function (each) { return isControl(each) && Native.isBelow(item, each); }),
                               "focused control");

            return Native.accessible(control).name;
        }

        /// The names of the controls in one round of Tab from the search or name field.
        function tabRound() {
            var names = [focused()];
            var i;

            for (i = 0; i < 30; ++i) {
                keyClick(Qt.Key_Tab);
                if (focused() === names[0]) {
                    return names;
                }
                names.push(focused());
            }
            return names;
        }

        function test_tab_order_at_the_start() {
            compare(tabRound(), ["Rechercher un patient", "Effacer la recherche", "Nouvelle fiche patient",
                                 "Liste des patients en attente", "Contacts VESK", "Liste de tous les patients",
                                 "Fermer", "Rechercher"]);
        }

        function test_tab_order_with_results() {
            type("du");
            tryCompare(results(), "opacity", 1);
            compare(tabRound(), ["Rechercher un patient", "Effacer la recherche", "Créer la fiche patient",
                                 "Dupont", "DURAND", "Liste des patients en attente", "Contacts VESK",
                                 "Liste de tous les patients", "Fermer", "Rechercher"]);
        }

        function test_tab_order_in_the_editor() {
            main.openPatient("1");
            settle();
            compare(tabRound(), ["Nom du patient", "Sexe : homme", "Téléphone",
                                 "Avez-vous pratiqué des tests cutanés sur le patient ?", "Oui", "Non",
                                 "Envoyer le SMS de rappel", "Contacts VESK", "Liste de tous les patients", "Fermer",
                                 "Retour"]);
        }

        function test_tab_order_while_editing() {
            main.openPatient("1");
            type("x");
            settle();
            compare(tabRound(), ["Nom du patient", "Sexe : homme", "Téléphone", "Enregistrer", "Annuler",
                                 "Envoyer le SMS de rappel", "Contacts VESK", "Liste de tous les patients", "Fermer",
                                 "Retour"]);
        }

        function test_backtab_reverses_the_tab_order() {
            compare(focused(), "Rechercher un patient");
            keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
            compare(focused(), "Rechercher");
            keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
            compare(focused(), "Fermer");
        }

        function test_down_in_the_search_goes_to_the_results_and_return_opens_one() {
            type("du");
            tryVerify(function () { return found().length === 2; });
            keyClick(Qt.Key_Down);
            compare(focused(), "Dupont");
            keyClick(Qt.Key_Return);
            compare(main.state, "open");
            compare(detail().currentId, "1");
        }

        function test_down_without_results_goes_to_the_creation_link() {
            type("x");
            keyClick(Qt.Key_Down);
            compare(focused(), "Créer la fiche patient");
        }

        function test_return_in_the_search_opens_the_first_result_data() {
            return [{ tag: "Return", key: Qt.Key_Return }, { tag: "Enter", key: Qt.Key_Enter }];
        }

        function test_return_in_the_search_opens_the_first_result(data) {
            type("dur");
            tryVerify(function () { return found().length === 1; });
            keyClick(data.key);
            compare(main.state, "open");
            compare(detail().currentId, "2");
            verify(nameField().activeFocus);
        }

        function test_return_without_results_opens_nothing() {
            type("x");
            keyClick(Qt.Key_Return);
            verify(main.state !== "open");
        }

        // A fast typist can press Return before the list has created its rows.
        function test_return_right_after_the_last_letter_opens_the_first_result() {
            type("du");
            keyClick(Qt.Key_Return);
            compare(detail().currentId, "1");
        }

        function test_a_patient_is_created_without_the_mouse() {
            type("Nouveau");
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Space);
            compare(main.state, "open");
            settle();
            keyClick(Qt.Key_Tab);
            keyClick(Qt.Key_Tab);
            compare(focused(), "Téléphone");
            type("0612");
            keyClick(Qt.Key_Tab);
            compare(focused(), "Enregistrer");
            keyClick(Qt.Key_Return);
            compare(Native.rows("SELECT name, phone FROM Patients WHERE id > 2"),
                    [{ name: "Nouveau", phone: "0612" }]);
        }

        function test_fields_are_accessible_as_editable_texts() {
            main.openPatient("2");
            [search(), nameField(), named(main, "Téléphone")].forEach(function (field) {
                compare(Native.accessible(field).role, "EditableText");
            });
        }

        function test_every_control_has_a_role_and_a_name() {
            var seen = 0;

            main.openPatient("2");
            where(main, isControl).forEach(function (control) {
                var accessible = Native.accessible(control);

                ++seen;
                verify(accessible !== undefined && accessible !== null, Native.typeName(control));
                verify(accessible.name !== "", Native.typeName(control) + " has no name");
                verify(["Button", "EditableText", "CheckBox"].indexOf(accessible.role) >= 0, accessible.role);
            });
            verify(seen >= 30);
        }

        function test_every_mouse_area_but_the_drag_zone_belongs_to_a_control() {
            var others = where(main, function (each) {
                return each.hasOwnProperty("pressAndHoldInterval") && each.hasOwnProperty("cursorShape")
                    && !where(main, isControl).some(function (control) { return Native.isBelow(each, control); })
                    && !Native.isBelow(each, results());
            });

            compare(others.length, 1);
            compare(others[0].height, 42);
        }

        function test_the_focused_control_shows_its_focus_frame() {
            var i;

            main.openPatient("2");
            settle();
            for (i = 0; i < 12; ++i) {
                keyClick(Qt.Key_Tab);
                if (["Nom du patient", "Téléphone"].indexOf(focused()) < 0) {
                    compare(ofType(main, "FocusRing").filter(function (ring) { return ring.visible; }).length, 1,
                            focused());
                }
            }
        }
    }
}
