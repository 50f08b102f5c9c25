"""Compares the windows and the database with the model."""

from support import tree
from support.waiting import NeverHappened, wait_until
from support.widget import LIST_WIDTH, MAIN_WIDTH

from .observation import look
from .model import DATES, STEPS, answers_of, french

FIRST_RESULTS = 4


class Strayed(AssertionError):
    """The program and the model differ."""


class Comparison:
    """Part of a walk, which has `_widget`, `_store`, `_model` and `counts`. Stores the matching view in `_view`; `_focus` is the
    name of the control that must have the focus, None for any visible one."""

    _view = _focus = None

    def _compare(self):
        difference = [None]

        def same():
            difference[0] = self._difference()
            return difference[0] is None

        try:
            wait_until(same, "")
        except NeverHappened:
            raise Strayed(difference[0]) from None
        self.counts["comparisons"] += 1
        self._focus = None

    def _difference(self):
        """The difference, or None."""
        view = look(self._widget.root)
        if view is None:
            return "the windows do not stop moving"
        self._view = view
        problems, states = [], self._model.gate_states
        for state in states:
            self._model.gate_states = [state]
            problems.append(self._difference_from(view))
        self._model.gate_states = [state for state, problem in zip(states, problems) if problem is None] or states
        return None if None in problems else problems[0]

    def _difference_from(self, view):
        try:
            pairs = [("stored", self._stored(), self._expected_rows()), *self._widget_pairs(view),
                     ("list", view.list_content(), self._expected_list())]
        except (tree.Vanished, LookupError, AttributeError) as problem:
            return f"the windows do not stop moving: {type(problem).__name__} {problem}"
        for what, seen, expected in pairs:
            if seen != expected:
                return f"{what}:\n   expected {expected}\n   seen     {seen}"
        return self._focus_problem(view)

    def _widget_pairs(self, view):
        model = self._model
        yield "editor shown", view.in_editor(), model.editor is not None
        if model.editor is None:
            yield "search", view.search(), {"typed": model.search, "to create": model.search != "",
                                            "waiting": model.waiting}
            seen = [row.name for row in view.result_rows()]
            yield "results", seen, model.found()[:max(len(seen), FIRST_RESULTS)]
        elif model.editor.alive:
            yield "editor", view.editor(), self._expected_editor()
            yield "questions", view.asked(), model.asked()
            yield "gates", view.gates(), model.gates()
            yield from self._box_pairs(view)
        else:
            yield "questions of a deleted patient", \
                {key: view.asked().get(key) for key in view.asked() if key in DATES}, model.asked() or {}

    def _box_pairs(self, view):
        model, boxes = self._model, view.boxes()
        yield "unfolded questions", len(boxes) <= 1 or sorted(boxes), True
        for key, pair in boxes.items():
            ticked = [name for name in ("Oui", "Non") if name in pair and "checked" in pair[name].states]
            yield f"boxes of {key}", ticked, [answer for answer in [model.asked().get(key)] if answer]
        if model.unfolded in model.asked():
            yield "the expanded question", list(boxes), [model.unfolded]

    def _expected_editor(self):
        editor = self._model.editor
        buttons = [] if not editor.buttons else \
            ["Supprimer" if editor.number is not None and editor.name == "" else "Enregistrer", "Annuler"]
        return {"name": editor.name, "phone": editor.phone, "male": editor.male, "first day": french(editor.first_day),
                "buttons": buttons, "SMS": editor.number is not None}

    def _expected_list(self):
        model = self._model
        if not model.list.shown:
            return None
        return {"waiting tab": model.list.waiting_tab, "rows": model.list_rows(), "ticked": model.list_ticks(),
                "all ticked": model.list.tick_all, "number": model.list.number}

    def _stored(self):
        return [self._known(row["id"], row) for row in self._store.patients()]

    def _expected_rows(self):
        return [self._known(number, row) for number, row in sorted(self._model.rows.items())]

    @staticmethod
    def _known(number, row):
        """The meaning of a row: the flag of a step without a date is ignored."""
        return (number, row["name"], row["genderMale"], row["phone"], row["created"], row["notification_date"],
                answers_of(row), [row[DATES[key]] for key in STEPS])

    def _focus_problem(self, view):
        if view.active is None:
            return "no window is active"
        focused = view.active.focused()
        if len(focused) > 1:
            focused = focused[-1:]
        if not focused and view.active.width == LIST_WIDTH:
            # It opens without a focused control; the first Tab focuses one.
            return None
        if not focused:
            return "no visible control has the focus"
        if self._focus and view.active.width == MAIN_WIDTH and focused[0].name != self._focus:
            return f"{focused[0].name!r} has the focus instead of {self._focus!r}"
        return None
