"""Kills the program at random moments, a thousand times. It must not lose anything that its window had confirmed."""

from crashes.report import lines
from crashes.trials import Trials

DESCRIPTION = "kills the program at random moments: everything its window had confirmed must be there at the next start"
_PROGRESS = 50


def add_arguments(parser):
    parser.add_argument("--trials", type=int, default=1000, help="number of kills (default 1000)")


def run(options, report):
    desktop = options.desktop
    trials = Trials(desktop, options.seed, {"QT_QUICK_BACKEND": "software"})
    try:
        trials.run(options.trials, lambda number: number % _PROGRESS or report.progress(f"{number} trials"))
    finally:
        trials.close()
        for label, value in lines(trials.counts):
            report.value(label, value)
