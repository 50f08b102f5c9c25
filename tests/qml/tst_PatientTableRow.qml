import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 820
    height: 120

    DocumentTestCase {
        name: "PatientTableRow"
        stage: desk
        when: windowShown

        readonly property string marie: "DUPONT Marie"

        function row(properties) {
            var item = load("PatientTableRow", { iid: "7", iname: marie, icreated: "10/04/2014", iphone: "06 11 22 33 44" });
            var key;

            for (key in properties || {}) {
                item[key] = properties[key];
            }
            return item;
        }

        function test_a_row_without_values_is_empty() {
            var item = load("PatientTableRow");

            compare([item.iid, item.iname, item.icreated, item.iphone], ["", "", "", ""]);
            compare([item.ichecked, item.exchecked, item.pair, item.red], [false, false, false, false]);
        }

        function cell(item, step) {
            return part(item, "part " + step);
        }

        function test_the_row_is_hovered_while_the_mouse_is_in_either_zone_data() {
            return [{ tag: "tick zone", x: 20 }, { tag: "open zone, left end", x: 41 },
                    { tag: "open zone, right end", x: 693 }];
        }

        function test_the_row_is_hovered_while_the_mouse_is_in_either_zone(data) {
            var item = row();

            compare(item.state, "base");
            mouseMove(item, data.x, 21);
            tryCompare(item, "state", "hovered");
            mouseMove(item, 700, 21);
            tryCompare(item, "state", "base");
        }

        function test_a_click_opens_the_patient_only_in_the_open_zone_data() {
            return [
                { tag: "tick zone", x: 38, opens: 0, ticks: true },
                { tag: "open zone, left end", x: 41, opens: 1, ticks: false },
                { tag: "open zone, right end", x: 693, opens: 1, ticks: false },
                { tag: "between open zone and SMS", x: 700, opens: 0, ticks: false },
                { tag: "right margin", x: 795, opens: 0, ticks: false }
            ];
        }

        function test_a_click_opens_the_patient_only_in_the_open_zone(data) {
            var item = row();
            var opened = spy(item, "openPatient");
            var clicked = spy(item, "clicked");

            mouseClick(item, data.x, 21);
            compare(opened.count, data.opens);
            compare(clicked.count, data.opens);
            compare(item.exchecked, data.ticks);
            if (data.opens) {
                compare(opened.signalArguments[0][0], "7");
            }
        }

        function test_the_box_follows_the_model_and_the_user() {
            var item = row();
            var mark = ofType(item, "TickMark")[0];

            item.ichecked = true;
            compare(mark.checked, true);
            compare(item.exchecked, true);
            mouseClick(item, 20, 21);
            compare(mark.checked, false);
            compare(item.exchecked, false);
            compare(item.ichecked, true);
            item.ichecked = false;
            item.ichecked = true;
            compare(mark.checked, true);
        }

        function test_the_focus_frame_includes_the_phone_number() {
            var item = row({ iphone: "06 11 22 33 44" });
            var ring = ofType(named(item, "Ouvrir " + marie), "FocusRing")[0];
            var phone = textItem(item, "06 11 22 33 44");

            verify(look(item, ring, "right") > look(item, phone, "right"));
            verify(look(item, ring, "right") < look(item, ofType(item, "ButtonSMS")[0], "left"));
        }

        function test_roles_and_states() {
            var item = row();
            var tick = named(item, "Sélectionner " + marie);

            compare(Native.accessible(tick).role, "CheckBox");
            compare(Native.accessible(tick).checkable, true);
            compare(Native.accessible(tick).checked, false);
            item.ichecked = true;
            compare(Native.accessible(tick).checked, true);
            compare(Native.accessible(named(item, "Ouvrir " + marie)).role, "Button");
            compare(Native.accessible(named(item, "Envoi SMS")).role, "Button");
        }

        function test_Tab_visits_the_parts_of_a_row_outside_a_table() {
            var item = row();
            var visited = [];

            named(item, "Sélectionner " + marie).forceActiveFocus();
            while (visited.length < 2) {
                keyClick(Qt.Key_Tab);
                visited.push(Native.focusItem(item).name);
            }
            compare(visited, ["Ouvrir " + marie, "Envoi SMS"]);
        }

        function test_the_arrows_report_the_focused_part_data() {
            return [{ tag: "Sélectionner " + marie, part: 0 }, { tag: "Ouvrir " + marie, part: 1 },
                    { tag: "Envoi SMS", part: 2 }];
        }

        function test_the_arrows_report_the_focused_part(data) {
            var item = row();
            var moved = spy(item, "focusMoved");

            named(item, data.tag).forceActiveFocus();
            keyClick(Qt.Key_Down);
            compare(moved.count, 1);
            compare([moved.signalArguments[0][0], moved.signalArguments[0][1]], [1, data.part]);
        }

        function test_the_accessible_description_of_each_cell_is_its_column() {
            var item = row({ iphone: "0612", icreated: "10/04/2014", itest: 0, itest_date: "2014-04-10", irdv1: 1,
                             idate1: "2014-04-10", iconfirmation: 1, iconfirmation_date: "2014-04-10", irdv2: 1,
                             idate2: "2014-04-10", irdv3: 0, idate3: "2014-04-10" });
            var heard = where(item, isText).filter(function (text) { return text.text !== "Envoi SMS"; })
                .map(function (text) {
                    var accessible = Native.accessible(text);
                    return accessible.description + ": " + accessible.name;
                });

            compare(heard, ["Nom du patient: " + marie, "Date 1er RDV: 10/04/2014", "Tests cutanés: Non",
                            "RDV bilan allergo.: Oui", "Allergie confirmée: Oui", "RDV 1ère prise: Oui",
                            "RDV bilan fin de saison: Non", "Téléphone: 0612"]);
        }

        function test_a_name_is_shown_without_interpreting_markup() {
            verify(hasText(row({ iname: "<b>A</b> & B" }), "<b>A</b> & B"));
        }

        // Each cell for all combinations of the dates, flags and earlier texts that it depends on.
        readonly property string given: "2014-05-12"

        /// Converts rows of values to data with these names; the tag lists the values.
        function table(names, rows) {
            return rows.map(function (row) {
                var data = { tag: row.slice(0, -2).map(String).join(", ") };

                names.forEach(function (name, i) { data[name] = row[i]; });
                return data;
            });
        }

        function test_the_skin_test_cell_follows_its_rule_data() {
            return table(["date", "flag", "text", "bold"], [
                [null, 0, "?", true], [null, 1, "?", true], ["", 0, "?", true], ["", 1, "?", true],
                [given, 0, "Non", false], [given, 1, "Oui", false], [given, 2, "Non", false]
            ]);
        }

        function test_the_skin_test_cell_follows_its_rule(data) {
            compareCell(row({ itest_date: data.date, itest: data.flag }), "test", data);
        }

        function test_the_work_up_cell_follows_its_rule_data() {
            return table(["test_date", "test", "date", "flag", "text", "bold"], [
                ["", 0, "", 0, "", true], ["", 0, "", 1, "", true], ["", 1, "", 0, "", true], ["", 1, "", 1, "", true],
                [null, 0, null, 0, "", true], [given, 0, "", 0, "?", true], [given, 0, "", 1, "?", true],
                [given, 1, "", 0, "-", false], [given, 1, "", 1, "-", false], [given, 1, null, 0, "-", false],
                [given, 2, "", 0, "?", true], ["", 0, given, 0, "Non", true], ["", 0, given, 1, "Oui", false],
                ["", 1, given, 0, "Non", true], ["", 1, given, 1, "Oui", false], [given, 0, given, 0, "Non", true],
                [given, 0, given, 1, "Oui", false], [given, 1, given, 0, "Non", true],
                [given, 1, given, 1, "Oui", false], [given, 0, given, 2, "Non", false]
            ]);
        }

        function test_the_work_up_cell_follows_its_rule(data) {
            compareCell(row({ itest_date: data.test_date, itest: data.test, idate1: data.date, irdv1: data.flag }), "rdv1",
                        data);
        }

        function test_the_allergy_cell_follows_its_rule_data() {
            return table(["before", "date", "flag", "text", "bold"], [
                ["", "", 0, "", false], ["", "", 1, "", false], ["", given, 0, "Non", false],
                ["", given, 1, "Oui", false], ["?", "", 0, "", false], ["?", "", 1, "", false],
                ["?", given, 0, "Non", false], ["?", given, 1, "Oui", false], ["-", "", 0, "?", true],
                ["-", null, 0, "?", true], ["-", "", 1, "?", true], ["-", given, 0, "Non", false],
                ["-", given, 1, "Oui", false], ["Oui", "", 0, "?", true], ["Oui", "", 1, "?", true],
                ["Oui", given, 0, "Non", false], ["Oui", given, 1, "Oui", false], ["Non", "", 0, "", false],
                ["Non", "", 1, "", false], ["Non", given, 0, "Non", false], ["Non", given, 1, "Oui", false]
            ]);
        }

        function test_the_allergy_cell_follows_its_rule(data) {
            var item = row(workUpReading(data.before));

            item.iconfirmation_date = data.date;
            item.iconfirmation = data.flag;
            compare(cell(item, "rdv1").text, data.before);
            compareCell(item, "confirmation", data);
        }

        function workUpReading(text) {
            return {
                "": {},
                "?": { itest_date: given, itest: 0 },
                "-": { itest_date: given, itest: 1 },
                "Oui": { itest_date: given, itest: 0, idate1: given, irdv1: 1 },
                "Non": { itest_date: given, itest: 0, idate1: given, irdv1: 0 }
            }[text];
        }

        function test_the_first_intake_cell_follows_its_rule_data() {
            return appointmentRows();
        }

        function test_the_first_intake_cell_follows_its_rule(data) {
            var item = row(allergyReading(data.before));

            item.idate2 = data.date;
            item.irdv2 = data.flag;
            compare(cell(item, "confirmation").text, data.before);
            compareCell(item, "rdv2", data);
        }

        function allergyReading(text) {
            return {
                "": {},
                "?": { itest_date: given, itest: 1 },
                "Oui": { itest_date: given, itest: 1, iconfirmation_date: given, iconfirmation: 1 },
                "Non": { itest_date: given, itest: 1, iconfirmation_date: given, iconfirmation: 0 }
            }[text];
        }

        function test_the_review_cell_follows_its_rule_data() {
            return appointmentRows();
        }

        function test_the_review_cell_follows_its_rule(data) {
            var item = row(allergyReading(data.before === "" ? "" : "Oui"));

            if (data.before === "Oui" || data.before === "Non") {
                item.idate2 = given;
                item.irdv2 = data.before === "Oui" ? 1 : 0;
            }
            item.idate3 = data.date;
            item.irdv3 = data.flag;
            compare(cell(item, "rdv2").text, data.before);
            compareCell(item, "rdv3", data);
        }

        function appointmentRows() {
            return table(["before", "date", "flag", "text", "bold"], [
                ["", "", 0, "", true], ["", "", 1, "", true], ["", given, 0, "Non", true], ["", given, 1, "Oui", false],
                ["?", "", 0, "", true], ["?", "", 1, "", true], ["?", given, 0, "Non", true],
                ["?", given, 1, "Oui", false], ["Oui", "", 0, "?", true], ["Oui", null, 0, "?", true],
                ["Oui", "", 1, "?", true], ["Oui", given, 0, "Non", true], ["Oui", given, 1, "Oui", false],
                ["Oui", given, 2, "Non", false], ["Non", "", 0, "", true], ["Non", "", 1, "", true],
                ["Non", given, 0, "Non", true], ["Non", given, 1, "Oui", false]
            ]);
        }

        /// Compares the cell's text and weight, and its colour in both lists.
        function compareCell(item, step, data) {
            var shown = cell(item, step);

            compare(shown.text, data.text);
            compare(shown.font.bold, data.bold);
            compare(shown.color.toString(), "#002357");
            item.red = true;
            compare(shown.color.toString(), data.bold ? "#e50000" : "#002357");
        }
    }
}
