import QtQuick 2.2

Item {
    id: desk

    width: 400
    height: 200

    DocumentTestCase {
        name: "SMSSend"
        stage: desk
        when: windowShown

        readonly property string caption: "Envoyer le SMS de rappel"

        function test_hiding_shuts_the_bar_over_an_animation_around_its_centred_text() {
            var item = load("SMSSend");
            var text = textItem(item, caption);

            item.displayed = false;
            compare(item.internalHeight, 0);
            compare(item.height, 38);
            tryVerify(function () { return item.height < 38; });
            tryCompare(item, "height", 0);
            compare(item.visible, false);
            item.displayed = true;
            compare(item.internalHeight, 38);
            compare(item.height, 0);
            tryCompare(item, "height", 38);
            // Half shut, and at rest there.
            item.height = 12;
            tryCompare(item, "height", 12);
            fuzzyCompare(text.y + text.height / 2, 6, 0.51);
            fuzzyCompare(text.x + text.width / 2, 137.5, 0.51);
        }

        function test_a_right_click_opens_nothing() {
            var item = load("SMSSend");

            mouseClick(item, 100, 19, Qt.RightButton);
            compare(Native.takeOpenedAddresses(), []);
        }

        function test_name_is_the_text() {
            compare(Native.accessible(named(load("SMSSend"), caption)).role, "Button");
        }
    }
}
