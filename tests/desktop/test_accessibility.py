"""A screen reader finds every control with its role and French name, and can use it."""

from support.case import DesktopTest, main
from support.tandry import GATE_1, GATE_2, NAME_FIELD, PHONE_FIELD, QUESTIONS, SEARCH_FIELD
from support.waiting import wait_equal, wait_until
from support.widget import CONTACT_WIDTH, LIST_WIDTH

CONTROLS = ("push button", "text", "check box", "page tab", "link", "label", "image", "list item", "radio button")
HEADER = [("image", "VESK"), ("label", "Tandry"), ("push button", "Contacts VESK"),
          ("push button", "Liste de tous les patients"), ("push button", "Fermer")]


class Accessibility(DesktopTest):

    def setUp(self):
        super().setUp()
        self.store.seed({"name": "Dupont", "created": "2014-04-10", "notification_date": "2014-05-01"},
                        {"name": "Adu <b>"})
        self.widget = self.start_ready(clock="2014-05-12 10:00:00")

    def shown(self):
        """Role and name of every control in the program's windows, without the tray's message."""
        windows = self.widget.find_all(role="frame")
        return [(control.role, control.name) for window in windows for control in window.find_all()
                if control.role in CONTROLS]

    def test_the_search_has_roles_and_names(self):
        self.widget.type("du")
        wait_equal(self.widget.results, ["Dupont", "Adu <b>"], "the matches are listed")
        wait_equal(self.shown, HEADER + [
            ("push button", "Rechercher"), ("text", SEARCH_FIELD), ("push button", "Effacer la recherche"),
            ("push button", "Créer la fiche patient"), ("push button", "Dupont"), ("push button", "Adu <b>"),
            ("push button", "Liste des patients en attente (1)")], "role and name of everything")

    def test_the_editor_has_roles_and_names(self):
        self.widget.open_patient("Dupont")
        self.widget.wait_for_question("test")
        wait_equal(self.shown, HEADER + [
            ("push button", "Retour"), ("text", NAME_FIELD), ("push button", "Sexe : femme"), ("text", PHONE_FIELD),
            ("label", "Date du 1er rendez-vous : 10/04/2014"), ("push button", QUESTIONS["test"]),
            ("check box", "Oui"), ("check box", "Non"), ("push button", "Envoyer le SMS de rappel")],
            "role and name of everything")
        self.widget.replace_text(PHONE_FIELD, "06")
        wait_equal(lambda: self.shown()[-3:], [("push button", "Enregistrer"), ("push button", "Annuler"),
                                               ("push button", "Envoyer le SMS de rappel")], "the buttons have names")

    def test_every_control_of_every_window_has_a_name(self):
        self.widget.click("Contacts VESK")
        self.widget.wait_for_window(CONTACT_WIDTH)
        self.widget.click("Liste de tous les patients")
        self.widget.wait_for_window(LIST_WIDTH)
        self.assertEqual([role for role, name in self.shown() if name.strip() == ""], [])
        markup = [name for _, name in self.shown() if "<" in name and name != "Adu <b>"]
        self.assertEqual(markup, [])
        self.assertEqual(sorted(window.name for window in self.widget.find_all(role="frame")),
                         ["Vesk Tandry", "Vesk Tandry – contacts", "Vesk Tandry – liste des patients"])

    def test_the_current_tab_is_selected(self):
        self.widget.click("Liste de tous les patients")
        self.widget.wait_for_window(LIST_WIDTH)
        for chosen, other in (("Patients en attente", "Liste de tous les patients"),
                              ("Liste de tous les patients", "Patients en attente")):
            self.widget.control(chosen, "page tab").act()
            wait_equal(lambda: [self.widget.control(name, "page tab").has("selected") for name in (chosen, other)],
                       [True, False], f"{chosen!r} is selected")

    def answer_and_expect(self, key, answer, columns, action="Press"):
        """Presses an answer like a screen reader; expects it to be stored and shown."""
        self.widget.wait_for_question(key)
        box = wait_until(lambda: self.widget.answer_box(key, answer), f"{answer!r} below {key!r}")
        box.act(action)
        wait_equal(lambda: {name: self.store.patient("Dupont")[name] for name in columns}, columns, f"{key} {answer}")
        wait_until(lambda: box.has("checked"), f"{answer!r} is ticked")

    def test_the_press_action_works_like_a_click(self):
        self.widget.type("dup")
        self.widget.control("Dupont", "push button").act()
        wait_equal(lambda: self.widget.control(NAME_FIELD, "text").text, "Dupont", "the patient opens")
        self.widget.control("Sexe : femme", "push button").act()
        self.widget.control("Sexe : homme", "push button")
        self.widget.control("Enregistrer", "push button").act()
        wait_equal(lambda: self.store.patient("Dupont")["genderMale"], 1, "the gender is stored")
        self.widget.wait_for_question("test")
        self.answer_and_expect("test", "Non", {"test": 0, "notification_date": "2014-09-15"}, "Toggle")
        self.answer_and_expect("rdv1", "Oui", {"rdv1": 1, "notification_date": "2050-05-12"})
        self.widget.control(GATE_1, "push button").act()
        self.answer_and_expect("confirmation", "Oui", {"confirmation": 1, "notification_date": "2014-12-16"})
        self.answer_and_expect("rdv2", "Oui", {"rdv2": 1, "notification_date": "2015-09-15"})
        self.widget.control(GATE_2, "push button").act()
        self.answer_and_expect("rdv3", "Oui", {"rdv3": 1, "notification_date": "2050-05-12"})
        self.assertEqual(self.widget.asked(), list(QUESTIONS))
        self.widget.control("Retour", "push button").act()
        self.widget.control(SEARCH_FIELD, "text")
        self.widget.control("Contacts VESK", "push button").act()
        self.widget.wait_for_window(CONTACT_WIDTH)
        self.widget.control("Fermer", "push button").act()


if __name__ == "__main__":
    main()
