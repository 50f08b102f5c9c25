"""The required behaviour with a store that cannot be written."""

from .case import DesktopTest, complaints
from .tandry import PHONE_FIELD, QUESTIONS
from .waiting import wait_equal, wait_until

PATIENT = {"name": "Dupont", "created": "2014-04-10", "phone": "0601020304"}


class RefusingStore(DesktopTest):
    """The base class of tests in which the store refuses changes."""

    complains = True

    def wait_for_complaint(self, widget, count=0):
        """Waits until the log reports more than `count` failures."""
        wait_until(lambda: len(complaints(widget.log)) > count, "the log names the error")

    def assertNotStored(self, widget):
        """Asserts that an answer and a phone number are refused, logged and not shown as stored, and that nothing is lost."""
        before = self.store.patients()
        widget.open_patient("Dupont")
        said = len(complaints(widget.log))
        widget.click_answer("test", "Oui")
        self.wait_for_complaint(widget, said)
        wait_equal(widget.asked, ["test"], "the answer is not shown as stored")
        widget.control(QUESTIONS["test"], "push button")  # without an answer in its name
        said = len(complaints(widget.log))
        widget.replace_text(PHONE_FIELD, "06")
        widget.click("Enregistrer")
        self.wait_for_complaint(widget, said)
        self.assertEqual(self.store.patients(), before)
