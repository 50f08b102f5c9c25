"""The whole program can be used without a mouse."""

from support.case import DesktopTest, main
from support.tandry import GATE_1, GATE_2, NAME_FIELD, PHONE_FIELD, QUESTIONS, SEARCH_FIELD
from support.waiting import wait_equal, wait_until
from support.widget import CONTACT_WIDTH, LIST_WIDTH

HEADER = ["Contacts VESK", "Liste de tous les patients", "Fermer"]


class Keyboard(DesktopTest):

    def setUp(self):
        super().setUp()
        self.store.seed({"name": "Dupont", "created": "2014-04-10"}, {"name": "Adu"}, {"name": "DURAND"})
        self.widget = self.start_ready(clock="2014-05-12 10:00:00")
        wait_equal(self.widget.focus_name, SEARCH_FIELD, "the search field has the focus at first")

    def assertRound(self, expected):
        """Asserts that Tab visits `expected` in this order, from any start."""
        names = self.widget.tab_round()
        start = names.index(expected[0]) if expected[0] in names else 0
        self.assertEqual(names[start:] + names[:start], expected)

    def test_tab_visits_the_search_in_reading_order(self):
        self.assertRound(HEADER + ["Rechercher", SEARCH_FIELD, "Effacer la recherche", "Nouvelle fiche patient",
                                   "Liste des patients en attente"])

    def test_tab_visits_the_results(self):
        self.widget.type("du")
        wait_equal(self.widget.results, ["Dupont", "DURAND", "Adu"], "the matches are listed")
        self.assertRound(HEADER + ["Rechercher", SEARCH_FIELD, "Effacer la recherche", "Créer la fiche patient",
                                   "Dupont", "DURAND", "Adu", "Liste des patients en attente"])

    def test_tab_visits_the_editor(self):
        self.widget.open_patient("Dupont")
        self.widget.wait_for_question("test")
        self.widget.wait_gone("Créer la fiche patient")
        wait_equal(self.widget.focus_name, NAME_FIELD, "the name has the focus")
        self.assertRound(HEADER + ["Retour", NAME_FIELD, "Sexe : femme", PHONE_FIELD, QUESTIONS["test"], "Oui", "Non",
                                   "Envoyer le SMS de rappel"])

    def test_the_focus_is_visible(self):
        screen = self.desktop.screen
        names = HEADER + ["Rechercher", "Effacer la recherche", "Nouvelle fiche patient",
                          "Liste des patients en attente"]
        places = {name: self.widget.control(name, "push button").box for name in names}
        before = {name: screen.region(box) for name, box in places.items()}
        for _ in range(len(names) + 1):
            self.widget.press("Tab")
            name = self.widget.focus_name()
            if name in before:
                wait_until(lambda: screen.region(places[name]) != before[name], f"{name!r} shows that it has the focus")
                before.pop(name)
        self.assertEqual(list(before), [])

    def test_down_moves_to_the_results_and_return_opens_one(self):
        self.widget.type("du")
        wait_equal(self.widget.results, ["Dupont", "DURAND", "Adu"], "the matches are listed")
        self.widget.press("Down")
        wait_equal(self.widget.focus_name, "Dupont", "the first result has the focus")
        self.picture("keyboard-result")
        self.widget.press("Tab", "Return")
        wait_equal(lambda: self.widget.control(NAME_FIELD, "text").text, "DURAND", "the second result opens")

    def test_return_in_the_search_field_opens_the_first_result(self):
        self.widget.type("du")
        wait_equal(self.widget.results, ["Dupont", "DURAND", "Adu"], "the matches are listed")
        self.widget.press("Return")
        wait_equal(lambda: self.widget.control(NAME_FIELD, "text").text, "Dupont", "the first result opens")

    def expect_stored(self, **columns):
        """Expects the new patient to be stored with these values; all others are as after the creation."""
        columns = {"notification_date": "2014-05-12", **columns}
        wait_equal(lambda: {key: self.store.patient("MARTIN Paul")[key] for key in columns}, columns, "the row")

    def expect_focus(self, start):
        """Expects the focus on the control whose name begins with `start`."""
        wait_until(lambda: (self.widget.focus_name() or "").startswith(start), f"{start!r} has the focus")

    def test_the_whole_pathway_works_without_the_mouse(self):
        press = self.widget.press
        self.widget.type("MARTIN Paul")
        self.go_to("Créer la fiche patient")
        press("Return")
        wait_equal(lambda: self.widget.control(NAME_FIELD, "text").text, "MARTIN Paul", "the editor has the typed name")
        self.go_to("Enregistrer")
        press("Return", "Return", "Return")
        self.expect_focus(QUESTIONS["test"])
        self.expect_stored()
        self.widget.wait_for_question("test")
        # One press too many may have collapsed the question.
        if not self.widget.answer_box("test", "Non"):
            press("space")
            wait_until(lambda: self.widget.answer_box("test", "Non"), "the question expands")
        self.go_to("Non")
        press("space")
        self.expect_focus(QUESTIONS["rdv1"])
        self.expect_stored(test=0, test_date="2014-05-12", notification_date="2014-09-15")
        press("Tab", "Return")
        self.expect_focus(GATE_1)
        self.expect_stored(rdv1=1, date1="2014-05-12", notification_date="2050-05-12")
        press("space")
        self.expect_focus(QUESTIONS["confirmation"])
        press("Tab", "KP_Enter")
        self.expect_focus(QUESTIONS["rdv2"])
        self.expect_stored(confirmation=1, notification_date="2014-12-16")
        press("Tab", "Return")
        self.expect_focus(GATE_2)
        self.expect_stored(rdv2=1, notification_date="2015-09-15")
        press("Return")
        self.expect_focus(QUESTIONS["rdv3"])
        press("Tab", "Tab", "Return")
        self.expect_focus("Envoyer le SMS de rappel")
        self.expect_stored(test=0, rdv1=1, confirmation=1, rdv2=1, rdv3=0, date3="2014-05-12",
                           notification_date="2015-09-15")
        self.assertEqual(self.widget.asked(), list(QUESTIONS))
        self.go_to("Retour")
        press("space")
        wait_equal(self.widget.focus_name, SEARCH_FIELD, "the search field has the focus again")

    def test_the_header_buttons_work(self):
        self.go_to("Contacts VESK")
        self.widget.press("Return")
        self.widget.wait_for_window(CONTACT_WIDTH)
        self.close_popup(CONTACT_WIDTH)
        self.go_to("Liste de tous les patients")
        self.widget.press("space")
        self.widget.wait_for_window(LIST_WIDTH)

    def close_popup(self, width):
        wait_until(lambda: self.widget.active_width() == width, "the popup is active")
        self.go_to("Fermer")
        self.widget.press("Return")
        wait_until(lambda: self.widget.window(width) is None, "the popup closes")
        wait_until(lambda: self.widget.active_width() == 275, "the widget is active again")

    def go_to(self, name):
        """Moves the focus with Tab to the control with that name."""
        for _ in range(40):
            if self.widget.focus_name() == name:
                return
            self.widget.press("Tab")
        self.fail(f"Tab does not reach {name!r}")


if __name__ == "__main__":
    main()
