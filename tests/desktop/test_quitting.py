"""Quitting asks first, unless the user has ticked "Ne plus me demander"."""

from support.case import DesktopTest, main
from support.waiting import stays, wait_equal, wait_until
from support.widget import CONTACT_WIDTH, LIST_WIDTH

QUESTION = "Etes-vous sur de vouloir fermer le widget Tandry ?"
TICK = "Ne plus me demander"


class Quitting(DesktopTest):

    def ask(self, widget):
        """Chooses "Quitter" and waits for the question."""
        widget.open_menu()
        widget.choose("Quitter")
        widget.control(QUESTION, "label")

    def never_again(self):
        """The stored preference."""
        return self.home.settings().get("DontAskBeforeQuit")

    def tick(self, widget, stored):
        """Toggles the check box; the preference is stored at that moment."""
        widget.click(TICK, "check box")
        wait_equal(self.never_again, stored, "the preference is stored at once")

    def test_the_question_has_its_text_and_buttons(self):
        widget = self.start_ready()
        self.ask(widget)
        box = widget.control(role="alert")
        self.assertIsNotNone(box.find("Fermeture de Tandry", "label"))
        self.assertEqual(len(box.find_all(role="push button")), 2)
        self.assertFalse(box.find(TICK, "check box").has("checked"))
        self.picture("quitting")
        for key in ("Return", "Escape"):
            widget.press(key)
            widget.wait_gone(QUESTION)
            self.assertTrue(widget.running)
            if key == "Return":
                self.ask(widget)
        self.assertIsNone(self.never_again())

    def test_the_window_manager_s_close_asks(self):
        widget = self.start_ready()
        widget.press("alt+F4")
        widget.control(QUESTION, "label")
        widget.press("Escape")
        widget.wait_gone(QUESTION)
        self.assertIsNotNone(widget.window())
        widget.press("alt+F4")
        widget.control(QUESTION, "label")
        widget.click("OK", "push button")
        self.assertEqual(widget.wait_for_exit(), 0)

    def test_the_window_manager_s_close_hides_a_popup(self):
        widget = self.start_ready()
        for button, width in (("Contacts VESK", CONTACT_WIDTH), ("Liste de tous les patients", LIST_WIDTH)):
            widget.click(button, "push button")
            widget.wait_for_window(width)
        widget.click("Fermer", "push button")
        wait_until(lambda: widget.window() is None, "the widget is hidden")
        for width in (LIST_WIDTH, CONTACT_WIDTH):
            wait_equal(widget.active_width, width, "the popup has the keyboard")
            widget.press("alt+F4")
            wait_until(lambda: widget.window(width) is None, "the popup is hidden")
        stays(lambda: widget.running, "the program runs without a window", 0.5)
        widget.toggle_by_tray()

    def test_ok_quits(self):
        widget = self.start_ready()
        self.ask(widget)
        widget.click("OK", "push button")
        self.assertEqual(widget.wait_for_exit(), 0)
        self.assertIsNone(self.never_again())

    def test_cancel_with_a_tick_quits_at_once_the_next_time(self):
        widget = self.start_ready()
        self.ask(widget)
        self.tick(widget, "true")
        widget.press("Escape")
        widget.wait_gone(QUESTION)
        widget.open_menu()
        widget.choose("Quitter")
        self.assertEqual(widget.wait_for_exit(), 0)

    def test_ok_with_a_tick_never_asks_again(self):
        widget = self.start_ready()
        self.ask(widget)
        self.tick(widget, "true")
        widget.click("OK", "push button")
        self.assertEqual(widget.wait_for_exit(), 0)
        widget = self.start_ready()
        widget.open_menu()
        widget.choose("Quitter")
        self.assertEqual(widget.wait_for_exit(), 0)

    def test_an_unticked_box_asks_again_the_next_time(self):
        widget = self.start_ready()
        self.ask(widget)
        self.tick(widget, "true")
        self.tick(widget, "false")
        widget.click("OK", "push button")
        self.assertEqual(widget.wait_for_exit(), 0)
        self.ask(self.start_ready())

    def test_the_lock_is_free_after_the_end(self):
        self.home.write_settings({"DontAskBeforeQuit": "true"})
        for _ in range(2):
            widget = self.start_ready()
            widget.open_menu()
            widget.choose("Quitter")
            self.assertEqual(widget.wait_for_exit(), 0)
            wait_until(lambda: not widget.running, "the program ends")


if __name__ == "__main__":
    main()
