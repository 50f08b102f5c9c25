import QtQuick 2.2
import QtQuick.Controls 1.1
import "support"

Item {
    id: desk

    width: 420
    height: 200

    ExclusiveGroup {
        id: group
    }

    // The small controls, each alone. Their look is in tst_Looks, their activation in tst_Activation.
    DocumentTestCase {
        name: "Controls"
        stage: desk
        when: windowShown

        function button(properties) {
            var made = load("ActionButton", properties);

            made.width = 138;
            made.text = "Enregistrer";
            return made;
        }

        function tab(properties) {
            var made = load("TabPopup", properties);

            made.title = "Onglet";
            made.width = 200;
            made.height = 42;
            return made;
        }

        function test_a_button_disabled_under_the_mouse_turns_grey_and_recovers() {
            var item = button();

            hover(item);
            tryCompare(item, "state", "hovered");
            item.disabled = true;
            compare(item.color.toString(), "#a9a9a9");
            item.disabled = false;
            tryVerify(function () { return item.color.toString() !== "#a9a9a9"; });
        }

        function test_tab_skips_a_disabled_button() {
            var controls = [button(), button({ disabled: true, y: 50 }), button({ y: 100 })].map(function (item) {
                return named(item, "Enregistrer");
            });

            controls[0].forceActiveFocus();
            keyClick(Qt.Key_Tab);
            verify(hasFocus(controls[2]));
        }

        function test_hidden_parts_collapse_with_an_animation_data() {
            return [{ tag: "StepButton" }, { tag: "SMSSend" }];
        }

        function test_hidden_parts_collapse_with_an_animation(data) {
            var item = load(data.tag);

            item.displayed = false;
            compare(item.internalHeight, 0);
            compare(item.height, 38);
            tryVerify(function () { return item.height < 38; });
            tryCompare(item, "height", 0);
            compare(item.visible, false);
            item.displayed = true;
            compare(item.internalHeight, 38);
            compare(item.height, 0);
            tryCompare(item, "height", 38);
        }

        function test_hidden_parts_stay_visible_to_their_last_line_data() {
            return test_hidden_parts_collapse_with_an_animation_data();
        }

        function test_hidden_parts_stay_visible_to_their_last_line(data) {
            var item = load(data.tag);

            item.height = 1;
            tryCompare(item, "height", 1);
            compare(item.visible, true);
        }

        function test_a_frame_names_its_logo_and_its_title() {
            var item = load("base/WindowFrame", { title: "Tandry" });
            var heard = [picture(item, "logo-vesk.jpg"), textItem(item, "Tandry")].map(function (each) {
                var accessible = Native.accessible(each);

                return accessible.role + " " + accessible.name;
            });

            compare(heard, ["Graphic VESK", "StaticText Tandry"]);
        }

        function test_a_deferred_loader_loads_with_the_next_frame() {
            var loader = load("base/DeferredLoader");

            loader.waitForFrame();
            compare(loader.active, false);
            loader.awaitedWindow.frameSwapped();
            compare(loader.active, true);
        }

        function test_the_accessible_name_of_a_gate_has_no_markup() {
            named(load("StepButton", { text: "Si la 1<sup>ère</sup> prise,<br/>cliquez ici" }),
                  "Si la 1ère prise, cliquez ici");
        }

        function test_a_collapsing_sms_bar_keeps_its_text_centred() {
            var item = load("SMSSend");
            var text = textItem(item, "Envoyer le SMS de rappel");

            item.height = 12;
            tryCompare(item, "height", 12);
            fuzzyCompare(text.y + text.height / 2, 6, 0.51);
            fuzzyCompare(text.x + text.width / 2, 137.5, 0.51);
        }

        function test_a_right_click_does_not_signal_data() {
            return [{ tag: "SMSSend" }, { tag: "PatientsItem" }, { tag: "StepButton" }];
        }

        function test_a_right_click_does_not_signal(data) {
            var item = load(data.tag, { width: 275 });
            var clicked = spy(item, "clicked");

            mouseClick(item, 100, 18, Qt.RightButton);
            compare(clicked.count, 0);
            compare(Native.takeOpenedAddresses(), []);
        }

        function test_a_row_shows_its_focus_ring_only_while_focused() {
            var item = load("PatientsItem", { text: "DUPONT Marie", width: 275 });
            var ring = part(item, "type FocusRing");

            compare(ring.visible, false);
            item.focusLink();
            verify(hasFocus(named(item, "DUPONT Marie")));
            compare(ring.visible, true);
            item.number = 3;
            named(item, "DUPONT Marie (3)");
        }

        function test_a_picture_shows_its_tooltip_as_long_as_the_mouse_is_on_it() {
            var item = load("NameStatus", { width: 275 });

            expectedWarnings = ["This plugin does not support raise()"];
            hover(named(item, "Retour"));
            tryVerify(function () { return Native.shownToolTip() === "Enregistrer"; });
            hover(named(item, "Sexe : homme"));
            tryVerify(function () { return Native.shownToolTip() === ""; });
        }

        function test_back_changes_no_property_and_gender_toggles_at_each_click() {
            var item = load("NameStatus", { name: "DUPONT", genderMale: false });

            item.width = 275;
            click(named(item, "Retour"));
            compare([item.name, item.genderMale], ["DUPONT", false]);
            click(named(item, "Sexe : femme"));
            compare(item.genderMale, true);
            click(named(item, "Sexe : homme"));
            compare(item.genderMale, false);
        }

        function test_name_follows_the_typed_text() {
            var item = load("NameStatus", { width: 275 });

            item.focus();
            verify(named(item, "Nom du patient").activeFocus);
            type("Ab");
            compare(item.name, "Ab");
            item.name = "DURAND";
            compare(named(item, "Nom du patient").text, "DURAND");
        }

        function test_children_stand_left_of_the_title() {
            var item = createTemporaryQmlObject(
                "import QtQuick 2.2; import 'qrc:/qml'; TabPopup { width: 200; height: 42; title: 'Onglet';"
                + " Rectangle { objectName: 'child'; width: 24; height: 24 } }", desk);
            var child = part(item, "part child");

            compare(look(item, child, "right"), textItem(item, "Onglet").x - 5);
            compare(look(item, child, "top"), 9);
        }

        function test_the_number_of_the_badge_does_not_change_its_size() {
            var badge = load("list/WaitingBadge", { number: 7 });
            var text = textItem(badge, "7");
            var height = text.contentHeight;

            badge.number = 12345;
            compare(text.contentHeight, height);
        }

        function test_a_click_checks_a_tab_and_never_unchecks_it() {
            var item = tab();
            var other = tab({ exclusiveGroup: group, checked: true });
            var changed = spy(item, "checkedChanged");
            var accessible = function () { return Native.accessible(named(item, "Onglet")); };

            item.exclusiveGroup = group;
            other.y = 50;
            compare([accessible().checkable, accessible().selectable], [true, true]);
            compare([accessible().checked, accessible().selected], [false, false]);
            click(item);
            click(item);
            compare([item.checked, other.checked], [true, false]);
            compare([accessible().checked, accessible().selected], [true, true]);
            compare(changed.count, 1);
        }
    }
}
