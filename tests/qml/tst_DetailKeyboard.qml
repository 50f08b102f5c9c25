import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 820

    EditorTestCase {
        name: "DetailKeyboard"
        stage: desk
        when: windowShown

        /// The accessible name of the focused control, once nothing moves; its focus frame must be visible.
        function focused() {
            rest();
            var item = Native.focusItem(detail);
            var control = only(where(pane, function (each) { return isControl(each) && Native.isBelow(item, each); }),
                               "focused control");
            verify(where(control, function (each) {
                return Native.typeName(each) === "FocusRing" && each.visible;
            }).length > 0 || Native.typeName(control) === "InputField", "no frame around " + control.name);
            return Native.accessible(control).name;
        }

        function goTo(control) {
            rest();
            control.forceActiveFocus();
        }

        function answerByKey(key, text) {
            goTo(named(question(key), text));
            keyClick(Qt.Key_Return);
            compare([stored(1)[key], answerOf(key)], [text === "Oui" ? 1 : 0, text]);
        }

        function test_the_focus_follows_the_whole_pathway() {
            openPatient();
            answerByKey("test", "Non");
            tryVerify(function () { return focused().indexOf(question("rdv1").text) === 0; });
            answerByKey("rdv1", "Oui");
            tryVerify(function () { return focused() === "Si vous avez les résultats du bilan, cliquez ici"; });
            keyClick(Qt.Key_Space);
            tryVerify(function () { return focused().indexOf(question("confirmation").text) === 0; });
            answerByKey("confirmation", "Oui");
            tryVerify(function () { return focused().indexOf(question("rdv2").text) === 0; });
            answerByKey("rdv2", "Oui");
            tryVerify(function () {
                return focused() === "Si la 1ère prise au cabinet a été effectuée, cliquez ici";
            });
            keyClick(Qt.Key_Return);
            tryVerify(function () { return focused().indexOf(question("rdv3").text) === 0; });
            answerByKey("rdv3", "Non");
            tryVerify(function () { return focused() === "Envoyer le SMS de rappel"; });
        }

        function test_a_collapsed_answer_loses_the_focus() {
            openPatient();
            goTo(named(question("test"), "Oui"));
            click(named(question("test"), "Non"));
            tryVerify(function () { return focused().indexOf(question("rdv1").text) === 0; });
            keyClick(Qt.Key_Return);
            compare([answerOf("test"), stored(1).test], ["Non", 0]);
        }

        function test_a_new_patient_after_an_answered_one_has_the_keyboard_in_the_phone() {
            openPatient();
            goTo(named(question("test"), "Oui"));
            detail.load("", "Nouveau");
            tryVerify(function () { return focused() === "Téléphone"; });
        }

        function test_a_hidden_button_does_nothing_data() {
            return [{ tag: "Return", key: Qt.Key_Return }, { tag: "Space", key: Qt.Key_Space },
                    { tag: "Enter", key: Qt.Key_Enter }];
        }

        function test_a_hidden_button_does_nothing(data) {
            givenPatients([]);
            detail.load("", "Nouveau");
            goTo(ofType(validate(), "Clickable")[0]);
            keyClick(data.key);
            keyClick(data.key);
            keyClick(data.key);
            compare(Native.rows("SELECT notification_date FROM Patients"), [{ notification_date: today() }]);
            verify(Native.press(ofType(validate(), "Clickable")[0]));
            compare(Native.rows("SELECT notification_date FROM Patients"), [{ notification_date: today() }]);
            tryVerify(function () { return focused() === question("test").text; });
        }

        function test_a_held_key_saves_once() {
            var saved;

            openPatient();
            phone().text = "07";
            goTo(ofType(validate(), "Clickable")[0]);
            saved = spy(detail, "needRefresh");
            Native.holdKey(detail, Qt.Key_Return);
            compare([saved.count, stored(1).phone], [1, "07"]);
        }

        function test_a_press_never_unticks_an_answer_data() {
            return [{ tag: "Press" }, { tag: "Toggle" }];
        }

        function test_a_press_never_unticks_an_answer(data) {
            var answered = { test: 1, test_date: "2014-05-01", confirmation: 0, confirmation_date: "2014-05-03" };

            openPatient(answered);
            question("confirmation").checked = true;
            rest();
            verify(Native.press(named(question("confirmation"), "Non"), data.tag));
            question("test").checked = true;
            rest();
            verify(Native.press(named(question("test"), "Oui"), data.tag));
            compare([answers().join(), stored(1).test_date, stored(1).confirmation_date],
                    ["Oui,,Non,,", "2014-05-01", "2014-05-03"]);
            verify(Native.press(named(question("test"), "Non"), data.tag));
            compare([answerOf("test"), stored(1).test], ["Non", 0]);
        }
    }
}
