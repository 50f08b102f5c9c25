"""The widget opens at its place as a frameless window on top, and only its header drags it."""

import subprocess

from support.case import DesktopTest, main
from support.desktop import HEIGHT, WIDTH
from support.patient_list import PatientList
from support.waiting import stays, wait_equal, wait_until
from support.widget import CONTACT_WIDTH, LIST_WIDTH


class Opening(DesktopTest):
    renderer = ""

    def test_the_widget_opens_at_the_top_right_frameless_and_on_top(self):
        widget = self.start_ready()
        window = widget.wait_for_window()
        screen = self.desktop.screen
        self.assertEqual(widget.geometry(), (WIDTH - 570, 35, 275, 174))
        self.assertIn("0, 0, 0, 0", screen.property(window, "_NET_FRAME_EXTENTS"))
        wait_until(lambda: "_NET_WM_STATE_ABOVE" in screen.property(window, "_NET_WM_STATE"), "it is kept above")
        # The corner is rounded: the frame is dark blue only inside it.
        place = widget.geometry()
        wait_equal(lambda: screen.pixel(place.x + 60, place.y + 5), "#002457", "the frame is drawn")
        self.assertNotEqual(screen.pixel(place.x, place.y), "#002457")
        self.assertNotEqual(screen.pixel(place.x, place.y), "#ffffff")
        self.picture("opening")

    def test_the_widget_stays_above_an_active_popup(self):
        widget = self.start_ready()
        screen = self.desktop.screen
        widget.click("Contacts VESK")
        popup, window = widget.wait_for_window(CONTACT_WIDTH), widget.wait_for_window()
        wait_until(lambda: str(hex(popup)) in screen.property("root", "_NET_ACTIVE_WINDOW"), "the popup is active")
        self.assertTrue(screen.stacked_above(window, popup))

    def test_the_widget_is_dragged_by_its_header(self):
        widget = self.start_ready()
        self.assertEqual(widget.drag((120, 15), (530, 250))[:2], (410, 235))
        self.assertEqual(widget.drag((120, 15), (600, 270))[:2], (480, 255))

    def test_a_dragged_widget_ends_at_the_pointer_while_the_window_manager_lags(self):
        widget = self.start_ready()
        screen = self.desktop.screen
        screen.press(830, 50)
        screen.move(820, 60)
        wait_equal(lambda: widget.geometry()[:2], (700, 45), "the window follows the header")
        self.desktop.pause_window_manager()
        try:
            for step in range(1, 11):
                screen.move(820 - 29 * step, 60 + 19 * step)
        finally:
            self.desktop.continue_window_manager()
        screen.release()
        wait_equal(lambda: widget.geometry()[:2], (410, 235), "the window is where the pointer left it")

    def test_a_popup_opens_where_it_was(self):
        widget = self.start_ready()
        place = self.opened_list(widget)
        self.desktop.screen.drag((830, 50), (530, 250))
        self.assertEqual(self.opened_list(widget), place)

    def opened_list(self, widget):
        """Opens the list and closes it again; returns its position."""
        place = PatientList(widget).open().place
        widget.click_found(lambda: PatientList(widget).window.find("Fermer"), "the list's close button")
        wait_until(lambda: widget.window(LIST_WIDTH) is None, "the list is hidden")
        return place

    def test_a_widget_only_opened_by_a_patient_opens_where_it_was(self):
        self.store.seed({"name": "Dupont", "created": "2014-04-10", "notification_date": "2014-05-01"})
        widget = self.start("startup", clock="2014-05-12 10:00:00")
        widget.click_found(lambda: widget.find("Vous avez 1 patient en attente", "label"), "the message")
        patients = PatientList(widget)
        places = []
        for _ in range(2):
            patients.open_patient("Dupont")
            places.append(widget.geometry()[:2])
            place = widget.geometry()
            self.desktop.screen.click(place.x + 255, place.y + 20)
            wait_until(lambda: widget.window() is None, "the widget is hidden")
            # Would be in its way if the window manager placed it again.
            self.desktop.screen.drag((patients.place.x + 300, patients.place.y + 20), (700, 500))
        self.assertEqual(places[0], places[1])

    def test_a_widget_low_on_the_screen_moves_back_down_when_it_shrinks(self):
        self.store.seed({"name": "Dupont", "created": "2014-04-10"})
        widget = self.start_ready()
        self.desktop.screen.drag((830, 50), (830, HEIGHT - 180), steps=30)
        place = widget.geometry()
        self.assertEqual(place.y, HEIGHT - 195)
        widget.open_patient("Dupont")
        wait_until(lambda: widget.geometry().y < place.y - 100, "the window manager pushes it up")
        widget.back()
        wait_equal(widget.geometry, place, "it is where the user put it")

    def test_the_first_click_restores_a_minimised_widget(self):
        widget = self.start_ready()
        window = widget.wait_for_window()
        self.desktop.screen.minimise(window)
        wait_until(lambda: widget.window() is None, "the widget is minimised")
        widget.toggle_by_tray()

    def assertNotMoved(self, widget):
        """The widget is where it opened, after all that the drags before may have asked of the window manager: the popup,
        which it shows in its turn, comes last."""
        widget.click("Contacts VESK")
        widget.wait_for_window(CONTACT_WIDTH)
        self.assertEqual(widget.geometry()[:2], (710, 35))

    def test_the_widget_is_not_dragged_by_its_content(self):
        widget = self.start_ready()
        self.desktop.screen.drag((820, 160), (620, 260))
        self.desktop.screen.drag((850, 115), (650, 315))
        self.assertNotMoved(widget)

    def test_the_widget_is_not_dragged_by_the_right_button(self):
        widget = self.start_ready()
        self.desktop.screen.drag((830, 50), (630, 250), button=3)
        self.assertNotMoved(widget)

    def test_the_program_shows_no_window_when_started_at_login(self):
        widget = self.start("startup")
        wait_until(widget.tray_window, "the icon is in the tray")
        # Two seconds after its start, the program has finished its own actions.
        wait_until(lambda: "Refreshing icon." in widget.log, "the first refresh is done")
        stays(lambda: widget.window() is None, "no window is shown", 0.5)
        widget.toggle_by_tray()
        self.assertEqual(widget.geometry(), (710, 35, 275, 174))

    def test_any_other_argument_is_a_normal_start(self):
        for argument in ("Startup", "startup-now", "--startup"):
            with self.subTest(argument=argument):
                widget = self.start(argument)
                widget.wait_for_window()
                widget.stop()

    def test_a_second_start_shows_the_first_window(self):
        first = self.start_ready()
        first.click("Fermer")
        wait_until(lambda: first.window() is None, "the cross hides the window")
        second = self.start()
        self.assertEqual(second.wait_for_exit(), 0)
        first.wait_for_window()
        self.assertTrue(first.running)

    def test_files_of_the_program_are_accessible_to_their_owner_only(self):
        widget = self.start_ready()
        wait_until(lambda: self.home.settings(), "the settings are written")
        wait_until(lambda: self.store.version() == "1.3", "the database exists")
        self.assertEqual(self.home.open_to_others(), [])
        self.assertNotEqual(subprocess.run(["find", self.home.temporary, "-type", "s"], capture_output=True,
                                           check=True).stdout, b"", "the guard's socket is in this home")
        del widget


if __name__ == "__main__":
    main()
