"""The icon in the tray: clicks, badge and messages."""

from support.case import DesktopTest, main
from support.patient_list import PatientList
from support.screen import MIDDLE, RIGHT
from support.waiting import stays, wait_equal, wait_until
from support.widget import CONTACT_WIDTH, LIST_WIDTH

CLOCK = "2014-05-12 10:00:00"
WAITING_SINCE = {"created": "2014-04-10", "notification_date": "2014-05-01"}
NOT_YET = {"created": "2014-04-10", "notification_date": "2014-09-15"}


class Tray(DesktopTest):

    def icon(self, widget):
        """The pixels of the icon in the tray."""
        return self.desktop.screen.region(self.desktop.screen.geometry(wait_until(widget.tray_window, "an icon")))

    def message(self, widget):
        """The text of the message at the tray, or None."""
        label = next((label for label in widget.find_all(role="label") if label.name.startswith("Vous avez")), None)
        return label and label.name

    def first_refresh(self, widget):
        """Waits until the program has finished its own actions after a start."""
        wait_until(lambda: "icon 0." in widget.log, "the first refresh is done")

    def test_a_click_shows_and_hides_the_widget(self):
        widget = self.start_ready()
        widget.toggle_by_tray()
        widget.toggle_by_tray()
        self.assertEqual(widget.geometry(), (710, 35, 275, 174))

    def test_a_click_hides_the_popups(self):
        widget = self.start_ready()
        widget.click("Contacts VESK")
        widget.wait_for_window(CONTACT_WIDTH)
        PatientList(widget).open()
        widget.toggle_by_tray()
        wait_until(lambda: widget.window(LIST_WIDTH) is None and widget.window(CONTACT_WIDTH) is None
                   and widget.window() is None, "all windows are hidden")

    def test_the_other_buttons_do_nothing(self):
        widget = self.start_ready()
        widget.click_tray(RIGHT)
        widget.click_tray(MIDDLE)
        stays(lambda: widget.window() is not None and widget.menu_window() is None, "nothing happens", 0.7)

    def test_without_waiting_patients_there_is_no_badge_or_message(self):
        self.store.seed({"name": "Dupont", **NOT_YET})
        widget = self.start_ready(clock=CLOCK)
        self.first_refresh(widget)
        stays(lambda: self.message(widget) is None, "no message", 0.5)

    def test_the_badge_follows_the_number(self):
        self.store.seed({"name": "Dupont", **NOT_YET})
        widget = self.start_ready(clock=CLOCK)
        self.first_refresh(widget)
        seen = [self.icon(widget)]
        for number, name in enumerate(("Martin", "Durand"), 1):
            widget.create(name)
            widget.back()
            wait_until(lambda: self.icon(widget) not in seen, "the icon changes")
            seen.append(self.icon(widget))
            self.picture(f"tray-{number}")
        self.assertIn("icon 2", widget.log)
        # A change by the user shows no message.
        self.assertIsNone(self.message(widget))

    def test_the_message_shows_numbers_above_99(self):
        self.store.seed(*({"name": f"Patient {number:03}", **WAITING_SINCE} for number in range(150)))
        widget = self.start_ready(clock=CLOCK)
        wait_equal(lambda: self.message(widget), "Vous avez 150 patients en attente", "the message has the number")
        text = widget.find("Vous avez 150 patients en attente", "label").box
        titles = [label.box for label in widget.find_all("Tandry", "label")]
        self.assertTrue(any(0 < text.y - title.y < 60 for title in titles), f"no title right above {text}: {titles}")
        self.picture("tray-99-plus")

    def test_the_message_opens_the_list(self):
        self.store.seed({"name": "Dupont", **WAITING_SINCE})
        widget = self.start_ready(clock=CLOCK)
        wait_equal(lambda: self.message(widget), "Vous avez 1 patient en attente", "the message is shown")
        self.picture("tray-message")
        widget.click_found(lambda: widget.find("Vous avez 1 patient en attente", "label"), "the message")
        widget.wait_for_window(LIST_WIDTH)


if __name__ == "__main__":
    main()
