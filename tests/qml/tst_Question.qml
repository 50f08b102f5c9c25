import QtQuick 2.2

Item {
    id: desk

    width: 400
    height: 200

    DocumentTestCase {
        name: "Question"
        stage: desk
        when: windowShown

        readonly property string asked: "Avez-vous compris ?"

        /// A question, unfolded and at rest.
        function unfolded() {
            var item = load("Question", { text: asked, checked: true });

            tryCompare(item, "height", 100);
            return item;
        }

        function test_defaults() {
            var item = load("Question");

            compare(item.text, "");
            compare(item.changed, false);
            compare(item.date, "");
            compare(item.checked, false);
            compare(item.displayed, true);
            compare(item.yes.checked, false);
            compare(item.no.checked, false);
            compare(item.internalHeight, 60);
            compare(item.width, 275);
        }

        function test_look_data() {
            return lookRows([
                ["", "first Rectangle", "color", "#002559"],
                ["", "first Rectangle", "width", 4],
                ["", "first Rectangle", "left", 0],
                ["", "parent of first Rectangle", "height", 40],
                ["", "text " + asked, "font.family", "Arial"],
                ["", "text " + asked, "font.pointSize", 11.7],
                ["", "text " + asked, "color", "#405a82"],
                ["", "text " + asked, "textFormat", Text.RichText],
                ["", "text " + asked, "wrapMode", Text.WordWrap],
                ["", "picture next.png", "status", Image.Ready],
                ["", "control Oui", "left", 30],
                ["", "parent of control Oui", "height", 40],
                ["", "parent of control Oui", "top", 50],
                ["", "type TickMark in control Oui", "width", 18],
                ["", "type TickMark in control Oui", "height", 18],
                ["", "type TickMark in control Non", "width", 18],
                ["", "type TickMark in control Non", "height", 18],
                ["", "text Oui in control Oui", "font.bold", true],
                ["", "text Oui in control Oui", "font.family", "Arial"],
                ["", "text Oui in control Oui", "font.pointSize", 14.3],
                ["", "text Oui in control Oui", "color", "#002458"],
                ["", "text Non in control Non", "font.bold", true],
                ["", "text Non in control Non", "font.pointSize", 14.3],
                ["", "text Non in control Non", "color", "#002458"],
                ["", "", "behavior", "smoothed 300 InOutQuad"],
                ["", "picture next.png", "behavior", "smoothed 300 InOutQuad"]
            ]);
        }

        function test_look(data) {
            compareLook(unfolded(), data);
        }

        function test_a_ticked_box_is_filled_with_its_colour_data() {
            return [{ tag: "Oui", fill: "#68c268" }, { tag: "Non", fill: "#e02b0e" }];
        }

        function test_a_ticked_box_is_filled_with_its_colour(data) {
            var item = unfolded();
            var mark = part(item, "type TickMark in control " + data.tag);

            compare(picture(mark, "tiny-tick.png").visible, false);
            click(named(item, data.tag));
            compare(mark.color.toString(), data.fill);
            compare(picture(mark, "tiny-tick.png").visible, true);
            compare(picture(mark, "tiny-tick.png").status, Image.Ready);
        }

        // The first state that holds wins.
        function test_states_data() {
            return [
                { tag: "missing", displayed: false, checked: false, height: 0, rotation: 0, shortAnswer: 1 },
                { tag: "missing though unfolded", displayed: false, checked: true, height: 0, rotation: 0,
                  shortAnswer: 1 },
                { tag: "base", displayed: true, checked: false, height: 60, rotation: 0, shortAnswer: 1 },
                { tag: "buttons", displayed: true, checked: true, height: 100, rotation: 90, shortAnswer: 0 }
            ];
        }

        function test_states(data) {
            var item = load("Question", { text: asked, displayed: data.displayed, checked: data.checked });

            item.yes.checked = true;
            compare(item.state, data.tag.split(" ")[0]);
            compare(item.internalHeight, data.height);
            tryCompare(item, "height", data.height);
            tryCompare(picture(item, "next.png"), "rotation", data.rotation);
            tryCompare(shortAnswer(item, "Oui"), "opacity", data.shortAnswer);
            compare(item.visible, data.height > 0);
        }

        /// The answer at the right of the question.
        function shortAnswer(item, text) {
            return where(picture(item, "next.png").parent, function (each) {
                return isText(each) && each.text === text;
            })[0];
        }

        function test_height_is_animated_while_its_target_is_reached_at_once() {
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

        function test_short_answer_data() {
            return [
                { tag: "yes", yes: true, no: false, text: "Oui", shade: "#67c265" },
                { tag: "no", yes: false, no: true, text: "Non", shade: "#e12c0d" }
            ];
        }

        function test_short_answer(data) {
            var item = load("Question", { text: asked });
            var answer;

            item.yes.checked = data.yes;
            item.no.checked = data.no;
            answer = shortAnswer(item, data.text);
            compare(answer.color.toString(), data.shade);
            compare(answer.font.bold, true);
            compare(answer.font.family, "Arial");
            fuzzyCompare(answer.font.pointSize, 14.3, 0.001);
            compare(behaviorText(answer), "smoothed 300 InOutQuad");
            verify(look(item, answer, "right") <= look(item, picture(item, "next.png"), "left"));
        }

        function test_no_answer_no_short_answer() {
            var item = load("Question", { text: asked });

            compare(shortAnswer(item, "Oui"), undefined);
            compare(shortAnswer(item, "Non"), undefined);
        }

        function test_a_click_on_the_row_unfolds_and_folds() {
            var item = load("Question", { text: asked });

            tryCompare(item, "height", 60);
            mouseClick(item, 100, 30);
            compare(item.checked, true);
            tryCompare(item, "height", 100);
            mouseClick(item, 100, 30);
            compare(item.checked, false);
        }

        function test_keys_and_press_action_unfold_data() {
            return [{ tag: "Return", key: Qt.Key_Return }, { tag: "Enter", key: Qt.Key_Enter },
                    { tag: "Space", key: Qt.Key_Space }, { tag: "press action", key: 0 }];
        }

        function test_keys_and_press_action_unfold(data) {
            var item = load("Question", { text: asked });
            var row = named(item, asked);

            tryCompare(item, "height", 60);
            if (data.key) {
                row.forceActiveFocus();
                keyClick(data.key);
            } else {
                verify(Native.press(row));
            }
            compare(item.checked, true);
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

        function test_switching_saves_twice_and_last_with_the_new_answer_data() {
            return [
                { tag: "to Non by mouse", from: "Oui", to: "Non" },
                { tag: "to Oui by mouse", from: "Non", to: "Oui" },
                { tag: "to Non by Space", from: "Oui", to: "Non", key: Qt.Key_Space },
                { tag: "to Non by Return", from: "Oui", to: "Non", key: Qt.Key_Return },
                { tag: "to Oui by Enter", from: "Non", to: "Oui", key: Qt.Key_Enter },
                { tag: "to Non by press action", from: "Oui", to: "Non", press: true }
            ];
        }

        function test_switching_saves_twice_and_last_with_the_new_answer(data) {
            var item = unfolded();
            var seen = [];

            click(named(item, data.from));
            item.saveIt.connect(function () { seen.push([item.yes.checked, item.no.checked].join()); });
            if (data.press) {
                verify(Native.press(named(item, data.to)));
            } else if (data.key) {
                named(item, data.to).forceActiveFocus();
                keyClick(data.key);
            } else {
                click(named(item, data.to));
            }
            compare(seen.length, 2);
            compare(seen[1], data.to === "Oui" ? "true,false" : "false,true");
        }

        function test_unticking_by_program_saves_once_more() {
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

        function test_a_click_on_the_ticked_answer_changes_nothing() {
            var item = unfolded();
            var saved;

            click(named(item, "Non"));
            saved = spy(item, "saveIt");
            click(named(item, "Non"));
            compare(saved.count, 0);
            compare(item.no.checked, true);
        }

        function test_folded_answers_are_out_of_the_keyboards_reach() {
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
