import QtQuick 2.2
import QtQuick.Window 2.2
import "support"

Item {
    id: desk

    width: 820
    height: 670

    Window {
        id: hiddenWindow

        height: 650
        visible: false
        width: 800
    }

    ListTestCase {
        name: "ListPopup"
        stage: desk
        when: windowShown

        function test_start_shows_the_waiting_patients_by_name_regardless_of_case() {
            givenNames(["martin Zoé", "DUPONT Marie", "Abadie Luc"], ["BERNARD Paul"]);
            var popup = load("ListPopup");

            compare(popup.number, 3);
            compare(names(popup), ["Abadie Luc", "DUPONT Marie", "martin Zoé"]);
            compare(popup.printModel.length, 3);
        }

        function test_patients_stored_before_the_first_opening_are_listed() {
            givenNames(["DUPONT Marie"]);
            var unseen = createTemporaryObject(Qt.createComponent("qrc:/qml/ListPopup.qml"), hiddenWindow.contentItem);

            Native.rows("INSERT INTO Patients (name, notification_date) VALUES ('NOUVEAU Luc', '2014-05-12')");
            unseen.refresh();
            compare(ofType(unseen, "PatientTable").length, 0);
            compare(unseen.printModel.length, 2);

            hiddenWindow.visible = true;
            compare(names(unseen), ["DUPONT Marie", "NOUVEAU Luc"]);
            hiddenWindow.visible = false;
            compare(names(unseen), ["DUPONT Marie", "NOUVEAU Luc"]);
        }

        function test_the_other_tab_shows_all_patients_by_name() {
            givenNames(["martin Zoé", "DUPONT Marie"], ["BERNARD Paul"]);
            var popup = load("ListPopup");

            openTab(popup, allTitle);
            compare(names(popup), ["BERNARD Paul", "DUPONT Marie", "martin Zoé"]);
            compare(rows(popup).map(function (row) { return row.record.waiting; }), [0, 1, 1]);
            openTab(popup, waitingTitle);
            compare(names(popup), ["DUPONT Marie", "martin Zoé"]);
            compare(rows(popup).map(function (row) { return row.record.waiting; }), [1, 1]);
        }

        function test_the_table_is_named_after_the_tab() {
            var popup = load("ListPopup");
            var heard = function () {
                var accessible = Native.accessible(ofType(popup, "ThinScrollView")[0]);

                return [accessible.role, accessible.name];
            };

            tryVerify(function () { return ofType(popup, "ThinScrollView").length === 1; });
            compare(heard(), ["List", waitingTitle]);
            openTab(popup, allTitle);
            compare(heard(), ["List", allTitle]);
        }

        function test_a_click_on_the_checked_tab_reloads_nothing_data() {
            return [{ tag: "waiting", title: waitingTitle }, { tag: "all", title: allTitle }];
        }

        function test_a_click_on_the_checked_tab_reloads_nothing(data) {
            givenNames(["DUPONT Marie"]);
            var popup = load("ListPopup");

            openTab(popup, data.title);
            Native.rows("DELETE FROM Patients");
            popup.printModel = "kept";
            openTab(popup, data.title);
            compare(names(popup), ["DUPONT Marie"]);
            compare(popup.printModel, "kept");
            compare(Native.accessible(named(popup, data.title)).checked, true);
        }

        function test_refresh_reloads_the_number_and_the_current_tab_data() {
            return [{ tag: "waiting", title: waitingTitle, names: ["DUPONT Marie", "NOUVEAU Luc"] },
                    { tag: "all", title: allTitle, names: ["BERNARD Paul", "DUPONT Marie", "NOUVEAU Luc"] }];
        }

        function test_refresh_reloads_the_number_and_the_current_tab(data) {
            givenNames(["DUPONT Marie"], ["BERNARD Paul"]);
            var popup = load("ListPopup");

            openTab(popup, data.title);
            Native.rows("INSERT INTO Patients (name, notification_date) VALUES ('NOUVEAU Luc', '2014-05-12')");
            popup.refresh();
            compare(popup.number, 2);
            compare(names(popup), data.names);
        }

        function test_refresh_does_not_scroll_the_list() {
            givenNames(numbered(100));
            var popup = load("ListPopup");
            var list = listOf(popup);

            list.positionViewAtIndex(50, ListView.Beginning);
            popup.refresh();
            list.forceLayout();
            compare(list.itemAt(10, list.contentY + 1).iname, "PATIENT 150");
            openTab(popup, allTitle);
            list.forceLayout();
            compare(list.itemAt(10, list.contentY + 1).iname, "PATIENT 100");
        }

        function numbered(count) {
            var found = [];
            var i;

            for (i = 0; i < count; ++i) {
                found.push("PATIENT " + (100 + i));
            }
            return found;
        }

        function test_select_all_and_single_ticks_override_each_other() {
            givenNames(["A", "B", "C"]);
            var popup = load("ListPopup");

            tick(popup, 1);
            selectAll(popup);
            tick(popup, 2);
            compare(ticks(popup), [true, true, false]);
            selectAll(popup);
            compare(ticks(popup), [false, false, false]);
        }

        function test_a_tick_is_toggled_by_assistive_technology() {
            givenNames(["A"], ["B"]);
            var popup = load("ListPopup");
            var announced = spy(named(popup, "Tout sélectionner").Accessible, "checkedChanged");

            openTab(popup, allTitle);
            verify(Native.press(named(popup, "Tout sélectionner"), "Toggle"));
            compare(ticks(popup), [true, true]);
            verify(Native.press(named(popup, "Tout sélectionner"), "Toggle"));
            compare(ticks(popup), [false, false]);
            compare(announced.count, 2);
        }

        function test_ticked_select_all_survives_reload_and_tab_change() {
            givenNames(["A"], ["B"]);
            var popup = load("ListPopup");

            selectAll(popup);
            openTab(popup, allTitle);
            compare(ticks(popup), [true, true]);
            Native.rows("INSERT INTO Patients (name) VALUES ('C')");
            popup.refresh();
            compare(ticks(popup), [true, true, true]);
            compare(Native.accessible(named(popup, "Tout sélectionner")).checked, true);
            click(named(popup, "Supprimer les patients sélectionnés"));
            compare(storedNames(), []);
        }

        function test_a_tick_survives_scrolling() {
            givenNames(numbered(200));
            var popup = load("ListPopup");
            var list = listOf(popup);

            tick(popup, 3);
            list.positionViewAtEnd();
            list.forceLayout();
            verify(names(popup).indexOf("PATIENT 103") < 0);
            list.positionViewAtBeginning();
            list.forceLayout();
            compare(ticks(popup).slice(2, 5), [false, true, false]);
            compare(names(popup)[3], "PATIENT 103");
        }

        function test_ticked_rows_are_deleted_in_row_order_and_signalled() {
            givenNames(["D", "C", "B", "A"]);
            var popup = load("ListPopup");
            var refreshed = spy(popup, "needRefresh");
            var removed = spy(popup, "removedPatients");
            var expected = [idOf("A"), idOf("C"), idOf("D")];

            tick(popup, 3);
            tick(popup, 0);
            tick(popup, 2);
            click(named(popup, "Supprimer les patients sélectionnés"));
            compare(storedNames(), ["B"]);
            compare(refreshed.count, 1);
            compare(removed.count, 1);
            compare(removed.signalArguments[0][0], expected);
        }

        function test_every_patient_of_the_tab_is_printed_data() {
            return [{ tag: "waiting", tab: waitingTitle, title: "Liste des patients en attente", names: ["A", "C"] },
                    { tag: "all", tab: allTitle, title: "Liste de tous les patients", names: ["A", "B", "C"] }];
        }

        function test_every_patient_of_the_tab_is_printed(data) {
            givenNames(["C", "A"], ["B"]);
            var popup = load("ListPopup");
            var printed = spy(popup, "requestPrint");

            openTab(popup, data.tab);
            tick(popup, 0);
            click(named(popup, "Imprimer"));
            compare(printed.count, 1);
            compare(printed.signalArguments[0][0], data.title);
            compare(printed.signalArguments[0][1].map(function (each) { return each.name; }), data.names);
            compare(printed.signalArguments[0][1].map(function (each) { return each.checked; }),
                    data.names.map(function () { return false; }));
        }

        function test_no_waiting_patient_hides_the_badge_and_prints_an_empty_list() {
            givenNames([], ["B"]);
            var popup = load("ListPopup");
            var printed = spy(popup, "requestPrint");

            compare(ofType(popup, "WaitingBadge")[0].opacity, 0);
            compare(rows(popup), []);
            compare(ofType(popup, "PatientTable")[0].color.toString(), "#f9f9f9");
            click(named(popup, "Imprimer"));
            compare(printed.signalArguments[0][1], []);
        }

        function test_without_a_store_the_list_stays_empty_and_the_print_request_holds_no_list() {
            givenNames(["A"]);
            verify(Native.lockStore("exclusive"));
            expectedWarnings = ["database is locked"];
            var popup = load("ListPopup");
            var printed = spy(popup, "requestPrint");

            Native.unlockStore();
            compare(popup.number, 0);
            compare(rows(popup), []);
            click(named(popup, "Imprimer"));
            compare(Array.isArray(printed.signalArguments[0][1]), false);
            compare(JSON.stringify(printed.signalArguments[0][1]), "{}");
        }

        function test_opening_a_patient_signals_its_id() {
            givenNames(["A", "B"]);
            var popup = load("ListPopup");
            var opened = spy(popup, "openPatient");

            mouseClick(rows(popup)[1], 300, 21);
            compare(opened.count, 1);
            compare(opened.signalArguments[0][0], String(idOf("B")));
        }

        function test_the_SMS_button_opens_the_page_and_no_patient() {
            givenPatients([{ name: "A", phone: "0612", notification_date: "2014-05-12" }]);
            var popup = load("ListPopup");
            var opened = spy(popup, "openPatient");

            click(named(rows(popup)[0], "Envoi SMS"));
            compare(Native.takeOpenedAddresses(), ["http://" + Native.smsHost() + "/vesk_sms/"]);
            compare(opened.count, 0);
        }

        function test_a_press_on_the_header_drags_the_window() {
            givenNames([]);
            var popup = load("ListPopup");
            var dragged = spy(popup, "enableDragging");

            mousePress(popup, 400, 20);
            compare(dragged.count, 1);
            mouseRelease(popup, 400, 20);
        }

        // Rows of another program: the first row determines the model's types, and NULL must not.
        function test_rows_with_NULLs_are_shown_as_unanswered_data() {
            return [{ tag: "waiting", title: waitingTitle }, { tag: "all", title: allTitle }];
        }

        function test_rows_with_NULLs_are_shown_as_unanswered(data) {
            givenPatients([nullRow("A"), fullRow("B"), nullRow("C")]);
            var popup = load("ListPopup");

            openTab(popup, data.title);
            compare(cells(popup, 0), ["A", "", "?", "", "", "", "", ""]);
            compare(cells(popup, 1), ["B", "10/04/2014", "Non", "Oui", "Oui", "Oui", "Non", "06 11 22 33 44"]);
            compare(cells(popup, 2), ["C", "", "?", "", "", "", "", ""]);
        }

        function test_rows_with_values_are_shown_after_a_list_of_NULLs_only() {
            givenPatients([nullRow("A")]);
            var popup = load("ListPopup");

            compare(names(popup), ["A"]);
            givenPatients([fullRow("B")]);
            popup.refresh();
            compare(cells(popup, 0), ["B", "10/04/2014", "Non", "Oui", "Oui", "Oui", "Non", "06 11 22 33 44"]);
        }

        function nullRow(name) {
            return {
                name: name, notification_date: "2014-05-12", phone: null, created: null, test: null, test_date: null,
                rdv1: null, date1: null, confirmation: null, confirmation_date: null, rdv2: null, date2: null,
                rdv3: null, date3: null
            };
        }

        function fullRow(name) {
            return {
                name: name, notification_date: "2014-05-12", phone: "06 11 22 33 44", created: "2014-04-10", test: 0,
                test_date: "2014-04-11", rdv1: 1, date1: "2014-04-12", confirmation: 1,
                confirmation_date: "2014-04-13", rdv2: 1, date2: "2014-04-14", rdv3: 0, date3: "2014-04-15"
            };
        }

        /// The texts in the cells of a row.
        function cells(popup, number) {
            return where(rows(popup)[number], isText)
                .map(function (each) { return each.text; })
                .filter(function (text) { return text !== "Envoi SMS"; });
        }

        function test_ten_thousand_patients_can_be_loaded_scrolled_and_ticked() {
            givenPatients([]);
            Native.rows("WITH RECURSIVE n(i) AS (SELECT 10000 UNION ALL SELECT i + 1 FROM n WHERE i < 19999) "
                        + "INSERT INTO Patients (name, notification_date) SELECT 'PATIENT ' || i, '2014-05-12' FROM n");
            var popup = load("ListPopup");
            var list = listOf(popup);

            compare(popup.number, 10000);
            compare(list.count, 10000);
            selectAll(popup);
            list.positionViewAtEnd();
            list.forceLayout();
            compare(list.itemAt(10, list.contentY + list.height - 1).iname, "PATIENT 19999");
            verify(ticks(popup).every(function (each) { return each; }));
            verify(rows(popup).length < 60, "rows outside the window are deleted");
            openTab(popup, allTitle);
            compare(list.count, 10000);
        }
    }
}
