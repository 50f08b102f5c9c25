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
