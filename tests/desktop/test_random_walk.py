"""Two short random walks through the window: after each step it must show and store what a model of the rules expects."""

import sys

from support.case import DesktopTest, main
from randomwalk.walk import Walk

STEPS = 20


class RandomWalk(DesktopTest):

    def walk(self, seed):
        print(f"seed {seed}", file=sys.stderr)
        walk = Walk(self.desktop, seed, {"QT_QUICK_BACKEND": self.renderer})
        self.addCleanup(walk.close)
        walk.run(STEPS)
        self.assertEqual(walk.counts["steps"], STEPS)

    def test_a_walk_of_all_kinds_of_steps_matches_the_model(self):
        self.walk(20140512)

    def test_a_walk_through_the_form_of_a_deleted_patient_matches_the_model(self):
        self.walk(598443351)


if __name__ == "__main__":
    main()
