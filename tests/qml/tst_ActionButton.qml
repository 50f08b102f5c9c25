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
