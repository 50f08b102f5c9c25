"""The list is printed through the print dialog to a PDF file, which the tests read."""

import os
import subprocess

from support.case import DesktopTest, main
from support.patient_list import ALL, PatientList
from support.waiting import wait_equal, wait_until

WAITING_TITLE, ALL_TITLE = "Liste des patients en attente", "Liste de tous les patients"
HEADS = ["Nom du patient", "Date 1er RDV", "Téléphone", "Tests", "Bilan 1", "Allergie", "Prise", "Bilan 2"]
CLOCK = "2014-05-12 10:07:00"
A4_POINTS = (595, 842)


def patients(count):
    """That many patients; every second one is waiting."""
    return [{"name": f"NOM-{number:02} Prénom", "created": "2014-04-10", "phone": "06 01 02 03 04", "test": 0,
             "test_date": "2014-04-10", "rdv1": 1, "date1": "2014-04-11",
             "notification_date": "2014-05-12" if number % 2 == 0 else "2014-09-15"} for number in range(count)]


class Printing(DesktopTest):

    def print_to(self, path, title):
        """Prints the current tab into a file, through the dialog."""
        dialog = self.open_dialog(title)
        field = dialog.find(role="text")
        self.widget.click_found(lambda: field, "the field for the file")
        wait_until(lambda: field.has("focused"), "the field has the focus")
        self.widget.press("ctrl+a")
        self.widget.type(path)
        wait_equal(lambda: field.text, path, "the file is named")
        self.widget.press("Return")

    def open_dialog(self, title):
        """Clicks the print bar; the dialog's part of the accessibility tree."""
        self.list.click("Imprimer")
        return self.widget.control(title, "dialog")

    def start_with(self, *rows):
        self.store.seed(*rows)
        self.widget = self.start_ready(clock=CLOCK)
        self.list = PatientList(self.widget).open()

    def counter(self):
        """The number of prints in the settings."""
        return self.home.settings().get("PrinterCounter")

    def text_of(self, path):
        """The text of the printed pages in its layout."""
        return subprocess.run(["pdftotext", "-layout", path, "-"], capture_output=True, check=True,
                              text=True).stdout

    def keep_page(self, path, name):
        """Saves a picture of the first page among the artefacts."""
        subprocess.run(["pdftoppm", "-r", "100", "-png", "-singlefile", path, self.artefact(name)[:-len(".png")]],
                       check=True)

    def test_twenty_patients_fit_on_a_readable_page(self):
        self.start_with(*patients(20))
        self.list.show_tab(ALL)
        path = os.path.join(self.home.folder, "liste.pdf")
        self.print_to(path, ALL_TITLE)
        wait_equal(self.counter, "1", "the print is counted")
        text = self.text_of(path)
        words = " ".join(text.split())
        self.assertIn("Vesk Tandry", words)
        self.assertIn(ALL_TITLE, words)
        for head in HEADS:
            for word in head.split():
                self.assertIn(word, words)
        self.assertEqual([line.split()[0] for line in text.splitlines() if "NOM-" in line],
                         [f"NOM-{number:02}" for number in range(20)])
        self.assertIn("RDV bilan allergologique", words)
        self.assertRegex(words, r"Imprimé le \S+ 12 \S+ 2014 à 10:0\d")
        self.keep_page(path, "printed-list")
        self.assertA4(path)

    def assertA4(self, path):
        """Asserts one portrait page of the paper's size."""
        about = subprocess.run(["pdfinfo", path], capture_output=True, check=True, text=True).stdout
        facts = dict(line.split(":", 1) for line in about.splitlines() if ":" in line)
        self.assertEqual(facts["Pages"].strip(), "1")
        size = tuple(round(float(part)) for part in facts["Page size"].split()[0:3:2])
        self.assertEqual(size, A4_POINTS)

    def test_the_waiting_tab_prints_the_waiting_patients_ticked_or_not(self):
        self.start_with(*patients(6))
        self.list.tick("NOM-02 Prénom")
        path = os.path.join(self.home.folder, "attente.pdf")
        self.print_to(path, WAITING_TITLE)
        wait_equal(self.counter, "1", "the print is counted")
        text = self.text_of(path)
        self.assertEqual([line.split()[0] for line in text.splitlines() if "NOM-" in line],
                         ["NOM-00", "NOM-02", "NOM-04"])

    def test_an_empty_list_can_be_printed_too(self):
        self.start_with({"name": "Dupont", "notification_date": ""})
        path = os.path.join(self.home.folder, "vide.pdf")
        self.print_to(path, WAITING_TITLE)
        wait_equal(self.counter, "1", "the print is counted")
        self.assertIn("Nom du patient", " ".join(self.text_of(path).split()))

    def test_a_cancelled_dialog_prints_nothing(self):
        self.start_with(*patients(2))
        self.open_dialog(WAITING_TITLE)
        self.picture("print-dialog")
        self.widget.press("Escape")
        self.widget.wait_gone(WAITING_TITLE, "dialog")
        self.widget.click("Contacts VESK", "push button")
        wait_equal(lambda: self.home.settings().get("ShowContactViewCounter"), "1", "the program keeps running")
        self.assertIsNone(self.counter())

    def test_an_unwritable_folder_does_not_stop_the_program(self):
        self.start_with(*patients(2))
        self.print_to("/proc/liste.pdf", WAITING_TITLE)
        # The dialog either rejects the file in a message box or accepts it without effect.
        wait_until(lambda: self.widget.find(role="alert") or self.counter() or self.widget.find(role="dialog") is None,
                   "the print ends in some way")
        self.widget.press("Escape", "Escape")
        self.widget.wait_gone(WAITING_TITLE, "dialog")
        self.list.show_tab(ALL)
        self.assertEqual(self.list.names(), ["NOM-00 Prénom", "NOM-01 Prénom"])


if __name__ == "__main__":
    main()
