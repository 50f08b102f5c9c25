import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 300

    ListModel { id: patients }

    DocumentTestCase {
        name: "PatientsResults"
        stage: desk
        when: windowShown

        function list(count) {
            var made;
            var i;

            patients.clear();
            for (i = 1; i <= count; ++i) {
                patients.append({ id: i, name: "PATIENT " + i, genderMale: i % 2 });
            }
            made = load("PatientsResults", { width: 275, height: 152, model: patients });
            tryVerify(function () { return ofType(made, "PatientsItem").length === Math.min(count, 4)
                                        || ofType(made, "PatientsItem").length >= 4; });
            return made;
        }

        function rows(item) {
            return ofType(item, "PatientsItem").sort(function (a, b) { return a.y - b.y; });
        }

        function test_rows_are_placed_one_below_the_other() {
            var item = list(3);

            compare(rows(item).map(function (row) { return row.y; }), [0, 38, 76]);
            compare(rows(item).map(function (row) { return row.text; }), ["PATIENT 1", "PATIENT 2", "PATIENT 3"]);
        }

        function test_selected_passes_id_name_and_always_male_data() {
            return [{ tag: "man", index: 0, id: "1", name: "PATIENT 1" },
                    { tag: "woman", index: 1, id: "2", name: "PATIENT 2" }];
        }

        function test_selected_passes_id_name_and_always_male(data) {
            var item = list(2);
            var selected = spy(item, "selected");

            click(rows(item)[data.index]);
            compare(selected.count, 1);
            compare([selected.signalArguments[0][0], selected.signalArguments[0][1], selected.signalArguments[0][2]],
                    [data.id, data.name, true]);
        }

        function test_few_rows_need_no_scroll_bar() {
            compare(part(list(4), "").__verticalScrollBar.visible, false);
        }

        function test_rows_after_the_fourth_can_be_scrolled_to() {
            var item = list(10);

            mouseWheel(item, 100, 100, 0, -1200);
            tryVerify(function () { return item.flickableItem.contentY > 0; });
        }

        function test_the_first_row_can_be_opened_and_focused() {
            var item = list(2);
            var selected = spy(item, "selected");

            item.focusFirst();
            verify(hasFocus(named(item, "PATIENT 1")));
            item.selectFirst();
            compare(selected.signalArguments[0][0], "1");
        }

        function test_without_rows_nothing_is_opened() {
            var item = list(0);
            var selected = spy(item, "selected");

            item.selectFirst();
            compare(selected.count, 0);
        }

        function test_the_list_has_a_role_and_a_name() {
            var accessible = Native.accessible(list(1));

            compare(accessible.role, "List");
            compare(accessible.name, "Patients trouvés");
        }
    }
}
