"""A short random walk through the window: after each step it must show and store what a model of the rules expects."""

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

    def test_a_walk_with_a_fixed_seed_matches_the_model(self):
        self.walk(FIXED_SEED)

    def test_a_walk_with_the_seed_of_the_day_matches_the_model(self):
        self.walk(int(os.environ.get(SEED) or random.SystemRandom().randrange(10 ** 9)))


if __name__ == "__main__":
    main()
