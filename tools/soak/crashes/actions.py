"""Fast actions on a widget that may be killed at any moment, with a callback right before each press that stores something."""

from support.tandry import GATE_1, GATE_2, NAME_FIELD, QUESTIONS, SEARCH_FIELD, WAITING_LINK, Tandry
from support.tree import Vanished
from support.waiting import NeverHappened, wait_equal, wait_until
from support.widget import Gone


class Actions(Tandry):
    """With `mouse`, presses controls with the mouse once they stop moving; otherwise presses them through the accessibility
    bus, which need not wait and takes a fifth of the time. Functions that store something call `about_to` right before
    the press."""

    mouse = False
    # Items that exist as long as the program runs are looked up once: searching the whole tree each time would take most of
    # a trial.
    _root = _field = None
    _questions = {}

    @property
    def root(self):
        """The program's accessibility tree."""
        self._root = self._root or super().root
        self._alive()
        return self._root

    def wait_until_ready(self):
        """Waits until the search field has the focus: then everything is loaded."""
        wait_until(self._search_field_has_the_keyboard, "the search field has the focus")
        return self

    def expect_waiting(self, count):
        """Waits until the link to the waiting patients names that number."""
        self.control(f"{WAITING_LINK} ({count})" if count else WAITING_LINK, "push button")

    def open_and_expect(self, name, asked):
        """Opens a patient and waits until the editor shows these questions with their answers."""
        if self.mouse:
            self.open_patient(name)
        else:
            self._search(name)
            row = wait_until(lambda: self._result(name), f"a result called {name!r}")
            row.act()
            wait_equal(lambda: self.control(NAME_FIELD, "text").text, name, "the editor shows the patient")
        wait_equal(self.shown, asked, f"what the window shows of {name}")

    def leave(self):
        """Leaves the editor."""
        self._press("Retour")
        self.control(SEARCH_FIELD, "text")
        wait_equal(self.shown, {}, "no question is left from the last patient")

    def create_patient(self, name, about_to):
        """Creates a patient from the search field; returns when the first question is shown."""
        self._search(name)
        self._press("Créer la fiche patient")
        wait_equal(lambda: self.control(NAME_FIELD, "text").text, name, "the editor has the typed name")
        wait_equal(self.shown, {}, "no question is shown yet")
        self._press("Enregistrer", about_to)
        wait_until(lambda: "test" in self.shown(), "the questions appear")

    def give_answer(self, key, answer, about_to):
        """Answers a question; returns when the window shows the answer."""
        self._reach(key)
        self._do(self._answer_at_rest(key, answer), about_to)
        wait_until(lambda: self.shown().get(key) == answer, f"the answer {answer} to {key} is shown")

    def shown(self):
        """The questions in the window, each with its answer or ""."""
        self._alive()
        if not self._questions:
            # They are created when the editor is first opened.
            found = self._named(QUESTIONS)
            self._questions = found if len(found) == len(QUESTIONS) else {}
        names = {key: control.name for key, control in self._questions.items() if control.has("showing")}
        return {key: names[key][len(QUESTIONS[key]):].strip() for key in QUESTIONS if key in names}

    def _search_field_has_the_keyboard(self):
        self._alive()
        self._field = self._field or self._named({SEARCH_FIELD: SEARCH_FIELD}).get(SEARCH_FIELD)
        return self._field and self._field.has("focused")

    def _named(self, starts):
        """The controls, shown or not, whose names start with these, by the same keys."""
        try:
            named = [(control.name, control) for control in self.root.find_all(showing=False)]
        except Vanished:
            return {}
        return {key: control for name, control in named for key, start in starts.items() if name.startswith(start)}

    def _search(self, text):
        """Replaces the text of the search field, which has the focus."""
        if self.mouse:
            return self.search(text)
        self.wait_until_ready()
        self.type(text)
        wait_equal(lambda: self._field.text, text, "the search field holds what was typed")

    def _result(self, name):
        found = self.find("Patients trouvés", "list")
        return found and found.find(name, "push button")

    def _press(self, name, about_to=None):
        if self.mouse:
            self._do(self.resting_place(lambda: self.find(name, "push button"), repr(name)), about_to)
        else:
            self._do(self.control(name, "push button"), about_to)

    def _do(self, target, about_to):
        """Clicks a place or presses a control."""
        if about_to:
            about_to()
        if self.mouse:
            self.screen.click(*target)
        else:
            target.act()

    def _reach(self, key):
        """Opens the gate before a question if there is one; waits until the question is shown."""
        gate = GATE_1 if key == "confirmation" else GATE_2
        wait_until(lambda: key in self.shown() or self.find(gate, "push button"), f"the question {key!r} or its gate")
        if key not in self.shown():
            self._press(gate)
            wait_until(lambda: key in self.shown(), f"the question {key!r} behind its gate")

    def _answer_at_rest(self, key, answer):
        """The position of an answer for the mouse, or its box for the accessibility bus; expands a collapsed question."""
        what = f"{answer!r} below the question {key!r}"
        for _ in range(15):
            try:
                # While a question collapses, its boxes are still shown but no longer react.
                place = self.resting_place(lambda: self.answer_box(key, answer), what, lambda: self._below(key), may_go=True)
                target = place if self.mouse else self.answer_box(key, answer)
                if target:
                    return target
            except Gone:
                self._questions[key].act()
        raise NeverHappened(f"{what} cannot be pressed")
