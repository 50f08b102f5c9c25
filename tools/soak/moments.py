"""Removes or empties the version record, or moves the database's folder away, at ten moments between the start of the
program and its first stored answer."""

import collections
import copy
import os
import time

from crashes.actions import Actions
from support.home import Home
from support.store import Store
from support.tandry import NAME_FIELD, SEARCH_FIELD
from support.waiting import wait_equal, wait_until

DESCRIPTION = "removes or empties the version record, or moves the database's folder away, at ten moments"
_ACCIDENTS = ("record removed", "record emptied", "folder moved away")
_NAMES = ["DUPONT Marie", "DURAND Paul"]
_MOMENTS = ("process started", "a third of the way to the database", "two thirds of the way", "database opened",
            "window shown", "search field ready", "first letter typed", "results shown", "editor shown",
            "question unfolded")


def add_arguments(parser):
    parser.add_argument("--rounds", type=int, default=3, help="number of times each accident happens at each moment (default 3)")


def run(options, report):
    desktop = options.desktop
    seconds = _seconds_to_the_database(desktop)
    report.value("seconds from the start to the opened database", f"{seconds:.2f}")
    counts = collections.Counter()
    for number in range(options.rounds):
        for accident in _ACCIDENTS:
            for moment in _MOMENTS:
                trial = _Trial(desktop, accident, moment, seconds)
                try:
                    counts[trial.run()] += 1
                except BaseException as problem:
                    raise AssertionError(f"{accident}, {moment}: {problem}\n{trial.log()[-1500:]}") from problem
                finally:
                    trial.close()
        report.progress(f"{number + 1} rounds")
    for label, value in sorted(counts.items()):
        report.value(label, value)


def _seconds_to_the_database(desktop):
    trial = _Trial(desktop, None, None, 0)
    try:
        begin = time.monotonic()
        trial.begin()
        wait_until(trial.has_opened, "the database is open")
        return time.monotonic() - begin
    finally:
        trial.close()


class _Trial:
    """One start with one accident."""

    def __init__(self, desktop, accident, moment, seconds):
        self._desktop, self._accident, self._moment, self._seconds = desktop, accident, moment, seconds
        self._home = Home()
        self._store = Store(self._home.data, os.path.basename(Actions.program))
        self._store.seed(*({"name": name, "created": "2014-04-10"} for name in _NAMES))
        self._record = self._store.file.replace(".sqlite", ".ini")
        self._away = self._store.folder + ".away"
        self._widget = None
        self._opened_before = None

    def begin(self):
        """Starts the program."""
        self._widget = Actions(self._desktop, self._home, environment={"QT_QUICK_BACKEND": "software"})
        return self._widget

    def log(self):
        """The program's log."""
        return self._widget.log if self._widget else ""

    def close(self):
        """Ends the program and deletes its home."""
        if self._widget:
            self._widget.stop()
        self._home.remove()

    def has_opened(self):
        """Whether the program has opened the database for writing: by then it has read the version record."""
        folder = f"/proc/{self._widget.process.pid}/fd"
        try:
            for name in os.listdir(folder):
                if os.readlink(os.path.join(folder, name)).endswith(".sqlite"):
                    with open(f"{folder}info/{name}", encoding="ascii") as file:
                        flags = next(line for line in file if line.startswith("flags:"))
                    if int(flags.split()[1], 8) & os.O_RDWR:
                        return True
        except FileNotFoundError:
            pass
        return False

    def run(self):
        """The outcome in words."""
        widget = self.begin()
        self._live_until_the_accident(widget)
        if not self._opened_before:
            return self._before_the_store_is_open()
        # The remaining steps to the first answer.
        if self._accident == "folder moved away":
            self._use_without_folder(widget)
        self._answer(widget)
        wait_equal(lambda: [row["name"] for row in self._store.patients()], _NAMES, "both patients")
        assert "are dropped" not in widget.log, "the table has been dropped"
        self._check_folders()
        return f"{self._accident}, after the store was open: nothing lost"

    def _live_until_the_accident(self, widget):
        steps = {
            "process started": lambda: None,
            "a third of the way to the database": lambda: self._sleep(self._seconds / 3),
            "two thirds of the way": lambda: self._sleep(self._seconds / 3),
            "database opened": self._wait_for_the_database,
            "window shown": widget.wait_for_window,
            "search field ready": widget.wait_until_ready,
            "first letter typed": lambda: widget.type("D"),
            "results shown": lambda: wait_until(lambda: widget.find("Patients trouvés", "list"), "the results"),
            "editor shown": self._open,
            "question unfolded": lambda: wait_until(lambda: widget.answer_box("test", "Oui"), "the answers"),
        }
        for moment in _MOMENTS:
            steps[moment]()
            if moment == self._moment:
                self._opened_before = self._is_past_the_opening()
                self._happen()
                return

    @staticmethod
    def _sleep(seconds):
        time.sleep(seconds)

    def _wait_for_the_database(self):
        wait_until(self.has_opened, "the database is open")

    def _is_past_the_opening(self):
        """The record is read before the database is opened. The list's window opens the folder again shortly afterwards, before
        a window is shown."""
        return self.has_opened() and (self._accident != "folder moved away" or bool(self._widget.window()))

    def _happen(self):
        if self._accident == "record removed":
            os.remove(self._record)
        elif self._accident == "record emptied":
            os.truncate(self._record, 0)
        else:
            os.rename(self._store.folder, self._away)

    def _open(self):
        """Opens the first patient from the results; does not retype a search text."""
        widget = self._widget
        widget.wait_until_ready()
        if widget.control(SEARCH_FIELD, "text").text == "":
            widget.type("D")
        wait_until(lambda: _NAMES[0] in widget.results(), "the results show the patient")
        widget.find("Patients trouvés", "list").find(_NAMES[0], "push button").act()
        wait_equal(lambda: widget.control(NAME_FIELD, "text").text, _NAMES[0], "the editor shows the patient")
        widget.wait_for_question("test")

    def _answer(self, widget):
        if not widget.find(NAME_FIELD, "text"):
            self._open()
        box = wait_until(lambda: widget.answer_box("test", "Oui"), "the answers")
        box.act()
        wait_until(lambda: (self._store.patient(_NAMES[0]) or {}).get("test_date"), "the answer is stored")
        wait_equal(widget.shown, {"test": "Oui", "confirmation": ""}, "the answer is shown")
        widget.leave()
        # The search finds both patients as before.
        widget.type("D")
        wait_equal(lambda: sorted(widget.results()), _NAMES, "the search finds both")

    def _use_without_folder(self, widget):
        """Searches and opens while the folder is away; then it is moved back."""
        if not widget.find(NAME_FIELD, "text"):
            self._open()
        assert not os.path.exists(self._store.folder), "the folder has been created again"
        os.rename(self._away, self._store.folder)

    def _check_folders(self):
        assert not os.path.exists(self._away)
        nested = [name for name in os.listdir(self._store.folder)
                  if os.path.isdir(os.path.join(self._store.folder, name))]
        assert not nested, f"folders inside the database's folder: {nested}"

    def _before_the_store_is_open(self):
        """The version rule may apply here: a database without a record is emptied. Then a copy must hold all patients."""
        widget = self._widget
        widget.wait_until_ready()
        if self._accident == "folder moved away":
            made_anew = os.path.exists(self._store.folder)
            away = copy.copy(self._store)
            away.file = os.path.join(self._away, os.path.basename(self._store.file))
            assert [row["name"] for row in away.patients()] == _NAMES, "a patient is lost"
            outcome = "created again, empty" if made_anew else "kept"
            return f"{self._accident}, before both windows had opened the store: {outcome}"
        names = [row["name"] for row in self._store.patients()]
        dropped = "are dropped" in widget.log
        assert names == ([] if dropped else _NAMES), f"{names}, dropped: {dropped}"
        if dropped:
            copied = [self._store.copied_names(name) for name in self._store.copies()]
            assert _NAMES in copied, f"dropped, and not in any copy: {self._store.copies()}"
        outcome = "emptied by the version rule, a copy holds all patients" if dropped else "kept"
        return f"{self._accident}, before the record was read: {outcome}"
