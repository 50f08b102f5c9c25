import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 760

    MainTestCase {
        name: "MainMenu"
        stage: desk
        when: windowShown

        function prepare() {
            start();
        }

        function finish() {
            menu().__dismissMenu();
        }

        function test_menu_items_emit_their_signal_data() {
            return [
                { tag: "A propos", signalName: "openAbout" },
                { tag: "Quitter", signalName: "close" }
            ];
        }

        function test_menu_items_emit_their_signal(data) {
            var told = spy(main, data.signalName);

            menuItem(data.tag).trigger();
            compare(told.count, 1);
        }

        function test_only_a_right_click_on_the_header_opens_the_menu_data() {
            return [
                { tag: "right click on the left of the header", x: 5, y: 5, button: Qt.RightButton, opens: true },
                { tag: "right click on the title", x: 90, y: 28, button: Qt.RightButton, opens: true },
                { tag: "right click just left of the buttons", x: 203, y: 20, button: Qt.RightButton, opens: true },
                { tag: "right click on the cross", x: 255, y: 21, button: Qt.RightButton, opens: true },
                { tag: "left click on the header", x: 90, y: 20, button: Qt.LeftButton, opens: false },
                { tag: "left click on the cross", x: 255, y: 21, button: Qt.LeftButton, opens: false },
                { tag: "right click on the search bar", x: 150, y: 70, button: Qt.RightButton, opens: false },
                { tag: "right click on the waiting link", x: 100, y: 150, button: Qt.RightButton, opens: false }
            ];
        }

        function test_only_a_right_click_on_the_header_opens_the_menu(data) {
            var shown = spy(menu(), "aboutToShow");

            mouseClick(main, data.x, data.y, data.button);
            compare(shown.count, data.opens ? 1 : 0);
        }

        function test_right_click_on_the_cross_does_not_hide_the_window() {
            var hide = spy(main, "hide");

            mouseClick(named(main, "Fermer"), 8, 8, Qt.RightButton);
            compare(hide.count, 0);
        }

        function test_a_long_press_on_the_cross_opens_the_menu_and_does_not_hide_the_window() {
            var hide = spy(main, "hide");
            var shown = spy(menu(), "aboutToShow");

            mousePress(named(main, "Fermer"), 8, 8);
            tryCompare(shown, "count", 1);
            mouseRelease(named(main, "Fermer"), 8, 8);
            compare(hide.count, 0);
        }

        function test_a_picture_button_looks_pressed_until_the_release() {
            var cross = named(main, "Fermer");
            var image = picture(cross, "cross.png");

            mousePress(cross, 8, 8);
            mouseMove(cross, 8, 80);
            compare(image.opacity, 0.5);
            mouseRelease(cross, 8, 80);
            compare(image.opacity, 1);
        }

        function test_pressing_the_header_starts_dragging_data() {
            return [
                { tag: "left edge", x: 3, y: 3, button: Qt.LeftButton, starts: 1 },
                { tag: "logo", x: 30, y: 20, button: Qt.LeftButton, starts: 1 },
                { tag: "title", x: 90, y: 28, button: Qt.LeftButton, starts: 1 },
                { tag: "right button", x: 90, y: 20, button: Qt.RightButton, starts: 1 },
                { tag: "just left of the buttons", x: 203, y: 40, button: Qt.LeftButton, starts: 1 },
                { tag: "contact button", x: 213, y: 21, button: Qt.LeftButton, starts: 0 },
                { tag: "cross", x: 255, y: 21, button: Qt.LeftButton, starts: 0 },
                { tag: "right of the cross", x: 270, y: 20, button: Qt.LeftButton, starts: 0 },
                { tag: "search bar", x: 150, y: 70, button: Qt.LeftButton, starts: 0 },
                { tag: "waiting link", x: 150, y: 150, button: Qt.LeftButton, starts: 0 }
            ];
        }

        function test_pressing_the_header_starts_dragging(data) {
            var dragging = spy(main, "enableDragging");

            mousePress(main, data.x, data.y, data.button);
            compare(dragging.count, data.starts);
            mouseRelease(main, data.x, data.y, data.button);
            compare(dragging.count, data.starts);
        }

        function test_the_menu_opens_from_the_keyboard_data() {
            return [
                { tag: "Menu", key: Qt.Key_Menu, modifiers: Qt.NoModifier, opens: 1 },
                { tag: "Shift F10", key: Qt.Key_F10, modifiers: Qt.ShiftModifier, opens: 1 },
                { tag: "F10", key: Qt.Key_F10, modifiers: Qt.NoModifier, opens: 1 },
                { tag: "F9", key: Qt.Key_F9, modifiers: Qt.NoModifier, opens: 0 }
            ];
        }

        function test_the_menu_opens_from_the_keyboard(data) {
            var shown = spy(menu(), "aboutToShow");

            named(main, "Contacts VESK").forceActiveFocus();
            keyClick(data.key, data.modifiers);
            compare(shown.count, data.opens);
        }

        function test_set_autorun_ticks_the_item_and_signals_each_change_once() {
            var autorun = spy(main, "autorun");

            compare(menuItem("Lancer au démarrage").checked, false);
            main.setAutorun(true);
            compare(menuItem("Lancer au démarrage").checked, true);
            compare(frame().launchOnStart, true);
            compare(autorun.count, 1);
            compare(autorun.signalArguments[0][0], true);
            main.setAutorun(true);
            compare(autorun.count, 1);
            main.setAutorun(false);
            compare(autorun.count, 2);
            compare(autorun.signalArguments[1][0], false);
            main.setAutorun(false);
            compare(autorun.count, 2);
        }

        // The service confirms each new setting with setAutorun.
        function test_the_round_trip_of_the_tick_ends_after_one_emission() {
            var autorun = spy(main, "autorun");
            var atLogin = false;
            var changes = 0;

            main.autorun.connect(function (value) {
                if (value !== atLogin) {
                    atLogin = value;
                    ++changes;
                    main.setAutorun(value);
                }
            });
            menuItem("Lancer au démarrage").trigger();
            compare(autorun.count, 1);
            compare(changes, 1);
            compare(atLogin, true);
            menuItem("Lancer au démarrage").trigger();
            compare(autorun.count, 2);
            compare(changes, 2);
            compare(atLogin, false);
            compare(menuItem("Lancer au démarrage").checked, false);
        }
    }
}
