"""What was stored stays shown and stored when another process takes the file right after the commit."""

from harness import tree
from harness.desktop import Desktop
from rereading.trial import Rereading

DESCRIPTION = "takes the database right after a commit for 1.5 s: what was stored is shown, and kept by what follows"
_PROGRESS = 10


def add_arguments(parser):
    parser.add_argument("--hits", type=int, default=100, help="how often it must come before the re-read (100)")
    parser.add_argument("--attempts", type=int, default=1000, help="how many attempts it may take (1000)")


def run(options, report):
    trial = Rereading(Desktop.shared(), options.seed, {"QT_QUICK_BACKEND": "software"})
    tree.connect()
    hits = 0
    try:
        trial.begin()
        for number in range(options.attempts):
            hits += trial.attempt()
            if hits == options.hits:
                break
            if (number + 1) % _PROGRESS == 0:
                report.progress(f"{number + 1} attempts, {hits} hits")
        assert hits == options.hits, f"only {hits} hits in {options.attempts} attempts"
    finally:
        trial.close()
        for label, value in sorted(trial.counts.items()):
            report.figure(label, value)
