"""An unusable database: the program starts, logs the error, loses nothing and does not hang."""

import os

from support.case import main
from support.patient_list import PatientList
from support.refusal import PATIENT, RefusingStore
from support.tandry import WAITING_LINK
from support.waiting import wait_until


class BrokenStore(RefusingStore):

    def test_a_file_that_is_not_a_database_is_not_changed(self):
        self.store.make_folder()
        self.store.write_version("1.3")
        garbage = b"This is a letter, not a database.\n" * 300
        with open(self.store.file, "wb") as file:
            file.write(garbage)
        widget = self.start_ready()
        self.wait_for_complaint(widget)
        widget.type("du")
        widget.control("Créer la fiche patient")
        with open(self.store.file, "rb") as file:
            self.assertEqual(file.read(), garbage)

    def test_a_folder_that_cannot_be_created_is_used_once_it_can(self):
        os.makedirs(os.path.dirname(self.store.folder), mode=0o700)
        with open(self.store.folder, "wb"):  # a file instead of the folder
            pass
        widget = self.start_ready()
        self.wait_for_complaint(widget)
        os.remove(self.store.folder)
        widget.create("Dupont")
        self.assertEqual([row["name"] for row in self.store.patients()], ["Dupont"])

    def test_a_database_locked_at_the_start_is_used_once_it_is_unlocked(self):
        self.store.seed({**PATIENT, "notification_date": "2014-05-01"})
        before = self.store.patients()
        other = self.store.lock()
        widget = self.start()
        try:
            # Each query of a locked file fails only after the database driver has waited for the lock.
            wait_until(widget.window, "the window is shown", limit=45)
            self.wait_for_complaint(widget)
            wait_until(lambda: "icon 0." in widget.log, "the first refresh has found the file locked")
        finally:
            other.close()
        widget.wait_until_ready()
        self.assertEqual(self.store.patients(), before)
        self.assertEqual(PatientList(widget).open().names(), ["Dupont"])
        widget.control(f"{WAITING_LINK} (1)", "push button")
        widget.open_patient("Dupont")

    def test_an_answer_is_refused_while_another_process_reads(self):
        self.store.seed(PATIENT)
        widget = self.start_ready()
        other = self.store.read_lock()
        try:
            self.assertNotStored(widget)
        finally:
            other.close()
        widget.click("Annuler")
        widget.answer("test", "Oui")
        wait_until(lambda: self.store.patient("Dupont")["test_date"], "the answer is stored once the file is unlocked")


if __name__ == "__main__":
    main()
