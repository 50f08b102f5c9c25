import QtQuick 2.2
import QtQuick.Controls 1.1

Item {
    id: desk

    width: 420
    height: 80

    ExclusiveGroup {
        id: group
    }

    DocumentTestCase {
        name: "TabPopup"
        stage: desk
        when: windowShown

        function tab(properties) {
            var item = load("TabPopup", { title: "Onglet", width: 200, height: 42 });
            var key;

            for (key in properties || {}) {
                item[key] = properties[key];
            }
            return item;
        }

        function test_children_stand_left_of_the_title() {
            var item = createTemporaryQmlObject(
                "import QtQuick 2.2; import 'qrc:/qml'; TabPopup { width: 200; height: 42; title: 'Onglet';"
                + " Rectangle { width: 24; height: 24 } }", desk);
            var text = textItem(item, "Onglet");
            var child = where(item, function (each) { return each !== item && each.width === 24; })[1];

            compare(look(item, child, "right"), text.x - 5);
            compare(look(item, child, "top"), 9);
        }

        function test_number_of_the_badge_keeps_its_size() {
            var badge = load("WaitingBadge", { number: 7 });
            var text = textItem(badge, "7");
            var height = text.contentHeight;

            badge.number = 12345;
            compare(text.contentHeight, height);
        }

        function test_a_click_checks_and_never_unchecks() {
            var item = tab();
            var changed = spy(item, "checkedChanged");

            click(item);
            click(item);
            compare(item.checked, true);
            compare(changed.count, 1);
        }

        function test_its_group_unchecks_the_other() {
            var first = tab({ exclusiveGroup: group, checked: true });
            var second = tab({ exclusiveGroup: group });

            click(second);
            compare(second.checked, true);
            compare(first.checked, false);
        }

        function test_role_and_state() {
            var item = tab();
            var control = named(item, "Onglet");

            compare(Native.accessible(control).role, "PageTab");
            compare(Native.accessible(control).checked, false);
            compare(Native.accessible(control).selected, false);
            item.checked = true;
            compare(Native.accessible(control).checked, true);
            compare(Native.accessible(control).selected, true);
        }
    }
}
