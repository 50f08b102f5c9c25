"""Names are stored and shown exactly as typed."""

from support.case import DesktopTest, main
from support.tandry import NAME_FIELD, SEARCH_FIELD
from support.waiting import wait_equal, wait_until

NAMES = ["O'NEIL \"Bob\"; DROP TABLE `Patients`", "100% SÛR_E".replace("Û", "U"), "<b>GRAS</b> &amp; <br/>Léa",
         "😀 EMOJI 😀", "مريض שלום", "\\n %1 %n"]


class OddNames(DesktopTest):

    def setUp(self):
        super().setUp()
        self.widget = self.start_ready()

    def test_odd_names_are_stored_found_and_shown_as_typed(self):
        for name in NAMES:
            with self.subTest(name=name):
                self.widget.create(name)
                self.assertEqual(self.store.patients()[-1]["name"], name)
                self.widget.back()
                self.widget.search(name[:4])
                wait_until(lambda: name in self.widget.results(), "the row shows the name")
                self.picture(f"odd-name-{NAMES.index(name)}")
                self.widget.open_patient(name, search=name[:4])
                self.widget.back()
        self.assertEqual([row["name"] for row in self.store.patients()], NAMES)

    def test_a_name_of_ten_thousand_characters_is_stored(self):
        name = "LONGUE VIE, ANNE" * 625
        self.widget.type("LONGUE VIE, ANNE")
        for _ in range(4):
            self.widget.press("ctrl+a", "ctrl+c", *["ctrl+v"] * 5)
        wait_equal(lambda: len(self.widget.control(SEARCH_FIELD, "text").text), 10000, "the name is typed")
        self.widget.click("Créer la fiche patient")
        self.widget.control(NAME_FIELD, "text")
        self.widget.click("Enregistrer")
        wait_until(self.store.patients, "the patient is stored")
        self.assertEqual(self.store.patients()[0]["name"], name)
        self.widget.back()
        self.widget.open_patient(name, search="long")
        self.picture("odd-name-long")


if __name__ == "__main__":
    main()
