"""Ten days of the year in the tray, with everything that is counted in it."""

import os
import pathlib
import sys
import unittest

_SOAK = pathlib.Path(__file__).resolve().parents[1]
sys.path[:0] = [str(_SOAK), str(_SOAK.parent / "desktop")]

import year  # noqa: E402
from yearly.trayyear import TrayYear  # noqa: E402


class TenDays(unittest.TestCase):

    def test_messages_days_and_uploads_come_as_often_as_they_must(self):
        # An hour is a twentieth of a second.
        run = TrayYear(os.environ["TANDRY_PROGRAM"], os.environ["TANDRY_OBSERVER"], days=10, speed=72000)
        self.addCleanup(run.close)
        run.live()
        print(*(f"{label}: {value}" for label, value in year.count(run, least=0.5)), sep="\n")
        descriptors = [sample.descriptors for sample in run.samples[5:]]
        self.assertLessEqual(max(descriptors) - min(descriptors), 3, descriptors)


if __name__ == "__main__":
    unittest.main(verbosity=2)
