import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 200

    DocumentTestCase {
        name: "Question"
        stage: desk
        when: windowShown

        readonly property string asked: "Avez-vous compris ?"

        /// An expanded question whose animations are over.
        function unfolded() {
            var item = load("Question", { text: asked, checked: true });

            tryCompare(item, "height", 100);
            return item;
        }

        function test_the_height_is_animated_and_its_target_changes_at_once() {
            var item = load("Question", { text: asked });

            tryCompare(item, "height", 60);
            item.checked = true;
            compare(item.internalHeight, 100);
            compare(item.height, 60);
            tryVerify(function () { return item.height > 60 && item.height < 100; });
            tryCompare(item, "height", 100);
            item.displayed = false;
            compare(item.internalHeight, 0);
            compare(item.height, 100);
            tryCompare(item, "height", 0);
        }

        function test_a_hidden_question_stays_visible_to_its_last_line() {
            var item = load("Question", { text: asked });

            tryCompare(item, "height", 60);
            item.height = 1;
            tryCompare(item, "height", 1);
            compare(item.visible, true);
        }

        function test_a_question_without_an_answer_shows_no_short_answer() {
            var item = load("Question", { text: asked });

            compare(part(item, "part shortAnswer").text, "");
        }

        function test_a_click_on_the_row_expands_and_collapses_the_question() {
            var item = load("Question", { text: asked });

            tryCompare(item, "height", 60);
            mouseClick(item, 100, 30);
            compare(item.checked, true);
            tryCompare(item, "height", 100);
            mouseClick(item, 100, 30);
            compare(item.checked, false);
        }

        function test_a_tick_sets_changed_and_saves_once_data() {
            return [{ tag: "Oui" }, { tag: "Non" }];
        }

        function test_a_tick_sets_changed_and_saves_once(data) {
            var item = unfolded();
            var saved = spy(item, "saveIt");

            click(named(item, data.tag));
            compare(item.changed, true);
            compare(saved.count, 1);
            compare(item.yes.checked, data.tag === "Oui");
            compare(item.no.checked, data.tag === "Non");
        }

        function test_switching_saves_twice_and_the_second_time_the_new_answer_data() {
            return [
                { tag: "to Non by mouse", from: "Oui", to: "Non" },
                { tag: "to Oui by mouse", from: "Non", to: "Oui" },
                { tag: "to Non by Space", from: "Oui", to: "Non", key: Qt.Key_Space },
                { tag: "to Non by Return", from: "Oui", to: "Non", key: Qt.Key_Return },
                { tag: "to Oui by Enter", from: "Non", to: "Oui", key: Qt.Key_Enter },
                { tag: "to Non by press action", from: "Oui", to: "Non", press: "Press" },
                { tag: "to Oui by toggle action", from: "Non", to: "Oui", press: "Toggle" }
            ];
        }

        function test_switching_saves_twice_and_the_second_time_the_new_answer(data) {
            var item = unfolded();
            var seen = [];

            click(named(item, data.from));
            item.saveIt.connect(function () { seen.push([item.yes.checked, item.no.checked].join()); });
            if (data.press) {
                verify(Native.press(named(item, data.to), data.press));
            } else if (data.key) {
                named(item, data.to).forceActiveFocus();
                keyClick(data.key);
            } else {
                click(named(item, data.to));
            }
            compare(seen.length, 2);
            compare(seen[1], data.to === "Oui" ? "true,false" : "false,true");
        }

        function test_unticking_by_script_saves_once_more() {
            var item = unfolded();
            var saved;

            click(named(item, "Oui"));
            item.changed = false;
            saved = spy(item, "saveIt");
            item.yes.checked = false;
            compare(saved.count, 1);
            compare(item.changed, true);
            compare(item.no.checked, false);
        }

        function test_assistive_technology_does_not_untick_an_answer_data() {
            return [{ tag: "Press" }, { tag: "Toggle" }];
        }

        function test_assistive_technology_does_not_untick_an_answer(data) {
            var item = unfolded();
            var saved;

            click(named(item, "Non"));
            saved = spy(item, "saveIt");
            verify(Native.press(named(item, "Non"), data.tag));
            compare(saved.count, 0);
            compare(item.no.checked, true);
        }

        function test_a_click_on_the_ticked_answer_changes_nothing() {
            var item = unfolded();
            var saved;

            click(named(item, "Non"));
            saved = spy(item, "saveIt");
            click(named(item, "Non"));
            compare(saved.count, 0);
            compare(item.no.checked, true);
        }

        function test_collapsed_answers_cannot_be_focused() {
            var item = load("Question", { text: asked });

            tryCompare(item, "height", 60);
            compare(named(item, "Oui").visible, false);
            item.checked = true;
            tryCompare(named(item, "Oui"), "visible", true);
        }

        function test_controls_have_roles_and_names() {
            var item = unfolded();

            compare(Native.accessible(named(item, "Oui")).role, "CheckBox");
            compare(Native.accessible(named(item, "Non")).role, "CheckBox");
            compare(ofType(item, "Clickable").length, 1);
            compare(Native.accessible(ofType(item, "Clickable")[0]).role, "Button");
            compare(Native.accessible(ofType(item, "Clickable")[0]).name, "Avez-vous compris ?");
        }
    }
}
