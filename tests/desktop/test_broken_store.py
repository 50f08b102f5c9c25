"""A database that cannot be used: the program starts, says so in its log, loses nothing and does not hang."""

import os

from support.case import main
from support.patient_list import PatientList
from support.refusal import PATIENT, RefusingStore
from support.tandry import WAITING_LINK
from support.waiting import wait_until


class BrokenStore(RefusingStore):

    def test_not_a_database(self):
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

    def test_a_folder_that_cannot_be_made(self):
        os.makedirs(os.path.dirname(self.store.folder), mode=0o700)
        with open(self.store.folder, "wb"):  # a file in its place
            pass
        widget = self.start_ready()
        self.wait_for_complaint(widget)
        os.remove(self.store.folder)
        widget.create("Dupont")
        self.assertEqual([row["name"] for row in self.store.patients()], ["Dupont"])

    def test_locked_by_another_process_from_the_start(self):
        self.store.seed({**PATIENT, "notification_date": "2014-05-01"})
        before = self.store.patients()
        other = self.store.lock()
        widget = self.start()
        try:
            # Each question to a locked file fails only after the database driver has waited for it.
            wait_until(widget.window, "the window is shown", limit=45)
            self.wait_for_complaint(widget)
            wait_until(lambda: "icon 0." in widget.log, "the first refresh has found the file held")
        finally:
            other.close()
        widget.wait_until_ready()
        self.assertEqual(self.store.patients(), before)
        self.assertEqual(PatientList(widget).open().names(), ["Dupont"])
        widget.control(f"{WAITING_LINK} (1)", "push button")
        widget.open_patient("Dupont")

    def test_read_by_another_process_while_an_answer_is_given(self):
        self.store.seed(PATIENT)
        widget = self.start_ready()
        other = self.store.read_lock()
        try:
            self.assertNotStored(widget)
        finally:
            other.close()
        widget.click("Annuler")
        widget.answer("test", "Oui")
        wait_until(lambda: self.store.patient("Dupont")["test_date"], "the answer is stored once the file is free")


if __name__ == "__main__":
    main()
