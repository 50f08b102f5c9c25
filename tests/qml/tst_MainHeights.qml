import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 760

    MainTestCase {
        name: "MainHeights"
        stage: desk
        when: windowShown

        function prepare() {
            givenPatients([{ id: 1, name: "DUPONT Marie" }]);
        }

        /// The heights that the root logged.
        function loggedHeights() {
            return Native.takeTraces().filter(function (text) { return /^qml: [0-9.]+$|^[0-9.]+$/.test(text); });
        }

        function test_the_frame_has_a_height_for_each_state_data() {
            return [
                { tag: "base", height: 174, target: 174 },
                { tag: "results", height: 326, target: 326 },
                { tag: "detail", height: 638, target: 638 }
            ];
        }

        // Without an editor, the frame uses an editor height of 538.
        function test_the_frame_has_a_height_for_each_state(data) {
            var item = load("Container");

            compare(item.internalContentHeight, 538);
            compare(item.internalContentInternalHeight, 538);
            item.internalState = data.tag;
            compare(item.internalHeight, data.target);
            tryCompare(item, "height", data.height);
        }

        function test_the_frame_uses_current_and_target_height_of_the_editor_separately() {
            var item = load("Container", { internalContentHeight: 100, internalContentInternalHeight: 250 });

            item.internalState = "detail";
            compare(item.internalHeight, 350);
            tryCompare(item, "height", 200);
            item.internalContentHeight = 240;
            tryCompare(item, "height", 340);
            compare(item.internalHeight, 350);
        }

        function test_the_root_has_the_target_height_of_the_frame() {
            start();
            compare(main.internalHeight, 174);
            main.openPatient("1");
            compare(main.internalHeight, 339);
            compare(frame().internalHeight, 339);
        }

        function test_the_root_grows_at_once_and_logs_only_the_number() {
            start();
            Native.takeTraces();
            search().text = "d";
            compare(main.height, 326);
            compare(loggedHeights(), ["326"]);
        }

        function test_the_root_shrinks_after_a_second_and_logs_only_the_number() {
            var since;

            start();
            search().text = "d";
            settle();
            Native.takeTraces();
            since = Date.now();
            search().text = "";
            compare(frame().internalHeight, 174);
            tryCompare(frame(), "height", 174);
            compare(main.height, 326);
            compare(loggedHeights(), []);
            tryCompare(main, "height", 174);
            verify(Date.now() - since >= 950, "shrunk after " + (Date.now() - since) + " ms");
            compare(loggedHeights(), ["174"]);
        }

        function test_shrink_timer_fires_once_after_1000_ms() {
            start();
            compare(timer(1000).repeat, false);
            compare(timer(1000).running, false);
        }

        function test_a_pending_shrink_is_cancelled_by_growing_again() {
            start();
            search().text = "d";
            search().text = "";
            compare(timer(1000).running, true);
            search().text = "d";
            compare(timer(1000).running, false);
            compare(main.height, 326);
        }

        function test_a_pending_shrink_is_delayed_by_another_lower_target() {
            start();
            openFile("1");
            compare(main.height, 339);
            search().text = "d";
            compare(main.internalHeight, 326);
            compare(timer(1000).running, true);
            search().text = "";
            compare(main.internalHeight, 174);
            compare(main.height, 339);
            tryCompare(main, "height", 174);
        }

        function test_an_equal_target_changes_nothing() {
            start();
            search().text = "d";
            Native.takeTraces();
            search().text = "du";
            compare(main.height, 326);
            compare(timer(1000).running, false);
            compare(loggedHeights(), []);
        }

        function test_the_editor_height_is_the_sum_of_its_parts_data() {
            return [
                { tag: "new patient without a name", height: 200 },
                { tag: "new patient with a name", name: "D", height: 238 },
                { tag: "stored patient without an answer", id: "1", height: 339, settles: true },
                { tag: "stored patient, tests refused", id: "1", set: "test = 0, test_date = '2014-05-01'",
                  height: 399 },
                { tag: "stored patient, tests made", id: "1", set: "test = 1, test_date = '2014-05-01'", height: 399 },
                { tag: "stored patient, two answers", id: "1",
                  set: "test = 1, test_date = '2014-05-01', confirmation = 1, confirmation_date = '2014-05-01'",
                  height: 459 },
                { tag: "stored patient, three answers", id: "1",
                  set: "test = 1, test_date = '2014-05-01', confirmation = 1, confirmation_date = '2014-05-01', "
                       + "rdv2 = 1, date2 = '2014-05-02'",
                  height: 519 }
            ];
        }

        // 100 for the frame, 100 or 138 for the fields, 60 for each question and 40 more for the expanded one, 1 above
        // the first question and 38 for the SMS bar.
        function test_the_editor_height_is_the_sum_of_its_parts(data) {
            if (data.set) {
                Native.rows("UPDATE Patients SET " + data.set);
            }
            start();
            if (data.id) {
                main.openPatient(data.id);
            } else {
                search().text = data.name || "";
                click(named(main, data.name ? "Créer la fiche patient" : "Nouvelle fiche patient"));
            }
            compare(main.internalHeight, data.height);
            compare(main.height, Math.max(data.height, data.name ? 326 : 174));
            if (data.settles) {
                tryCompare(frame(), "height", data.height);
                compare(detail().height, data.height - 100);
            }
        }

        function test_the_target_height_is_the_sum_of_target_heights() {
            start();
            openFile("1");
            detail().externalName = "other";
            compare(detail().internalHeight, 138 + 38);
            compare(detail().height, 239);
            tryCompare(detail(), "height", 176);
        }

        function test_ready_is_signalled_once_two_seconds_after_the_start() {
            var since = Date.now();
            var ready;

            start();
            ready = spy(main, "ready");
            compare(timer(2000).repeat, false);
            compare(timer(2000).running, true);
            tryCompare(ready, "count", 1);
            verify(Date.now() - since >= 1950, "ready after " + (Date.now() - since) + " ms");
            compare(timer(2000).running, false);
        }
    }
}
