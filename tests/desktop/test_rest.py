"""Hidden, the widget sleeps: a laptop's battery must not pay for a program that waits for tomorrow."""

import pathlib
import time

from harness.case import DesktopTest, main
from harness.waiting import wait_until

WATCHED_SECONDS = 25


class Rest(DesktopTest):

    def test_hidden_it_is_woken_by_nothing(self):
        widget = self.start("startup")
        wait_until(lambda: "icon" in widget.log, "the first refresh is done")
        time.sleep(5)  # the statistics have given up, the scripts have come to rest
        before = wake_ups(widget.process.pid)
        time.sleep(WATCHED_SECONDS)
        self.assertLessEqual(wake_ups(widget.process.pid) - before, 3)


def wake_ups(pid):
    """How often a thread of the process was woken from waiting."""
    return sum(int(line.split()[1]) for status in pathlib.Path(f"/proc/{pid}/task").glob("*/status")
               for line in status.read_text(encoding="ascii").splitlines()
               if line.startswith("voluntary_ctxt_switches"))


if __name__ == "__main__":
    main()
