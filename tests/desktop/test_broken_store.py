"""A database that cannot be used: the program starts, says so in its log, loses nothing and does not hang."""

import os

from harness import isolation
from harness.case import DesktopTest, complaints, main
from harness.tandry import PHONE_FIELD, QUESTIONS
from harness.waiting import wait_equal, wait_until

PATIENT = {"name": "Dupont", "created": "2014-04-10", "phone": "0601020304"}
DISK_BYTES = 256 * 1024


class BrokenStore(DesktopTest):
    complains = True

    def put_on_a_disk_of_its_own(self):
        """Gives the database's folder a small file system."""
        self.store.make_folder()
        isolation.small_disk(self.store.folder, DISK_BYTES)
        self.addCleanup(isolation.release_disk, self.store.folder)

    def wait_for_complaint(self, widget, count=0):
        """Waits until the log reports more than `count` failures."""
        wait_until(lambda: len(complaints(widget.log)) > count, "the log says what failed")

    def assertNotStored(self, widget):
        """An answer and a phone number are refused: said in the log, not shown as stored, and nothing is lost."""
        before = self.store.patients()
        widget.open_patient("Dupont")
        said = len(complaints(widget.log))
        widget.answer("test", "Oui")
        self.wait_for_complaint(widget, said)
        wait_equal(widget.asked, ["test"], "the answer is not shown as stored")
        widget.control(QUESTIONS["test"], "push button")  # without an answer in its name
        said = len(complaints(widget.log))
        widget.replace_text(PHONE_FIELD, "06")
        widget.click("Enregistrer")
        self.wait_for_complaint(widget, said)
        self.assertEqual(self.store.patients(), before)

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

    def test_read_only(self):
        self.put_on_a_disk_of_its_own()
        self.store.seed(PATIENT)
        isolation.read_only_disk(self.store.folder)
        self.assertNotStored(self.start_ready())

    def test_a_full_disk(self):
        self.put_on_a_disk_of_its_own()
        self.store.seed(PATIENT)
        isolation.fill_disk(self.store.folder)
        self.assertNotStored(self.start_ready())

    def test_locked_by_another_process_from_the_start(self):
        self.store.seed(PATIENT)
        before = self.store.patients()
        other = self.store.lock()
        widget = self.start()
        try:
            # Each document gives up on a locked file after five seconds.
            wait_until(widget.window, "the window is shown", limit=45)
            self.wait_for_complaint(widget)
        finally:
            other.close()
        widget.wait_until_ready()
        self.assertEqual(self.store.patients(), before)
        widget = self.restart(widget)
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
