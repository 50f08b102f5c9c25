import QtQuick 2.2

Item {
    id: desk

    width: 400
    height: 200

    DocumentTestCase {
        name: "ActionButton"
        stage: desk
        when: windowShown

        function button(properties) {
            var made = load("ActionButton", properties);

            made.width = 138;
            made.text = "Enregistrer";
            return made;
        }

        function test_disabled_under_the_mouse_goes_grey_and_comes_back() {
            var item = button();

            hover(item);
            tryCompare(item, "state", "hovered");
            item.disabled = true;
            compare(item.color.toString(), "#a9a9a9");
            item.disabled = false;
            tryVerify(function () { return item.color.toString() !== "#a9a9a9"; });
        }

        function test_activation_is_told_unless_disabled_data() {
            var ways = [{ tag: "mouse" }, { tag: "Return", key: Qt.Key_Return }, { tag: "Enter", key: Qt.Key_Enter },
                        { tag: "Space", key: Qt.Key_Space }, { tag: "press action", press: true }];

            return ways.concat(ways.map(function (way) {
                return { tag: "disabled, " + way.tag, key: way.key, press: way.press, disabled: true };
            }));
        }

        function test_activation_is_told_unless_disabled(data) {
            var item = button({ disabled: data.disabled === true });
            var clicked = spy(item, "clicked");
            var control = named(item, "Enregistrer");

            if (data.press) {
                Native.press(control);
            } else if (data.key) {
                control.forceActiveFocus();
                keyClick(data.key);
            } else {
                click(item);
            }
            compare(clicked.count, data.disabled ? 0 : 1);
        }

        function test_tab_passes_over_a_disabled_button() {
            var controls = [button(), button({ disabled: true, y: 50 }), button({ y: 100 })].map(function (item) {
                return named(item, "Enregistrer");
            });

            controls[0].forceActiveFocus();
            keyClick(Qt.Key_Tab);
            verify(hasFocus(controls[2]));
        }

        function test_name_is_the_text() {
            compare(Native.accessible(named(button(), "Enregistrer")).role, "Button");
        }
    }
}
