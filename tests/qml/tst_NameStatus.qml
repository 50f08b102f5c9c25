import QtQuick 2.2

Item {
    id: desk

    width: 400
    height: 200

    DocumentTestCase {
        name: "NameStatus"
        stage: desk
        when: windowShown

        function bar(properties) {
            var made = load("NameStatus", properties);

            made.width = 275;
            return made;
        }

        function test_back_tells_reset_and_changes_nothing_data() {
            return [{ tag: "mouse" }, { tag: "Return", key: Qt.Key_Return }, { tag: "Enter", key: Qt.Key_Enter },
                    { tag: "Space", key: Qt.Key_Space }, { tag: "press action", press: true }];
        }

        function test_back_tells_reset_and_changes_nothing(data) {
            var item = bar({ name: "DUPONT", genderMale: false });
            var reset = spy(item, "reset");
            var back = named(item, "Retour");

            act(back, data);
            compare(reset.count, 1);
            compare(item.name, "DUPONT");
            compare(item.genderMale, false);
        }

        function act(control, data) {
            if (data.press) {
                verify(Native.press(control));
            } else if (data.key) {
                control.forceActiveFocus();
                keyClick(data.key);
            } else {
                click(control);
            }
        }

        function test_gender_toggles_each_time_data() {
            return test_back_tells_reset_and_changes_nothing_data();
        }

        function test_gender_toggles_each_time(data) {
            var item = bar();

            compare(item.genderMale, true);
            act(named(item, "Sexe : homme"), data);
            compare(item.genderMale, false);
            compare(picture(item, "female-big.png").status, Image.Ready);
            act(named(item, "Sexe : femme"), data);
            compare(item.genderMale, true);
            picture(item, "male-big.png");
        }

        function test_name_is_what_is_typed() {
            var item = bar();

            item.focus();
            verify(named(item, "Nom du patient").activeFocus);
            keyClick("A");
            keyClick("b");
            compare(item.name, "Ab");
            item.name = "DURAND";
            compare(named(item, "Nom du patient").text, "DURAND");
        }

        function test_controls_have_roles_and_names() {
            var item = bar();

            compare(Native.accessible(named(item, "Retour")).role, "Button");
            compare(Native.accessible(named(item, "Nom du patient")).role, "EditableText");
            compare(Native.accessible(named(item, "Sexe : homme")).role, "Button");
        }

        function test_tab_goes_from_back_over_the_name_to_the_gender() {
            var item = bar();

            named(item, "Retour").forceActiveFocus();
            keyClick(Qt.Key_Tab);
            verify(named(item, "Nom du patient").activeFocus);
            keyClick(Qt.Key_Tab);
            verify(hasFocus(named(item, "Sexe : homme")));
        }
    }
}
