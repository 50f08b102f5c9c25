"""Accidents of the database while the program runs: what cannot be stored is logged and not shown as stored, and no stored
data is lost."""

import os

from support.case import DesktopTest, complaints, main
from support.patient_list import ALL, PatientList
from support.tandry import NAME_FIELD, PHONE_FIELD, QUESTIONS
from support.waiting import wait_equal, wait_until

PATIENT = {"name": "Dupont", "created": "2014-04-10", "phone": "0601020304"}
CLOCK = "2014-05-12 10:00:00"
PAGE_BYTES = 4096


class StoreAccidents(DesktopTest):
    complains = True

    def open_dupont(self):
        """Starts the program with one patient and opens it."""
        self.store.seed(PATIENT)
        widget = self.start_ready()
        widget.open_patient("Dupont")
        return widget

    def assertAnswerRefused(self, widget, reason):
        """Asserts that an answer and a new patient are refused: the log gives the reason, and nothing is shown as stored."""
        said = len(complaints(widget.log))
        widget.click_answer("test", "Oui")
        wait_until(lambda: any(reason in line for line in complaints(widget.log)[said:]), f"the log says {reason!r}")
        wait_equal(widget.asked, ["test"], "the answer is not shown as stored")
        widget.control(QUESTIONS["test"], "push button")  # without an answer in its name

    def answer_again(self, widget):
        """Answers again, after the file is back in order."""
        widget.answer("test", "Oui")
        wait_until(lambda: self.store.patient("Dupont")["test_date"], "the answer is stored")

    def test_a_database_moved_away_can_be_moved_back(self):
        widget = self.open_dupont()
        before = self.store.patients()
        away = self.store.file + ".away"
        os.rename(self.store.file, away)
        self.assertAnswerRefused(widget, "attempt to write a readonly database")
        self.assertFalse(os.path.exists(self.store.file), "an empty database replaced the lost one")
        os.rename(away, self.store.file)
        self.assertEqual(self.store.patients(), before)
        self.answer_again(widget)

    def test_a_deleted_database_can_be_read_until_the_end(self):
        widget = self.open_dupont()
        os.remove(self.store.file)
        self.assertAnswerRefused(widget, "attempt to write a readonly database")
        # The program can still read the open file: the user can write the patients down before quitting.
        widget.back()
        widget.open_patient("Dupont")
        self.assertEqual(widget.control(PHONE_FIELD, "text").text, PATIENT["phone"])
        # The next start creates an empty database and works.
        widget = self.restart(widget)
        widget.create("Martin")
        self.assertEqual([row["name"] for row in self.store.patients()], ["Martin"])

    def test_a_folder_moved_away_can_be_moved_back(self):
        widget = self.open_dupont()
        away = self.store.folder + ".away"
        os.rename(self.store.folder, away)
        self.assertAnswerRefused(widget, "attempt to write a readonly database")
        os.rename(away, self.store.folder)
        self.answer_again(widget)

    def test_an_answer_is_refused_while_another_process_writes(self):
        widget = self.open_dupont()
        other = self.store.write_lock("INSERT INTO `Patients` (name, created) VALUES ('Autre', '2014-04-11')")
        try:
            self.assertAnswerRefused(widget, "database is locked")
        finally:
            other.execute("COMMIT")
            other.close()
        self.answer_again(widget)
        self.assertEqual([row["name"] for row in self.store.patients()], ["Dupont", "Autre"])
        widget.back()
        widget.open_patient("Autre")

    def test_a_lost_version_record_drops_no_patient_before_the_next_start(self):
        self.store.seed(PATIENT)
        widget = self.start_ready()
        self.store.lose_record()
        widget.open_patient("Dupont")
        self.answer_again(widget)
        self.assertEqual([row["name"] for row in self.store.patients()], ["Dupont"])

    def test_a_patient_deleted_by_another_process_takes_no_answer(self):
        self.store.seed(PATIENT, {**PATIENT, "name": "Dupond"})
        widget = self.start_ready()
        widget.open_patient("Dupont")
        widget.wait_for_question("test")
        self.store.execute("DELETE FROM `Patients` WHERE name = 'Dupont'")
        widget.click_answer("test", "Oui")
        wait_until(lambda: "The store has no such patient" in widget.log, "the log gives the reason")
        wait_equal(widget.focus_name, "Retour", "only the back button is enabled")
        wait_equal(widget.asked, ["test"], "the answer is not shown as given")
        widget.control(QUESTIONS["test"], "push button")
        # A row of the list, which was loaded before the deletion.
        rows = PatientList(widget).open()
        rows.show_tab(ALL)
        self.store.execute("DELETE FROM `Patients`")
        rows.click_row("Dupond")
        wait_until(lambda: widget.log.count("The store has no such patient") == 2, "the log says so again")
        widget.type("x")
        wait_equal(lambda: widget.control(NAME_FIELD, "text").text, "Dupont", "the shown text stays, and ignores keys")
        widget.control(QUESTIONS["test"], "push button")

    def test_a_damaged_page_leaves_the_file_unchanged(self):
        # Enough rows for many pages: one in the middle is damaged, as on a failing disk.
        seeded = [{"name": f"Patient {number:03}", "created": "2014-04-10", "notification_date": "2014-05-01"}
                  for number in range(600)]
        self.store.seed(*seeded)
        with open(self.store.file, "r+b") as file:
            file.seek(5 * PAGE_BYTES)
            file.write(b"\xa5" * PAGE_BYTES)
        with open(self.store.file, "rb") as file:
            damaged = file.read()
        widget = self.start_ready(clock=CLOCK)
        wait_until(lambda: "icon 0." in widget.log, "the first refresh is done")
        widget.search("Patient 001")
        widget.control("Créer la fiche patient")
        self.assertEqual(widget.results(), [])
        self.assertEqual(PatientList(widget).open().names(), [])
        self.assertEqual({line.split("Error: ")[1] for line in complaints(widget.log)},
                         {"database disk image is malformed Unable to fetch row"})
        # The file is unchanged: a recovery tool can read the other pages.
        with open(self.store.file, "rb") as file:
            self.assertEqual(file.read(), damaged)


if __name__ == "__main__":
    main()
