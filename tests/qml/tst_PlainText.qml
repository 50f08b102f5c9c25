import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 760

    // Names are stored and shown exactly as typed.
    MainTestCase {
        name: "PlainText"
        stage: desk
        when: windowShown

        function names() {
            return [
                { tag: "markup", given: "<b>DUPONT</b> &amp; <img src='x'>" },
                { tag: "new lines", given: "DUPONT\nMarie\r\nAnne" },
                { tag: "right to left", given: "محمد בן" },
                { tag: "direction marks", given: "\u202eDUPONT\u202c" },
                { tag: "quotes", given: "O'Neil \"Bob\" `x`; DROP TABLE Patients; --" },
                { tag: "wildcards", given: "100%_\\" },
                { tag: "emoji", given: "DUPONT 👩‍⚕️" },
                { tag: "10,000 characters", given: new Array(10001).join("x") }
            ];
        }

        function test_a_stored_name_is_shown_as_text_in_its_row_data() {
            return names();
        }

        function test_a_stored_name_is_shown_as_text_in_its_row(data) {
            var row;
            var label;

            givenPatients([{ id: 1, name: data.given }]);
            start();
            search().text = data.given.charAt(0);
            tryVerify(function () { return ofType(results(), "PatientsItem").length === 1; });
            row = ofType(results(), "PatientsItem")[0];
            label = where(row, isText)[0];
            compare(row.text, data.given);
            compare(label.text, data.given.replace(/[\r\n]+/g, " "));
            compare(label.textFormat, Text.PlainText);
            compare(label.lineCount, 1);
            compare(row.height, 38);
            verify(look(row, label, "right") <= look(row, picture(row, "next-grey.png"), "left"));
            compare(Native.accessible(ofType(row, "Clickable")[0]).name, data.given);
        }

        function test_a_stored_name_is_edited_unchanged_data() {
            return names();
        }

        // A single-line field shows line breaks as separators.
        function test_a_stored_name_is_edited_unchanged(data) {
            givenPatients([{ id: 1, name: data.given, created: "2014-04-10", phone: "06" }]);
            start();
            main.openPatient("1");
            compare(detail().loaded, true);
            compare(detail().state, "base");
            compare(detail().model.name, data.given);
            compare(nameField().text, data.given);
        }

        function test_a_name_survives_a_save_of_the_phone_data() {
            return names();
        }

        function test_a_name_survives_a_save_of_the_phone(data) {
            givenPatients([{ id: 1, name: data.given, created: "2014-04-10", phone: "06" }]);
            start();
            main.openPatient("1");
            named(main, "Téléphone").text = "0699";
            detail().save();
            compare(stored(1).phone, "0699");
            compare(stored(1).name, data.given);
        }

        function test_a_typed_name_is_stored_as_typed_data() {
            return names().filter(function (row) { return row.tag !== "new lines"; });
        }

        function test_a_typed_name_is_stored_as_typed(data) {
            givenPatients([]);
            start();
            search().text = data.given;
            click(named(main, "Créer la fiche patient"));
            compare(nameField().text, data.given);
            detail().save();
            compare(Native.rows("SELECT name FROM Patients"), [{ name: data.given }]);
        }

        function test_a_failing_search_shows_no_results_and_the_next_one_works() {
            givenPatients([{ id: 1, name: "DUPONT" }]);
            start();
            expectedWarnings = ["database is locked", "cannot start a transaction"];
            verify(Native.lockStore("exclusive"));
            search().text = "d";
            compare(searchBar().model.count, 0);
            compare(main.height, 174);
            Native.unlockStore();
            search().text = "du";
            compare(searchBar().model.count, 1);
        }
    }
}
