"""The other process: for each line of input it waits for the next commit, locks the file and holds the lock. It prints
"armed", then "locked" and "released", or "missed" when it could not lock the file."""

import os
import sqlite3
import sys
import time

sys.path.insert(0, sys.argv[1])
from support.watch import CREATED, DELETED, Watch  # noqa: E402  (its folder is the first argument)

_HOLD_SECONDS = 1.5
_TRY_SECONDS = 0.02
_COMMIT_SECONDS = 2


def main():
    path = sys.argv[2]
    hurry()
    database = sqlite3.connect(path, timeout=0, isolation_level=None)
    for _ in sys.stdin:
        with Watch(os.path.dirname(path), CREATED | DELETED) as watch:
            say("armed")
            next(event for event in watch.events() if event.name.endswith("-journal"))
            # Polls, because waking up at the end of the commit would take too long.
            end = time.monotonic() + _COMMIT_SECONDS
            while time.monotonic() < end and not any(event.mask & DELETED for event in watch.pending()):
                pass
            if take(database):
                say("locked")
                time.sleep(_HOLD_SECONDS)
                database.execute("ROLLBACK")
                say("released")
            else:
                say("missed")


def hurry():
    """Raises the priority of this process above all others, if the user may."""
    try:
        os.sched_setscheduler(0, os.SCHED_FIFO, os.sched_param(1))
    except PermissionError:
        pass


def take(database):
    """Locks the file as soon as the program releases it; False when it does not."""
    end = time.monotonic() + _TRY_SECONDS
    while time.monotonic() < end:
        try:
            database.execute("BEGIN EXCLUSIVE")
            return True
        except sqlite3.OperationalError:
            continue
    return False


def say(word):
    print(word, flush=True)


if __name__ == "__main__":
    main()
