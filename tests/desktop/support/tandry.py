"""User actions in the widget."""

import collections
import time

from . import tree
from .screen import LEFT, RIGHT
from .waiting import NeverHappened, wait_equal, wait_until
from .widget import Gone, Widget

SEARCH_FIELD = "Rechercher un patient"
NAME_FIELD = "Nom du patient"
PHONE_FIELD = "Téléphone"
WAITING_LINK = "Liste des patients en attente"
QUESTIONS = {
    "test": "Avez-vous pratiqué des tests cutanés sur le patient ?",
    "rdv1": "Le patient souhaite-t-il prendre rdv pour son bilan allergologique ?",
    "confirmation": "Confirmation de l'allergie au pollen de graminés ?",
    "rdv2": "Le patient souhaite-t-il prendre rdv pour la première prise au cabinet ?",
    "rdv3": "Le patient souhaite-t-il prendre rdv pour son bilan de fin de saison ?",
}
GATE_1 = "Si vous avez les résultats du bilan, cliquez ici"
GATE_2 = "Si la 1ère prise au cabinet a été effectuée, cliquez ici"
MENU = ("Lancer au démarrage", "A propos", "Quitter")
_UNFOLDINGS = 5
Seen = collections.namedtuple("Seen", "values seconds")


class Tandry(Widget):
    """The widget, with the actions of its user."""

    # Searching

    def search(self, text):
        """Replaces the text of the search field."""
        self.replace_text(SEARCH_FIELD, text)
        wait_equal(lambda: self.control(SEARCH_FIELD, "text").text, text, "the search field holds what was typed")

    def results(self):
        """The names in the result list, from the top; empty while it is hidden."""
        found = self.find("Patients trouvés", "list")
        try:
            rows = found.find_all(role="push button") if found else []
            return [row.name for row in sorted(rows, key=lambda row: row.box.y)]
        except tree.Vanished:
            return []

    def open_patient(self, name, search=None):
        """Searches a patient and opens the result with that name."""
        self.search(name if search is None else search)
        self.repeat(lambda: self.click_found(lambda: self._uncovered_result(name), f"the result {name!r}"),
                    lambda: self.edits(name), f"the editor shows {name!r}")

    def edits(self, name):
        """Whether the editor shows the patient with that name."""
        field = self.find(NAME_FIELD, "text")
        return field and field.text == name

    def _uncovered_result(self, name):
        """The result with that name, once the link at the bottom of the frame no longer covers it."""
        found = self.find("Patients trouvés", "list")
        row = found and found.find(name, "push button")
        if not row:
            return None
        links = [link for link in self.find_all(role="push button") if link.name.startswith(WAITING_LINK)]
        return row if links and links[0].box.y >= row.box.y + row.box.height else None

    # Editing

    def create(self, name):
        """Creates a patient from the search field and stores it."""
        self.search(name)
        self.click_until(lambda: self.find(NAME_FIELD, "text"), "the editor is open", "Créer la fiche patient")
        self.click_until(lambda: self._question("test"), "the first question is shown", "Enregistrer")

    def back(self):
        """Leaves the editor."""
        self.click_until(lambda: self.find(SEARCH_FIELD, "text") and not self.find(NAME_FIELD, "text"),
                         "the search is shown instead of the editor", "Retour")

    def asked(self):
        """The keys of the questions that are shown, in order."""
        names = [control.name for control in self.find_all(role="push button") if control.box.height > 0]
        return [key for name in names for key, text in QUESTIONS.items() if name.startswith(text)]

    def wait_for_question(self, key):
        """Waits until a question is shown."""
        wait_until(lambda: self._question(key), f"the question {key!r} is shown")

    def answer(self, key, answer):
        """Answers a question "Oui" or "Non"; returns when the box is ticked, or the collapsed question shows the answer."""
        def is_given():
            box, question = self.answer_box(key, answer), self._question(key)
            return box.has("checked") if box else question and question.name.endswith(answer)

        self.repeat(lambda: self._click_box(key, answer), is_given, f"{answer!r} is given to the question {key!r}")

    def click_answer(self, key, answer):
        """The same for an answer that is not stored: returns when the program has tried to, or has been killed then."""
        tried = self.log.count("Update called")
        self.repeat(lambda: self._click_box(key, answer),
                    lambda: self.log.count("Update called") > tried or self.process.poll() is not None,
                    f"the answer {answer!r} to the question {key!r} is to be stored")

    def _click_box(self, key, answer):
        """Clicks "Oui" or "Non" below a question, and expands the question if necessary."""
        self.wait_for_question(key)
        what = f"{answer!r} below the question {key!r}"
        for _ in range(_UNFOLDINGS):
            try:
                place = self.resting_place(lambda: self.answer_box(key, answer), what, lambda: self._below(key), may_go=True)
                return self.screen.click(*place)
            except Gone:
                # Collapsed, or collapsing because another question has just expanded.
                self.click_found(lambda: self._question(key), f"the question {key!r}")
                wait_until(lambda: self.answer_box(key, answer), f"the question {key!r} expands")
        raise NeverHappened(f"{what} cannot be clicked")

    def _question(self, key):
        shown = self.find_all(role="push button")
        return next((control for control in shown if control.name.startswith(QUESTIONS[key])), None)

    def answer_box(self, key, answer):
        """The check box of a question, if the question is expanded."""
        return next((c for c in self._after(key) if c.role == "check box" and c.name == answer), None)

    def _below(self, key):
        """The control below a question, which moves when the question collapses."""
        return next((c for c in self._after(key) if c.role == "push button"), None)

    def _after(self, key):
        """The visible controls from a question to the next button, in reading order."""
        found = []
        reached = False
        for control in self.root.walk(showing=True):
            try:
                if control.role not in ("push button", "check box") or not control.has("showing"):
                    continue
                if reached:
                    found.append(control)
                    if control.role == "push button":
                        break
                reached = reached or control.name.startswith(QUESTIONS[key])
            except tree.Vanished:
                continue
        return found

    # The context menu is a separate window, which Qt does not expose on the accessibility bus: its rows have equal
    # heights.

    def menu_window(self):
        """The id of the open context menu, or None."""
        for window in self.screen.windows(self.process.pid):
            if self.screen.unmanaged(window) and window != self.tray_window() \
                    and "TOOLTIP" not in self.screen.property(window, "_NET_WM_WINDOW_TYPE"):
                return window
        return None

    def choose(self, item):
        """Clicks an item of the open context menu."""
        place = self.screen.geometry(wait_until(self.menu_window, "the context menu is open"))
        row = int(place.y + place.height / len(MENU) * (MENU.index(item) + 0.5))
        self.repeat(lambda: self.screen.click(place.x + 60, row), lambda: self.menu_window() is None,
                    "the context menu closes")

    def open_menu(self):
        """Opens the context menu with a right click on the header."""
        place = self.geometry()
        self.repeat(lambda: self.screen.click(place.x + 120, place.y + 20, RIGHT), self.menu_window,
                    "the context menu opens")

    # The tray

    def tray_window(self):
        """The id of the icon in the tray, or None."""
        for window in self.screen.windows(self.process.pid):
            place = self.screen.geometry(window)
            if place and place.height <= 32 and place.width <= 40:
                return window
        return None

    def toggle_by_tray(self):
        """Clicks the icon in the tray, and waits until the widget is hidden, or shown where it was hidden."""
        was_shown = self.window() is not None
        self.click_tray()
        wait_until(lambda: (self.window() is None) == was_shown, "the widget is " + ("hidden" if was_shown else "shown"))

    def click_tray(self, button=LEFT):
        """Clicks the icon in the tray."""
        place = self.screen.geometry(wait_until(self.tray_window, "the icon is in the tray"))
        self.screen.click(place.x + place.width // 2, place.y + place.height // 2, button)

    # Watching

    def watch_height(self, until, limit=10):
        """All heights of the main window up to `until`, and the seconds until then."""
        start, values = time.monotonic(), []

        def reached():
            height = self.geometry().height
            if not values or values[-1] != height:
                values.append(height)
            return height == until

        wait_until(reached, f"the window is {until} high (it was {values})", limit)
        return Seen(values, time.monotonic() - start)
