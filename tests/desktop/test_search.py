"""Searching: the order of the results, and the height of the window."""

from support.case import DesktopTest, main
from support.tandry import NAME_FIELD, SEARCH_FIELD
from support.waiting import wait_equal, wait_until


class Search(DesktopTest):

    def setUp(self):
        super().setUp()
        self.store.seed({"name": "Dupont", "genderMale": 0}, {"name": "Adu"}, {"name": "DURAND"}, {"name": "Martin"})
        self.widget = self.start_ready()

    def test_names_that_start_with_the_text_come_first(self):
        self.widget.type("du")
        wait_equal(self.widget.results, ["Dupont", "DURAND", "Adu"], "the matches are listed in order")
        self.picture("search")

    def test_the_window_grows_at_once_and_shrinks_a_second_after_the_text_is_erased(self):
        self.widget.type("d")
        grown = self.widget.watch_height(326)
        self.assertLessEqual(set(grown.values), {174, 326})
        wait_equal(self.widget.results, ["Dupont", "DURAND", "Adu"], "the matches are listed")
        self.widget.press("BackSpace")
        shrunk = self.widget.watch_height(174)
        self.assertEqual(shrunk.values, [326, 174])
        self.assertGreater(shrunk.seconds, 0.8)
        self.assertEqual(self.widget.results(), [])

    def test_the_frame_is_animated(self):
        place = self.widget.geometry()
        screen = self.desktop.screen
        self.widget.type("d")
        self.widget.watch_height(326)
        # The frame's lower border has reached that of the window.
        wait_equal(lambda: screen.pixel(place.x + 100, place.y + 322), "#002457", "the frame fills the window")
        self.widget.press("BackSpace")
        wait_until(lambda: screen.pixel(place.x + 100, place.y + 322) != "#002457", "the frame shrinks")
        self.assertEqual(self.widget.geometry().height, 326)

    def test_the_creation_link_follows_the_text(self):
        self.widget.control("Nouvelle fiche patient")
        self.widget.type("Du")
        self.widget.control("Créer la fiche patient")
        self.widget.wait_gone("Nouvelle fiche patient")
        self.widget.click("Effacer la recherche")
        self.widget.control("Nouvelle fiche patient")
        self.assertEqual(self.widget.control(SEARCH_FIELD, "text").text, "")
        self.assertEqual(self.widget.focus_name(), SEARCH_FIELD)

    def test_a_result_opens_in_the_editor_and_the_arrow_returns(self):
        self.widget.open_patient("Dupont", search="du")
        self.widget.control("Sexe : femme")
        self.widget.back()
        self.assertEqual(self.widget.control(SEARCH_FIELD, "text").text, "")
        wait_equal(self.widget.focus_name, SEARCH_FIELD, "the search field has the focus again")
        self.widget.watch_height(174)
        self.assertIsNone(self.widget.find(NAME_FIELD, "text"))

    def test_a_percent_sign_finds_all_patients(self):
        self.widget.type("%")
        wait_equal(self.widget.results, ["Adu", "Dupont", "DURAND", "Martin"], "everybody is listed")


if __name__ == "__main__":
    main()
