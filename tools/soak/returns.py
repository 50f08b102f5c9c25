"""The way back is killed in its window while it exchanges the files: all patients are then those of before, or all those
of the copy, and the widget starts with them."""

import contextlib
import os
import random
import sqlite3

from support.home import Home
from support.killer import Killer
from support.store import Store
from support.tandry import Tandry
from support.waiting import wait_equal, wait_until
from support.watch import CREATED, DELETED, MOVED_HERE, Watch
from support.widget import Widget

DESCRIPTION = "kills tandry-restore at random moments while it puts a copy back: all patients are the old or the new ones"
# The same patients under a name of each state.
_STATES = {"Avant": "2026-11-19", "Plus tard": "2026-11-20"}
_SHOWN = {"Avant": "jeudi 19 novembre 2026", "Plus tard": "vendredi 20 novembre 2026"}
_TODAY = "2026-11-21 10:00:00"
_FILLED, _DECIDED = ".return-new", ".return"
_MOMENT_SECONDS, _BEFORE_SECONDS = 0.003, 0.2
_LOOKED_AT = 10  # every how many kills the window is looked at, too


def add_arguments(parser):
    parser.add_argument("--kills", type=int, default=100, help="how often it is killed (100)")
    parser.add_argument("--patients", type=int, default=2000, help="how many patients there are (2000)")


def run(options, report):
    returns = Returns(options)
    try:
        returns.prepare()
        returns.undisturbed()
        report.value("events in the folder during an exchange, undisturbed", returns.events)
        for number in range(options.kills):
            returns.killed(number % _LOOKED_AT == 0)
            if number % 10 == 9:
                report.progress(f"{number + 1} kills")
    finally:
        returns.home.remove()
        for label, count in returns.counts.items():
            report.value(label, count)


class RestoreProgram(Widget):
    program = os.environ.get("TANDRY_RESTORE", "")


class Returns:
    """One home, in which two copies replace each other again and again."""

    def __init__(self, options):
        self.patients = options.patients
        self.lot = random.Random(options.seed)
        self.desktop = options.desktop
        self.home = Home()
        self.store = Store(self.home.data, os.path.basename(Tandry.program))
        self.state = None
        self.events = 0
        self.counts = dict.fromkeys(("killed before anything was exchanged", "killed while the new files were made",
                                     "killed between the decision and its end", "killed when all was done"), 0)

    def prepare(self):
        """Makes the two copies, as the widget does at a start on two days."""
        self.store.seed(*({"name": f"- {number:04}"} for number in range(self.patients)))
        for state, day in _STATES.items():
            with sqlite3.connect(self.store.file) as database:
                database.execute("UPDATE `Patients` SET name = ? || substr(name, -5)", [state])
            database.close()
            self.start_widget(f"{day} 10:00:00").stop()
            self.state = state
        assert self.store.copies() == list(_STATES.values()), self.store.copies()

    def start_widget(self, clock, state=None):
        """The next start works; with a state, the window finds a patient of it. The running widget."""
        said = "Refreshing icon."
        widget = Tandry(self.desktop, self.home, *([] if state else ["startup"]), clock=clock,
                        environment={"QT_QUICK_BACKEND": "software"})
        if state:
            widget.wait_until_ready()
            widget.search(" 0001")
            wait_equal(widget.results, [f"{state} 0001"], "the widget finds a patient")
        else:
            before = widget.log.count(said)
            wait_until(lambda: widget.log.count(said) > before, "the widget has counted its patients")
        return widget

    def undisturbed(self):
        """Goes back to the other copy, and counts what happens in the folder until all is exchanged."""
        target, restore, place = self.ask()
        with Watch(self.store.folder) as watch:
            restore.screen.click(*place)
            for event in watch.events():
                self.events += 1
                if event.name == _DECIDED and event.mask & DELETED:
                    break
        restore.stop()
        self.state = self.compare({target}, True)

    def killed(self, look):
        """Goes back to the other copy and is killed meanwhile: a moment after a step of the exchange that the lot draws, every
        fifth time so long after the click as the lot draws."""
        target, restore, place = self.ask()
        # On a machine with a processor to spare it would be done before anyone sees that it has begun.
        os.setpriority(os.PRIO_PROCESS, restore.process.pid, 10)
        killer = Killer(restore.process)
        # Before the click: the exchange may be over when the click returns.
        if self.lot.random() < 0.2:
            killer.after(self.lot.uniform(0, _BEFORE_SECONDS))
        else:
            name, event = self.lot.choice(self.steps())
            killer.at_event(self.store.folder, name, event, delay=self.lot.uniform(0, _MOMENT_SECONDS))
        restore.screen.click(*place)
        wait_until(lambda: not restore.running, "the kill")
        restore.stop()
        self.count(target)
        self.state = self.compare({self.state, target}, look)

    def steps(self):
        """What happens in the folder during an exchange, in its order."""
        database = os.path.basename(self.store.file)
        return [(_FILLED, CREATED), (_DECIDED, MOVED_HERE), (database, MOVED_HERE),
                (database.replace(".sqlite", ".ini"), MOVED_HERE), (_DECIDED, DELETED)]

    def ask(self):
        """Starts the program and chooses the copy of the other state; what that is, the program, and the place of the button
        that begins the exchange."""
        target = next(state for state in _STATES if state != self.state)
        restore = RestoreProgram(self.desktop, self.home, clock=_TODAY)
        restore.control("Copies")
        wait_until(lambda: restore.control("Revenir à cette copie…").has("enabled"), "a copy can be put back")
        restore.click(_SHOWN[target], "table cell")
        restore.click("Revenir à cette copie…")
        restore.control(f"Revenir à la copie du {_SHOWN[target]} ?")
        place = restore.resting_place(lambda: restore.find("Revenir à cette copie", "push button"), "the answer")
        return target, restore, place

    def count(self, target):
        """Where the kill has met it, by what lies in the folder."""
        found = os.listdir(self.store.folder)
        if _DECIDED in found:
            label = "killed between the decision and its end"
        elif _FILLED in found:
            label = "killed while the new files were made"
        else:
            label = "killed when all was done" if self.names()[0].startswith(target) \
                else "killed before anything was exchanged"
        self.counts[label] += 1

    def names(self):
        """The patients' names as they are in the file."""
        return [patient["name"] for patient in self.store.patients()]

    def compare(self, allowed, look):
        """After the next start all patients are those of one of the allowed states, which is returned."""
        after = next(state for state in _STATES if self.decided().startswith(state))
        assert after in allowed, f"{after}, not {allowed}"
        self.start_widget(_TODAY, after if look else None).stop()
        expected = [f"{after} {number:04}" for number in range(self.patients)]
        assert self.names() == expected, f"not the {self.patients} patients of {after!r}"
        assert self.store.version() == "1.3", self.store.version()
        left = {name for name in os.listdir(self.store.folder) if name.startswith(".return")}
        assert not left, f"{left} is left after a start"
        for copy in self.store.copies():
            copied = self.store.copied_names(copy)
            assert any(copied == [f"{state} {number:04}" for number in range(self.patients)] for state in _STATES), copy
        return after

    def decided(self):
        """A name of the state that the next start has to show."""
        waiting = os.path.join(self.store.folder, _DECIDED, os.path.basename(self.store.file))
        file = waiting if os.path.exists(waiting) else self.store.file
        with contextlib.closing(sqlite3.connect(f"file:{file}?mode=ro", uri=True)) as database:
            return database.execute("SELECT name FROM `Patients` LIMIT 1").fetchone()[0]
