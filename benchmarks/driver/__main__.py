"""Compares the program with the bare minimum: runs all benchmarks, or those whose numbers are given."""
import argparse
import os
import pathlib
import statistics
import sys

import measurements
from screen import screen
from summary import HEAD, Result, line


def search(build, options):
    results = []
    for patients in options.sizes:
        reach = {"search": "≤ 3.0"} if patients == 10000 else {}
        results += measurements.inside("search", build, options, patients=patients, number="4", reaches=reach)
    if len(results) == 3:
        growth = statistics.median(results[2].values) / statistics.median(results[1].values)
        results.append(Result("4", "search, from 10,000 to 100,000", "times", [growth], reach="≤ 11"))
    return results


def click(build, options):
    return [result for patients in options.click_sizes
            for result in measurements.inside("click", build, options, patients=patients, number="7")]


def inside(name, number, reaches=None):
    return lambda build, options: measurements.inside(
        name, build, options, patients=options.patients, number=number, reaches=reaches)


MEASUREMENTS = {
    1: measurements.start,
    2: measurements.memory,
    3: measurements.rest,
    4: search,
    5: inside("list", "5", {"list, box ticked": "≤ 4.5", "list, box not ticked": "≤ 4.5"}),
    6: inside("answer", "6", {"answer": "≤ 1.4"}),
    7: click,
    8: inside("key", "8", {label: "a frame: 16.7" for label in
                           ("key, first letter", "key, second letter", "key, third letter")}),
    9: inside("scroll", "9", {"frames dropped per 1,000": "≤ 5"}),
    10: measurements.second_start,
    11: inside("report", "11", {"report, text": "≤ 3"}),
    12: measurements.opening,
    13: lambda build, options: measurements.inside(
        "copies", build, options, patients=min(options.patients, 1000), number="13",
        reaches={"copy at the start, changed": "≤ 20 ms"}),
}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=pathlib.Path, required=True, help="build folder")
    parser.add_argument("--pairs", type=int, default=11)
    parser.add_argument("--small", action="store_true", help="run each benchmark once at a small size, to see that it works")
    parser.add_argument("numbers", nargs="*", type=int, choices=[[], *MEASUREMENTS], metavar="number")
    options = parser.parse_args()
    options.patients, options.sizes, options.click_sizes = 10000, [1000, 10000, 100000], [100, 1000, 10000]
    options.settle, options.hidden, options.shown, options.days = measurements.SETTLE_S, 60, 20, 60
    if options.small:
        options.pairs, options.patients, options.sizes, options.click_sizes = 1, 100, [100], [100]
        options.settle, options.hidden, options.shown, options.days = 0.5, 1, 1, 2

    with screen():
        print(f"{os.cpu_count()} processors\n\n{HEAD}", flush=True)
        for number in options.numbers or MEASUREMENTS:
            for result in MEASUREMENTS[number](options.build.resolve(), options):
                print(line(result), flush=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
