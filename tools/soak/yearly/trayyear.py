"""The real program in a real tray, on a fast clock."""

import collections
import datetime
import os
import re
import subprocess
import time
import zoneinfo

from support import clock, processes, sanitizer
from support.desktop import Desktop
from support.home import Home
from support.statistics import StatisticsService
from support.store import Store
from support.waiting import NeverHappened, wait_until

from . import rules

ZONE = "Europe/Paris"
BEGIN = datetime.datetime(2014, 3, 3, 10, 5, tzinfo=zoneinfo.ZoneInfo(ZONE))
HOUR_SECONDS, DAY_SECONDS = 3600, 86400
_NO_BUS = "unix:path=/nonexistent"
_LINE = re.compile(r"^(\S+) debug: (.*)$")

Sample = collections.namedtuple("Sample", "day whole own descriptors")


class TrayYear:
    """One run of `program`, started as at login, for `days` on its own clock; `observer` is the folder of the observer
    plugin. Close it at the end."""

    def __init__(self, program, observer, days, speed):
        self.days, self.speed, self.samples = days, speed, []
        self._desktop = Desktop.shared()
        self._home = Home()
        self._log, self._observed = (os.path.join(self._home.notes, name) for name in ("program.log", "observed"))
        reminders = self._seed(program)
        self.patients, self.practice = len(reminders), rules.Practice(reminders, ZONE)
        self.server = self._serve()
        self._process = self._start(program, observer)
        self._started = time.monotonic()

    def live(self, progress=lambda day: None):
        """Waits until the days are over and the last upload has arrived, then ends the program. Records its memory once a
        day."""
        limit = 4 * self.days * DAY_SECONDS / self.speed + 120
        try:
            wait_until(lambda: self._look(progress), f"{self.days} days have passed, with an upload for each", limit)
        except NeverHappened as problem:
            raise NeverHappened(f"{problem}: {self._sent()} were sent, {len(self.server.requests)} arrived; "
                                "on a busy machine, choose a slower clock") from None
        processes.stop(self._process, gently=False)

    def close(self):
        """Ends the program if it still runs, and deletes its home."""
        processes.stop(self._process, gently=False)
        self.server.stop()
        self._home.remove()

    @property
    def log(self):
        """The program's log."""
        with open(self._log, encoding="utf-8", errors="replace") as file:
            return file.read()

    def events(self):
        """The observer's records of complete ticks: the end may have interrupted the last one."""
        noted = rules.read_events(self._observed)
        last = max(index for index, event in enumerate(noted) if event.what == "tick")
        return noted[:last]

    def counted(self):
        """The counts that the program has reported, each with its second."""
        told = []
        for line in self.log.splitlines():
            found = _LINE.match(line)
            number = found and re.fullmatch(r"icon (\d+)\.?", found.group(2))
            if number:
                moment = datetime.datetime.fromisoformat(found.group(1)).replace(tzinfo=BEGIN.tzinfo)
                told.append((int(moment.timestamp()), int(number.group(1))))
        return told

    def _seed(self, program):
        """Patients whose reminders come over the year. Enough of them come in the first week to fill the list's window, since
        each visible row takes memory; then one a week."""
        first = BEGIN.date() + datetime.timedelta(days=2)
        days = [first + datetime.timedelta(days=patient // 8) for patient in range(40)]
        days += [first + datetime.timedelta(days=10 + 7 * week) for week in range(52)]
        reminders = [day.isoformat() for day in days]
        Store(self._home.data, os.path.basename(program)).seed(
            *({"name": f"Patient {number:02}", "created": "2014-02-10", "notification_date": reminder}
              for number, reminder in enumerate(reminders)))
        return reminders

    def _serve(self):
        """A statistics service whose certificate is valid on all these days."""
        before = BEGIN - datetime.timedelta(days=1)
        return StatisticsService(self.days + 30, clock.moved(f"{before:%Y-%m-%d %H:%M:%S}"))

    def _start(self, program, observer):
        moved = clock.moved(f"{BEGIN:%Y-%m-%d %H:%M:%S}", self.speed)
        network = self.server.environment
        own = {**network, "TZ": ZONE, "QT_PLUGIN_PATH": os.pathsep.join((observer, network["QT_PLUGIN_PATH"])),
               "QT_QPA_GENERIC_PLUGINS": "tandryobserver," + network["QT_QPA_GENERIC_PLUGINS"],
               "TANDRY_OBSERVED": self._observed, "QT_ASSUME_STDERR_HAS_CONSOLE": "1",
               "QT_MESSAGE_PATTERN": "%{time yyyy-MM-ddTHH:mm:ss} %{type}: %{message}",
               # No D-Bus: on the fast clock a call would time out before its reply.
               "DBUS_SESSION_BUS_ADDRESS": _NO_BUS, "DBUS_SYSTEM_BUS_ADDRESS": _NO_BUS,
               "ASAN_OPTIONS": sanitizer.OPTIONS}
        with open(self._log, "wb") as log:
            return self._desktop.start(
                [program, "startup"], {**self._desktop.environment, **self._home.environment, **own, **moved},
                stdin=subprocess.DEVNULL, stdout=log, stderr=log, cwd=self._home.folder)

    def _look(self, progress):
        if self._process.poll() is not None:
            raise AssertionError(f"The program ended with status {self._process.returncode}:\n{self.log[-2000:]}")
        day = (time.monotonic() - self._started) * self.speed / DAY_SECONDS
        if not self.samples or day >= self.samples[-1].day + 1:
            self.samples.append(self._sample(day))
            progress(self.samples[-1])
        # The run ends half a day after the last upload.
        return day >= self.days + 0.5 and self._uploads_have_arrived()

    def _uploads_have_arrived(self):
        sent = self._sent()
        return sent > self.days and len(self.server.requests) == sent

    def _sent(self):
        return self.log.count("Content-Disposition: form-data; name=\\\"action\\\"")

    def _sample(self, day):
        process = f"/proc/{self._process.pid}"
        with open(process + "/smaps_rollup", encoding="ascii") as file:
            sizes = {line.split(":")[0]: int(line.split()[1]) for line in file if line.endswith("kB\n")}
        return Sample(day, sizes["Pss"], sizes["Pss_Anon"] + sizes["Pss_Shmem"], len(os.listdir(process + "/fd")))
