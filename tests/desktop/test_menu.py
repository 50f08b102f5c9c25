"""The context menu: how it opens, and its three items."""

from support.case import DesktopTest, main
from support.screen import RIGHT
from support.tandry import SEARCH_FIELD
from support.waiting import stays, wait_equal, wait_until


class ContextMenu(DesktopTest):

    def setUp(self):
        super().setUp()
        self.widget = self.start_ready()

    def wait_for_menu(self):
        wait_until(self.widget.menu_window, "the menu opens")

    def close_menu(self):
        self.widget.press("Escape")
        wait_until(lambda: self.widget.menu_window() is None, "the menu closes")

    def test_the_menu_opens_on_the_header_and_on_the_cross(self):
        self.widget.open_menu()
        self.picture("menu")
        self.close_menu()
        self.widget.right_click("Fermer")
        self.wait_for_menu()
        self.close_menu()
        x, y = self.widget.control("Fermer", "push button").middle
        self.desktop.screen.press(x, y)
        self.wait_for_menu()
        self.desktop.screen.release()
        self.assertIsNotNone(self.widget.window())
        self.close_menu()
        self.assertIsNotNone(self.widget.window())

    def test_the_menu_does_not_open_elsewhere(self):
        place = self.widget.geometry()
        self.desktop.screen.click(place.x + 100, place.y + 160, RIGHT)
        stays(lambda: self.widget.menu_window() is None, "no menu", 0.5)

    def test_the_cross_hides_the_window(self):
        self.widget.click("Fermer")
        wait_until(lambda: self.widget.window() is None, "the window is hidden")
        self.assertTrue(self.widget.running)
        self.widget.toggle_by_tray()

    def test_launch_at_login_can_be_switched_off_and_on(self):
        self.assertIs(self.home.login_list()["Disabled"], False)
        for disabled in (True, False, True):
            self.widget.open_menu()
            self.widget.choose("Lancer au démarrage")
            wait_equal(lambda: self.home.login_list()["Disabled"], disabled, "the property list follows")
            wait_equal(lambda: self.home.login_entry().get("Hidden", "false"), str(disabled).lower(),
                       "the autostart entry follows")

    def test_a_manually_edited_list_is_respected(self):
        self.home.write_login_list({"Label": "com.olmeric.vesktandry", "Disabled": True})
        self.widget.open_menu()
        # The menu item is still ticked; unticking it sets the value that the file already has: nothing is written.
        self.widget.choose("Lancer au démarrage")
        stays(lambda: self.home.login_list() == {"Label": "com.olmeric.vesktandry", "Disabled": True},
              "the list does not change", 0.5)
        self.home.write_login_list({"Label": "com.olmeric.vesktandry"})
        self.widget = self.restart(self.widget)
        self.widget.open_menu()
        self.widget.choose("Lancer au démarrage")
        wait_equal(lambda: self.home.login_list()["Disabled"], False, "a list without the key counted as off")

    def test_about_names_the_version_and_the_installation(self):
        self.widget.open_menu()
        self.widget.choose("A propos")
        box = wait_until(lambda: self.widget.find(role="alert"), "the box opens")
        texts = " ".join(label.name for label in box.find_all(role="label"))
        self.assertRegex(texts, r"(?s)Vesk Tandry.*Version 1\.1\.0 - .*[0-9a-f]{8}")
        self.picture("about")
        window = next(w for w in self.desktop.screen.windows(self.widget.process.pid)
                      if self.desktop.screen.geometry(w)[:2] == box.box[:2])
        self.assertTrue(self.desktop.screen.stacked_above(window, self.widget.wait_for_window()))
        self.assertIn("_NET_WM_STATE_ABOVE", self.desktop.screen.property(window, "_NET_WM_STATE"))
        self.widget.press("Return")
        wait_until(lambda: self.widget.find(role="alert") is None, "the box closes")

    def test_quit_asks_first(self):
        self.widget.open_menu()
        self.widget.choose("Quitter")
        self.widget.control("Fermeture de Tandry")
        self.picture("quit")
        self.widget.press("Return")
        self.widget.wait_gone("Fermeture de Tandry")
        self.assertTrue(self.widget.running)

    def test_the_menu_works_from_the_keyboard(self):
        self.widget.press("F10")
        self.wait_for_menu()
        place, window = self.desktop.screen.geometry(self.widget.menu_window()), self.widget.geometry()
        self.assertEqual(place[:2], (window.x + 10, window.y + 42), "below the header, not at the mouse")
        self.widget.press("Down", "Return")
        wait_equal(lambda: self.home.login_list()["Disabled"], True, "the first item was chosen")
        self.widget.press("Tab", "Menu")
        self.wait_for_menu()
        self.widget.press("Down", "Down", "Down", "Return")
        self.widget.control("Fermeture de Tandry")


    def test_a_field_has_a_menu_of_its_own(self):
        def text():
            return self.widget.control(SEARCH_FIELD, "text").text

        self.widget.search("du")
        self.widget.press("ctrl+a")
        for key, item, result in (("Menu", "Couper", ""), ("shift+F10", "Coller", "du"), ("Menu", "nothing", "dux")):
            self.widget.press(key)
            self.wait_for_menu()
            self.picture("field-menu-" + item)
            if item == "nothing":
                self.close_menu()
                self.widget.type("x")
            else:
                self.widget.press("Down", "Return")
            wait_equal(text, result, item)


if __name__ == "__main__":
    main()
