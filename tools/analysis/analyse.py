#!/usr/bin/env python3
"""Runs one analyser over the sources and fails on any finding whose kind is listed in the folder "kinds": these are the
kinds that the analyser of Debian 12 knows. Findings of newer kinds are printed and do not count.

Usage: analyse.py clang_format|clang_tidy|clazy|cppcheck|qmllint|shellcheck PROGRAM BUILD_FOLDER"""

import concurrent.futures
import json
import pathlib
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
CPP_FOLDERS = [ROOT / "src" / name for name in ("app", "copies", "platform", "restore", "service")]
HEADERS = "/src/(app|copies|platform|restore|service)/[^/]+\\.h$"
FINDING = re.compile(r"\b(?:warning|error): .*?(?:\[([^\][ ]+)\])?$", re.MULTILINE)
NEWEST_OF_SHELLCHECK = 2324
FORMATTER = 14


def files(folders, *patterns):
    """The files below the folders, sorted. Exits when there are none: the folders are wrong then."""
    found = sorted(file for folder in folders for pattern in patterns for file in folder.rglob(pattern))
    if not found:
        sys.exit(f"Nothing to analyse in {', '.join(map(str, folders))}")
    return found


def compiled_sources(build):
    """The product's C++ files. Each has to be in compile_commands.json, except those for macOS."""
    commands = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    compiled = {pathlib.Path(command["directory"], command["file"]).resolve() for command in commands}
    sources = [file for file in files(CPP_FOLDERS, "*.cpp") if not file.stem.endswith("_mac")]
    missing = [str(file) for file in sources if file not in compiled]
    if missing:
        sys.exit("The build does not compile " + ", ".join(missing))
    return sources


def clang_tidy(program, build):
    return [[program, "-p", build, "--quiet", file] for file in compiled_sources(build)]


def clazy(program, build):
    # "// clazy:exclude=..." at the end of a line suppresses a finding; the reason is beside it.
    return [[program, "-p", build, "-checks=level1", f"-header-filter={HEADERS}", file]
            for file in compiled_sources(build)]


def cppcheck(program, build):
    # Both platforms in one run: cppcheck needs no headers. It does not support Objective-C++.
    options = ["--quiet", "--error-exitcode=1", "--enable=warning,style,performance,portability",
               "--inline-suppr", f"--suppressions-list={HERE / 'cppcheck-suppressions.txt'}",
               "--library=qt", "--library=posix", "--std=c++17", "--language=c++",
               "--template={file}:{line}: warning: {message} [{id}]",
               *(f"-I{folder}" for folder in CPP_FOLDERS), f"-I{build / 'src' / 'generated'}"]
    return [[program, *options, file] for file in files(CPP_FOLDERS, "*.cpp")]


def qmllint(program, build):
    # Syntax only: -U also warns about valid code.
    folders = [ROOT / "src", ROOT / "tests", ROOT / "benchmarks", build / "src" / "js"]
    return [[program, file] for file in files(folders, "*.qml", "*.js")]


def clang_format(program, build):
    """Compares the sources with .clang-format. Releases format some lines differently: only the version of Debian 12
    counts."""
    version = subprocess.run([program, "--version"], stdout=subprocess.PIPE, text=True, check=True).stdout
    if f" {FORMATTER}." not in version:
        print(f"Not compared: only version {FORMATTER} counts, this is {version}")
        sys.exit(0)
    folders = [ROOT / name for name in ("src", "tests", "benchmarks")]
    return [[program, "--dry-run", "--Werror", file] for file in files(folders, "*.cpp", "*.h", "*.mm", "*.m")]


def shellcheck(program, build):
    scripts = [file for file in files([ROOT / "scripts", ROOT / ".ci", ROOT / "packaging"], "*") if is_shell(file)]
    return [[program, "--format=gcc", file] for file in scripts]


def is_shell(file):
    """Reads the first line: the scripts have no suffix."""
    if not file.is_file():
        return False
    with open(file, "rb") as opened:
        return re.match(rb"#!.*\b(ba)?sh\b", opened.readline()) is not None


def kinds_asked_for(analysis):
    """The kinds of findings that count, or None for an analyser without kinds."""
    if analysis == "shellcheck":
        return {f"SC{number}" for number in range(1000, NEWEST_OF_SHELLCHECK + 1)}
    path = HERE / "kinds" / f"{analysis}.txt"
    return set(path.read_text(encoding="ascii").split()) | {"clang-diagnostic-error"} if path.exists() else None


def counts(finding, asked_for):
    """Whether the kind of a finding counts. A finding without a kind is an error in the source or in the command line."""
    kinds = finding.group(1)
    return asked_for is None or kinds is None or not asked_for.isdisjoint(kinds.split(","))


def run(command, asked_for):
    """The command's output, and whether it holds a finding that counts."""
    done = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, check=False)
    findings = list(FINDING.finditer(done.stdout))
    failed = done.returncode != 0 and not findings or any(counts(finding, asked_for) for finding in findings)
    said = f"{command[-1]}: status {done.returncode}\n{done.stdout}" if failed or findings else ""
    return said, failed


def main():
    analysis, program, build = sys.argv[1:]
    analyses = {"clang_format": clang_format, "clang_tidy": clang_tidy, "clazy": clazy, "cppcheck": cppcheck, "qmllint": qmllint,
                "shellcheck": shellcheck}
    commands = analyses[analysis](program, pathlib.Path(build))
    with concurrent.futures.ThreadPoolExecutor(max_workers=2) as pool:
        results = list(pool.map(lambda command: run(command, kinds_asked_for(analysis)), commands))
    print("\n".join(said for said, _ in results if said))
    failed = sum(failed for _, failed in results)
    print(f"{analysis}: {len(commands)} runs, {failed} with findings that count")
    sys.exit(1 if failed else 0)


main()
