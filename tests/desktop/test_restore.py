"""Deleted or dropped patients are restored with the window of tandry-restore."""

import os

from support.case import DesktopTest, main
from support.waiting import wait_equal, wait_until
from support.widget import Widget

DAY = "2026-11-21"
GO_BACK, TAKE_BACK = "Revenir à cette copie…", "Reprendre des patients…"


class RestoreProgram(Widget):
    program = os.environ.get("TANDRY_RESTORE", "")


class Restore(DesktopTest):
    complains = True  # the store logs the patients that it drops

    def start_restore(self):
        restore = RestoreProgram(self.desktop, self.home, clock=f"{DAY} 12:00:00")
        self._widgets.append(restore)
        restore.control("Copies")
        return restore

    def copies(self, restore):
        """The rows of the list as text."""
        cells = [cell.name for cell in restore.control("Copies").find_all(role="table cell")]
        return [cells[row:row + 3] for row in range(0, len(cells), 3)]

    def test_a_single_deleted_patient_can_be_restored(self):
        self.store.seed({"name": "Dupont", "created": "2026-04-10", "test": 1, "test_date": "2026-05-12"}, {"name": "Martin"})
        widget = self.start_ready(clock=f"{DAY} 10:00:00")
        widget.open_patient("Dupont")
        widget.replace_text("Nom du patient", "")
        widget.click("Supprimer")
        wait_equal(lambda: [row["name"] for row in self.store.patients()], ["Martin"], "the patient is deleted")
        restore = self.start_restore()
        restore.control("Vesk Tandry est ouvert. Quittez-le (clic droit sur son en-tête, « Quitter ») : cette fenêtre "
                        "attend, et continue dès qu'il est fermé.")
        self.assertFalse(restore.control(TAKE_BACK).has("enabled"))
        widget.stop()
        wait_until(lambda: restore.control(TAKE_BACK).has("enabled"), "the window notices that the widget has ended")
        self.picture("restore")
        restore.click(TAKE_BACK)
        restore.control("Patients de la copie")
        restore.press("space")
        wait_until(lambda: restore.control("Remettre les patients cochés").has("enabled"), "the patient is ticked")
        self.picture("restore-patients")
        restore.click("Remettre les patients cochés")
        restore.control("C'est fait : 1 patient est revenu.")
        widget = self.start_ready(clock=f"{DAY} 13:00:00")
        widget.search("dup")
        wait_equal(widget.results, ["Dupont"], "the patient is found again")
        dupont = self.store.patient("Dupont")
        self.assertEqual((dupont["id"], dupont["created"], dupont["test"], dupont["test_date"]),
                         (3, "2026-04-10", 1, "2026-05-12"))

    def test_all_patients_of_an_older_version_can_be_restored(self):
        self.store.seed({"name": "Dupont"}, {"name": "Martin"}, version="1.2")
        self.start_ready(clock=f"{DAY} 10:00:00").stop()
        self.assertEqual(self.store.patients(), [])
        restore = self.start_restore()
        self.assertEqual(self.copies(restore)[0],
                         ["samedi 21 novembre 2026, avant la mise à niveau", "2", "2 patients de plus"])
        wait_until(lambda: restore.control(GO_BACK).has("enabled"), "the widget has ended")
        restore.click(GO_BACK)
        restore.click("Revenir à cette copie")
        restore.control("C'est fait : les patients sont ceux de la copie du samedi 21 novembre 2026, avant la mise à niveau.")
        widget = self.start_ready(clock=f"{DAY} 13:00:00")
        widget.search("mar")
        wait_equal(widget.results, ["Martin"], "the patients are found again")
        self.assertEqual([row["name"] for row in self.store.patients()], ["Dupont", "Martin"])


if __name__ == "__main__":
    main()
