"""Clocks for programs under test."""

import os

_LIBRARIES = ("/usr/lib/x86_64-linux-gnu/faketime/libfaketime.so.1",
              "/usr/lib/aarch64-linux-gnu/faketime/libfaketime.so.1")


def moved(start, speed=1):
    """The environment of a program whose clock starts at `start` ("2014-05-12 10:00:00") and runs, like its timers, at
    `speed` times the normal speed."""
    faked = {"LD_PRELOAD": _library(), "FAKETIME": f"@{start}"}
    if speed != 1:
        faked["FAKETIME"] += f" x{speed}"
    else:
        # Does not change the monotonic clock: timers and animations keep their speed.
        faked["FAKETIME_DONT_FAKE_MONOTONIC"] = "1"
    return faked


def environment_of(clock, speed=1):
    """The environment for a clock: a time as `moved` takes it, a `SetClock`, or None for this machine's."""
    if clock is None:
        return {}
    return clock.environment if isinstance(clock, SetClock) else moved(clock, speed)


class SetClock:
    """A clock that the test sets while the program runs; it stands still in between. Timers keep running."""

    def __init__(self, home, time):
        self._file = os.path.join(home.notes, "clock")
        self.set(time)
        self.environment = {"LD_PRELOAD": _library(), "FAKETIME_TIMESTAMP_FILE": self._file, "FAKETIME_NO_CACHE": "1",
                            "FAKETIME_DONT_FAKE_MONOTONIC": "1"}

    def set(self, time):
        """Sets the clock to `time`: "2014-05-12 10:00:00"."""
        with open(self._file + ".new", "w", encoding="ascii") as file:
            file.write(time + "\n")
        os.replace(self._file + ".new", self._file)


def _library():
    library = next((path for path in _LIBRARIES if os.path.exists(path)), None)
    if library is None:
        raise RuntimeError("libfaketime is not installed")
    return library
