import QtQuick 2.2

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

        function cell(item, step) {
            return part(item, "part " + step);
        }

        function test_entering_either_zone_hovers_and_leaving_restores_data() {
            return [{ tag: "tick zone", x: 20 }, { tag: "open zone, left end", x: 41 },
                    { tag: "open zone, right end", x: 693 }];
        }

        function test_entering_either_zone_hovers_and_leaving_restores(data) {
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

        function test_the_focus_frame_goes_round_the_phone_number() {
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

        function test_a_screen_reader_hears_the_column_of_each_cell() {
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

        function test_a_name_is_no_markup() {
            verify(hasText(row({ iname: "<b>A</b> & B" }), "<b>A</b> & B"));
        }

        // Each cell over all combinations of what it depends on, in its own pathway: dates, flags, texts before it.
        readonly property string given: "2014-05-12"

        function test_skin_tests_data() {
            return [
                { tag: "null, 0", date: null, flag: 0, text: "?", bold: true },
                { tag: "null, 1", date: null, flag: 1, text: "?", bold: true },
                { tag: "empty, 0", date: "", flag: 0, text: "?", bold: true },
                { tag: "empty, 1", date: "", flag: 1, text: "?", bold: true },
                { tag: "given, 0", date: given, flag: 0, text: "Non", bold: false },
                { tag: "given, 1", date: given, flag: 1, text: "Oui", bold: false },
                { tag: "given, 2", date: given, flag: 2, text: "Non", bold: false }
            ];
        }

        function test_skin_tests(data) {
            compareCell(row({ itest_date: data.date, itest: data.flag }), "test", data);
        }

        function test_work_up_data() {
            return [
                { tag: "nothing", test_date: "", test: 0, date: "", flag: 0, text: "", bold: true },
                { tag: "nothing, flag 1", test_date: "", test: 0, date: "", flag: 1, text: "", bold: true },
                { tag: "no test, test flag 1", test_date: "", test: 1, date: "", flag: 0, text: "", bold: true },
                { tag: "no test, both flags 1", test_date: "", test: 1, date: "", flag: 1, text: "", bold: true },
                { tag: "test null", test_date: null, test: 0, date: null, flag: 0, text: "", bold: true },
                { tag: "negative", test_date: given, test: 0, date: "", flag: 0, text: "?", bold: true },
                { tag: "negative, flag 1", test_date: given, test: 0, date: "", flag: 1, text: "?", bold: true },
                { tag: "positive", test_date: given, test: 1, date: "", flag: 0, text: "-", bold: false },
                { tag: "positive, flag 1", test_date: given, test: 1, date: "", flag: 1, text: "-", bold: false },
                { tag: "positive, null", test_date: given, test: 1, date: null, flag: 0, text: "-", bold: false },
                { tag: "test 2 is no yes", test_date: given, test: 2, date: "", flag: 0, text: "?", bold: true },
                { tag: "given alone, no", test_date: "", test: 0, date: given, flag: 0, text: "Non", bold: true },
                { tag: "given alone, yes", test_date: "", test: 0, date: given, flag: 1, text: "Oui", bold: false },
                { tag: "given, test flag, no", test_date: "", test: 1, date: given, flag: 0, text: "Non", bold: true },
                { tag: "given, test flag, yes", test_date: "", test: 1, date: given, flag: 1, text: "Oui", bold: false },
                { tag: "negative, no", test_date: given, test: 0, date: given, flag: 0, text: "Non", bold: true },
                { tag: "negative, yes", test_date: given, test: 0, date: given, flag: 1, text: "Oui", bold: false },
                { tag: "positive, no", test_date: given, test: 1, date: given, flag: 0, text: "Non", bold: true },
                { tag: "positive, yes", test_date: given, test: 1, date: given, flag: 1, text: "Oui", bold: false },
                { tag: "flag 2", test_date: given, test: 0, date: given, flag: 2, text: "Non", bold: false }
            ];
        }

        function test_work_up(data) {
            compareCell(row({ itest_date: data.test_date, itest: data.test, idate1: data.date, irdv1: data.flag }), "rdv1",
                        data);
        }

        function test_allergy_data() {
            return [
                { tag: "after nothing", before: "", date: "", flag: 0, text: "", bold: false },
                { tag: "after nothing, flag 1", before: "", date: "", flag: 1, text: "", bold: false },
                { tag: "after nothing, no", before: "", date: given, flag: 0, text: "Non", bold: false },
                { tag: "after nothing, yes", before: "", date: given, flag: 1, text: "Oui", bold: false },
                { tag: "after ?", before: "?", date: "", flag: 0, text: "", bold: false },
                { tag: "after ?, flag 1", before: "?", date: "", flag: 1, text: "", bold: false },
                { tag: "after ?, no", before: "?", date: given, flag: 0, text: "Non", bold: false },
                { tag: "after ?, yes", before: "?", date: given, flag: 1, text: "Oui", bold: false },
                { tag: "after -", before: "-", date: "", flag: 0, text: "?", bold: true },
                { tag: "after -, null", before: "-", date: null, flag: 0, text: "?", bold: true },
                { tag: "after -, flag 1", before: "-", date: "", flag: 1, text: "?", bold: true },
                { tag: "after -, no", before: "-", date: given, flag: 0, text: "Non", bold: false },
                { tag: "after -, yes", before: "-", date: given, flag: 1, text: "Oui", bold: false },
                { tag: "after Oui", before: "Oui", date: "", flag: 0, text: "?", bold: true },
                { tag: "after Oui, flag 1", before: "Oui", date: "", flag: 1, text: "?", bold: true },
                { tag: "after Oui, no", before: "Oui", date: given, flag: 0, text: "Non", bold: false },
                { tag: "after Oui, yes", before: "Oui", date: given, flag: 1, text: "Oui", bold: false },
                { tag: "after Non", before: "Non", date: "", flag: 0, text: "", bold: false },
                { tag: "after Non, flag 1", before: "Non", date: "", flag: 1, text: "", bold: false },
                { tag: "after Non, no", before: "Non", date: given, flag: 0, text: "Non", bold: false },
                { tag: "after Non, yes", before: "Non", date: given, flag: 1, text: "Oui", bold: false }
            ];
        }

        function test_allergy(data) {
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

        function test_first_intake_data() {
            return appointmentRows();
        }

        function test_first_intake(data) {
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

        function test_review_data() {
            return appointmentRows();
        }

        function test_review(data) {
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
            return [
                { tag: "after nothing", before: "", date: "", flag: 0, text: "", bold: true },
                { tag: "after nothing, flag 1", before: "", date: "", flag: 1, text: "", bold: true },
                { tag: "after nothing, no", before: "", date: given, flag: 0, text: "Non", bold: true },
                { tag: "after nothing, yes", before: "", date: given, flag: 1, text: "Oui", bold: false },
                { tag: "after ?", before: "?", date: "", flag: 0, text: "", bold: true },
                { tag: "after ?, flag 1", before: "?", date: "", flag: 1, text: "", bold: true },
                { tag: "after ?, no", before: "?", date: given, flag: 0, text: "Non", bold: true },
                { tag: "after ?, yes", before: "?", date: given, flag: 1, text: "Oui", bold: false },
                { tag: "after Oui", before: "Oui", date: "", flag: 0, text: "?", bold: true },
                { tag: "after Oui, null", before: "Oui", date: null, flag: 0, text: "?", bold: true },
                { tag: "after Oui, flag 1", before: "Oui", date: "", flag: 1, text: "?", bold: true },
                { tag: "after Oui, no", before: "Oui", date: given, flag: 0, text: "Non", bold: true },
                { tag: "after Oui, yes", before: "Oui", date: given, flag: 1, text: "Oui", bold: false },
                { tag: "after Oui, flag 2", before: "Oui", date: given, flag: 2, text: "Non", bold: false },
                { tag: "after Non", before: "Non", date: "", flag: 0, text: "", bold: true },
                { tag: "after Non, flag 1", before: "Non", date: "", flag: 1, text: "", bold: true },
                { tag: "after Non, no", before: "Non", date: given, flag: 0, text: "Non", bold: true },
                { tag: "after Non, yes", before: "Non", date: given, flag: 1, text: "Oui", bold: false }
            ];
        }

        /// The cell's text and weight, and its colour in both lists.
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
