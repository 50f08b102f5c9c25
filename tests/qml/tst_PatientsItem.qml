import QtQuick 2.2

Item {
    id: desk

    width: 400
    height: 200

    DocumentTestCase {
        name: "PatientsItem"
        stage: desk
        when: windowShown

        function row(properties) {
            var all = { width: 275, text: "DUPONT Marie" };
            var key;

            for (key in properties || {}) {
                all[key] = properties[key];
            }
            return load("PatientsItem", all);
        }

        function test_look_data() {
            return lookRows([
                ["base", "", "height", 38],
                ["base", "first Rectangle", "height", 36],
                ["base", "first Rectangle", "top", 0],
                ["base", "first Rectangle", "color", "#f0f0f0"],
                ["base", "picture next-grey.png", "visible", true],
                ["base", "text DUPONT Marie", "font.family", "Arial"],
                ["base", "text DUPONT Marie", "font.bold", false],
                ["base", "text DUPONT Marie", "elide", Text.ElideRight],
                ["base", "text DUPONT Marie", "maximumLineCount", 1],
                ["base", "text DUPONT Marie", "textFormat", Text.PlainText],
                ["base", "control DUPONT Marie", "cursorShape", Qt.PointingHandCursor],
                ["hovered", "", "height", 38],
                ["hovered", "first Rectangle", "height", 36],
                ["hovered", "first Rectangle", "color", "#dfdfdf"],
                ["hovered", "picture next.png", "visible", true],
                ["hovered", "text DUPONT Marie", "font.bold", true]
            ]);
        }

        function test_look(data) {
            var item = row();

            if (data.state === "hovered") {
                hover(item);
            }
            tryCompare(item, "state", data.state);
            compareLook(item, data);
        }

        function test_leaving_a_row_makes_it_plain_again() {
            var item = row();

            hover(item);
            tryCompare(item, "state", "hovered");
            mouseMove(desk, 390, 190);
            tryCompare(item, "state", "base");
            compare(part(item, "first Rectangle").color.toString(), "#f0f0f0");
            compare(part(item, "picture next-grey.png").visible, true);
        }

        function test_an_always_bold_row_is_bold_without_the_mouse() {
            compare(textItem(row({ alwaysBold: true }), "DUPONT Marie").font.bold, true);
        }

        function test_defaults() {
            var item = load("PatientsItem");

            compare(item.genderMale, true);
            compare(item.alwaysBold, false);
            compare(item.number, 0);
            compare(item.text, "");
            compare(item.image.toString(), "qrc:/images/male.png");
        }

        function test_icon_follows_gender_unless_given_data() {
            return [
                { tag: "man", properties: { genderMale: true }, icon: "male.png" },
                { tag: "woman", properties: { genderMale: false }, icon: "female.png" },
                { tag: "given", properties: { genderMale: false, image: "qrc:/images/add.png" }, icon: "add.png" }
            ];
        }

        function test_icon_follows_gender_unless_given(data) {
            compare(picture(row(data.properties), data.icon).status, Image.Ready);
        }

        function test_badge_shows_only_a_number_above_zero_data() {
            return [
                { tag: "0", number: 0, shown: false },
                { tag: "1", number: 1, shown: true },
                { tag: "42", number: 42, shown: true }
            ];
        }

        function test_badge_shows_only_a_number_above_zero(data) {
            var item = row({ number: data.number });
            var badge = picture(item, "counter-tiny.png");
            var count;

            compare(badge.visible, data.shown);
            if (data.shown) {
                count = textItem(badge, data.number.toString());
                compare(count.font.bold, true);
                compare(count.color.toString(), "#ffffff");
                verify(part(item, "text DUPONT Marie").mapToItem(item, 0, 0).x + textItem(item, "DUPONT Marie").width
                       <= badge.mapToItem(item, 0, 0).x, "the text ends before the badge");
            }
        }

        function test_a_long_name_is_cut_at_the_right_before_the_chevron() {
            var item = row({ text: new Array(60).join("NOM ") });
            var label = textItem(item, item.text);

            verify(label.truncated);
            compare(label.lineCount, 1);
            verify(look(item, label, "right") <= look(item, picture(item, "next-grey.png"), "left"));
        }

        function test_a_click_is_told_data() {
            return [
                { tag: "left", button: Qt.LeftButton, count: 1 },
                { tag: "right", button: Qt.RightButton, count: 0 }
            ];
        }

        function test_a_click_is_told(data) {
            var item = row();
            var clicked = spy(item, "clicked");

            mouseClick(item, 100, 18, data.button);
            compare(clicked.count, data.count);
        }

        function test_keys_and_press_action_click_data() {
            return [
                { tag: "Return", key: Qt.Key_Return },
                { tag: "Enter", key: Qt.Key_Enter },
                { tag: "Space", key: Qt.Key_Space },
                { tag: "press action", key: 0 }
            ];
        }

        function test_keys_and_press_action_click(data) {
            var item = row();
            var clicked = spy(item, "clicked");
            var control = named(item, "DUPONT Marie");

            if (data.key) {
                item.focusLink();
                verify(hasFocus(control));
                keyClick(data.key);
            } else {
                verify(Native.press(control));
            }
            compare(clicked.count, 1);
        }

        function test_focus_ring_shows_only_with_the_keyboard() {
            var item = row();
            var ring = part(item, "type FocusRing");

            compare(ring.visible, false);
            item.focusLink();
            compare(ring.visible, true);
        }

        function test_name_says_the_waiting_number() {
            compare(Native.accessible(named(row({ number: 3 }), "DUPONT Marie (3)")).role, "Button");
            compare(Native.accessible(named(row(), "DUPONT Marie")).role, "Button");
        }
    }
}
