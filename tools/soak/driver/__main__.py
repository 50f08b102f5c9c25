"""Runs the long trials: all of them, or the one that is named. Each is a module in the folder above that has

    DESCRIPTION                what it does, in one line
    add_arguments(parser)      its own options, each with a default
    run(options, report)       runs it; `options` also has build (the build folder), program, folder (for the
                               trial's files), desktop and seed; raises when a check failed"""

import argparse
import importlib
import os
import pathlib
import random
import sys
import traceback

from report import Report

TRIALS = pathlib.Path(__file__).resolve().parents[1]
SUPPORT = TRIALS.parents[1] / "tests" / "desktop"


def arguments(trials):
    parser = argparse.ArgumentParser(prog="scripts/check soak", description="Runs the long trials, or one of them.")
    parser.add_argument("--build", type=pathlib.Path, required=True, help=argparse.SUPPRESS)
    commands = parser.add_subparsers(dest="trial", metavar="TRIAL")
    for name, module in trials.items():
        command = commands.add_parser(name, help=module.DESCRIPTION, description=module.DESCRIPTION)
        command.add_argument("--seed", type=int, help="seed of the random generator, to repeat a run (default: a new one)")
        module.add_arguments(command)
    given = parser.parse_args()
    for name in [given.trial] if given.trial else trials:
        options = given if given.trial else parser.parse_args(["--build", str(given.build), name])
        options.seed = random.SystemRandom().randrange(10 ** 9) if options.seed is None else options.seed
        yield name, options


def main():
    sys.path[:0] = [str(TRIALS), str(SUPPORT)]
    build = pathlib.Path(sys.argv[sys.argv.index("--build") + 1]).resolve()
    # Set before the modules are loaded: the support reads these variables.
    os.environ["TANDRY_PROGRAM"] = str(build / "src" / "tandry")
    os.environ["TANDRY_RESTORE"] = str(build / "src" / "restore" / "tandry-restore")
    os.environ["TANDRY_TRUST"] = str(build / "tests" / "desktop" / "trust" / "plugins")
    os.environ["TANDRY_ARTEFACTS"] = str(build / "desktop-artefacts")
    modules = {path.stem: importlib.import_module(path.stem) for path in sorted(TRIALS.glob("*.py"))}
    runs = list(arguments({name: module for name, module in modules.items() if hasattr(module, "run")}))

    desktop, tree = (importlib.import_module("support." + name) for name in ("desktop", "tree"))
    report = Report(build / "report.txt")
    for name, options in runs:
        options.build, options.program, options.folder = build, os.environ["TANDRY_PROGRAM"], build / name
        options.folder.mkdir(exist_ok=True)
        options.desktop = desktop.Desktop.shared()
        tree.connect()
        report.begin(name, options.seed)
        try:
            modules[name].run(options, report)
        except Exception as problem:
            traceback.print_exc()
            report.failed(f"{type(problem).__name__}: {problem}")
        report.end()
    return report.close()


if __name__ == "__main__":
    sys.exit(main())
