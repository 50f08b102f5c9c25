"""The patients are copied before the documents open them, and on each new day."""

import os

from support import isolation
from support.case import DesktopTest, main
from support.waiting import wait_equal, wait_until

DAY = "2026-11-21"


class Copies(DesktopTest):
    complains = True  # the store logs the patients that it drops

    def test_patients_of_an_older_version_are_copied_before_they_are_dropped(self):
        self.store.seed({"name": "Dupont"}, {"name": "Martin"}, version="1.2")
        self.start_ready(clock=f"{DAY} 10:00:00")
        wait_equal(self.store.version, "1.3", "the version is raised")
        self.assertEqual(self.store.patients(), [])
        self.assertEqual(self.store.copies(), [f"{DAY}-before-upgrade"])
        self.assertEqual(self.store.copied_names(f"{DAY}-before-upgrade"), ["Dupont", "Martin"])

    def test_each_run_copies_the_patients_of_the_last_one(self):
        widget = self.start_ready(clock=f"{DAY} 10:00:00")
        self.assertEqual(self.store.copies(), [])
        widget.create("DUPONT Marie")
        widget = self.restart(widget, clock=f"{DAY} 11:00:00")
        self.assertEqual(self.store.copied_names(DAY), ["DUPONT Marie"])
        widget.create("MARTIN Paul")
        # The clock is set back: the copy of the later day stays, and the earlier day gets a copy, too.
        widget = self.restart(widget, clock="2026-11-19 10:00:00")
        self.assertEqual(self.store.copied_names(DAY), ["DUPONT Marie"])
        self.assertEqual(self.store.copied_names("2026-11-19"), ["DUPONT Marie", "MARTIN Paul"])


class CopiesOnAFullDisk(DesktopTest):
    complains = True

    def test_a_disk_that_fills_up_during_a_copy_loses_nothing(self):
        self.store.seed({"name": "Dupont"})
        os.mkdir(self.store.copies_folder, mode=0o700)
        isolation.small_disk(self.store.copies_folder, 65536)
        self.addCleanup(isolation.release_disk, self.store.copies_folder)
        isolation.fill_disk(self.store.copies_folder)
        # Space for the beginning of the copy.
        ballast = os.path.join(self.store.copies_folder, "ballast")
        os.truncate(ballast, os.path.getsize(ballast) - 8192)
        widget = self.start_ready(clock=f"{DAY} 10:00:00")
        wait_until(lambda: "The patients are not copied today: No space left on device" in widget.log, "the log names the reason")
        widget.create("Martin")
        self.assertEqual([row["name"] for row in self.store.patients()], ["Dupont", "Martin"])
        self.assertEqual(self.store.copies(), ["ballast"])


if __name__ == "__main__":
    main()
