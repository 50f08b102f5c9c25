"""Kills the first start of this version over the database of an older one, at every file event and at random moments. The
next start must work, and must keep every row of the current version."""

import collections
import os
import random
import signal
import sqlite3
import threading
import time

from crashes.actions import Actions
from support.case import complaints
from support.home import Home
from support.store import Store
from support.waiting import wait_equal, wait_until
from support.watch import Watch

DESCRIPTION = "kills the first start over older databases: the next start must reach version 1.3 and a working table"
_VERSIONS = ("1.0", "1.1", "1.2", "", "none", "1.3")
_PATIENTS = 40
_PROGRESS = 20
# The longest delay after an event: the program is that fast.
_LATEST_AFTER = 0.003
_SLOWEST_START = 60
# The current version's files are only read: the span that the others take on a busy machine.
_UNTOUCHED_SPAN = 0.6
_DROPPED = "its patients are dropped"


def add_arguments(parser):
    parser.add_argument("--trials", type=int, default=240, help="number of kills (default 240)")


def run(options, report):
    desktop = options.desktop
    trials = Trials(desktop)
    draw = random.Random(options.seed)
    try:
        spans = {version: trials.measure(version) for version in _VERSIONS}
        for version, (events, seconds) in spans.items():
            report.value(f"events of a first start over {_named(version)}", f"{len(events)} in {seconds:.2f} s")
        for number in range(options.trials):
            version = _VERSIONS[number % len(_VERSIONS)]
            events, seconds = spans[version]
            turn = number // len(_VERSIONS)
            # Two thirds of the kills at the events in turn, the rest at random moments.
            if turn % 3 < 2 and events:
                trials.kill_at_event(version, 1 + (turn * 2 // 3) % len(events), draw.choice((0, draw.random())))
            else:
                trials.kill_after(version, draw.random() * seconds * 1.2)
            if (number + 1) % _PROGRESS == 0:
                report.progress(f"{number + 1} trials")
    finally:
        for label, value in sorted(trials.counts.items()):
            report.value(label, value)
        report.value("seconds of the slowest next start", f"{trials.slowest:.1f}")


class Trials:
    """`counts` holds what the kills have hit."""

    def __init__(self, desktop):
        self.counts = collections.Counter()
        self.slowest = 0
        self._desktop = desktop

    def measure(self, version):
        """The file events of a complete first start, and the seconds to the last of them."""
        with _FirstStart(self._desktop, version) as start:
            seen = []
            begin = time.monotonic()
            watcher = threading.Thread(target=start.watch, args=(lambda event: seen.append((event, time.monotonic())),))
            watcher.start()
            widget = start.begin().wait_until_ready()
            wait_until(lambda: start.store.version() == "1.3", "the version is recorded")
            # Everything is loaded by the first refresh.
            wait_until(lambda: "Refreshing icon." in widget.log, "the first refresh is done")
            start.over.set()
            watcher.join()
            return [event for event, _ in seen], (seen[-1][1] - begin if seen else _UNTOUCHED_SPAN)

    def kill_at_event(self, version, count, part):
        """Kills at the event of that number, after `part` of the longest delay."""
        with _FirstStart(self._desktop, version) as start:
            seen = []

            def at(event):
                seen.append(event)
                if len(seen) == count:
                    end = time.monotonic() + part * _LATEST_AFTER
                    while time.monotonic() < end:
                        pass
                    start.kill()

            watcher = threading.Thread(target=start.watch, args=(at,))
            watcher.start()
            start.begin()
            # The events differ slightly from start to start: the last ones may not come.
            start.wait_for_death(at_the_latest=5)
            watcher.join()
            self._examine(start, f"{_named(version)}, event {count} ({', '.join(event.name[-12:] for event in seen)})")
            self.counts["kills at an event of " + (_kind(seen[count - 1].name) if len(seen) >= count else "none")] += 1

    def kill_after(self, version, seconds):
        """Kills that many seconds after the start."""
        with _FirstStart(self._desktop, version) as start:
            start.begin()
            start.over.wait(seconds)
            start.kill()
            start.wait_for_death()
            self._examine(start, f"{_named(version)}, after {seconds:.3f} s")
            self.counts["kills at a random moment"] += 1

    def _examine(self, start, what):
        """The next start reaches version 1.3 and a working table, with every row if the database had the current version."""
        self.counts[f"kills over {_named(start.version)}"] += 1
        self.counts["left behind: " + start.state()] += 1
        begin = time.monotonic()
        widget = start.begin()
        try:
            # An empty lock file of the record may belong to another process: the program waits for it.
            wait_until(lambda: start.store.version() == "1.3" and widget.window(), "the window and the version",
                       limit=_SLOWEST_START)
            self.slowest = max(self.slowest, time.monotonic() - begin)
            self.counts["next starts that took over 10 s"] += time.monotonic() - begin > 10
            widget.wait_until_ready()
            widget.create_patient("NOUVEAU Patient", lambda: None)
            expected = (start.rows if start.version == "1.3" else []) + ["NOUVEAU Patient"]
            wait_equal(lambda: [row["name"] for row in start.store.patients()], expected, "the patients")
            assert start.store.version() == "1.3", f"version {start.store.version()!r}"
            assert start.integrity() == "ok", start.integrity()
            if start.version == "1.3":
                assert start.store.patients()[:-1] == start.before, "a row has changed"
            else:
                assert start.is_copied(), f"no copy holds the dropped patients: {start.store.copies()}"
            wrong = [line for line in complaints(widget.log) if _DROPPED not in line]
            assert not wrong, wrong
        except BaseException as problem:
            raise AssertionError(f"{what}: {problem}\n{widget.log[-1500:]}") from problem


class _FirstStart:
    """A home with the database of an older version."""

    def __init__(self, desktop, version):
        self.version = version
        self.over = threading.Event()
        self._desktop, self._widget = desktop, None
        self._home = Home()
        self.store = Store(self._home.data, os.path.basename(Actions.program))
        self.rows = [f"Patient {number:02}" for number in range(_PATIENTS)]
        self.store.seed(*({"name": name, "created": "2014-04-10", "phone": "06"} for name in self.rows),
                        version="" if version == "none" else version)
        if version == "none":
            os.remove(os.path.join(self.store.folder, _record(self.store)))
        self.before = self.store.patients()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.over.set()
        if self._widget:
            self._widget.stop()
        self._home.remove()

    def begin(self):
        """Starts the program."""
        self._widget = Actions(self._desktop, self._home, environment={"QT_QUICK_BACKEND": "software"})
        return self._widget

    def watch(self, at):
        """Calls at(event) for each event in the database's folder until `over` is set."""
        with Watch(self.store.folder) as watch:
            for event in watch.events(self.over.is_set):
                at(event)

    def kill(self):
        """Kills the program at once."""
        os.kill(self._widget.process.pid, signal.SIGKILL)
        self.over.set()

    def wait_for_death(self, at_the_latest=_SLOWEST_START):
        """Waits until the program has ended; kills it if it has not."""
        if not self.over.wait(at_the_latest):
            self.kill()
        self._widget.process.wait(_SLOWEST_START)
        self._widget.stop()

    def state(self):
        """The state of the files after the kill."""
        journal = "a journal, " if os.path.exists(self.store.file + "-journal") else ""
        return f"{journal}version {self.store.version()}, {'a' if self._has_table() else 'no'} table"

    def _has_table(self):
        database = sqlite3.connect(f"file:{self.store.file}?mode=ro&immutable=1", uri=True)
        try:
            return bool(database.execute("SELECT 1 FROM sqlite_master WHERE name = 'Patients'").fetchone())
        finally:
            database.close()

    def is_copied(self):
        """Whether a copy holds the patients; a copy made after the kill may have no table."""
        for copy in self.store.copies():
            try:
                if self.store.copied_names(copy) == self.rows:
                    return True
            except sqlite3.OperationalError:
                continue
        return False

    def integrity(self):
        """The result of SQLite's integrity check."""
        database = sqlite3.connect(f"file:{self.store.file}?mode=ro", uri=True, timeout=5)
        try:
            return database.execute("PRAGMA integrity_check").fetchone()[0]
        finally:
            database.close()


def _record(store):
    return os.path.basename(store.file).replace(".sqlite", ".ini")


def _kind(name):
    """The kind of file that an event belongs to."""
    for kind in (".sqlite-journal", ".sqlite", ".ini.lock", ".ini"):
        if name.endswith(kind):
            return kind
    return "a temporary name of the .ini" if ".ini" in name else name


def _named(version):
    return {"": 'version ""', "none": "no record"}.get(version, f"version {version}")
