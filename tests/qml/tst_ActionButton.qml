import QtQuick 2.2

Item {
    id: desk

    width: 400
    height: 200

    DocumentTestCase {
        name: "ActionButton"
        stage: desk
        when: windowShown

        readonly property string icon: "qrc:/images/yes-white.png"

        function button(properties) {
            var made = load("ActionButton", properties);

            made.width = 138;
            made.text = "Enregistrer";
            return made;
        }

        function test_defaults_data() {
            return lookRows([
                ["", "", "height", 38],
                ["", "", "backgroundColor", "#55b03b"],
                ["", "", "hoveredBackgroundColor", "#7abb67"],
                ["", "", "disabledBackgroundColor", "#a9a9a9"],
                ["", "", "textBold", true],
                ["", "", "disabled", false],
                ["", "", "image", ""],
                ["", "", "state", "base"],
                ["", "text Enregistrer", "font.bold", true],
                ["", "text Enregistrer", "font.family", "Arial"]
            ]);
        }

        function test_defaults(data) {
            compareLook(button(), data);
        }

        function test_states_data() {
            return [
                { tag: "base", hovered: false, disabled: false, state: "base", shade: "#55b03b" },
                { tag: "hovered", hovered: true, disabled: false, state: "hovered", shade: "#7abb67" },
                { tag: "disabled", hovered: false, disabled: true, state: "disabled", shade: "#a9a9a9" },
                { tag: "disabled and hovered", hovered: true, disabled: true, state: "disabled", shade: "#a9a9a9" }
            ];
        }

        function test_states(data) {
            var item = button({ disabled: data.disabled });

            if (data.hovered) {
                hover(item);
            }
            tryCompare(item, "state", data.state);
            compare(item.color.toString(), data.shade);
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

        function test_given_colours_are_taken() {
            var item = button({ backgroundColor: "#112233", hoveredBackgroundColor: "#445566",
                                disabledBackgroundColor: "#778899", textColor: "#010203", textBold: false });

            compare(item.color.toString(), "#112233");
            compare(textItem(item, "Enregistrer").color.toString(), "#010203");
            compare(textItem(item, "Enregistrer").font.bold, false);
            hover(item);
            tryVerify(function () { return item.color.toString() === "#445566"; });
            item.disabled = true;
            compare(item.color.toString(), "#778899");
        }

        function test_with_an_icon_the_text_stands_left_after_it() {
            var item = button({ image: icon });
            var image = picture(item, "yes-white.png");

            compare(image.x, 14);
            compare(image.visible, true);
            compare(textItem(item, "Enregistrer").x, image.x + image.width + 20);
            compare(textItem(item, "Enregistrer").horizontalAlignment, Text.AlignLeft);
        }

        function test_without_an_icon_the_text_is_centred_between_margins() {
            var item = button();
            var text = textItem(item, "Enregistrer");

            compare(text.x, 5);
            compare(text.x + text.width, 133);
            compare(text.horizontalAlignment, Text.AlignHCenter);
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
