"""The program is killed at random moments while patients are created and answered for: what its window had confirmed is
there, what was under way is there whole or not at all, and the next start goes on from it."""

import os
import random
import sys

from crashes.report import lines
from crashes.trials import Trials
from harness.case import DesktopTest, main

TRIALS = 50
SEED = "TANDRY_CRASH_SEED"


class Crash(DesktopTest):

    def test_nothing_confirmed_is_lost(self):
        seed = int(os.environ.get(SEED) or random.SystemRandom().randrange(10 ** 9))
        print(f"{SEED}={seed} repeats this run", file=sys.stderr)
        trials = Trials(self.desktop, seed, {"QT_QUICK_BACKEND": self.renderer})
        self.addCleanup(trials.close)
        trials.run(TRIALS)
        for label, value in lines(trials.counts):
            print(f"{label}: {value}", file=sys.stderr)


if __name__ == "__main__":
    main()
