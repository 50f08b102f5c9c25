"""A series of trials: start the program, use it, kill it, check its files, start again."""

import collections
import os
import random

from support.case import complaints
from support.home import Home
from support.killer import Killer
from support.store import Store
from support.watch import CREATED, DELETED, MODIFIED

from . import inspection
from .actions import Actions
from .confirmed import CLOCK, Confirmed, Lost, State

_SURNAMES = ("ARNAUD", "DUPONT", "MARTIN", "MOREAU", "PETIT", "RENARD")
# The span from which the moment of a kill is drawn: about twice the duration of the phase on an idle machine.
_START_SPAN, _PRESS_SPAN, _CLICK_SPAN, _USE_SPAN = 0.8, 0.05, 0.25, 1.5
# By then a first start has created its database; on a slower machine any moment will do.
_LATEST = 3
_SLOWEST_DEATH = 60

# `aim` is the phase to hit: "start", "create", "answer" or "between". `event` is the file event that triggers the kill, None
# for a kill by the clock, after `part` of the phase's span.
Plan = collections.namedtuple("Plan", "aim event part mouse warm_up new_home")
Event = collections.namedtuple("Event", "journal kind count")
# The file events of a commit: the journal is created and written, the database is written, the journal is deleted.
_EVENTS = (Event(True, CREATED, 1), Event(True, MODIFIED, 1), Event(True, MODIFIED, 3), Event(False, MODIFIED, 1),
           Event(False, MODIFIED, 1), Event(False, MODIFIED, 2), Event(True, DELETED, 1))


class Trials:
    """`seed` determines everything except the machine's speed: with the same seed, each trial has the same plan."""

    def __init__(self, desktop, seed, environment):
        self.counts = collections.Counter()
        self._desktop, self._environment = desktop, environment
        self._seed = seed
        self._random = None
        self._home = self._store = self._confirmed = self._widget = self._killer = self._left_before = None
        self._phase = "start"
        # Changed since a window last showed them.
        self._unseen = []
        self._names = 0

    def run(self, count, progress=lambda number: None):
        """Runs `count` trials; Lost names the one that failed."""
        for number in range(1, count + 1):
            # One generator for each trial: the moment of a kill must not change the next trial.
            self._random = random.Random(f"{self._seed}/{number}")
            plan = self._plan()
            try:
                if self._home is None or plan.new_home:
                    self._move()
                self._trial(plan)
            except Exception as problem:
                raise Lost(f"trial {number}, {plan}, in phase {self._phase}: {problem}") from problem
            progress(number)
        self._finish_home()

    def close(self):
        """Ends the program and deletes the home."""
        if self._widget:
            self._widget.stop()
        if self._home:
            self._home.remove()
            self._home = None

    # Plans

    def _plan(self):
        draw = self._random
        new_home = draw.random() < 0.1
        # The first start creates the database; some kills must hit it.
        aim = draw.choices(("start", "create", "answer", "between"), (10, 1, 0, 1) if new_home else (2, 4, 5, 1))[0]
        commits = aim in ("create", "answer") or new_home and aim == "start"
        event = draw.choice(_EVENTS) if commits and draw.random() < 0.6 else None
        return Plan(aim, event, draw.random(), draw.random() < 0.15, draw.choice((0, 0, 0, 1, 2)), new_home)

    # Homes

    def _move(self):
        """Shows the stored patients in a last window, then switches to an empty home."""
        self._finish_home()
        self._home = Home()
        self._store = Store(self._home.data, os.path.basename(Actions.program))
        # Created here so that it can be watched from the beginning.
        self._store.make_folder()
        self._confirmed = Confirmed()
        self._unseen = []
        self.counts["homes"] += 1

    def _finish_home(self):
        if self._home is None:
            return
        self._start(mouse=False)
        self._widget.wait_until_ready()
        self._look()
        for _ in range(len(self._unseen)):
            self._widget.leave()
            self._look()
        log = self._widget.log
        self._kill_and_settle()
        if complaints(log):
            raise Lost(f"the program complained: {complaints(log)}")
        self.close()

    # A trial

    def _trial(self, plan):
        self.counts["trials"] += 1
        self._start(plan.mouse)
        try:
            self._live(plan)
        except Exception:
            # Requests to a program that was just killed fail in many ways.
            if self._killer.killed_at is None:
                raise
        self._kill_and_settle(count=True)

    def _start(self, mouse):
        self._phase = "start"
        self._widget = Actions(self._desktop, self._home, clock=CLOCK, environment=self._environment)
        self._widget.mouse = mouse
        self._killer = Killer(self._widget.process)
        self._left_before = inspection.journal_mark(self._store)

    def _live(self, plan):
        """Uses the program until it is killed, at the latest when the action that the plan aims at is done."""
        if plan.aim == "start":
            # Most kills come early in the start, where the program does most of its work.
            if plan.event:
                self._kill_at_event(plan)
            self._killer.after(plan.part ** 2 * _START_SPAN + (_LATEST if plan.event else 0))
            self._widget.process.wait(_SLOWEST_DEATH)
            return
        self._widget.wait_until_ready()
        self._phase = "between"
        if plan.aim == "between":
            self._killer.after(plan.part * _USE_SPAN)
        shown = self._look()
        for _ in range(plan.warm_up):
            shown = self._do_something(self._random.choice(("create", "answer")), shown, lambda: None)
        while True:
            aim = plan.aim if plan.aim != "between" else self._random.choice(("create", "answer"))
            shown = self._do_something(aim, shown, lambda: self._aim(plan))
            if plan.aim != "between":
                return

    def _aim(self, plan):
        if plan.aim == "between":
            return
        if plan.event is None:
            self._killer.after(plan.part * (_CLICK_SPAN if plan.mouse else _PRESS_SPAN))
        else:
            self._kill_at_event(plan)

    def _kill_at_event(self, plan):
        name = os.path.basename(self._store.file) + ("-journal" if plan.event.journal else "")
        # Half of the kills at once, the others up to 3 ms later: the program is that fast.
        delay = max(0, plan.part - 0.5) * 0.006
        self._killer.at_event(self._store.folder, name, plan.event.kind, plan.event.count, delay)

    def _kill_and_settle(self, count=False):
        """Kills the program if it still runs and compares its database with what was confirmed."""
        phase = self._phase
        self._killer.now()
        self._widget.process.wait(_SLOWEST_DEATH)
        status = self._widget.process.returncode
        self._widget.stop()
        if status != -9:
            raise Lost(f"the program ended by itself with {status}:\n{self._widget.log[-2000:]}")
        found = inspection.examine(self._store, os.path.join(self._home.notes, "inspection"))
        fate = self._confirmed.settle(found.rows)
        self._unseen = [name for name in self._unseen if name in self._confirmed.patients]
        if count:
            self.counts[f"phase {phase}"] += 1
            for what in ("journal", "hot", "torn"):
                if getattr(found, what) and found.mark != self._left_before:
                    self.counts[what] += 1
                    self.counts[f"{what} {phase}"] += 1
            self.counts[f"fate {fate}"] += 1

    # Actions in the program

    def _look(self):
        """Expects the window to show what is stored: the number of waiting patients and the patient last changed. Returns
        the name in the editor, or None."""
        self._widget.expect_waiting(self._confirmed.waiting)
        self.counts["windows"] += 1
        if not self._unseen:
            return None
        return self._open(self._unseen[-1])

    def _open(self, name):
        self._widget.open_and_expect(name, self._confirmed.patients[name].asked())
        self.counts["shown"] += 1
        if name in self._unseen:
            self._unseen.remove(name)
        return name

    def _do_something(self, what, shown, aim):
        """Creates a patient or gives an answer; `shown` is the name in the editor. Returns the name shown afterwards."""
        if what == "create" or not self._confirmed.patients:
            if shown:
                self._widget.leave()
            return self._create(aim)
        if not shown:
            shown = self._open(self._random.choice(sorted(self._confirmed.patients)))
        return self._answer(shown, aim)

    def _create(self, aim):
        self._names += 1
        name = f"{self._random.choice(_SURNAMES)} {self._names}"
        self._press("create", name, State(), None, lambda about_to: self._widget.create_patient(name, about_to), aim)
        return name

    def _answer(self, name, aim):
        state = self._confirmed.patients[name]
        asked = state.asked()
        key = self._random.choice([list(asked)[-1], *asked])
        answer = {"Oui": "Non", "Non": "Oui"}.get(asked[key]) or self._random.choice(("Oui", "Oui", "Non"))
        # Changing an answer changes two boxes, which are saved one after the other: the first save may store the
        # old answer again.
        between = state.answered(key, asked[key]) if asked[key] else None
        self._press("answer", name, state.answered(key, answer), between,
                    lambda about_to: self._widget.give_answer(key, answer, about_to), aim)
        return name

    def _press(self, phase, name, outcome, between, do, aim):
        def about_to():
            self._confirmed.begin(name, outcome, between)
            if name not in self._unseen:
                self._unseen.append(name)
            self._phase = phase
            aim()

        do(about_to)
        self._confirmed.confirm()
        self._phase = "between"
        self.counts[f"confirmed {phase}"] += 1
