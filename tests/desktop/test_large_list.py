"""Ten thousand patients in each tab: the list scrolls, ticks, prints, and deletes up to the limit of SQLite."""

from support.case import DesktopTest, main
from support.patient_list import ALL, REMOVE, SELECT_ALL, WAITING, PatientList
from support.waiting import wait_equal, wait_until

COUNT = 10000
ROW_HEIGHT = 42
# A user takes a longer pause for a hang.
PATIENCE_FOR_ONE_STEP = 10


class LargeList(DesktopTest):

    def setUp(self):
        super().setUp()
        self.store.seed(*({"name": f"Patient {number:05}", "created": "2014-04-10", "notification_date": "2014-05-01"}
                          for number in range(COUNT)))
        self.widget = self.start_ready(clock="2014-05-12 10:00:00")
        self.list = PatientList(self.widget).open()
        wait_equal(lambda: self.list.names()[:1], ["Patient 00000"], "the first rows are shown")

    def test_the_list_scrolls_while_the_wheel_turns(self):
        place = self.list.place
        row = self.list.window.find("Ouvrir Patient 00008", "push button")
        before = row.box.y
        self.desktop.screen.wheel(place.x + 400, place.y + 400, -1)
        wait_equal(lambda: row.box.y, before - 3 * ROW_HEIGHT, "a notch moves three rows")
        self.desktop.screen.wheel(place.x + 400, place.y + 400, -40)
        wait_until(lambda: (self.list.names() or [""])[0] > "Patient 00010", "the rows move", PATIENCE_FOR_ONE_STEP)
        self.picture("list-scrolled")

    def test_select_all_and_print_work_in_each_tab(self):
        for tab in (WAITING, ALL):
            self.list.show_tab(tab)
            self.list.click("Imprimer")
            title = "Liste des patients en attente" if tab == WAITING else ALL
            self.widget.control(title, "dialog")
            self.widget.press("Escape")
            self.widget.wait_gone(title, "dialog")
        self.list.click(SELECT_ALL, "check box")
        wait_until(lambda: len(self.list.ticked()) > 5, "the shown rows are ticked", PATIENCE_FOR_ONE_STEP)

    def test_more_patients_than_one_statement_can_delete_are_all_kept(self):
        self.complains = True
        # The statement that deletes can name 999 patients; a longer one fails and deletes none.
        self.list.click(SELECT_ALL, "check box")
        wait_until(self.list.ticked, "the rows are ticked", PATIENCE_FOR_ONE_STEP)
        self.list.click(REMOVE)
        wait_until(lambda: "Expression tree is too large" in self.widget.log, "the log names the error")
        self.assertEqual(len(self.store.patients()), COUNT)
        self.assertTrue(self.list.ticked())


class LongList(DesktopTest):

    def test_one_click_deletes_999_patients(self):
        self.store.seed(*({"name": f"Patient {number:05}", "created": "2014-04-10", "notification_date": "2014-05-01"}
                          for number in range(999)))
        patients = PatientList(self.start_ready(clock="2014-05-12 10:00:00")).open()
        patients.click(SELECT_ALL, "check box")
        wait_until(patients.ticked, "the rows are ticked", PATIENCE_FOR_ONE_STEP)
        patients.click(REMOVE)
        wait_equal(self.store.patients, [], "all patients are deleted")
        wait_equal(patients.names, [], "the list is empty")


if __name__ == "__main__":
    main()
