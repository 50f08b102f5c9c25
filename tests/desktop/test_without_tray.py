"""On a desktop without a tray, everything else works."""

from support.case import DesktopTest, main
from support.patient_list import PatientList
from support.waiting import wait_equal, wait_until


class WithoutTray(DesktopTest):
    tray = False

    def test_the_widget_works_without_a_tray(self):
        self.store.seed({"name": "Dupont", "created": "2014-04-10", "notification_date": "2014-05-01"})
        widget = self.start_ready(clock="2014-05-12 10:00:00")
        wait_until(lambda: "icon 1" in widget.log, "the first refresh is done")
        self.assertIsNone(widget.tray_window())
        widget.open_patient("Dupont")
        widget.answer("test", "Oui")
        wait_equal(lambda: self.store.patient("Dupont")["notification_date"], "2014-09-15", "the answer is stored")
        widget.back()
        self.assertEqual(PatientList(widget).open().names(), [])
        widget.open_menu()
        widget.choose("Quitter")
        widget.click("OK", "push button")
        self.assertEqual(widget.wait_for_exit(), 0)


if __name__ == "__main__":
    main()
