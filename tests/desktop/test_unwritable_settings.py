"""Preferences that cannot be stored: the program keeps working with the old values, and the file does not change."""

import os

from support import isolation
from support.case import DesktopTest, main
from support.patient_list import PatientList
from support.waiting import wait_until

UUID = r"@Variant(\0\0\0\x1e\x12\x34\x56\x78\x9a\xbc\xde\xf0\x12\x34\x56\x78\x9a\xbc\xde\xf0)"
KEPT = {"LaunchCounter": "7", "ShowListViewCounter": "3", "Uuid": UUID}
EIGHTH_START = r'name=\"LaunchCounter\"\r\n\r\n8\r\n'
QUESTION = "Etes-vous sur de vouloir fermer le widget Tandry ?"


class UnwritableSettings(DesktopTest):

    def setUp(self):
        super().setUp()
        self.folder = os.path.join(self.home.config, "Vesk Tandry")
        os.makedirs(self.folder, mode=0o700)
        isolation.small_disk(self.folder, 64 * 1024)
        self.addCleanup(isolation.release_disk, self.folder)

    def assertWorks(self, widget):
        """Asserts that patients are stored, the popups open, and the program quits."""
        widget.create("Martin")
        self.assertIsNotNone(self.store.patient("Martin"), "the patient is stored")
        widget.back()
        self.assertEqual(PatientList(widget).open().names(), ["Martin"])
        widget.open_menu()
        widget.choose("Quitter")
        widget.control(QUESTION, "label")
        widget.click("Ne plus me demander", "check box")
        widget.click("OK", "push button")
        self.assertEqual(widget.wait_for_exit(), 0)

    def test_preferences_in_a_read_only_folder_are_not_changed(self):
        self.home.write_settings(KEPT)
        before = self.text()
        isolation.read_only_disk(self.folder)
        first = self.start_ready()
        self.assertIn("{12345678-9abc-def0-1234-56789abcdef0}", first.log)
        self.assertWorks(first)
        widget = self.start_ready()
        # Each start adds one to the value in the file.
        wait_until(lambda: widget.log.count(EIGHTH_START) == 2, "the second start counts as the first did")
        # The question appears again: the preference could not be stored.
        widget.open_menu()
        widget.choose("Quitter")
        widget.control(QUESTION, "label")
        self.assertEqual(self.text(), before)
        self.assertEqual(os.listdir(self.folder), ["Olmeric.conf"])

    def test_preferences_on_a_full_disk_are_not_changed(self):
        self.home.write_settings(KEPT)
        before = self.text()
        isolation.fill_disk(self.folder)
        self.assertWorks(self.start_ready())
        self.assertEqual(self.text(), before)

    def text(self):
        """The content of the settings file."""
        with open(os.path.join(self.folder, "Olmeric.conf"), encoding="utf-8") as file:
            return file.read()


if __name__ == "__main__":
    main()
