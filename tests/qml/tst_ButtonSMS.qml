import QtQuick 2.2

Item {
    id: desk

    width: 400
    height: 100

    DocumentTestCase {
        name: "ButtonSMS"
        stage: desk
        when: windowShown

        readonly property string caption: "Envoi SMS"

        function test_look_data() {
            return lookRows([
                ["", "", "width", 80],
                ["", "", "height", 26.6667],
                ["", "", "radius", 3],
                ["", "", "color", "#ffffff"],
                ["", "type BorderImage", "source", "qrc:/images/sms-border.png"],
                ["", "type BorderImage", "status", Image.Ready],
                ["", "type BorderImage", "border.left", 3],
                ["", "type BorderImage", "border.right", 3],
                ["", "type BorderImage", "border.top", 3],
                ["", "type BorderImage", "border.bottom", 3],
                ["", "type BorderImage", "width", 80],
                ["", "text " + caption, "color", "#002357"],
                ["", "text " + caption, "font.family", "Arial"],
                ["", "text " + caption, "font.pointSize", 12.2353],
                ["wide", "", "height", 40],
                ["wide", "text " + caption, "font.pointSize", 18.3529],
                ["", "control " + caption, "cursorShape", Qt.PointingHandCursor]
            ]);
        }

        function test_look(data) {
            compareLook(load("ButtonSMS", data.state === "wide" ? { width: 120 } : {}), data);
        }

        function test_text_is_centred_and_fits() {
            var item = load("ButtonSMS");
            var text = textItem(item, caption);

            fuzzyCompare(text.x + text.width / 2, item.width / 2, 1);
            fuzzyCompare(text.y + text.height / 2, item.height / 2, 1);
            verify(text.width < item.width - 6);
        }

        function test_activation_opens_the_services_page_without_anything_of_the_patient_data() {
            return [{ tag: "mouse" }, { tag: "Return", key: Qt.Key_Return }, { tag: "Enter", key: Qt.Key_Enter },
                    { tag: "Space", key: Qt.Key_Space }, { tag: "press action", press: true }];
        }

        function test_activation_opens_the_services_page_without_anything_of_the_patient(data) {
            var item = load("ButtonSMS");
            var clicked = spy(item, "clicked");
            var control = named(item, caption);

            if (data.press) {
                verify(Native.press(control));
            } else if (data.key) {
                control.forceActiveFocus();
                keyClick(data.key);
            } else {
                click(item);
            }
            compare(clicked.count, 1);
            compare(Native.takeOpenedAddresses(), ["http://" + Native.smsHost() + "/vesk_sms/"]);
        }
    }
}
