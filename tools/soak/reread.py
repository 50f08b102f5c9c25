"""A stored answer stays shown and stored when another process locks the file right after the commit."""

from rereading.trial import Rereading

DESCRIPTION = "locks the database for 1.5 s right after a commit: the answer must stay shown, and survive the next saves"
_PROGRESS = 10


def add_arguments(parser):
    parser.add_argument("--hits", type=int, default=100, help="required number of locks before the re-read (default 100)")
    parser.add_argument("--attempts", type=int, default=1000, help="maximum number of attempts (default 1000)")


def run(options, report):
    trial = Rereading(options.desktop, options.seed, {"QT_QUICK_BACKEND": "software"})
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
            report.value(label, value)
