"""One random walk: after each step, by the user or by another process, compares the program with the model."""

import collections
import random

from support.case import complaints
from support.home import Home
from support.store import Store
from support.tandry import Tandry
from support.waiting import wait_until

from .comparison import Strayed
from .elsewhere import MOST_PATIENTS, Elsewhere
from .model import TODAY, Model, new_row
from .steps import GONE, LOCKED, Steps

CLOCK = TODAY + " 10:00:00"
_PATIENTS = (
    new_row(name="DUPONT Marie", created="2014-04-10", phone="0601020304", notification_date=TODAY),
    new_row(name="adam Léo", created="2014-01-02", notification_date="2014-05-01", test=0, test_date="2014-03-02",
            rdv1=0, date1="2014-03-09", genderMale=0),
    new_row(name="ZOLA Émile", created="2013-12-24", notification_date="2014-05-11", test=1, test_date="2014-01-05"),
    new_row(name="MARTIN Paul", created="2014-10-02", notification_date="2050-01-20", test=0, test_date="2014-01-20",
            rdv1=1, date1="2014-01-20", confirmation=1, confirmation_date="2014-02-01", rdv2=1, date2="2014-02-02",
            rdv3=1, date3="2014-02-03"),
    new_row(name="Dupré Anne", created="2014-05-12", notification_date=""),
)


class Walk(Steps, Elsewhere):
    """A run of the program in its own home. `seed` determines every step."""

    def __init__(self, desktop, seed, environment):
        self.counts = collections.Counter()
        self._random = random.Random(seed)
        self._home = Home()
        self._store = Store(self._home.data, "tandry")
        self._store.seed(*_PATIENTS)
        self._model = Model(_PATIENTS)
        self._history = []
        self._widget = Tandry(desktop, self._home, clock=CLOCK, environment=environment)

    def close(self):
        """Ends the program and deletes its home."""
        self._widget.stop()
        self._home.remove()

    def run(self, steps):
        """Performs that many steps; Strayed holds the last steps and the difference."""
        self._widget.wait_until_ready()
        # Two seconds after its start the program shows its first message and counts again.
        wait_until(lambda: "Refreshing icon." in self._widget.log, "the first refresh is done")
        self._history.append("start")
        self._compare()
        for number in range(steps):
            self._history = self._history[-12:] + [f"step {number + 1}:"]
            try:
                self._step()
                self._compare()
            except (AssertionError, LookupError, AttributeError) as problem:
                raise Strayed("\n".join(self._history) + f"\n{type(problem).__name__}: {problem}") from problem
        unexpected = [line for line in complaints(self._widget.log)
                      if not (LOCKED in line and self._locked or GONE in line)]
        if unexpected:
            raise Strayed(f"the log has unexpected lines: {unexpected}")

    def _step(self):
        self.counts["steps"] += 1
        draw = self._random
        if draw.random() < 0.12:
            return self._happens_elsewhere()
        lock = self._lock_for_a_moment() if draw.random() < 0.06 else None
        try:
            steps = self._list_steps() if self._model.list.shown and draw.random() < 0.45 else \
                self._editor_steps() if self._model.editor else self._search_steps()
            weights, functions = zip(*steps)
            draw.choices(functions, weights)[0]()
        finally:
            if lock:
                lock.join()
        return None

    def _search_steps(self):
        model = self._model
        yield 5, self._search
        if len(model.rows) < MOST_PATIENTS:
            yield 4, self._create
        if model.results:
            yield 12, self._open_result
        if not model.list.shown:
            yield 2, self._open_list

    def _editor_steps(self):
        editor = self._model.editor
        yield 2, self._leave
        if not self._model.list.shown:
            yield 1, self._open_list
        if not editor.alive:
            if self._model.asked():
                yield 3, self._answer
            return
        if editor.buttons:
            if editor.number is not None or editor.name:
                yield 8, self._validate
            yield 3, self._cancel
        yield 2, self._change_phone
        yield 1, self._change_gender
        yield 1, self._change_name
        if self._model.asked():
            yield 22, self._answer
            yield 2, self._fold
            yield 1, self._answer_behind_a_lock
        if self._model.gates():
            yield 8, self._open_gate

    def _list_steps(self):
        model = self._model
        yield 2, self._show_tab
        yield 2, self._close_list
        yield 1, self._tick_everyone
        if model.list.rows:
            yield 4, self._tick
            yield 5, self._open_row
        if len(model.list.ticked) <= 2:
            yield 2, self._delete_ticked
