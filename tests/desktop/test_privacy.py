"""Patient data is in the database, its copies, the windows and on requested prints; nowhere else."""

import os
import re
import subprocess

from support import traces
from support.case import DesktopTest, complaints, main
from support.clock import moved
from support.patient_list import ALL, PatientList
from support.statistics import StatisticsService
from support.tandry import PHONE_FIELD
from support.waiting import wait_equal, wait_until
from support.widget import LIST_WIDTH

NAME, PHONE = "ZQUIXOTAV Wplimbrond", "0739184620"
DELETED, DELETED_PHONE = "KRVELSTUN Jhopazdig", "0628451973"
MARKS = NAME.split() + [PHONE] + DELETED.split() + [DELETED_PHONE]
DAY_BEFORE = "2014-05-11 10:00:00"  # before the program's date: the service's certificate is valid in every time zone
PRINT_TITLE = "Liste de tous les patients"
# All log lines of the program and of Qt, except Qt's internal traces, which name every key press.
EVERYTHING = {"QT_LOGGING_RULES": "*=true;qt.*.debug=false;qt.*.info=false"}
FRAME, GROWN_HEIGHT = "#002457", 399  # of the editor with two questions, one of them expanded
FILE, FOLDER, SOCKET = "-rw-------", "drwx------", "srwx------"


class Privacy(DesktopTest):
    complains = True  # one answer is refused; its log lines are checked, too

    def setUp(self):
        super().setUp()
        self.service = StatisticsService(clock=moved(DAY_BEFORE))
        self.addCleanup(self.service.stop)
        self.pdf = os.path.join(self.home.folder, "liste.pdf")

    def start_looking(self):
        """Starts the program with full logging and waits until it has finished its own actions."""
        uploads, refreshes = len(self.service.requests), self.log().count("Refreshing icon.")
        self.widget = self.start(environment={**EVERYTHING, **self.service.environment}).wait_until_ready()
        wait_until(lambda: self.log().count("Refreshing icon.") > refreshes, "the first refresh is done")
        wait_until(lambda: len(self.service.requests) > uploads, "the statistics are uploaded")

    def log(self):
        """The output of all runs."""
        with open(os.path.join(self.home.notes, "program.log"), "ab+") as file:
            file.seek(0)
            return file.read().decode("utf-8", errors="replace")

    def create(self, name, phone):
        """Creates a patient with a telephone number."""
        self.widget.create(name)
        self.widget.replace_text(PHONE_FIELD, phone)
        self.widget.click("Enregistrer")
        wait_equal(lambda: self.store.patient(name)["phone"], phone, "the number is stored")

    def answer_while_another_reads(self):
        """Gives an answer that cannot be stored; returns the modes of all files while its transaction is open."""
        other = self.store.read_lock()
        try:
            self.widget.click_answer("test", "Oui")
            wait_until(lambda: os.path.exists(self.store.file + "-journal"), "the transaction has its journal")
            seen = traces.modes(self.home.folder)
            wait_until(lambda: complaints(self.log()), "the log says that the answer is lost")
        finally:
            other.close()
        return seen

    def open_sms_page(self):
        """Presses the bar below the questions. The bar reaches its position before the frame has grown, and cannot be
        clicked outside the frame."""
        def frame_has_grown():
            place = self.widget.geometry()
            bottom = self.desktop.screen.pixel(place.x + place.width // 2, place.y + place.height - 3)
            return place.height == GROWN_HEIGHT and bottom == FRAME

        wait_until(frame_has_grown, "the frame has grown")
        self.widget.click("Envoyer le SMS de rappel")
        wait_until(self.browser.visited, "the SMS page is opened")

    def print_list(self):
        """Prints the current tab into the file that the user names."""
        self.list.click("Imprimer")
        dialog = self.widget.control(PRINT_TITLE, "dialog")
        field = dialog.find(role="text")
        self.widget.click_found(lambda: field, "the field for the file")
        wait_until(lambda: field.has("focused"), "the field has the focus")
        self.widget.press("ctrl+a")
        self.widget.type(self.pdf)
        wait_equal(lambda: field.text, self.pdf, "the file is named")
        self.look_around()
        self.widget.press("Return")
        wait_equal(lambda: self.home.settings().get("PrinterCounter"), "1", "the print is counted")

    def look_around(self):
        """Asserts that nothing that other programs can see of the running program names a patient."""
        pid = self.widget.process.pid
        self.assertEqual(traces.in_process(MARKS, pid), [])
        self.assertEqual(traces.found(MARKS, self.window_properties(pid)), [])

    def window_properties(self, pid):
        """Titles, classes and all other window properties."""
        windows = self.desktop.screen.windows(pid)
        self.assertTrue(windows)
        return b"\n".join(subprocess.run(["xprop", "-id", str(window), "-notype"], env=self.desktop.environment,
                                         capture_output=True, check=False).stdout for window in windows)

    def tray_message(self):
        """The text of the message at the tray, or None."""
        label = next((each for each in self.widget.find_all(role="label") if each.name.startswith("Vous avez")), None)
        return label and label.name

    def quit(self):
        """Quits the program from its menu."""
        self.widget.open_menu()
        self.widget.choose("Quitter")
        self.widget.click("OK", "push button")
        self.assertEqual(self.widget.wait_for_exit(), 0)

    def assertOwnersAlone(self, seen, *kinds):
        """Asserts that only the owner can access each file, folder and socket, and that each of the patterns matches one."""
        right = {"-": FILE, "d": FOLDER, "s": SOCKET}
        self.assertEqual({path: mode for path, mode in seen.items() if mode != right[mode[0]]}, {})
        for kind in kinds:
            self.assertTrue([path for path in seen if re.search(kind, path)], f"{kind} in {sorted(seen)}")

    def test_a_patients_name_and_number_are_nowhere_else(self):
        self.start_looking()
        self.create(DELETED, DELETED_PHONE)
        self.widget.back()
        self.create(NAME, PHONE)
        seen = self.answer_while_another_reads()
        self.assertOwnersAlone(seen, r"\.sqlite$", r"\.sqlite-journal$", r"Databases/\w+\.ini$", r"Olmeric\.conf$",
                               r"LaunchAgents/.*\.plist$", r"autostart/.*\.desktop$", r"tmp/.*-lockfile$",
                               r"tmp/qtsingleapp-\w+-\w+-\w+$")
        self.widget.answer("test", "Oui")
        wait_until(lambda: self.store.patient(NAME)["test_date"], "the answer is stored once the file is unlocked")
        self.look_around()
        self.open_sms_page()
        self.widget.back()
        self.widget.search(NAME.split()[1])
        wait_equal(self.widget.results, [NAME], "the patient is found")
        self.look_around()

        self.list = PatientList(self.widget).open()
        self.list.show_tab(ALL)
        wait_equal(self.list.names, [DELETED, NAME], "the list has both")
        self.list.tick(DELETED)
        self.list.click("Supprimer les patients sélectionnés")
        wait_equal(self.list.names, [NAME], "one is deleted")
        self.print_list()
        self.assertIn(NAME, " ".join(subprocess.run(["pdftotext", "-layout", self.pdf, "-"], capture_output=True,
                                                    check=True, text=True).stdout.split()))
        self.widget.click_found(lambda: self.list.window.find("Fermer"), "the list's close button")
        wait_until(lambda: self.widget.window(LIST_WIDTH) is None, "the list is closed")
        self.quit()

        self.make_waiting()
        self.start_looking()
        wait_equal(self.tray_message, "Vous avez 1 patient en attente", "the message says how many, not who")
        self.look_around()
        self.quit()
        self.assertNothingIsLeft()

    def make_waiting(self):
        """Sets the patient's reminder to today."""
        other = self.store.write_lock("UPDATE `Patients` SET notification_date = '2014-05-12'")
        other.execute("COMMIT")
        other.close()

    def assertNothingIsLeft(self):
        """Asserts that the search finds the marks in the database and its copies, and nowhere else."""
        self.assertEqual(sorted(traces.in_files(MARKS, self.home.folder)),
                         sorted([self.store.file] + self.store.copied_files()))
        self.assertEqual(traces.in_files(MARKS, self.home.notes), [])
        self.assertEqual(traces.in_files(MARKS, self.desktop.folder), [])
        with open(self.store.file, "rb") as file:
            self.assertEqual(traces.found(MARKS, file.read()), NAME.split() + [PHONE])
        self.assertIn("Insert called", self.log())
        self.assertIn("userType:", self.log())
        self.assertEqual(traces.found(MARKS, self.log().encode()), [])
        self.assertGreaterEqual(len(self.service.requests), 2)
        for request in self.service.requests:
            self.assertEqual(traces.found(MARKS, request.head + request.body), [])
        self.assertEqual(traces.found(MARKS, " ".join(self.browser.visited()).encode()), [])
        left = traces.modes(self.home.folder)
        self.assertOwnersAlone(left, r"^liste\.pdf$")
        self.assertEqual([path for path in left if re.search(r"-(journal|wal|shm)$", path)], [])
        self.assertEqual(self.home.settings("Vesk Korrin"), {}, "the sibling's settings are never written")


if __name__ == "__main__":
    main()
