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
