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

        function test_back_changes_nothing() {
            var item = bar({ name: "DUPONT", genderMale: false });

            click(named(item, "Retour"));
            compare([item.name, item.genderMale], ["DUPONT", false]);
        }

        function test_gender_toggles_each_time() {
            var item = bar();

            click(named(item, "Sexe : homme"));
            compare(item.genderMale, false);
            click(named(item, "Sexe : femme"));
            compare(item.genderMale, true);
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
    }
}
