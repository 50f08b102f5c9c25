"""400 days of daily copies with a clock that is often wrong, and kills during a copy, an exchange and a rotation."""

import datetime
import os
import random
import re
import sqlite3
import subprocess

from support import clock
from support.home import Home
from support.store import Store
from support.tandry import Tandry
from support.waiting import wait_until

DESCRIPTION = "makes copies on 400 days with a clock that is sometimes wrong, and kills copies and exchanges half-way"
_FIRST = datetime.date(2026, 11, 21)
_DAYS, _WEEKS, _MONTHS = 7, 5, 12


def add_arguments(parser):
    parser.add_argument("--days", type=int, default=400, help="number of days on which the program starts (default 400)")
    parser.add_argument("--wrong", type=int, default=10, help="interval in days between starts with a wrong clock (default 10)")
    parser.add_argument("--kills", type=int, default=200, help="number of kills for each kind of work (default 200)")


def run(options, report):
    kills(options, report)
    Year(options).run(report)


def kills(options, report):
    """Runs tst_CopyKills with more rounds; it prints how many kills interrupted the work."""
    environment = {**os.environ, "TANDRY_KILLS": str(options.kills), "TANDRY_KILL_SEED": str(options.seed % 2 ** 32)}
    done = subprocess.run([options.build / "tests" / "copies" / "tst_CopyKills"], env=environment, capture_output=True,
                          text=True, timeout=3600, check=False)
    for line in re.findall(r"\(\) (.*of them in the middle.*)", done.stdout):
        report.line(f"{options.kills} kills, {line}")
    if done.returncode != 0:
        report.failed(done.stdout)


def promised(days):
    """The days whose copies must exist: the last seven days, and the last day of five weeks and of twelve months."""
    newest_first = sorted(days, reverse=True)
    weeks, months = {}, {}
    for day in newest_first:
        weeks.setdefault(day.isocalendar()[:2], day)
        months.setdefault((day.year, day.month), day)
    return set(newest_first[:_DAYS]) | set(list(weeks.values())[:_WEEKS]) | set(list(months.values())[:_MONTHS])


class Year:
    """The real program, started once a day; a patient is added every day."""

    def __init__(self, options):
        self.options = options
        self.lot = random.Random(options.seed)
        self.desktop = options.desktop
        self.home = Home()
        self.store = Store(self.home.data, "tandry")
        self.ran = []  # days with a correct clock on which the program ran
        self.wrong = set()
        self.most = 0

    def run(self, report):
        try:
            self.store.seed({"name": "0"})
            for number in range(self.options.days):
                self.day(number)
                if number % 50 == 0:
                    report.progress(f"{number} days")
            report.value("days", len(self.ran))
            report.value("starts with a wrong clock", len(self.wrong))
            report.value("copies at the most", self.most)
            report.value("copies at the end", len(self.store.copies()))
        finally:
            self.home.remove()

    def day(self, number):
        today = _FIRST + datetime.timedelta(number)
        if number % self.options.wrong == self.options.wrong - 1:
            wrong = today + datetime.timedelta(self.lot.choice((-4000, -300, -20, -2, 2, 20, 300, 4000)))
            self.change(number)
            self.start(wrong)
            self.wrong.add(wrong)
            self.compare(today)
        self.change(number)
        self.start(today)
        self.ran.append(today)
        self.compare(today)

    def change(self, number):
        with sqlite3.connect(self.store.file) as database:
            database.execute("INSERT INTO `Patients` (name) VALUES (?)", [str(number)])
        database.close()

    def start(self, day):
        """Starts the program, waits for its copy and ends it."""
        before = self.counts()
        widget = Tandry(self.desktop, self.home, "startup", environment={
            "QT_QUICK_BACKEND": "software", **clock.moved(f"{day} 10:00:00")})
        try:
            # This line is logged after the copy.
            said = "OSVersionReadable"
            wait_until(lambda: widget.log.count(said) > self.said, "the program has started")
            self.said = widget.log.count(said)
            for line in re.findall("The patients are not copied.*", widget.log):
                raise AssertionError(line)
        finally:
            widget.stop()
        lost = [name for name, count in before.items() if name in self.counts() and self.counts()[name] < count]
        assert not lost, f"{lost} have fewer patients than before"

    said = 0

    def counts(self):
        return {name: len(self.store.copied_names(name)) for name in self.store.copies()}

    def compare(self, today):
        """All required copies exist and are complete, with at most two others."""
        kept = {datetime.date.fromisoformat(name) for name in self.store.copies()}
        self.most = max(self.most, len(kept))
        missing = promised(self.ran) - kept
        assert not missing, f"on {today} the copies of {sorted(missing)} are missing"
        superfluous = kept - promised(self.ran) - promised(self.ran[:-1]) - self.wrong
        assert len(superfluous) <= 2, f"on {today} {sorted(superfluous)} should have been deleted"
