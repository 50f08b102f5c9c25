"""Hidden, the widget sleeps: a laptop's battery must not pay for a program that waits for tomorrow."""

import pathlib
import time

from support.case import DesktopTest, main
from support.waiting import wait_until

# What the toolkit does by itself comes every ten seconds: the watched time has room for two of it.
FALLEN_ASLEEP_SECONDS, WATCHED_SECONDS = 3, 25


class Rest(DesktopTest):

    def test_hidden_it_is_woken_by_nothing(self):
        widget = self.start("startup", clock=None)
        wait_until(lambda: "icon" in widget.log, "the first refresh is done")
        wait_until(lambda: sleeps(widget.process.pid), "the statistics have given up, the scripts have come to rest")
        before = wake_ups(widget.process.pid)
        time.sleep(WATCHED_SECONDS)
        self.assertLessEqual(wake_ups(widget.process.pid) - before, 3)


def wake_ups(pid):
    """How often a thread of the process was woken from waiting."""
    return sum(int(line.split()[1]) for status in pathlib.Path(f"/proc/{pid}/task").glob("*/status")
               for line in status.read_text(encoding="ascii").splitlines()
               if line.startswith("voluntary_ctxt_switches"))


def sleeps(pid):
    """Whether nothing wakes the process for a while."""
    before = wake_ups(pid)
    time.sleep(FALLEN_ASLEEP_SECONDS)
    return wake_ups(pid) == before


if __name__ == "__main__":
    main()
