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

        function test_a_right_click_is_not_told() {
            var item = row();
            var clicked = spy(item, "clicked");

            mouseClick(item, 100, 18, Qt.RightButton);
            compare(clicked.count, 0);
        }

        function test_focus_ring_shows_only_with_the_keyboard() {
            var item = row();
            var ring = part(item, "type FocusRing");

            compare(ring.visible, false);
            item.focusLink();
            verify(hasFocus(named(item, "DUPONT Marie")));
            compare(ring.visible, true);
        }

        function test_name_says_the_waiting_number() {
            compare(Native.accessible(named(row({ number: 3 }), "DUPONT Marie (3)")).role, "Button");
            compare(Native.accessible(named(row(), "DUPONT Marie")).role, "Button");
        }
    }
}
