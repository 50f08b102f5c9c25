#!/usr/bin/env python3
"""Mutation testing: changes one thing at a time in the program and checks that a test fails. See scripts/check mutate."""

import argparse
import collections
import fcntl
import os
import pathlib
import random
import sys
import threading
import time

from equivalents import read_equivalents
from operators import mutants_of
from plan import PLAN, TARGETS, changed_files
from report import Report
from sandbox import BrokenTree, Sandbox
from source import Source

HERE = pathlib.Path(__file__).resolve().parent


def all_mutants(root, paths):
    return [mutant for path in paths for mutant in mutants_of(Source(path, (root / path).read_text(encoding="utf-8")))]


class Trials:
    """Mutants distributed among sandboxes, one thread for each sandbox."""

    def __init__(self, root, folder, plan, targets, jobs):
        self.plan = plan
        self.sandboxes = [Sandbox(root, folder / f"sandbox-{number}", targets) for number in range(1, jobs + 1)]
        self.lock = threading.Lock()
        self.failure = None

    def run(self, mutants, report):
        tests = list(dict.fromkeys(name for mutant in mutants for name in self.plan[mutant.path]))
        self._in_each(lambda sandbox: sandbox.prepare(tests))
        waiting = collections.deque(mutants)
        self._in_each(lambda sandbox: self._work_off(sandbox, waiting, report))

    def _in_each(self, work):
        threads = [threading.Thread(target=self._guarded, args=(work, sandbox)) for sandbox in self.sandboxes]
        for thread in threads:
            thread.start()
        try:
            for thread in threads:
                thread.join()
        except KeyboardInterrupt as interruption:
            self.failure = interruption  # the other threads check it before their next mutant
        if self.failure:
            raise self.failure

    def _guarded(self, work, sandbox):
        try:
            work(sandbox)
        except Exception as error:
            self.failure = error

    def _work_off(self, sandbox, waiting, report):
        while not self.failure:
            with self.lock:
                if not waiting:
                    break
                mutant = waiting.popleft()
            started = time.monotonic()
            verdict, by = sandbox.try_out(mutant.path, mutant.text, self.plan[mutant.path])
            with self.lock:
                report.add(mutant, verdict, by, time.monotonic() - started)
        sandbox.restore()


def chosen_paths(paths, names):
    chosen = [path for path in paths if not names or pathlib.PurePath(path).name in names or path in names]
    unknown = [name for name in names if not any(path.endswith(name) for path in chosen)]
    if unknown:
        sys.exit(f"not a file of the plan: {', '.join(unknown)}; the plan has {', '.join(paths)}")
    return chosen


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/check mutate", description=__doc__)
    parser.add_argument("files", nargs="*", help="only the mutants of these files, such as Bdd.js")
    parser.add_argument("--sample", type=int, metavar="N", help="only N of the mutants, drawn at random")
    parser.add_argument("--seed", type=int, default=1, metavar="S", help="seed of the random sample (default: %(default)s)")
    parser.add_argument("--jobs", type=int, default=min(2, os.cpu_count() or 1), metavar="J",
                        help="number of parallel sandboxes (default: %(default)s)")
    parser.add_argument("--folder", type=pathlib.Path, default=HERE.parents[1] / "build" / "mutation",
                        help="folder of the sandboxes and the report (default: build/mutation)")
    parser.add_argument("--list", action="store_true", help="only list the mutants")
    return parser.parse_args()


def draw(mutants, count, seed):
    """The mutants in random order: a run that is stopped early has tried a sample."""
    return random.Random(seed).sample(mutants, count) if count and count < len(mutants) else mutants


def claim(folder):
    """Locks the folder against a second run until the returned file is closed."""
    folder.mkdir(parents=True, exist_ok=True)
    claimed = (folder / "lock").open("w", encoding="utf-8")
    try:
        fcntl.flock(claimed, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        sys.exit(f"another run uses {folder}")
    return claimed


def main():
    options = arguments()
    root, folder = HERE.parents[1], options.folder.resolve()
    plan = changed_files(root, PLAN)
    mutants = draw(all_mutants(root, chosen_paths(plan, options.files)), options.sample, options.seed)
    if options.list:
        for mutant in mutants:
            print(f"{mutant.path}:{mutant.line} {mutant.function}: {mutant.operator}: {mutant.change}")
        return 0

    started = time.monotonic()
    report = Report(len(mutants), read_equivalents(HERE / "equivalents.txt"))
    with claim(folder):
        try:
            Trials(root, folder, plan, TARGETS, options.jobs).run(mutants, report)
        except BrokenTree as error:
            sys.exit(str(error))
        faults = report.faults(is_complete=not options.files and not options.sample)
        report.write(folder / "report.txt", faults, time.monotonic() - started)
    print("\n".join([*report.totals(), "", *faults, f"The report is {folder / 'report.txt'}."]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
