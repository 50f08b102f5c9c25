"""The contact popup and the SMS bar: their texts and links."""

from support.case import DesktopTest, main
from support.desktop import WIDTH
from support.waiting import stays, wait_equal, wait_until
from support.widget import CONTACT_WIDTH

LINES = ["Contacts VESK", "Pharmacovigilance", "01 99 00 00 00", "pharmacovigilance@olmeric.example", "Service client",
         "Du lundi au vendredi de 8h30 à 18h00 et le samedi de 9h00 à 12h00", "01 99 00 00 00",
         "service.client@olmeric.example", "Sites internet"]
SITES = ["www.allergies-info.example", "www.vesk.example"]


class Contact(DesktopTest):

    def setUp(self):
        super().setUp()
        self.store.seed({"name": "Dupont"})
        self.widget = self.start_ready()
        self.widget.click("Contacts VESK", "push button")
        self.widget.wait_for_window(CONTACT_WIDTH)

    def popup(self):
        """The popup's part of the accessibility tree."""
        return next(frame for frame in self.widget.find_all(role="frame") if frame.box.width == CONTACT_WIDTH)

    def test_the_popup_has_its_texts_and_size_and_can_be_closed(self):
        self.assertEqual(self.widget.geometry(CONTACT_WIDTH)[2:], (500, 450))
        labels = [label.name for label in self.popup().find_all(role="label") if label.name != "Tandry"]
        self.assertEqual(labels, LINES)
        self.assertEqual([link.name for link in self.popup().find_all(role="link")], SITES)
        self.picture("contact")
        wait_equal(lambda: self.home.settings().get("ShowContactViewCounter"), "1", "the opening is counted")
        self.widget.click_found(lambda: self.popup().find("Fermer"), "the popup's close button")
        wait_until(lambda: self.widget.window(CONTACT_WIDTH) is None, "the cross hides the popup")
        self.assertIsNotNone(self.widget.window())

    def test_only_the_sites_are_links(self):
        for label in self.popup().find_all(role="label"):
            self.desktop.screen.click(*label.middle)
        stays(lambda: self.browser.visited() == [], "plain lines open nothing", 0.3)
        for number, site in enumerate(SITES):
            self.widget.click(site, "link")
            wait_equal(self.browser.visited, [f"http://{site}" for site in SITES[:number + 1]], "the site is opened")

    def test_the_sms_bar_opens_the_service(self):
        self.widget.open_patient("Dupont")
        self.widget.click("Envoyer le SMS de rappel")
        wait_equal(self.browser.visited, ["http://sms.olmeric.example/vesk_sms/"], "the browser opens the page")

    def test_a_missing_browser_does_not_disturb_the_program(self):
        self.browser.break_down()
        self.widget.click(SITES[0], "link")
        self.widget.open_patient("Dupont")
        self.widget.click("Envoyer le SMS de rappel")
        self.widget.back()
        self.assertEqual(self.browser.visited(), [])

    def test_the_popup_is_dragged_by_its_header_and_returns_to_the_screen(self):
        self.assertEqual(self.widget.drag((200, 15), (5, 200), CONTACT_WIDTH)[:2], (5 - 200, 200 - 15))
        self.widget.click_until(lambda: self.widget.geometry(CONTACT_WIDTH)[:2] == (WIDTH - 795, 35),
                                "the popup is back on the screen", "Contacts VESK", "push button")


if __name__ == "__main__":
    main()
