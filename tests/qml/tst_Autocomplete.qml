import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 200

    DocumentTestCase {
        name: "Autocomplete"
        stage: desk
        when: windowShown

        function bar() {
            var made = load("Autocomplete", { placeholder: "NOM Prénom" });

            made.width = 275;
            return made;
        }

        function field(item) {
            return named(item, "Rechercher un patient");
        }

        function names(item) {
            var list = [];
            var i;

            for (i = 0; i < item.model.count; ++i) {
                list.push(item.model.get(i).name);
            }
            return list;
        }

        function test_active_and_has_results_follow_the_text_data() {
            return [
                { tag: "nothing typed", text: "", active: false, hasResults: false },
                { tag: "match", text: "d", active: true, hasResults: true },
                { tag: "no match", text: "x", active: true, hasResults: false }
            ];
        }

        function test_active_and_has_results_follow_the_text(data) {
            var item;

            givenPatients([{ name: "Dupont" }]);
            item = bar();
            item.text = data.text;
            compare(item.active, data.active);
            compare(item.hasResults, data.hasResults);
        }

        function test_each_keystroke_and_clearing_signal_changed() {
            var item;
            var changed;

            givenPatients([{ name: "Dupont" }]);
            item = bar();
            changed = spy(item, "changed");
            item.focus();
            keyClick("d");
            compare(changed.count, 1);
            compare(names(item), ["Dupont"]);
            keyClick("x");
            compare(changed.count, 2);
            compare(names(item), []);
            keyClick(Qt.Key_Backspace);
            compare(changed.count, 3);
            compare(names(item), ["Dupont"]);
            item.reset();
            compare(changed.count, 4);
            compare(names(item), []);
        }

        function test_the_model_is_filled_before_changed_is_signalled() {
            var item;
            var seen = -1;

            givenPatients([{ name: "Dupont" }]);
            item = bar();
            item.changed.connect(function () { seen = item.model.count; });
            item.text = "d";
            compare(seen, 1);
        }

        function test_reset_clears_the_text_and_takes_the_focus() {
            var item = bar();

            item.text = "d";
            desk.forceActiveFocus();
            item.reset();
            compare(item.text, "");
            verify(field(item).activeFocus);
        }

        function test_clicked_is_never_signalled() {
            var item = bar();
            var clicked = spy(item, "clicked");

            click(item);
            click(named(item, "Rechercher"));
            item.text = "du";
            click(named(item, "Effacer la recherche"));
            compare(item.text, "");
            compare(clicked.count, 0);
        }

        function test_a_right_click_on_the_field_opens_its_menu() {
            var item = bar();
            var input = field(item);
            var of = function (property) {
                return [0, 1, 2, 3].map(function (i) { return input.fieldMenu.items[i][property]; });
            };
            var choose = function (number, enabled) {
                mouseClick(input, 40, 10, Qt.RightButton);
                compare(of("text"), ["Couper", "Copier", "Coller", "Tout sélectionner"]);
                compare(of("enabled"), enabled);
                input.fieldMenu.items[number].trigger();
                input.fieldMenu.__dismissMenu();
            };

            input.text = "dupont";
            input.select(0, 2);
            choose(0, [true, true, input.canPaste, true]);
            compare(input.text, "pont");
            choose(2, [false, false, true, true]);
            compare(input.text, "dupont");
            choose(3, [false, false, true, true]);
            compare(input.selectedText, "dupont");
            choose(1, [true, true, true, true]);
            compare(input.text, "dupont");
            input.text = "";
            choose(2, [false, false, true, false]);
            compare(input.text, "dupont");
        }
    }
}
