import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 820
    height: 670

    // Every control reacts to a click, the keyboard and assistive technology, and signals each activation once.
    DocumentTestCase {
        name: "Activation"
        stage: desk
        when: windowShown

        readonly property string smsPage: "http://" + Native.smsHost() + "/vesk_sms/"
        readonly property string asked: "Avez-vous compris ?"
        readonly property string gate: "Si la consultation continue, cliquez ici"
        readonly property var row: ({ iid: "7", iname: "A" })

        // document, its properties, control, signal, opened address, role if not a button
        function controlTable() {
            return [
                ["ActionButton", { text: "Enregistrer", width: 138 }, "Enregistrer", "clicked"],
                ["StepButton", {}, gate, "clicked"],
                ["PatientsItem", { text: "DUPONT Marie", width: 275 }, "DUPONT Marie", "clicked"],
                ["NameStatus", { width: 275 }, "Retour", "reset"],
                ["NameStatus", { width: 275 }, "Sexe : homme", "genderMaleChanged"],
                ["NameStatus", { width: 275, genderMale: false }, "Sexe : femme", "genderMaleChanged"],
                ["Autocomplete", { width: 275 }, "Rechercher", "changed"],
                ["Autocomplete", { width: 275, text: "du" }, "Effacer la recherche", "textChanged"],
                ["TabPopup", { title: "Onglet", width: 200, height: 42 }, "Onglet", "clicked", "", "PageTab"],
                ["Question", { text: asked }, asked, "checkedChanged"],
                ["SMSSend", {}, "Envoyer le SMS de rappel", "clicked", smsPage],
                ["ButtonSMS", {}, "Envoi SMS", "clicked", smsPage],
                ["PatientTableRow", row, "Sélectionner A", "excheckedChanged", "", "CheckBox"],
                ["PatientTableRow", row, "Ouvrir A", "openPatient"],
                ["ContactPopup", {}, "Fermer", "closeContact"],
                ["ContactPopup", {}, "www.allergies-info.example", "", "http://www.allergies-info.example",
                 "Link"],
                ["ContactPopup", {}, "www.vesk.example", "", "http://www.vesk.example", "Link"],
                ["ListPopup", {}, "Fermer", "closeList"],
                ["ListPopup", {}, "Imprimer", "requestPrint"],
                ["ListPopup", {}, "Supprimer les patients sélectionnés", "needRefresh"],
                ["main", {}, "Contacts VESK", "openContact"],
                ["main", {}, "Liste de tous les patients", "openList"],
                ["main", {}, "Liste des patients en attente", "openList"],
                ["main", {}, "Fermer", "hide"]
            ];
        }

        function test_each_way_of_activation_signals_once_data() {
            var ways = [{ tag: "mouse" }, { tag: "Return", key: Qt.Key_Return }, { tag: "Enter", key: Qt.Key_Enter },
                        { tag: "Space", key: Qt.Key_Space }, { tag: "press action", press: true }];

            return controlTable().reduce(function (found, control) {
                return found.concat(ways.map(function (way) {
                    return { tag: control[0] + ", " + control[2] + ", " + way.tag, control: control, key: way.key,
                             press: way.press };
                }));
            }, []);
        }

        function test_each_way_of_activation_signals_once(data) {
            var document = load(data.control[0], data.control[1]);
            var told = data.control[3] === "" ? null : spy(document, data.control[3]);
            var control = named(document, data.control[2]);

            compare(Native.accessible(control).role, data.control[5] || "Button");
            wait(0);
            activate(control, data);
            if (told) {
                compare(told.count, 1);
            }
            compare(Native.takeOpenedAddresses(), data.control[4] ? [data.control[4]] : []);
        }

        function test_a_slow_click_is_still_a_click() {
            var button = load("ActionButton", { text: "Enregistrer", width: 138 });
            var clicked = spy(button, "clicked");
            var area = only(where(button, function (each) { return each.pressAndHoldInterval !== undefined; }), "area");
            var held = spy(area, "pressAndHold");

            area.pressAndHoldInterval = 1;
            mousePress(button);
            held.wait();
            mouseRelease(button);
            compare(clicked.count, 1);
        }

        function test_a_disabled_button_does_not_signal_data() {
            return test_each_way_of_activation_signals_once_data().slice(0, 5);
        }

        function test_a_disabled_button_does_not_signal(data) {
            var button = load("ActionButton", { text: "Enregistrer", width: 138, disabled: true });
            var clicked = spy(button, "clicked");

            activate(named(button, "Enregistrer"), data);
            compare(clicked.count, 0);
        }

        function activate(control, data) {
            if (data.press) {
                Native.press(control);
            } else if (data.key) {
                control.forceActiveFocus();
                keyClick(data.key);
            } else {
                click(control);
            }
        }
    }
}
