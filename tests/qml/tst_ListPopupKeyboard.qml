import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 820
    height: 670

    ListTestCase {
        name: "ListPopupKeyboard"
        stage: desk
        when: windowShown

        /// The name of the focused control, and the patient of its row.
        function focused(popup) {
            var item = Native.focusItem(popup);
            var row = rows(popup).filter(function (each) { return Native.isBelow(item, each); })[0];

            return item.name === "Envoi SMS" && row ? "Envoi SMS " + row.iname : item.name;
        }

        function focusedAfter(popup, keys) {
            return keys.map(function (key) {
                keyClick(key);
                return focused(popup);
            });
        }

        function repeated(key, times) {
            var keys = [];

            while (keys.length < times) {
                keys.push(key);
            }
            return keys;
        }

        function start(names) {
            givenNames(names);
            // Objects of the last test are deleted by the event loop.
            tryVerify(function () { return ofType(desk, "ListPopup").length === 0; });
            return load("ListPopup");
        }

        readonly property var readingOrder: [
            "Fermer", "Patients en attente", "Liste de tous les patients", "Tout sélectionner",
            "Sélectionner A", "Ouvrir A", "Envoi SMS A", "Sélectionner B", "Ouvrir B", "Envoi SMS B",
            "Imprimer", "Supprimer les patients sélectionnés"
        ]

        function test_Tab_visits_every_control_in_reading_order() {
            var popup = start(["A", "B"]);

            compare(focusedAfter(popup, repeated(Qt.Key_Tab, 12)), readingOrder);
        }

        function test_Shift_Tab_visits_them_backwards() {
            var popup = start(["A", "B"]);

            focusedAfter(popup, repeated(Qt.Key_Tab, 12));
            compare(focusedAfter(popup, repeated(Qt.Key_Backtab, 11)), readingOrder.slice(0, 11).reverse());
        }

        function test_Tab_returns_to_the_row_it_left() {
            var popup = start(["A", "B", "C"]);

            rows(popup);
            named(popup, "Sélectionner A").forceActiveFocus();
            keyClick(Qt.Key_Down);
            named(popup, "Tout sélectionner").forceActiveFocus();
            compare(focusedAfter(popup, [Qt.Key_Tab]), ["Sélectionner B"]);
        }

        function test_the_focused_control_shows_its_focus() {
            var popup = start(["A"]);

            focusedAfter(popup, repeated(Qt.Key_Tab, 9)).forEach(function (name, index, all) {
                compare(all.indexOf(name), index);
            });
            named(popup, "Ouvrir A").forceActiveFocus();
            compare(where(popup, function (each) {
                return Native.typeName(each) === "FocusRing" && each.visible;
            }).map(function (ring) { return ring.parent.name; }), ["Ouvrir A"]);
        }

        function test_arrows_move_between_rows_in_the_same_column_data() {
            return [
                { tag: "Down", from: "Sélectionner A", key: Qt.Key_Down, to: "Sélectionner B" },
                { tag: "Up", from: "Ouvrir B", key: Qt.Key_Up, to: "Ouvrir A" },
                { tag: "Up in the first", from: "Ouvrir A", key: Qt.Key_Up, to: "Ouvrir A" },
                { tag: "Down in the last", from: "Ouvrir C", key: Qt.Key_Down, to: "Ouvrir C" },
                { tag: "End", from: "Ouvrir A", key: Qt.Key_End, to: "Ouvrir C" },
                { tag: "Home", from: "Sélectionner C", key: Qt.Key_Home, to: "Sélectionner A" },
                { tag: "Page down", from: "Ouvrir A", key: Qt.Key_PageDown, to: "Ouvrir C" }
            ];
        }

        function test_arrows_move_between_rows_in_the_same_column(data) {
            var popup = start(["A", "B", "C"]);

            rows(popup);
            named(popup, data.from).forceActiveFocus();
            compare(focusedAfter(popup, [data.key]), [data.to]);
        }

        function test_the_list_scrolls_with_the_keyboard_data() {
            return [
                { tag: "End", keys: [Qt.Key_End], to: "Sélectionner P69" },
                { tag: "End and Home", keys: [Qt.Key_End, Qt.Key_Home], to: "Sélectionner P10" },
                { tag: "Down", keys: repeated(Qt.Key_Down, 25), to: "Sélectionner P35" },
                { tag: "Tab", keys: repeated(Qt.Key_Tab, 60), to: "Sélectionner P30" },
                { tag: "End, then back", keys: [Qt.Key_End].concat(repeated(Qt.Key_Backtab, 60)), to: "Sélectionner P49" }
            ];
        }

        function test_the_list_scrolls_with_the_keyboard(data) {
            var names = [];
            var i;

            for (i = 0; i < 60; ++i) {
                names.push("P" + (10 + i));
            }
            var popup = start(names);
            rows(popup);
            named(popup, "Sélectionner P10").forceActiveFocus();
            compare(focusedAfter(popup, data.keys).pop(), data.to);
            var top = Native.focusItem(popup).mapToItem(listOf(popup), 0, 0).y;
            verify(top >= 0 && top + 42 <= listOf(popup).height, "in view at " + top);
        }

        function test_Space_ticks_select_all_and_Return_changes_the_tab() {
            var popup = start(["A", "B"]);

            named(popup, "Tout sélectionner").forceActiveFocus();
            keyClick(Qt.Key_Space);
            compare(ticks(popup), [true, true]);
            named(popup, allTitle).forceActiveFocus();
            keyClick(Qt.Key_Return);
            compare(Native.accessible(named(popup, allTitle)).checked, true);
            compare(popup.waitingShown, false);
        }

        function test_the_focus_stays_in_its_row_during_a_refresh() {
            var popup = start(["A", "B", "C"]);

            rows(popup);
            named(popup, "Ouvrir A").forceActiveFocus();
            keyClick(Qt.Key_Down);
            popup.refresh();
            compare(focused(popup), "Ouvrir B");
            compare(focusedAfter(popup, [Qt.Key_Tab, Qt.Key_Tab]), ["Envoi SMS B", "Sélectionner C"]);
        }
    }
}
