"""A hidden widget sleeps, to spare the battery of a laptop."""

import pathlib
import time

from support.case import DesktopTest, main
from support.waiting import wait_until

# Qt's own timers fire every ten seconds: the observed time covers two of them.
FALLEN_ASLEEP_SECONDS, WATCHED_SECONDS = 3, 25


class Rest(DesktopTest):

    def test_nothing_wakes_a_hidden_widget(self):
        widget = self.start("startup", clock=None)
        wait_until(lambda: "icon" in widget.log, "the first refresh is done")
        wait_until(lambda: sleeps(widget.process.pid), "the statistics request has failed and the scripts are idle")
        before = wake_ups(widget.process.pid)
        time.sleep(WATCHED_SECONDS)
        self.assertLessEqual(wake_ups(widget.process.pid) - before, 3)


def wake_ups(pid):
    """The number of times that a thread of the process woke up."""
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
