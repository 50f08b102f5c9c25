import QtQuick 2.2

Item {
    id: desk

    width: 400
    height: 200

    DocumentTestCase {
        name: "StepButton"
        stage: desk
        when: windowShown

        readonly property string byDefault: "Si la consultation continue,<br/>cliquez ici"

        function test_look_data() {
            return lookRows([
                ["", "", "displayed", true],
                ["", "", "text", "Si la consultation continue,<br/>cliquez ici"],
                ["", "", "height", 38],
                ["", "", "clip", true],
                ["", "", "behavior", "number 200 Linear"],
                ["", "text " + byDefault, "textFormat", Text.RichText],
                ["", "text " + byDefault, "font.bold", true],
                ["", "text " + byDefault, "font.family", "Arial"],
                ["", "text " + byDefault, "font.pointSize", 11.7],
                ["", "text " + byDefault, "color", "#405a82"],
                ["", "text " + byDefault, "horizontalAlignment", Text.AlignHCenter],
                ["", "text " + byDefault, "opacity", 1]
            ]);
        }

        function test_look(data) {
            compareLook(load("StepButton"), data);
        }

        function test_text_is_centred() {
            var item = load("StepButton");
            var text = textItem(item, byDefault);

            fuzzyCompare(text.x + text.width / 2, item.width / 2, 1);
            fuzzyCompare(text.y + text.height / 2, 19, 1);
        }

        function test_text_fades_while_hovered() {
            var item = load("StepButton");

            hover(item);
            tryCompare(textItem(item, byDefault), "opacity", 0.7);
            mouseMove(desk, 390, 190);
            tryCompare(textItem(item, byDefault), "opacity", 1);
        }

        function test_height_follows_displayed_over_an_animation() {
            var item = load("StepButton");

            item.displayed = false;
            compare(item.internalHeight, 0);
            compare(item.height, 38);
            tryVerify(function () { return item.height > 0 && item.height < 38; });
            tryCompare(item, "height", 0);
            compare(item.visible, false);
            item.displayed = true;
            compare(item.internalHeight, 38);
            tryCompare(item, "height", 38);
        }

        function test_activation_is_told_once_data() {
            return [{ tag: "mouse" }, { tag: "Return", key: Qt.Key_Return }, { tag: "Enter", key: Qt.Key_Enter },
                    { tag: "Space", key: Qt.Key_Space }, { tag: "press action", press: true }];
        }

        function test_activation_is_told_once(data) {
            var item = load("StepButton");
            var clicked = spy(item, "clicked");
            var control = named(item, "Si la consultation continue, cliquez ici");

            if (data.press) {
                verify(Native.press(control));
            } else if (data.key) {
                control.forceActiveFocus();
                keyClick(data.key);
            } else {
                click(item);
            }
            compare(clicked.count, 1);
        }

        function test_accessible_name_has_no_markup() {
            var item = load("StepButton", {
                text: "Si la 1<sup>ère</sup> prise au cabinet a été effectuée,<br/>cliquez ici"
            });

            compare(Native.accessible(named(item, "Si la 1ère prise au cabinet a été effectuée, cliquez ici")).role,
                    "Button");
        }
    }
}
