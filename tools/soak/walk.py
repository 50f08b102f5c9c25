"""Walks through the real window at random and compares each step with a model of what is stored and shown."""

import collections
import os
import time

from randomwalk.comparison import Strayed
from randomwalk.walk import Walk

DESCRIPTION = "uses the window at random, by mouse, keys and accessibility bus, and compares each step with a model"


def add_arguments(parser):
    parser.add_argument("--walks", type=int, default=10, help="number of walks, each with the next seed (default 10)")
    parser.add_argument("--steps", type=int, default=200, help="number of steps of each walk (default 200)")


def run(options, report):
    desktop = options.desktop
    counts, strayed = collections.Counter(), []
    for seed in range(options.seed, options.seed + options.walks):
        begin = time.monotonic()
        walk = Walk(desktop, seed, {"QT_QUICK_BACKEND": "software"})
        try:
            walk.run(options.steps)
        except Strayed as problem:
            strayed.append(seed)
            report.failed(f"seed {seed}: {problem}")
            desktop.screen.picture(os.path.join(options.folder, f"strayed-{seed}.png"))
        finally:
            counts.update(walk.counts)
            walk.close()
        report.progress(f"seed {seed}: {walk.counts['steps']} steps, {time.monotonic() - begin:.0f} s")
    report.value("walks", options.walks)
    for label, value in sorted(counts.items()):
        report.value(label, value)
    assert not strayed, f"failed seeds: {strayed}"
