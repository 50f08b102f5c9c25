"""Clocks of a program under test that differ from ours."""

import os

_LIBRARIES = ("/usr/lib/x86_64-linux-gnu/faketime/libfaketime.so.1",
              "/usr/lib/aarch64-linux-gnu/faketime/libfaketime.so.1")


def moved(start, speed=1):
    """The environment of a program whose clock stands at `start` ("2014-05-12 10:00:00") when it begins, and runs, with
    its timers, `speed` times as fast as ours."""
    faked = {"LD_PRELOAD": _library(), "FAKETIME": f"@{start}"}
    if speed != 1:
        faked["FAKETIME"] += f" x{speed}"
    else:
        # The monotonic clock is left alone: timers and animations keep their pace.
        faked["FAKETIME_DONT_FAKE_MONOTONIC"] = "1"
    return faked


def environment_of(clock, speed=1):
    """The environment for a clock: a time as `moved` takes it, a `SetClock`, or None for this machine's."""
    if clock is None:
        return {}
    return clock.environment if isinstance(clock, SetClock) else moved(clock, speed)


class SetClock:
    """A clock that someone sets while the program runs; between two settings it stands still. Timers run on."""

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
