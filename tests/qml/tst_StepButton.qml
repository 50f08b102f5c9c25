import QtQuick 2.2

Item {
    id: desk

    width: 400
    height: 200

    DocumentTestCase {
        name: "StepButton"
        stage: desk
        when: windowShown

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

        function test_accessible_name_has_no_markup() {
            var item = load("StepButton", {
                text: "Si la 1<sup>ère</sup> prise au cabinet a été effectuée,<br/>cliquez ici"
            });

            compare(Native.accessible(named(item, "Si la 1ère prise au cabinet a été effectuée, cliquez ici")).role,
                    "Button");
        }
    }
}
