"""The list popup: its two tabs, ticks, deletion, and opening a patient."""

from support.case import DesktopTest, main
from support.desktop import WIDTH
from support.patient_list import ALL, REMOVE, SELECT_ALL, WAITING, PatientList
from support.tandry import NAME_FIELD, SEARCH_FIELD
from support.waiting import stays, wait_equal, wait_until
from support.widget import LIST_WIDTH

PATIENTS = (
    {"name": "DUPONT Marie", "created": "2014-04-10", "phone": "0601020304", "notification_date": "2014-05-12"},
    {"name": "adam Léo", "created": "2014-03-02", "notification_date": "2014-05-01", "test": 0,
     "test_date": "2014-03-02", "rdv1": 0, "date1": "2014-03-09"},
    {"name": "ZOLA Émile", "created": "2013-12-24", "notification_date": "2014-05-11", "test": 1,
     "test_date": "2014-01-05"},
    {"name": "MARTIN Paul", "created": "2014-01-20", "notification_date": "2050-01-20", "test": 0,
     "test_date": "2014-01-20", "rdv1": 1, "date1": "2014-01-20", "confirmation": 1,
     "confirmation_date": "2014-02-01", "rdv2": 1, "date2": "2014-02-02", "rdv3": 1, "date3": "2014-02-03"},
)
CLOCK = "2014-05-12 10:00:00"


class PatientListTest(DesktopTest):

    def setUp(self):
        super().setUp()
        self.store.seed(*PATIENTS)
        self.widget = self.start_ready(clock=CLOCK)
        self.list = PatientList(self.widget).open()


class Content(PatientListTest):

    def test_the_waiting_tab_lists_the_waiting_patients(self):
        wait_equal(self.list.rows, [
            ["adam Léo", "02/03/2014", "Non", "Non"],
            ["DUPONT Marie", "10/04/2014", "?", "0601020304"],
            ["ZOLA Émile", "24/12/2013", "Oui", "-", "?"]], "the waiting patients in name order")
        self.assertIsNotNone(self.list.window.find("3 patients en attente", "label"), "the badge")
        self.picture("list-waiting")

    def test_the_other_tab_lists_all_patients(self):
        self.list.show_tab(ALL)
        wait_equal(self.list.rows, [
            ["adam Léo", "02/03/2014", "Non", "Non"],
            ["DUPONT Marie", "10/04/2014", "?", "0601020304"],
            ["MARTIN Paul", "20/01/2014", "Non", "Oui", "Oui", "Oui", "Oui"],
            ["ZOLA Émile", "24/12/2013", "Oui", "-", "?"]], "all patients in name order")
        self.picture("list-all")

    def test_each_tab_has_its_colours(self):
        place, pixel = self.list.place, self.desktop.screen.pixel
        wait_equal(lambda: pixel(place.x + 5, place.y + 110), "#e44d5f", "the table header of the waiting tab")
        self.assertEqual([pixel(place.x + 5, place.y + 160 + 42 * row) for row in range(3)],
                         ["#ffeff1", "#fcdfdf", "#ffeff1"])
        self.assertEqual([pixel(place.x + x, place.y + 60) for x in (20, 780)], ["#f8f8f8", "#c8dcfc"])
        self.list.show_tab(ALL)
        self.desktop.screen.move(5, 1000)
        wait_equal(lambda: pixel(place.x + 5, place.y + 110), "#6888ba", "the table header of the other tab")
        wait_equal(lambda: [pixel(place.x + 5, place.y + 160 + 42 * row) for row in range(4)],
                   ["#f9f9f9", "#e5e8ed", "#f9f9f9", "#e5e8ed"], "the rows of the other tab")
        self.assertEqual([pixel(place.x + x, place.y + 60) for x in (20, 780)], ["#fcbbc3", "#f9f9f9"])

    def test_the_list_follows_a_change_in_the_widget(self):
        wait_equal(lambda: len(self.list.rows()), 3, "three patients are waiting")
        self.widget.create("BERNARD Anne")
        wait_equal(self.list.names, ["adam Léo", "BERNARD Anne", "DUPONT Marie", "ZOLA Émile"], "the new one too")
        self.widget.answer("test", "Non")
        wait_equal(self.list.names, ["adam Léo", "DUPONT Marie", "ZOLA Émile"], "the patient is no longer waiting")

    def test_the_sms_button_opens_the_service_and_nothing_else(self):
        self.list.click("Envoi SMS", "push button")
        wait_equal(self.browser.visited, ["http://sms.olmeric.example/vesk_sms/"], "the browser opens the page")
        self.assertIsNone(self.widget.find(NAME_FIELD, "text"))


class Ticks(PatientListTest):

    def test_ticked_patients_are_deleted_without_a_question(self):
        self.list.tick("DUPONT Marie")
        self.list.tick("ZOLA Émile")
        wait_equal(self.list.ticked, ["DUPONT Marie", "ZOLA Émile"], "two rows are ticked")
        self.picture("list-ticked")
        self.list.click(REMOVE)
        wait_equal(self.list.names, ["adam Léo"], "the rows are gone")
        self.assertEqual([row["name"] for row in self.store.patients()], ["adam Léo", "MARTIN Paul"])
        self.widget.control("Liste des patients en attente (1)", "push button")
        wait_equal(lambda: self.home.settings().get("PatientsCounter"), "2", "the count follows")

    def test_select_all_survives_the_tabs_and_a_reload(self):
        self.list.click(SELECT_ALL, "check box")
        wait_equal(self.list.ticked, ["adam Léo", "DUPONT Marie", "ZOLA Émile"], "all are ticked")
        self.list.show_tab(ALL)
        everybody = ["adam Léo", "DUPONT Marie", "MARTIN Paul", "ZOLA Émile"]
        wait_equal(self.list.ticked, everybody, "all of the other tab are ticked")
        self.widget.create("BERNARD Anne")
        wait_equal(self.list.ticked, sorted(everybody + ["BERNARD Anne"], key=str.lower), "the new row too")
        self.list.click(SELECT_ALL, "check box")
        wait_equal(self.list.ticked, [], "none is ticked")

    def test_delete_with_nothing_ticked_deletes_nothing(self):
        self.list.click(REMOVE)
        stays(lambda: len(self.store.patients()) == 4, "nothing is deleted", 0.5)
        self.assertEqual(self.list.names(), ["adam Léo", "DUPONT Marie", "ZOLA Émile"])


class OnePatient(PatientListTest):

    def test_a_row_opens_in_the_widget_even_if_it_is_hidden(self):
        moved = self.widget.drag((120, 20), (1030, 475))
        self.widget.click("Fermer", "push button")
        wait_until(lambda: self.widget.window() is None, "the widget is hidden")
        self.list.open_patient("ZOLA Émile")
        self.assertEqual(self.widget.geometry()[:2], moved[:2])
        wait_equal(lambda: self.widget.control(NAME_FIELD, "text").text, "ZOLA Émile", "the editor shows the patient")
        self.assertIsNotNone(self.widget.window(LIST_WIDTH))

    def test_deleting_the_patient_in_the_editor_closes_it(self):
        self.widget.open_patient("ZOLA Émile", search="zo")
        self.list.tick("ZOLA Émile")
        self.list.click(REMOVE)
        self.widget.wait_gone(NAME_FIELD, "text")
        self.assertEqual(self.widget.control(SEARCH_FIELD, "text").text, "")

    def test_deleting_another_patient_leaves_the_editor_open(self):
        self.widget.open_patient("ZOLA Émile", search="zo")
        self.list.tick("adam Léo")
        self.list.click(REMOVE)
        wait_equal(self.list.names, ["DUPONT Marie", "ZOLA Émile"], "the row is gone")
        stays(lambda: self.widget.control(NAME_FIELD, "text").text == "ZOLA Émile", "the editor stays", 0.5)


class Window(PatientListTest):

    def close(self):
        """Clicks the popup's close button."""
        self.list.click("Fermer", "push button")
        wait_until(lambda: self.widget.window(LIST_WIDTH) is None, "the cross hides the popup")

    def test_the_popup_has_its_size_and_is_dragged_by_its_header(self):
        place = self.list.place
        self.assertEqual(place[2:], (800, 650))
        self.list.drag_to(place.x + 50, place.y + 30)
        wait_equal(lambda: self.home.settings().get("ShowListViewCounter"), "1", "the opening is counted")

    def test_the_popup_returns_when_it_has_left_the_screen(self):
        self.list.drag_to(-195, 100)
        self.close()
        self.list.open()
        wait_equal(lambda: self.list.place[:2], (WIDTH - 995, 35), "it is at its place left of the widget")

    def test_the_popup_opens_where_it_was_closed(self):
        self.list.drag_to(130, 250)
        self.close()
        self.list.open()
        self.assertEqual(self.list.place[:2], (130, 250))

    def test_the_popup_keeps_its_tab_while_it_is_hidden(self):
        self.list.show_tab(ALL)
        self.close()
        self.list.open()
        self.assertTrue(self.list.window.find(ALL, "page tab").has("checked"))
        self.assertFalse(self.list.window.find(WAITING, "page tab").has("checked"))


if __name__ == "__main__":
    main()
