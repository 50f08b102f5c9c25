"""Compares the program with the bare minimum: runs all benchmarks, or those whose numbers are given."""
import argparse
import os
import pathlib
import statistics
import sys

import figures
from screen import screen
from summary import HEAD, Result, line


def search(build, options):
    results = []
    for patients in options.sizes:
        reach = {"search": "≤ 3.0"} if patients == 10000 else {}
        results += figures.inside("search", build, options, patients=patients, figure="4", reaches=reach)
    if len(results) == 3:
        growth = statistics.median(results[2].values) / statistics.median(results[1].values)
        results.append(Result("4", "search, from 10,000 to 100,000", "times", [growth], reach="≤ 11"))
    return results


def click(build, options):
    return [result for patients in options.click_sizes
            for result in figures.inside("click", build, options, patients=patients, figure="7")]


def inside(name, figure, reaches=None):
    return lambda build, options: figures.inside(name, build, options, patients=options.patients, figure=figure,
                                                 reaches=reaches)


FIGURES = {
    1: figures.start,
    2: figures.memory,
    3: figures.rest,
    4: search,
    5: inside("list", "5", {"list, box ticked": "≤ 4.5", "list, box not ticked": "≤ 4.5"}),
    6: inside("answer", "6", {"answer": "≤ 1.4"}),
    7: click,
    8: inside("key", "8", {label: "a frame: 16.7" for label in
                           ("key, first letter", "key, second letter", "key, third letter")}),
    9: inside("scroll", "9", {"frames dropped per 1,000": "≤ 5"}),
    10: figures.second_start,
    11: inside("report", "11", {"report, text": "≤ 3"}),
    12: figures.opening,
    13: lambda build, options: figures.inside("copies", build, options, patients=min(options.patients, 1000), figure="13",
                                              reaches={"copy at the start, changed": "≤ 20 ms"}),
}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=pathlib.Path, required=True, help="build folder")
    parser.add_argument("--pairs", type=int, default=11)
    parser.add_argument("--small", action="store_true", help="run each benchmark once at a small size, to see that it works")
    parser.add_argument("figures", nargs="*", type=int, choices=[[], *FIGURES], metavar="figure")
    options = parser.parse_args()
    options.patients, options.sizes, options.click_sizes = 10000, [1000, 10000, 100000], [100, 1000, 10000]
    options.settle, options.hidden, options.shown, options.days = figures.SETTLE_S, 60, 20, 60
    if options.small:
        options.pairs, options.patients, options.sizes, options.click_sizes = 1, 100, [100], [100]
        options.settle, options.hidden, options.shown, options.days = 0.5, 1, 1, 2

    with screen():
        print(f"{os.cpu_count()} processors\n\n{HEAD}", flush=True)
        for number in options.figures or FIGURES:
            for result in FIGURES[number](options.build.resolve(), options):
                print(line(result), flush=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
