"""The desktop changes while the program runs: its tray, its window manager, the size of its screen."""

from support.case import DesktopTest, main
from support.desktop import HEIGHT, WIDTH
from support.tandry import SEARCH_FIELD
from support.waiting import NeverHappened, wait_equal, wait_until
from support.widget import CONTACT_WIDTH

CLOCK = "2014-05-12 10:00:00"
WAITING = {"name": "Dupont", "created": "2014-04-10", "notification_date": "2014-05-01"}
SMALL = (800, 600)


class DesktopChanges(DesktopTest):

    def icon(self, widget):
        """The pixels of the icon in the tray."""
        return self.desktop.screen.region(self.desktop.screen.geometry(wait_until(widget.tray_window, "an icon")))

    def state(self, window):
        """The window manager's state of the window."""
        return self.desktop.screen.property(window, "_NET_WM_STATE")

    def resize(self, width, height):
        """Changes the screen's size for this test."""
        self.addCleanup(self.desktop.resize, WIDTH, HEIGHT)
        self.desktop.resize(width, height)

    @staticmethod
    def inside(place):
        """Whether a window is within the small screen."""
        return place.x >= 0 and place.y >= 0 and place.x + place.width <= SMALL[0] and place.y + place.height <= SMALL[1]

    def test_the_icon_returns_when_the_tray_restarts(self):
        self.store.seed(WAITING)
        widget = self.start_ready(clock=CLOCK)
        wait_until(lambda: "icon 1" in widget.log, "the first refresh is done")
        wait_until(widget.tray_window, "the icon is in the tray")
        widget.create("Martin")
        widget.back()
        wait_until(lambda: "icon 2" in widget.log, "the badge follows")
        self.desktop.stop_tray()
        try:
            wait_until(lambda: widget.tray_window() is None, "the icon is gone with its tray")
            # Without a tray the widget keeps working.
            widget.create("Durand")
            widget.back()
            wait_until(lambda: "icon 3" in widget.log, "the count follows")
        finally:
            self.desktop.start_tray()
        wait_until(widget.tray_window, "the icon is in the new tray")
        wait_until(lambda: self.is_red(widget), "the badge is on the icon")
        self.picture("tray-came-back")
        with_badge = self.icon(widget)
        widget.create("Petit")
        widget.back()
        wait_until(lambda: self.icon(widget) != with_badge, "the badge follows in the new tray")
        widget.toggle_by_tray()
        widget.toggle_by_tray()

    def is_red(self, widget):
        """Whether the lower right part of the icon contains the badge's colour."""
        pixels = self.icon(widget)
        return any(pixels[i] > 200 and pixels[i + 1] < 80 and pixels[i + 2] < 80 for i in range(0, len(pixels), 3))

    def test_the_icon_appears_in_a_tray_that_starts_later(self):
        self.desktop.stop_tray()
        try:
            self.store.seed(WAITING)
            widget = self.start_ready(clock=CLOCK)
            wait_until(lambda: "icon 1" in widget.log, "the first refresh is done")
            self.assertIsNone(widget.tray_window())
        finally:
            self.desktop.start_tray()
        wait_until(widget.tray_window, "the icon is in the tray")
        wait_until(lambda: self.is_red(widget), "the badge is on the icon")

    def typed_into_the_search(self, widget, text):
        """Whether the search field receives typed text."""
        widget.replace_text(SEARCH_FIELD, text)
        try:
            wait_equal(lambda: widget.control(SEARCH_FIELD, "text").text, text, "the field holds the text", limit=3)
        except NeverHappened:
            return False
        return True

    def test_the_widget_survives_a_restart_of_the_window_manager(self):
        widget = self.start_ready()
        window, screen = widget.wait_for_window(), self.desktop.screen
        self.desktop.screen.drag((830, 50), (530, 250))
        place = (410, 235, 275, 174)
        wait_equal(widget.geometry, place, "the window follows the header")
        self.desktop.stop_window_manager()
        try:
            self.assertEqual(widget.geometry(), place)
        finally:
            self.desktop.start_window_manager()
        wait_until(lambda: "0, 0, 0, 0" in screen.property(window, "_NET_FRAME_EXTENTS"), "it has no frame")
        wait_until(lambda: "_NET_WM_STATE_ABOVE" in self.state(window), "it is kept above")
        wait_equal(widget.geometry, place, "it is where it was")
        # A new window manager may take the focus once more after its start.
        wait_until(lambda: self.typed_into_the_search(widget, "du"), "it receives typed text")
        widget.control("Créer la fiche patient")
        widget.search("")
        wait_equal(lambda: widget.geometry()[:2], place[:2], "it is where it was")
        widget.click("Contacts VESK")
        popup = widget.wait_for_window(CONTACT_WIDTH)
        wait_until(lambda: screen.stacked_above(window, popup), "it stays above the popup")
        screen.drag((530, 250), (600, 270))
        wait_equal(lambda: widget.geometry()[:2], (480, 255), "it can be dragged")

    def test_a_smaller_screen_contains_the_windows_when_shown_again(self):
        widget = self.start_ready()
        self.assertEqual(widget.geometry()[:2], (WIDTH - 570, 35))
        self.resize(*SMALL)
        # A window outside the screen moves back into it when it is shown the next time.
        widget.toggle_by_tray()
        widget.toggle_by_tray()
        wait_equal(lambda: widget.geometry()[:2], (SMALL[0] - 570, 35), "the widget is in the screen")
        widget.click("Contacts VESK")
        wait_until(lambda: self.inside(widget.geometry(CONTACT_WIDTH)), "the popup is in the screen")
        widget.search("Martin")
        widget.control("Créer la fiche patient")

    def test_a_second_start_moves_the_widget_into_a_smaller_screen(self):
        widget = self.start_ready()
        self.resize(*SMALL)
        self.assertEqual(self.start().wait_for_exit(), 0)
        wait_equal(lambda: widget.geometry()[:2], (SMALL[0] - 570, 35), "the widget is in the screen")

    def test_a_larger_screen_does_not_move_the_widget(self):
        self.resize(*SMALL)
        widget = self.start_ready()
        self.assertEqual(widget.geometry()[:2], (SMALL[0] - 570, 35))
        self.desktop.resize(WIDTH, HEIGHT)
        widget.toggle_by_tray()
        widget.toggle_by_tray()
        self.assertEqual(widget.geometry()[:2], (SMALL[0] - 570, 35))


if __name__ == "__main__":
    main()
