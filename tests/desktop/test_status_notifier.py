"""The icon in a StatusNotifier tray, which can be clicked while a dialog is open."""

from support.case import DesktopTest, main
from support.notifier import Notifier
from support.patient_list import PatientList
from support.waiting import stays, wait_until

ABOUT = "Vesk Tandry"


class StatusNotifier(DesktopTest):
    tray = False

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.notifier = Notifier(cls.desktop)

    def setUp(self):
        super().setUp()
        self.widget = self.start_ready()

    def hide(self):
        """Clicks the icon, and waits until the widget is hidden."""
        self.notifier.click(self.widget)
        wait_until(lambda: self.widget.window() is None, "the widget is hidden")

    def close_dialog(self, key):
        """Presses a key in the open dialog; the program must keep running and show its widget again."""
        self.widget.press(key)
        wait_until(lambda: not self.dialog(), "the dialog closes")
        stays(lambda: self.widget.running, "the program runs", 0.5)
        self.notifier.click(self.widget)
        self.widget.wait_for_window()

    def dialog(self):
        """The open box or dialog, or None."""
        return self.widget.running and (self.widget.find(role="alert") or self.widget.find(role="dialog"))

    def test_a_box_that_closes_over_a_hidden_widget_does_not_end_the_program(self):
        for item, key in (("Quitter", "Escape"), ("A propos", "Return")):
            with self.subTest(item):
                self.widget.open_menu()
                self.widget.choose(item)
                wait_until(self.dialog, "the box opens")
                self.hide()
                self.close_dialog(key)

    def test_the_print_dialog_that_closes_over_a_hidden_widget_does_not_end_the_program(self):
        PatientList(self.widget).open().click("Imprimer")
        wait_until(self.dialog, "the dialog opens")
        self.hide()
        self.close_dialog("Escape")


class LateNotifier(DesktopTest):
    tray = False

    def test_a_program_that_starts_before_the_notifier_stays_in_the_x11_tray(self):
        self.desktop.start_tray()
        self.addCleanup(self.desktop.stop_tray)
        widget = self.start_ready()
        wait_until(widget.tray_window, "the icon is in the X11 tray")
        notifier = Notifier(self.desktop)
        self.addCleanup(notifier.stop)
        stays(lambda: widget.tray_window() and not notifier.has_icon(widget), "the icon stays where it is", 0.5)
        widget = self.restart(widget)
        wait_until(lambda: notifier.has_icon(widget), "the next start uses the notifier")
        self.assertIsNone(widget.tray_window())


if __name__ == "__main__":
    main()
