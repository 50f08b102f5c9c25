"""A short random walk through the window: after each step it shows and stores what a model of the rules expects."""

import os
import random
import sys

from support.case import DesktopTest, main
from randomwalk.walk import Walk

SEED = "TANDRY_WALK_SEED"
FIXED_SEED, STEPS = 20140512, 20


class RandomWalk(DesktopTest):

    def walk(self, seed):
        print(f"{SEED}={seed} repeats this walk", file=sys.stderr)
        walk = Walk(self.desktop, seed, {"QT_QUICK_BACKEND": self.renderer})
        self.addCleanup(walk.close)
        walk.run(STEPS)
        self.assertEqual(walk.counts["steps"], STEPS)

    def test_the_same_walk_every_day(self):
        self.walk(FIXED_SEED)

    def test_another_walk_every_day(self):
        self.walk(int(os.environ.get(SEED) or random.SystemRandom().randrange(10 ** 9)))


if __name__ == "__main__":
    main()
