#!/usr/bin/env python3
"""The project's conventions that a program can check. Fails with a line for each breach."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = ("src", "tests", "benchmarks", "scripts", "cmake", "packaging", ".ci")
SOURCES = {".cpp", ".h", ".mm", ".m", ".qml", ".js", ".py", ".sh", ".cmake", ".txt", ".in", ".qrc", ""}
LONGEST = 400

HEX_COLOUR = re.compile(r"#(?:[0-9a-fA-F]{8}|[0-9a-fA-F]{6}|[0-9a-fA-F]{3,4})\b")
SYSTEM_SWITCH = re.compile(r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b.*\b(?:Q_OS_\w+|__APPLE__|__linux__|_WIN32)\b")
MEMBER_MADE = re.compile(r"^\s+(\w+) = new .*;$")
# Spelt so that they are not found here.
LEFT_OPEN = re.compile(r"\b(?:Q[S]KIP|TO[D]O|FIX[M]E)\b")
TEST_LEFT_OUT = re.compile(r"\b(?:s[k]ip(?:Test|If|Unless)?|expectedFailure)\s*\(|\bQEXPECT[_]FAIL\b")


def sources():
    """Every file that is written by hand, with its lines."""
    for folder in FOLDERS:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.is_file() and path.suffix in SOURCES and "corpus" not in path.parts:
                yield path.relative_to(ROOT), path.read_text(encoding="utf-8").splitlines()


def may_ask_for_the_system(path):
    return path.parts[:2] == ("src", "platform") or path.stem.endswith("_unix")


def breaches_of_line(path, line):
    name = path.as_posix()
    if name.startswith("src/qml/") and name != "src/qml/base/Palette.qml" and HEX_COLOUR.search(line):
        yield "a colour outside the palette"
    if SYSTEM_SWITCH.search(line) and not may_ask_for_the_system(path):
        yield "a switch of the system outside src/platform"
    if LEFT_OPEN.search(line):
        yield "something left open or left out"
    if name.startswith("tests/") and path.suffix in (".cpp", ".h", ".qml", ".py") and TEST_LEFT_OUT.search(line):
        yield "a test that is left out"


def breaches_of_file(path, lines):
    if len(lines) > LONGEST:
        yield f"{len(lines)} lines, more than {LONGEST}"
    if path.suffix == ".h" and "#pragma once" not in lines:
        yield "a header without #pragma once"
    if path.as_posix().startswith("src/"):
        for line, next_line in zip(lines, lines[1:]):
            made = MEMBER_MADE.match(line)
            if made and not re.search(rf"Q_ASSERT(_X)?\({made.group(1)}\b", next_line):
                yield f"{made.group(1)} is not checked right after its creation"


def main():
    count, breaches = 0, []
    for path, lines in sources():
        count += 1
        breaches += [f"{path}: {text}" for text in breaches_of_file(path, lines)]
        breaches += [f"{path}:{number}: {text}" for number, line in enumerate(lines, 1)
                     for text in breaches_of_line(path, line)]
    print("\n".join(breaches))
    print(f"{count} files, {len(breaches)} breaches")
    sys.exit(1 if breaches or count == 0 else 0)


main()
