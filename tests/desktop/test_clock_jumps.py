"""The clock while the program runs: set forward over a year, and back; and a new day that comes by itself."""

from support.case import DesktopTest, main
from support.clock import SetClock
from support.patient_list import ALL, PatientList
from support.waiting import wait_equal, wait_until

DUE_IN_SPRING = {"name": "Dupont", "created": "2014-04-10", "phone": "0601020304", "notification_date": "2015-03-01"}


class Clock(DesktopTest):

    def start_at(self, time):
        """Starts the program with a clock that the test sets, and waits for its first refresh."""
        self.clock = SetClock(self.home, time)
        widget = self.start_ready(clock=self.clock)
        wait_until(lambda: "icon 0." in widget.log, "the first refresh is done")
        return widget

    def stored(self, name, *columns):
        """The values of a patient's columns."""
        row = self.store.patient(name)
        return row and tuple(row[column] for column in columns)

    def test_setting_the_clock_forward_by_a_year_counts_again(self):
        self.store.seed(DUE_IN_SPRING)
        widget = self.start_at("2014-05-12 10:00:00")
        self.clock.set("2015-06-01 10:00:00")
        widget.create("Martin")
        wait_equal(lambda: self.stored("Martin", "created", "notification_date"), ("2015-06-01", "2015-06-01"),
                   "the patient has the new date")
        # The change has counted again: the patient whose day has come, and the new one.
        wait_until(lambda: "icon 2" in widget.log, "both are waiting")
        widget.back()
        self.assertEqual(PatientList(widget).open().names(), ["Dupont", "Martin"])

    def test_setting_the_clock_back_by_a_year_keeps_stored_dates(self):
        self.store.seed(DUE_IN_SPRING)
        widget = self.start_at("2014-05-12 10:00:00")
        self.clock.set("2012-12-31 23:59:59")
        widget.create("Martin")
        wait_equal(lambda: self.stored("Martin", "created", "notification_date"), ("2012-12-31", "2012-12-31"),
                   "the patient has the earlier date")
        widget.answer("test", "Oui")
        wait_equal(lambda: self.stored("Martin", "test", "test_date", "notification_date"),
                   (1, "2012-12-31", "2012-12-15"), "the answer is stored with that date")
        wait_until(lambda: "icon 1" in widget.log, "only that patient is waiting")
        widget.back()
        self.assertEqual(self.store.patient("Dupont")["notification_date"], "2015-03-01")
        list_of_all = PatientList(widget).open()
        self.assertEqual(list_of_all.names(), ["Martin"])
        list_of_all.show_tab(ALL)
        wait_equal(list_of_all.names, ["Dupont", "Martin"], "no patient is lost")

    def test_setting_the_clock_forward_and_back_changes_no_stored_row(self):
        self.store.seed(DUE_IN_SPRING)
        widget = self.start_at("2014-05-12 10:00:00")
        before = self.store.patient("Dupont")
        self.clock.set("2015-06-01 10:00:00")
        widget.create("Martin")
        wait_until(lambda: "icon 2" in widget.log, "both are waiting")
        widget.back()
        self.clock.set("2014-05-12 10:05:00")
        widget.create("Durand")
        wait_until(lambda: "icon 1" in widget.log, "only the new patient is waiting: the days of the others are to come")
        widget.back()
        self.assertEqual(PatientList(widget).open().names(), ["Durand"])
        self.assertEqual(self.store.patient("Dupont"), before)
        self.assertEqual(self.stored("Martin", "created", "notification_date"), ("2015-06-01", "2015-06-01"))

    def test_the_first_tick_of_a_new_day_refreshes_and_copies(self):
        self.store.seed({"name": "Dupont", "created": "2014-04-10", "notification_date": "2014-05-13"})
        # The program's clock and timers run 900 times as fast: its hour is four seconds.
        widget = self.start(environment={"TZ": "UTC"}, clock="2014-05-12 21:30:00", speed=900)
        wait_equal(self.store.copies, ["2014-05-12"], "the start has made its copy")
        self.store.execute("UPDATE `Patients` SET `phone` = '0601020304'")
        wait_until(lambda: "icon 1" in widget.log, "the first tick of the new day refreshes", limit=40)
        # The start and the new day; two ticks, at 22:30 and 23:30, brought no refresh.
        self.assertEqual(widget.log.count("Refreshing icon."), 2)
        wait_equal(self.store.copies, ["2014-05-12", "2014-05-13"], "the changed patients are copied on the new day")


if __name__ == "__main__":
    main()
